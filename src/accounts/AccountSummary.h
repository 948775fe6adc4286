#pragma once

#include "records/BankAcctRecord.h"
#include "records/Currency.h"

#include <QString>

#include <vector>

// What the account list shows: a heading row for each kind that has a live
// account, then its accounts in record order; and the three totals.
struct AccountSummary
{
    struct Row
    {
        QString name;
        QString balance; // "currency", empty on headings and blank rows
        bool heading = false;
        int bankNum = 0; // 0 on headings and blank rows
    };

    std::vector<Row> rows; // used rows, without the header
    int gridRows = 10;     // rows of the grid, header and blank rows included
    Currency bankTotal;
    Currency creditCardTotal;

    Currency netTotal() const { return bankTotal + creditCardTotal; }
    // "- Credit Card Debts" while the card total is zero or below, else "- Credit Card Credit".
    QString creditCardCaption() const;

    static AccountSummary build(const std::vector<BankAcctRecord> &accounts);
};
