#pragma once

#include "records/BankAcctRecord.h"
#include "records/BudgetRecord.h"

#include <QList>
#include <QMetaType>

#include <vector>

class QObject;

// What one finished operation changed in the open data set. The panel that
// did it has already shown its own result; the main window brings every other
// view up to date from this.
struct DataChange
{
    enum Part {
        Accounts = 0x1,   // account records: balances, names, new accounts
        Budget = 0x2,     // category figures: balances, monthly amounts
        Categories = 0x4, // the list of categories: added, renamed, removed
        Registers = 0x8,  // the registers in `registers` were written
    };

    int parts = 0;
    QList<int> registers;            // bank numbers of the registers written
    int makeCurrent = 0;             // an account to make current afterwards (0: keep)
    const QObject *source = nullptr; // the panel that did it

    // Set when `accounts` and `categories` hold every account and category
    // record the operation changed, as stored now: the views update those in
    // place and nothing is read again. (A change of the list of categories is
    // always read again.)
    bool inPlace = false;
    std::vector<BankAcctRecord> accounts = {};
    std::vector<BudgetRecord> categories = {};

    bool has(Part part) const { return (parts & part) != 0; }
};

Q_DECLARE_METATYPE(DataChange)
