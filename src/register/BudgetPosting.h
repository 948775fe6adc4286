#pragma once

#include "DataFiles.h"
#include "TransRecord.h"

#include <QString>

#include <optional>

class UnitOfWork;

// The budget effect of a stored transaction. Every operation that adds,
// changes or voids a transaction calls this inside its unit of work, so that
// the category balances move together with the account balance.
namespace BudgetPosting {

// The "Budget Balance Exceeded" warning for an entry, when one is due.
// Called by Enter once a budget has been set up.
std::optional<QString> warning(const DataFiles &files, const TransRecord *before, const TransRecord &after);

// `before` is the record as it was (null for a new one), `after` as it will be.
void post(UnitOfWork &unit, const DataFiles &files, const TransRecord *before, const TransRecord &after);

} // namespace BudgetPosting
