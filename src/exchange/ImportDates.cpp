#include "exchange/ImportDates.h"

#include <QRegularExpression>

namespace ImportDates {

namespace {

struct Parts
{
    int first = 0;
    int second = 0;
    int year = 0;
    bool iso = false;
};

std::optional<Parts> split(const QString &text)
{
    static const QRegularExpression iso(QStringLiteral("^(\\d{4})-(\\d{1,2})-(\\d{1,2})$"));
    static const QRegularExpression plain(
        QStringLiteral("^(\\d{1,2})\\s*[/.-]\\s*(\\d{1,2})\\s*([/.'-])\\s*(\\d{2}|\\d{4})$"));
    const QString t = text.trimmed();
    if (const auto m = iso.match(t); m.hasMatch())
        return Parts{m.captured(2).toInt(), m.captured(3).toInt(), m.captured(1).toInt(), true};
    const auto m = plain.match(t);
    if (!m.hasMatch())
        return std::nullopt;
    Parts p{m.captured(1).toInt(), m.captured(2).toInt(), m.captured(4).toInt(), false};
    if (m.captured(4).size() == 2) {
        // "'" always means this century; otherwise two-digit years run 1970..2069.
        const bool apostrophe = m.captured(3) == QLatin1String("'");
        p.year += (apostrophe || p.year < 70) ? 2000 : 1900;
    }
    return p;
}

} // namespace

Order detect(const QStringList &texts, bool *conflict)
{
    bool monthFirst = false;
    bool dayFirst = false;
    for (const QString &t : texts) {
        const auto p = split(t);
        if (!p || p->iso)
            continue;
        if (p->first > 12 && p->second <= 12)
            dayFirst = true;
        if (p->second > 12 && p->first <= 12)
            monthFirst = true;
    }
    if (conflict)
        *conflict = monthFirst && dayFirst;
    if (monthFirst == dayFirst)
        return Order::Unknown;
    return monthFirst ? Order::MonthFirst : Order::DayFirst;
}

std::optional<QDate> read(const QString &text, Order order)
{
    const auto p = split(text);
    if (!p)
        return std::nullopt;
    int month = p->first;
    int day = p->second;
    if (!p->iso && order == Order::DayFirst)
        std::swap(month, day);
    const QDate d(p->year, month, day);
    if (!d.isValid())
        return std::nullopt;
    return d;
}

QString orderName(Order order)
{
    return order == Order::DayFirst ? QStringLiteral("day/month") : QStringLiteral("month/day");
}

} // namespace ImportDates
