#pragma once

#include "exchange/ImportPlan.h"
#include "records/BankAcctRecord.h"

#include <QString>

#include <functional>

// Enters the ticked rows of an import as Enter would enter each (the record
// filled by the entry row's rules, the balance and check number moved by
// AccountPosting, the categories by BudgetPosting), all of them, the balance,
// the budget and the imported ids in one unit of work: either every row is
// in the register afterwards or none is.
namespace ImportEntry {

struct Outcome
{
    bool ok = false;
    QString error;
    QString title; // of the message box that shows `error`
    int entered = 0;
    int firstRecord = 0;    // the first new record of the register
    BankAcctRecord account; // as stored now
};

using Progress = std::function<void(int done, int total)>;

Outcome enter(ImportPlan &plan, const Progress &progress = {});

} // namespace ImportEntry
