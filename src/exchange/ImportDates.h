#pragma once

#include <QDate>
#include <QString>
#include <QStringList>

#include <optional>

// Dates as bank files write them: "11/05/2026", "5/11/26", "11/ 5'26" (the
// apostrophe of a year after 1999), "2026-11-05". Whether the month or the day
// comes first is read from the file where it shows (a first number above 12
// can only be a day), and asked otherwise.
namespace ImportDates {

enum class Order { Unknown, MonthFirst, DayFirst };

// What the whole file shows: MonthFirst or DayFirst when some date settles it,
// Unknown when every date reads both ways. `conflict` is set when dates of the
// file contradict each other.
Order detect(const QStringList &texts, bool *conflict = nullptr);

// A date in the given order (ISO dates read the same in both); nothing for a
// text that is no date or names a day that does not exist.
std::optional<QDate> read(const QString &text, Order order);

QString orderName(Order order); // "month/day" or "day/month"

} // namespace ImportDates
