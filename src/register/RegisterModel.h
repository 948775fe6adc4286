#pragma once

#include "records/Currency.h"
#include "records/TransRecord.h"

#include <QAbstractTableModel>

#include <vector>

// flxgdtrans: one row per record from the first shown one, in entry order,
// with the running balance. Cells are formatted only when they are looked at,
// so a full register of 32,767 records fills at once.
class RegisterModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    using QAbstractTableModel::QAbstractTableModel;

    enum Column {
        Status,
        Type,
        Date,
        Payee,
        Category,
        Memo,
        Deposit,
        Withdrawal,
        Balance,
        DateCleared
    };
    static constexpr int ColumnCount = 10;
    static constexpr int MinRows = 10; // with the header, at least 11 grid rows

    // Takes the account's records; `firstShown` is the first record listed.
    void setRegister(std::vector<TransRecord> records, int firstShown, bool creditCard);

    const std::vector<TransRecord> &records() const { return m_records; }
    int firstShown() const { return m_firstShown; }
    int shownCount() const;
    // The record number on a model row (0 for an empty row).
    int recordNumberAt(int row) const;
    // The model row of the last record (-1 when none is listed).
    int lastRow() const { return shownCount() - 1; }

    // The rows as tab-separated text, header first, lines ended by CR LF.
    QString tabSeparated(const QList<int> &rows) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    // The current row's colour value 0xE1FFFF (blue-green-red): pale yellow.
    static constexpr unsigned HighlightColour = 0xE1FFFF;

private:
    QString cellText(int row, int column) const;

    std::vector<TransRecord> m_records;
    std::vector<Currency> m_balances;
    int m_firstShown = 1;
    bool m_creditCard = false;
};
