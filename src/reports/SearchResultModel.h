#pragma once

#include "reports/TransactionSearch.h"

#include <QAbstractTableModel>

#include <vector>

// flxgdSrchTrans: "<Account|<Cleared|<Type|<Date|<Description|<Category |<Memo|^Deposit|^
// Withdrawal". One row per transaction found; each row knows its account and record number.
class SearchResultModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    using QAbstractTableModel::QAbstractTableModel;

    enum Column { Account, Cleared, Type, Date, Description, Category, Memo, Deposit, Withdrawal };
    static constexpr int ColumnCount = 9;
    enum Role { BankNumRole = Qt::UserRole + 1, RecordNumberRole };

    void setHits(std::vector<TransactionSearch::Hit> hits);
    const std::vector<TransactionSearch::Hit> &hits() const { return m_hits; }

    // Every row as tab-separated text, the heading first, lines ended by CR LF.
    QString tabSeparated() const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QString cellText(int row, int column) const;
    std::vector<TransactionSearch::Hit> m_hits;
};
