#include "register/AccountPosting.h"

#include "records/AccountKinds.h"
#include "records/TransactionTypes.h"
#include "records/UnitOfWork.h"
#include "register/CheckNumbers.h"

#include <limits>

namespace AccountPosting {

void apply(BankAcctRecord &account, const TransRecord *before, const TransRecord &after)
{
    account.Balance += after.Amount - (before ? before->Amount : Currency());
    if (!AccountKinds::keepsCheckNumbers(account.Type.text())
        || after.TypeNum != TransactionTypes::TypeNum::Check)
        return;
    const auto number = CheckNumbers::numericValue(after.Type.text());
    const auto previous = before ? CheckNumbers::numericValue(before->Type.text()) : std::nullopt;
    if (number && number != previous && *number <= std::numeric_limits<std::int32_t>::max())
        account.NextCheckNum = static_cast<std::int32_t>(*number);
}

void post(UnitOfWork &unit, const DataFiles &files, BankAcctRecord &account,
          const TransRecord *before, const TransRecord &after)
{
    apply(account, before, after);
    unit.write(files.accountList(), account.BankNum, account);
}

} // namespace AccountPosting
