#include "records/TransactionTypes.h"

#include <array>
#include <utility>

namespace TransactionTypes {

int typeNum(const QString &typeText)
{
    static const std::array<std::pair<QString, int>, 14> table = {{
        {QStringLiteral("Deposit"), TypeNum::Deposit},
        {QStringLiteral("ATM Deposit"), TypeNum::AtmDeposit},
        {QStringLiteral("Direct Deposit"), TypeNum::DirectDeposit},
        {QStringLiteral("Interest Received"), TypeNum::InterestReceived},
        {QStringLiteral("Credit"), TypeNum::Credit},
        {QStringLiteral("Withdrawal"), TypeNum::Withdrawal},
        {QStringLiteral("Debit Card"), TypeNum::DebitCard},
        {QStringLiteral("ATM Withdrawal"), TypeNum::AtmWithdrawal},
        {QStringLiteral("Auto Payment"), TypeNum::AutoPayment},
        {QStringLiteral("Auto Charge"), TypeNum::AutoPayment},
        {QStringLiteral("Bank Fee"), TypeNum::BankFee},
        {QStringLiteral("Interest Charge"), TypeNum::InterestCharge},
        {QStringLiteral("Charge"), TypeNum::Charge},
        {QStringLiteral("Starting Balance"), TypeNum::StartingBalance},
    }};
    const QString t = typeText.trimmed();
    if (t.startsWith(QStringLiteral("Check")))
        return TypeNum::Check;
    for (const auto &[name, num] : table)
        if (name == t)
            return num;
    return TypeNum::None;
}

Sign sign(int num)
{
    if (num >= TypeNum::Deposit && num <= TypeNum::Credit)
        return Sign::Deposit;
    if (num >= TypeNum::Check && num <= TypeNum::Charge)
        return Sign::Withdrawal;
    if (num == TypeNum::StartingBalance)
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
