#pragma once

#include "core/EntryChecks.h"
#include "records/BankAcctRecord.h"
#include "records/Currency.h"
#include "records/TransRecord.h"

#include <QDate>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>

// The rules of the register's entry row: which types an account offers, what
// Enter refuses, the balance warning, and how the record is filled.
namespace EntryRules {

// What the entry row holds when Enter is pressed.
struct Input
{
    QString typeText;
    QString payee;
    QString amountText;
    QString dateText;
    QString memo;
    int budgetIndex = 0; // selection of cmbBudItems: -1 none, 0 the neutral entry
    int budNum = 0;      // the selected category
    QString budName;
    int cardIndex = 0;  // selection of cmbCreditCards: -1 none, 0 the neutral entry
    bool debit = false; // the sign option, used by the opening entry only
};

// Entry 0 of the category and credit-card lists: no category, no card. Its
// text contains "none", which every reader takes as no category.
inline const QString NoneEntry = QStringLiteral("(none)");

inline const QString CompleteAll = QStringLiteral("Complete all entries");
inline const QString SelectCategory = QStringLiteral("Select a Budget Category ");
inline const QString IncorrectPaymentType = QStringLiteral(" Incorrect payment type");
inline const QString NoAccountsTitle = QStringLiteral("No Bank Accounts");
inline const QString NoAccountsText
    = QStringLiteral("No Bank Accounts have been set up. \nAdd a Bank Account.");
inline const QString &BalanceExceededTitle = EntryChecks::RegisterBalanceTitle;

// The types offered in cmbType for an account kind ("CH", "SV", "MM", "CC").
QStringList typesFor(const QString &kindCode);
// The type a cleared entry row starts with.
QString defaultType(const QString &kindCode);
// Whether a type text may be entered in this kind of account: a listed type,
// or "Check #" with a number.
bool isEnterableType(const QString &kindCode, const QString &typeText);
inline const QString UnknownType = QStringLiteral("Select a Transaction Type from the list");

// A refusal of the entry row: shown in the error label, or as a message box.
struct Refusal
{
    enum class Where { Label, MessageBox };
    Where where = Where::Label;
    QString text;
    QString title;
};

// The entry row's values, read from its texts once (parse()); every later
// rule of an entry takes these.
struct Entry
{
    QString typeText; // trimmed: a listed type, "Starting Balance" or "Check #" and a number
    int typeNum = 0;  // its TypeNum code (every "Check" text is a check)
    std::optional<std::int64_t> checkNumber; // the number of a "Check #" type
    QString checkDigits;                     // that number as the record keeps it
    QString payee;                           // trimmed
    Currency amount;                         // as typed: never negative
    Currency signedAmount;                   // with the sign its type (or the sign option) gives it
    QDate date;
    QString memo;
    bool category = false; // a category is chosen
    int budNum = 0;
    QString budName;
    bool card = false; // a card is chosen: the entry pays it
};

// Steps 3 to 5 of Enter and the amount checks, in that order; what passes
// them comes back as typed values.
struct Parsed
{
    std::optional<Refusal> refusal;
    Entry entry; // only when there is no refusal
};
Parsed parse(const QString &kindCode, const Input &input);

// The same checks when only the refusal matters.
std::optional<Refusal> validate(const QString &kindCode, const Input &input);
// The row's values without the checks: missing or bad texts read as nothing.
Entry entryOf(const Input &input);
// The amount with the sign its type gives it, as stored.
Currency signedAmount(const Input &input);

// CheckAccountBalance: the warning to show before the account would go
// negative, and whether the payment-type notice applies.
struct BalanceCheck
{
    std::optional<QString> warning;
    bool incorrectPaymentType = false;
};
BalanceCheck checkAccountBalance(const Entry &entry, const QString &accountName, Currency balance,
                                 bool changeMode, Currency oldSignedAmount);
BalanceCheck checkAccountBalance(const Input &input, const QString &accountName, Currency balance,
                                 bool changeMode, Currency oldSignedAmount);

// Fills a record from the entry row: in new mode `base` is the blank
// template, in change mode the record being changed.
TransRecord fillRecord(TransRecord base, const Entry &entry, const BankAcctRecord &account,
                       int cardBudNum);
TransRecord fillRecord(TransRecord base, const Input &input, const BankAcctRecord &account,
                       int cardBudNum);

} // namespace EntryRules
