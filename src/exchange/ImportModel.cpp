#include "exchange/ImportModel.h"

#include "core/EntryChecks.h"
#include "register/EntryRules.h"

#include <QBrush>
#include <QColor>

ImportModel::ImportModel(ImportPlan &plan, QObject *parent)
    : QAbstractTableModel(parent), m_plan(plan)
{
}

int ImportModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_plan.rows().size());
}

int ImportModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant ImportModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const ImportPlan::Row &r = m_plan.rows()[std::size_t(index.row())];
    if (role == Qt::TextAlignmentRole && index.column() == Amount)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    if (role == Qt::ForegroundRole && index.column() == Status
        && r.status != ImportPlan::Status::New)
        return QBrush(r.status == ImportPlan::Status::Refused ? QColor(Qt::darkRed)
                                                              : QColor(Qt::darkGray));
    if (role == Qt::ToolTipRole)
        return index.column() == Payee || index.column() == Memo
                   ? data(index, Qt::DisplayRole)
                   : (r.note.isEmpty() ? QVariant() : QVariant(r.note));
    if (role == BudNumRole)
        return r.budNum;
    if (role != Qt::DisplayRole && role != Qt::EditRole)
        return {};
    switch (index.column()) {
    case Tick:
        return r.included ? QStringLiteral("[x]") : QStringLiteral("[ ]");
    case Date:
        return EntryChecks::formatLongDate(r.source.date);
    case Type:
        return r.typeText;
    case Number:
        return r.number;
    case Payee:
        return r.payee;
    case Category:
        return r.budNum > 0 ? r.budName : EntryRules::NoneEntry;
    case Memo:
        return r.note.isEmpty() ? r.memo
                                : (r.memo.isEmpty() ? QString() : r.memo + QStringLiteral(" "))
                                      + QStringLiteral("(") + r.note + QStringLiteral(")");
    case Amount:
        return r.amount.toCurrencyText();
    case Status:
        return ImportPlan::statusText(r);
    }
    return {};
}

QVariant ImportModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    static const QStringList titles = {QString(),
                                       QStringLiteral("Date"),
                                       QStringLiteral("Type"),
                                       QStringLiteral("Number"),
                                       QStringLiteral("Payee"),
                                       QStringLiteral("Category"),
                                       QStringLiteral("Memo"),
                                       QStringLiteral("Amount"),
                                       QStringLiteral("Status")};
    return titles.value(section);
}

Qt::ItemFlags ImportModel::flags(const QModelIndex &index) const
{
    Qt::ItemFlags f = QAbstractTableModel::flags(index);
    if (index.column() == Category)
        f |= Qt::ItemIsEditable;
    return f;
}

bool ImportModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || index.column() != Category || role != BudNumRole)
        return false;
    if (!m_plan.setCategory(index.row(), value.toInt()))
        return false;
    Q_EMIT dataChanged(this->index(0, Category), this->index(rowCount() - 1, Category));
    return true;
}

bool ImportModel::toggle(int row)
{
    if (row < 0 || row >= rowCount())
        return false;
    if (!m_plan.setIncluded(row, !m_plan.rows()[std::size_t(row)].included))
        return false;
    Q_EMIT dataChanged(index(row, Tick), index(row, Tick));
    Q_EMIT ticksChanged();
    return true;
}
