#include "charts/ChartPeriod.h"

#include "core/EntryChecks.h"

namespace ChartPeriod {

QStringList names()
{
    return {QStringLiteral("This Month"), QStringLiteral("Last Month"), QStringLiteral("This Year"),
            QStringLiteral("Last 12 Months"), QStringLiteral("Between Dates")};
}

std::optional<Period> of(Choice choice, const QDate &today)
{
    const QDate monthStart(today.year(), today.month(), 1);
    switch (choice) {
    case Choice::ThisMonth:
        return Period{monthStart, today};
    case Choice::LastMonth:
        return Period{monthStart.addMonths(-1), monthStart.addDays(-1)};
    case Choice::ThisYear:
        return Period{QDate(today.year(), 1, 1), today};
    case Choice::Last12Months:
        return Period{monthStart.addMonths(-11), today};
    case Choice::Dates:
        break;
    }
    return std::nullopt;
}

Typed typed(const QString &from, const QString &to)
{
    const auto first = EntryChecks::parseDate(from.trimmed());
    const auto last = EntryChecks::parseDate(to.trimmed());
    if (!first)
        return {std::nullopt, QStringLiteral("Type the first date as mm/dd/yyyy.")};
    if (!last)
        return {std::nullopt, QStringLiteral("Type the last date as mm/dd/yyyy.")};
    if (*first > *last)
        return {std::nullopt, QStringLiteral("The first date is after the last date.")};
    return {Period{*first, *last}, QString()};
}

} // namespace ChartPeriod
