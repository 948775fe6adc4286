#pragma once

#include "records/Currency.h"
#include "records/TransRecord.h"

#include <QString>

#include <vector>

// The rows of the balancing list: an account's open transactions under three
// headings (deposits, withdrawals, and the transactions entered while the
// statement is being balanced), each with its tick. The cleared sum is always
// counted again from the ticks, never moved by a tick.
class StatementList
{
public:
    enum class Group { Deposits, Withdrawals, New };

    struct Row
    {
        int recordNumber = 0; // 0 for a heading row
        Group group = Group::Deposits;
        TransRecord record;
        bool ticked = false;

        bool isHeading() const { return recordNumber == 0; }
    };

    inline static const QString DepositsHeading = QStringLiteral("           Deposits ");
    inline static const QString WithdrawalsHeading = QStringLiteral("           Withdrawals ");
    inline static const QString NewHeading = QStringLiteral("          New Transactions");

    // Whether a record belongs in the list: open, and not a voided entry.
    static bool isListed(const TransRecord &record);

    // Lists the open transactions of a register (record n at index n - 1). The
    // first fill starts a statement: records added after it are listed under
    // "New Transactions". A later fill keeps the ticks.
    void fill(const std::vector<TransRecord> &records);
    // Lists the transactions of a prior statement, all ticked, under the
    // deposit and withdrawal headings.
    void fillCleared(const std::vector<TransRecord> &records,
                     const std::vector<int> &recordNumbers);
    // Forgets every row, tick and new transaction (a statement done or dropped);
    // fill() lists the register again.
    void reset();

    const std::vector<Row> &rows() const { return m_rows; }
    int size() const { return int(m_rows.size()); }
    const Row &row(int i) const { return m_rows[std::size_t(i)]; }
    // The row of a record, or -1.
    int rowOf(int recordNumber) const;

    // Ticks or unticks a transaction row; false for a heading row.
    bool toggle(int row);
    bool setTicked(int row, bool ticked);
    int tickedCount() const;
    std::vector<int> tickedRecords() const;

    // Ticked deposits minus ticked withdrawals.
    Currency clearedSum() const;

    // A transaction written while the list is shown: a new one joins "New
    // Transactions", a changed one is shown as it is now (and leaves the list
    // when it is no longer open). Returns the row it now has, or -1.
    int enter(int recordNumber, const TransRecord &record);
    // A transaction voided or cleared elsewhere leaves the list.
    void remove(int recordNumber);

private:
    std::vector<Row> m_rows;
    int m_firstNew = 0; // the first record number entered after the statement began
};
