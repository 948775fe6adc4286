#include "BudgetPosting.h"

namespace BudgetPosting {

std::optional<QString> warning(const DataFiles &, const TransRecord *, const TransRecord &)
{
    // No category carries a balance yet, so none can be overspent.
    return std::nullopt;
}

void post(UnitOfWork &, const DataFiles &, const TransRecord *, const TransRecord &)
{
    // Categories carry no balances yet: nothing moves.
}

} // namespace BudgetPosting
