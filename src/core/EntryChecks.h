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

} // namespace EntryChecks
