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

namespace {

// The values of a row whose amount and date have been read.
Entry entryOf(const Input &input, Currency typed, const QDate &date)
{
    Entry e;
    e.typeText = input.typeText.trimmed();
    e.typeNum = TransactionTypes::typeNum(e.typeText);
    e.checkNumber = CheckNumbers::numberOfTypeText(e.typeText);
    if (e.checkNumber)
        e.checkDigits = CheckNumbers::storedTypeText(e.typeText);
    e.payee = input.payee.trimmed();
    e.amount = typed;
    if (e.typeNum == TransactionTypes::TypeNum::StartingBalance)
        e.signedAmount = input.debit ? -typed : typed;
    else
        e.signedAmount = TransactionTypes::signedAmount(e.typeNum, typed);
    e.date = date;
    e.memo = input.memo;
    e.category = input.budgetIndex > 0;
    if (e.category) {
        e.budNum = input.budNum;
        e.budName = input.budName;
    }
    e.card = input.cardIndex > 0;
    return e;
}

Parsed refuse(Refusal::Where where, const QString &text, const QString &title = {})
{
    return {Refusal{where, text, title}, {}};
}

} // namespace

Parsed parse(const QString &kindCode, const Input &input)
{
    using W = Refusal::Where;
    if (input.typeText.trimmed().isEmpty() || input.payee.trimmed().isEmpty()
        || input.amountText.trimmed().isEmpty() || input.dateText.trimmed().isEmpty())
        return refuse(W::Label, CompleteAll);
    if (input.budgetIndex < 0 || input.cardIndex < 0
        || (input.budgetIndex > 0 && input.cardIndex > 0))
        return refuse(W::Label, SelectCategory);
    const auto date = EntryChecks::parseDate(input.dateText);
    if (!date)
        return refuse(W::MessageBox, EntryChecks::BadDateText, EntryChecks::BadDateTitle);
    if (!isEnterableType(kindCode, input.typeText))
        return refuse(W::Label, UnknownType);
    const auto amount = Currency::parse(input.amountText);
    Entry entry = entryOf(input, amount.value_or(Currency()), *date);
    if (entry.checkNumber.value_or(0) > std::numeric_limits<std::int32_t>::max())
        return refuse(W::MessageBox, CheckNumbers::TooLargeText, CheckNumbers::TooLargeTitle);
    if (!amount)
        return refuse(W::Label, QStringLiteral("The amount must be a number"));
    if (amount->isNegative() || EntryChecks::hasSign(input.amountText))
        return refuse(W::Label,
                      QStringLiteral("Type the amount without a sign: the type gives it its sign"));
    if (amount->isZero() && entry.typeNum != TransactionTypes::TypeNum::StartingBalance)
        return refuse(W::Label, QStringLiteral("Enter an amount greater than zero"));
    if (exceedsMaxAmount(*amount))
        return refuse(W::MessageBox, EntryChecks::MaxAmountText, EntryChecks::MaxAmountTitle);
    return {std::nullopt, std::move(entry)};
}

std::optional<Refusal> validate(const QString &kindCode, const Input &input)
{
    return parse(kindCode, input).refusal;
}

Entry entryOf(const Input &input)
{
    return entryOf(input, Currency::parse(input.amountText).value_or(Currency()).abs(),
                   EntryChecks::parseDate(input.dateText).value_or(QDate()));
}

Currency signedAmount(const Input &input)
{
    return entryOf(input).signedAmount;
}

BalanceCheck checkAccountBalance(const Entry &entry, const QString &accountName, Currency balance,
                                 bool changeMode, Currency oldSignedAmount)
{
    // "Auto Charge" is deliberately classed outside the table here: it counts
    // as zero for this check.
    const int index = entry.typeText == QStringLiteral("Auto Charge") ? 0 : entry.typeNum;
    Currency amount;
    if (index >= TransactionTypes::TypeNum::Deposit && index <= TransactionTypes::TypeNum::Charge)
        amount = TransactionTypes::signedAmount(index, entry.amount);
    else if (index == TransactionTypes::TypeNum::StartingBalance)
        amount = entry.signedAmount;

    BalanceCheck check;
    const Currency base = changeMode ? balance - oldSignedAmount : balance;
    const Currency after = base + amount;
    if (after < Currency())
        check.warning = EntryChecks::registerBalanceText({amount, accountName, base, after});
    check.incorrectPaymentType = index < TransactionTypes::TypeNum::Check && entry.card;
    return check;
}

BalanceCheck checkAccountBalance(const Input &input, const QString &accountName, Currency balance,
                                 bool changeMode, Currency oldSignedAmount)
{
    return checkAccountBalance(entryOf(input), accountName, balance, changeMode, oldSignedAmount);
}

TransRecord fillRecord(TransRecord r, const Entry &entry, const BankAcctRecord &account,
                       int cardBudNum)
{
    const QString kind = account.Type.text().trimmed();
    if (AccountKinds::keepsCheckNumbers(kind) && entry.checkNumber) {
        r.Type = entry.checkDigits;
        r.TypeNum = TransactionTypes::TypeNum::Check;
    } else {
        r.Type = entry.typeText;
        r.TypeNum = static_cast<std::int16_t>(entry.typeNum);
    }
    r.Amount = entry.signedAmount;
    r.Date = EntryChecks::formatLongDate(entry.date);
    r.Description = entry.payee;
    r.Memo = entry.memo;
    if (entry.category) {
        r.BudName = entry.budName;
        r.BudNum = static_cast<std::int16_t>(entry.budNum);
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

TransRecord fillRecord(TransRecord base, const Input &input, const BankAcctRecord &account,
                       int cardBudNum)
{
    return fillRecord(std::move(base), entryOf(input), account, cardBudNum);
}

} // namespace EntryRules
