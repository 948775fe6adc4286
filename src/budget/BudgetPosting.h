#pragma once

#include "records/DataFiles.h"
#include "records/TransRecord.h"

#include <QList>

class UnitOfWork;

// How transactions move category balances. Every operation that writes,
// changes or voids a transaction calls post() inside its unit of work, so the
// categories move together with the account balance.
//
// Writing: a transaction with a category adds its (signed) amount to that
// category; a card's own charge also moves the card's category the other way;
// a payment to a card moves the card's category by its amount. Each of these
// stops at zero: what a category cannot cover comes out of disposable cash.
// Taking an effect back (the old side of a change, or a void) has no floor.
namespace BudgetPosting {

// `before`: the record as it was (null for a new one); `after`: as it will be
// (null when the transaction is voided).
void post(UnitOfWork &unit, const DataFiles &files, const TransRecord *before,
          const TransRecord *after);

// The categories post() may move for the same two records.
QList<int> categories(const TransRecord *before, const TransRecord *after);

} // namespace BudgetPosting
