#pragma once

#include "budget/BudgetTransfers.h"

#include <QAbstractTableModel>

// flxgdBudTrans: "Date", "Description", "Memo", "Amount", one row per live
// transfer in record order.
class BudgetTransferModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    using QAbstractTableModel::QAbstractTableModel;

    void setTransfers(std::vector<BudgetTransfers::Entry> transfers);
    // The record number behind a row (0 for none).
    int recordNumberAt(int row) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    std::vector<BudgetTransfers::Entry> m_transfers;
};
