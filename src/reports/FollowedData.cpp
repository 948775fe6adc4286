#include "reports/FollowedData.h"

namespace FollowedData {

namespace {

// Replaces record n (from 1) by the one written, or adds it when it is the next.
template<typename R> void put(std::vector<R> &records, int number, const R &written)
{
    if (number >= 1 && number <= int(records.size()))
        records[std::size_t(number - 1)] = written;
    else if (number == int(records.size()) + 1)
        records.push_back(written);
}

} // namespace

void follow(DataSnapshot &kept, const DataChange &change, const DataSnapshot &read)
{
    if (!change.inPlace) {
        kept = read;
        return;
    }
    if (!kept.accounts)
        kept.accounts.emplace();
    for (const BankAcctRecord &a : change.accounts)
        put(*kept.accounts, a.BankNum, a);
    for (const BudgetRecord &c : change.categories)
        put(kept.budget, c.BudNum, c);
}

} // namespace FollowedData
