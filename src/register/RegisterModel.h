#pragma once

#include "records/Currency.h"
#include "records/TransRecord.h"

#include <QAbstractTableModel>

#include <vector>

// The register's transactions from the first shown one, in entry order, with
// the running balance: one row per record and no other rows, so sorting,
// searching and the statement list can be proxies over the same data (the
// grid's empty rows below the last entry come from a proxy in the panel).
// Cells are formatted only when they are looked at, so a full register of
// 32,767 records fills at once.
class QTableView;

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
    // Gives a grid that shows this model the register's rows and columns:
    // the dates and amounts whole, the texts sharing the rest of the width.
    static void layOutColumns(QTableView *grid);

    enum Role {
        // The record number (from 1) of the row, on every column.
        RecordNumberRole = Qt::UserRole + 1,
        // The column's value before formatting: amounts and the balance as
        // qint64 ten-thousandths (none on the other side of an amount), dates
        // as QDate (invalid when the record holds none), texts trimmed.
        RawValueRole,
        // The signed amount of the row in ten-thousandths, on every column.
        AmountRole,
        // The date of the entry as QDate, on every column.
        DateRole,
    };

    // Takes the account's records; `firstShown` is the first record listed.
    void setRegister(std::vector<TransRecord> records, int firstShown, bool creditCard);

    // Keep the model in step with one record written by the register's own
    // entry, without reading the register again: a record added after the
    // last one (listed when the view range lists the record before it, or
    // when the caller has checked its date), or record n rewritten in place
    // (its row and the running balances after it change).
    void appendRecord(const TransRecord &record);
    void replaceRecord(int n, const TransRecord &record);

    const std::vector<TransRecord> &records() const { return m_records; }
    int firstShown() const { return m_firstShown; }
    int shownCount() const;
    // The record number on a model row (0 for a row that is not one).
    int recordNumberAt(int row) const;
    // The model row of the last record (-1 when none is listed).
    int lastRow() const { return shownCount() - 1; }
    // The model row of record n (-1 when it is not listed).
    int rowOfRecord(int n) const;

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
    QVariant rawValue(int row, int column) const;

    std::vector<TransRecord> m_records;
    std::vector<Currency> m_balances;
    int m_firstShown = 1;
    bool m_creditCard = false;
};
