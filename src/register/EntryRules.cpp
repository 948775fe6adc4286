#include "register/EntryRules.h"

#include "core/EntryChecks.h"
#include "records/AccountKinds.h"
#include "records/TransactionClasses.h"
#include "records/TransactionTemplate.h"
#include "records/TransactionTypes.h"
#include "register/CheckNumbers.h"

#include <limits>

namespace EntryRules {

namespace {

bool isCheckText(const QString &typeText)
{
    return CheckNumbers::numberOfTypeText(typeText).has_value();
}

// The code used for the sign: checks are 6, the opening entry 15.
int codeOf(const Input &input)
{
    return TransactionTypes::typeNum(input.typeText);
}

} // namespace

QStringList typesFor(const QString &kindCode)
{
    const QString k = kindCode.trimmed();
    if (AccountKinds::isCard(k))
        return {QStringLiteral("Charge"), QStringLiteral("Credit"),
                QStringLiteral("Interest Charge"), QStringLiteral("Auto Charge"),
                QStringLiteral("Bank Fee")};
    QStringList types;
    if (AccountKinds::keepsCheckNumbers(k))
        types << CheckNumbers::NextCheck << CheckNumbers::EnterCheck;
    types << QStringLiteral("Deposit") << QStringLiteral("ATM Deposit")
          << QStringLiteral("Direct Deposit") << QStringLiteral("Interest Received")
          << QStringLiteral("Withdrawal");
    if (k != AccountKinds::Savings)
        types << QStringLiteral("Debit Card");
    types << QStringLiteral("ATM Withdrawal") << QStringLiteral("Auto Payment")
          << QStringLiteral("Bank Fee");
    return types;
}

QString defaultType(const QString &kindCode)
{
    return AccountKinds::isCard(kindCode) ? QStringLiteral("Charge") : QStringLiteral("Withdrawal");
}

bool isEnterableType(const QString &kindCode, const QString &typeText)
{
    const QString t = typeText.trimmed();
    if (t == TransactionTemplate::StartingBalance)
        return true;
    if (isCheckText(t))
        return true;
    if (t == CheckNumbers::NextCheck || t == CheckNumbers::EnterCheck)
        return false; // the number has not been settled yet
    return typesFor(kindCode).contains(t);
}

std::optional<Refusal> validate(const QString &kindCode, const Input &input)
{
    if (input.typeText.trimmed().isEmpty() || input.payee.trimmed().isEmpty()
        || input.amountText.trimmed().isEmpty() || input.dateText.trimmed().isEmpty())
        return Refusal{Refusal::Where::Label, CompleteAll, {}};
    if (input.budgetIndex < 0 || input.cardIndex < 0
        || (input.budgetIndex > 0 && input.cardIndex > 0))
        return Refusal{Refusal::Where::Label, SelectCategory, {}};
    if (!EntryChecks::ValidateEntryDate(input.dateText))
        return Refusal{Refusal::Where::MessageBox, EntryChecks::BadDateText,
                       EntryChecks::BadDateTitle};
    if (!isEnterableType(kindCode, input.typeText))
        return Refusal{Refusal::Where::Label, UnknownType, {}};
    if (CheckNumbers::numberOfTypeText(input.typeText).value_or(0)
        > std::numeric_limits<std::int32_t>::max())
        return Refusal{Refusal::Where::MessageBox, CheckNumbers::TooLargeText,
                       CheckNumbers::TooLargeTitle};
    const auto amount = Currency::parse(input.amountText);
    if (!amount)
        return Refusal{Refusal::Where::Label, QStringLiteral("The amount must be a number"), {}};
    if (amount->isNegative() || EntryChecks::hasSign(input.amountText))
        return Refusal{Refusal::Where::Label,
                       QStringLiteral("Type the amount without a sign: the type gives it its sign"),
                       {}};
    if (amount->isZero()
        && TransactionTypes::typeNum(input.typeText) != TransactionTypes::TypeNum::StartingBalance)
        return Refusal{
            Refusal::Where::Label, QStringLiteral("Enter an amount greater than zero"), {}};
    if (exceedsMaxAmount(*amount))
        return Refusal{Refusal::Where::MessageBox, EntryChecks::MaxAmountText,
                       EntryChecks::MaxAmountTitle};
    return std::nullopt;
}

Currency typedAmount(const Input &input)
{
    return Currency::parse(input.amountText).value_or(Currency()).abs();
}

Currency signedAmount(const Input &input)
{
    const int code = codeOf(input);
    const Currency typed = typedAmount(input);
    if (code == TransactionTypes::TypeNum::StartingBalance)
        return input.debit ? -typed : typed;
    return TransactionTypes::signedAmount(code, typed);
}

BalanceCheck checkAccountBalance(const Input &input, const QString &accountName, Currency balance,
                                 bool changeMode, Currency oldSignedAmount)
{
    // "Auto Charge" is deliberately classed outside the table here: it counts
    // as zero for this check.
    const int index = input.typeText.trimmed() == QStringLiteral("Auto Charge") ? 0 : codeOf(input);
    Currency amount;
    if (index >= TransactionTypes::TypeNum::Deposit && index <= TransactionTypes::TypeNum::Charge)
        amount = TransactionTypes::signedAmount(index, typedAmount(input));
    else if (index == TransactionTypes::TypeNum::StartingBalance)
        amount = signedAmount(input);

    BalanceCheck check;
    const Currency base = changeMode ? balance - oldSignedAmount : balance;
    const Currency after = base + amount;
    if (after < Currency())
        check.warning = EntryChecks::registerBalanceText({amount, accountName, base, after});
    check.incorrectPaymentType = index < TransactionTypes::TypeNum::Check && input.cardIndex > 0;
    return check;
}

TransRecord fillRecord(TransRecord r, const Input &input, const BankAcctRecord &account,
                       int cardBudNum)
{
    const QString kind = account.Type.text().trimmed();
    const QString type = input.typeText.trimmed();
    const int code = TransactionTypes::typeNum(type);
    if (AccountKinds::keepsCheckNumbers(kind) && isCheckText(type)) {
        r.Type = CheckNumbers::storedTypeText(type);
        r.TypeNum = TransactionTypes::TypeNum::Check;
    } else {
        r.Type = type;
        r.TypeNum = static_cast<std::int16_t>(code);
    }
    r.Amount = signedAmount(input);
    r.Date = EntryChecks::formatLongDate(*EntryChecks::parseDate(input.dateText));
    r.Description = input.payee.trimmed();
    r.Memo = input.memo;
    if (input.budgetIndex > 0) {
        r.BudName = input.budName;
        r.BudNum = static_cast<std::int16_t>(input.budNum);
    } else {
        r.BudName = TransactionTemplate::NoCategory;
        r.BudNum = 0;
    }
    if (AccountKinds::isCard(kind)) {
        r.TransClass = TransactionClasses::CCTrans;
        r.CCBankName = account.BankName.text();
        r.CCBankNum = account.BankNum;
        r.CCBudNum = static_cast<std::int16_t>(cardBudNum);
    } else {
        r.TransClass = TransactionClasses::NormTrans;
        r.CCBankName = TransactionTemplate::NoCategory;
        r.CCBankNum = 0;
        r.CCBudNum = 0;
    }
    return r;
}

} // namespace EntryRules
