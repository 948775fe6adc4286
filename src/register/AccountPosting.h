#pragma once

#include "records/BankAcctRecord.h"
#include "records/DataFiles.h"
#include "records/TransRecord.h"

class UnitOfWork;

// How a transaction moves the account whose register holds it: the balance
// by the difference of the amounts, and the last check number when a check
// of a checking or money-market account carries a new number (one that fits
// in 32 bits). Every add, change and void of a register entry calls post()
// next to BudgetPosting::post, so that balances, check numbers and categories
// move in the same unit of work.
namespace AccountPosting {

// `before`: the record as it was (null for a new one); `after`: as it will be
// (a void entry when the transaction is voided).
void apply(BankAcctRecord &account, const TransRecord *before, const TransRecord &after);

// apply(), then the account's record written in the unit.
void post(UnitOfWork &unit, const DataFiles &files, BankAcctRecord &account,
          const TransRecord *before, const TransRecord &after);

} // namespace AccountPosting
