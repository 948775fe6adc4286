#include "accounts/AccountSummary.h"

#include "records/AccountKinds.h"

QString AccountSummary::creditCardCaption() const
{
    return creditCardTotal > Currency() ? QStringLiteral("- Credit Card Credit")
                                        : QStringLiteral("- Credit Card Debts");
}

AccountSummary AccountSummary::build(const std::vector<BankAcctRecord> &accounts)
{
    AccountSummary s;
    for (int kind = 0; kind < 4; ++kind) {
        bool first = true;
        for (const BankAcctRecord &a : accounts) {
            if (a.isDeleted() || !a.Type.is(AccountKinds::Codes[kind]))
                continue;
            if (first) {
                s.rows.push_back({AccountKinds::GroupTitles[kind], QString(), true, 0});
                first = false;
            }
            s.rows.push_back({a.BankName.text(), a.Balance.toCurrencyText(), false, a.BankNum});
            if (kind == 3)
                s.creditCardTotal += a.Balance;
            else
                s.bankTotal += a.Balance;
        }
    }
    const int counter = int(s.rows.size());
    s.gridRows = counter > 9 ? counter + 1 : 10;
    return s;
}
