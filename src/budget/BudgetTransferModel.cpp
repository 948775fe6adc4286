#include "budget/BudgetTransferModel.h"

void BudgetTransferModel::setTransfers(std::vector<BudgetTransfers::Entry> transfers)
{
    beginResetModel();
    m_transfers = std::move(transfers);
    endResetModel();
}

int BudgetTransferModel::recordNumberAt(int row) const
{
    return row >= 0 && row < int(m_transfers.size()) ? m_transfers[row].recordNumber : 0;
}

int BudgetTransferModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_transfers.size());
}

int BudgetTransferModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : 4;
}

QVariant BudgetTransferModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= int(m_transfers.size()))
        return {};
    const BudgetTransRecord &t = m_transfers[index.row()].record;
    if (role == Qt::TextAlignmentRole)
        return index.column() == 3 ? QVariant(Qt::AlignRight | Qt::AlignVCenter)
                                   : QVariant(Qt::AlignLeft | Qt::AlignVCenter);
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    switch (index.column()) {
    case 0:
        return t.Date.text().trimmed();
    case 1:
        return t.Description.text().trimmed();
    case 2:
        return t.Memo.text().trimmed();
    case 3:
        return t.Amount.toCurrencyText();
    default:
        return {};
    }
}

QVariant BudgetTransferModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    static const char *const headings[] = {"Date", "Description", "Memo", "Amount"};
    return section >= 0 && section < 4 ? QString::fromLatin1(headings[section]) : QVariant();
}
