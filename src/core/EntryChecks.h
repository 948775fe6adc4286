#pragma once

#include "records/Currency.h"

#include <QDate>
#include <QString>

#include <optional>

// The checks every entry row shares: dates and amounts as typed.
namespace EntryChecks {

// Dates are typed month first with "/" separators: "mm/dd/yyyy" or "mm/dd/yy".
// Month and day may have one or two digits ("1/5/2026"). A two-digit year
// yy means 20yy when yy is 00..49 and 19yy when it is 50..99.
std::optional<QDate> parseDate(const QString &text);
bool ValidateEntryDate(const QString &text);

QString formatLongDate(const QDate &date);  // "mm/dd/yyyy", as dates are stored
QString formatShortDate(const QDate &date); // "mm/dd/yy"

inline const QString BadDateTitle = QStringLiteral(" Not a valid date!");
inline const QString BadDateText
    = QStringLiteral("Please insert a date in the format:\n\n    mm/dd/yy or mm/dd/yyyy \n\n or "
                     "use the dropdown Calendar.");

inline const QString MaxAmountTitle = QStringLiteral("Maximum Number Exceeded");
inline const QString MaxAmountText = QStringLiteral("Maximum Number is 90,000,000,000");

// Amounts are typed without a sign (what they stand for gives it): "+5",
// "-0" and "(5.00)" are refused wherever an amount is typed.
bool hasSign(const QString &amountText);

// The warning shown before an entry would take a bank account below zero. The
// register and the transfer panel word it alike; the register's title is
// capitalised, and the transfer panel breaks its lines with "\r\n".
inline const QString RegisterBalanceTitle = QStringLiteral("Account Balance Exceeded");
inline const QString TransferBalanceTitle = QStringLiteral("Account Balance exceeded");
struct BalanceShortfall
{
    Currency amount;     // the amount of the entry, unsigned
    QString accountName; // as it is shown
    Currency balance;    // the balance before the entry
    Currency after;      // the balance after it (below zero)
};
QString registerBalanceText(const BalanceShortfall &s);
QString transferBalanceText(const BalanceShortfall &s);

} // namespace EntryChecks
