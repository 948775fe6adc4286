#include "budget/BudgetItemModel.h"

#include "budget/BudgetBook.h"

void BudgetItemModel::setRows(const BudgetCategories::ItemRows &rows)
{
    beginResetModel();
    m_rows = rows;
    endResetModel();
}

QString BudgetItemModel::cell(int row, int column) const
{
    if (row < 0 || row >= int(m_rows.size()))
        return {};
    return column == Name ? m_rows[row].name : column == Amount ? m_rows[row].amount : QString();
}

void BudgetItemModel::setCell(int row, int column, const QString &text)
{
    if (row < 0 || row >= int(m_rows.size()) || (column != Name && column != Amount))
        return;
    (column == Name ? m_rows[row].name : m_rows[row].amount) = text;
    Q_EMIT dataChanged(index(row, column), index(row, column));
}

bool BudgetItemModel::accepts(const QString &text)
{
    return !exceedsMaxAmount(BudgetBook::amountValue(text));
}

Qt::ItemFlags BudgetItemModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.isValid() && index.column() != Fixed ? flags | Qt::ItemIsEditable : flags;
}

bool BudgetItemModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || role != Qt::EditRole || index.column() == Fixed
        || !accepts(value.toString()))
        return false;
    setCell(index.row(), index.column(), value.toString());
    return true;
}

void BudgetItemModel::clear()
{
    setRows({});
}

int BudgetItemModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int BudgetItemModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : 3;
}

QVariant BudgetItemModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    if (role == Qt::DisplayRole || role == Qt::EditRole)
        return index.column() == Fixed ? QString::number(index.row() + 1)
                                       : cell(index.row(), index.column());
    if (role == Qt::TextAlignmentRole)
        return index.column() == Fixed ? QVariant(Qt::AlignCenter)
                                       : QVariant(Qt::AlignLeft | Qt::AlignVCenter);
    return {};
}

QVariant BudgetItemModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case Fixed:
        return QStringLiteral("Itemize");
    case Name:
        return QStringLiteral("Sub-Category");
    case Amount:
        return QStringLiteral("Amount");
    default:
        return {};
    }
}
