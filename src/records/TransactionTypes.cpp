#include "records/TransactionTypes.h"

#include <array>
#include <utility>

namespace TransactionTypes {

int typeNum(const QString &typeText)
{
    static const std::array<std::pair<QString, int>, 14> table = {{
        {QStringLiteral("Deposit"), 1},
        {QStringLiteral("ATM Deposit"), 2},
        {QStringLiteral("Direct Deposit"), 3},
        {QStringLiteral("Interest Received"), 4},
        {QStringLiteral("Credit"), 5},
        {QStringLiteral("Withdrawal"), 7},
        {QStringLiteral("Debit Card"), 8},
        {QStringLiteral("ATM Withdrawal"), 9},
        {QStringLiteral("Auto Payment"), 10},
        {QStringLiteral("Auto Charge"), 10},
        {QStringLiteral("Bank Fee"), 11},
        {QStringLiteral("Interest Charge"), 13},
        {QStringLiteral("Charge"), 14},
        {QStringLiteral("Starting Balance"), 15},
    }};
    const QString t = typeText.trimmed();
    if (t.startsWith(QStringLiteral("Check")))
        return 6;
    for (const auto &[name, num] : table)
        if (name == t)
            return num;
    return 0;
}

Sign sign(int num)
{
    if (num >= 1 && num <= 5)
        return Sign::Deposit;
    if (num >= 6 && num <= 14)
        return Sign::Withdrawal;
    if (num == 15)
        return Sign::AsTyped;
    return Sign::None;
}

Currency signedAmount(int num, Currency typed)
{
    switch (sign(num)) {
    case Sign::Deposit:
        return typed.abs();
    case Sign::Withdrawal:
        return -typed.abs();
    case Sign::AsTyped:
        return typed;
    case Sign::None:
        break;
    }
    return Currency();
}

} // namespace TransactionTypes
