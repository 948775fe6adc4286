#include "budget/BudgetListModel.h"

#include "budget/BudgetBook.h"
#include "ui/ThemeStyle.h"

#include <QColor>
#include <QFont>

void BudgetListModel::setCategories(std::vector<BudgetRecord> categories)
{
    beginResetModel();
    m_categories.clear();
    for (BudgetRecord &c : categories)
        if (!c.isDeleted() && !c.BudName.isBlank())
            m_categories.push_back(std::move(c));
    rebuildRows();
    endResetModel();
}

void BudgetListModel::updateCategories(const std::vector<BudgetRecord> &changed)
{
    for (const BudgetRecord &c : changed) {
        for (std::size_t i = 0; i < m_categories.size(); ++i) {
            BudgetRecord &shown = m_categories[i];
            if (shown.BudNum != c.BudNum || c.isDeleted() || c.BudName.isBlank())
                continue;
            if (shown.ItemCount != c.ItemCount) {
                // Its item rows would change: the list is built again.
                std::vector<BudgetRecord> all = m_categories;
                all[i] = c;
                setCategories(std::move(all));
                return;
            }
            shown = c;
            for (int row = 0; row < int(m_rows.size()); ++row)
                if (m_rows[std::size_t(row)].category == int(i))
                    Q_EMIT dataChanged(index(row, 0), index(row, ColumnCount - 1));
        }
    }
}

void BudgetListModel::rebuildRows()
{
    m_rows.clear();
    for (int i = 0; i < int(m_categories.size()); ++i) {
        m_rows.push_back({i, -1});
        if (m_expanded.contains(m_categories[i].BudNum))
            for (int k = 0; k < m_categories[i].ItemCount && k < BudgetRecord::MaxItems; ++k)
                m_rows.push_back({i, k});
    }
}

void BudgetListModel::toggle(int row)
{
    if (!isCategoryRow(row) || m_categories[m_rows[row].category].ItemCount <= 0)
        return;
    const int budNum = m_categories[m_rows[row].category].BudNum;
    beginResetModel();
    if (m_expanded.contains(budNum))
        m_expanded.remove(budNum);
    else
        m_expanded.insert(budNum);
    rebuildRows();
    endResetModel();
}

int BudgetListModel::budNumAt(int row) const
{
    return row >= 0 && row < int(m_rows.size()) ? m_categories[m_rows[row].category].BudNum : 0;
}

bool BudgetListModel::isCategoryRow(int row) const
{
    return row >= 0 && row < int(m_rows.size()) && m_rows[row].item < 0;
}

int BudgetListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int BudgetListModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QString BudgetListModel::text(const Row &row, int column) const
{
    const BudgetRecord &c = m_categories[row.category];
    if (row.item >= 0) {
        if (column == Category)
            return QStringLiteral("    ") + c.ItemNames[row.item].text().trimmed();
        if (column == Monthly)
            return BudgetBook::amountValue(c.ItemAmounts[row.item].text()).toCurrencyText();
        return {};
    }
    switch (column) {
    case Category:
        return c.BudName.text().trimmed();
    case Monthly:
        return BudgetBook::amountValue(c.AmountText.text()).toCurrencyText();
    case Balance:
        return c.Balance.toCurrencyText();
    case BudNum:
        return QString::number(c.BudNum);
    case CCBankRecnum:
        return QString::number(c.CCBankRecnum);
    case Picture:
        if (c.ItemCount <= 0)
            return {};
        return m_expanded.contains(c.BudNum) ? QStringLiteral("\u25B2") : QStringLiteral("\u25BC");
    case Items:
        return c.ItemCount > 0 ? QString::number(c.ItemCount) : QString();
    default:
        return {};
    }
}

QVariant BudgetListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= int(m_rows.size()))
        return {};
    const Row &row = m_rows[index.row()];
    switch (role) {
    case Qt::DisplayRole:
        return text(row, index.column());
    case Qt::TextAlignmentRole:
        if (index.column() == Monthly || index.column() == Balance)
            return QVariant(Qt::AlignRight | Qt::AlignVCenter);
        if (index.column() == Picture || index.column() == Items)
            return QVariant(Qt::AlignCenter);
        return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
    case Qt::ForegroundRole:
        if (row.item >= 0)
            return QColor(0x55, 0x60, 0x70);
        if (index.column() == Balance && m_categories[row.category].Balance <= Currency())
            return ThemeStyle::negative();
        if (index.column() == Picture)
            return QColor(0x1F, 0x4E, 0x79);
        return {};
    case Qt::ToolTipRole:
        if (index.column() == Picture && row.item < 0 && m_categories[row.category].ItemCount > 0)
            return tr("Show or hide the sub-categories");
        return {};
    default:
        return {};
    }
}

QVariant BudgetListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    static const char *const headings[]
        = {"", "Category", "Monthly", "Balance", "BudNum", "CCBankRecnum", "", " #Items"};
    return section >= 0 && section < ColumnCount ? QString::fromLatin1(headings[section])
                                                 : QVariant();
}

QString BudgetListModel::tabSeparated() const
{
    QStringList lines{QStringLiteral("Category\tMonthly\tBalance")};
    for (const BudgetRecord &c : m_categories) {
        lines << c.BudName.text().trimmed() + QLatin1Char('\t')
                     + BudgetBook::amountValue(c.AmountText.text()).toCurrencyText()
                     + QLatin1Char('\t') + c.Balance.toCurrencyText();
        for (int k = 0; k < c.ItemCount && k < BudgetRecord::MaxItems; ++k)
            lines << QStringLiteral("  ") + c.ItemNames[k].text().trimmed() + QLatin1Char('\t')
                         + BudgetBook::amountValue(c.ItemAmounts[k].text()).toCurrencyText()
                         + QLatin1Char('\t');
    }
    return lines.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n");
}
