#pragma once

#include <QDate>
#include <QString>
#include <QStringList>

#include <optional>

// The periods the charts are drawn for, as the period box offers them.
namespace ChartPeriod {

enum class Choice { ThisMonth, LastMonth, ThisYear, Last12Months, Dates };

// The names offered, in the order of Choice.
QStringList names();

struct Period
{
    QDate from; // both days included
    QDate to;
};

// The days a chosen period covers, seen from today. A period running up to
// now ends today; "Last 12 Months" is this month and the eleven before it.
// Nothing for Dates: those are typed.
std::optional<Period> of(Choice choice, const QDate &today);

// Two typed dates, checked. A problem is a plain sentence saying what to type.
struct Typed
{
    std::optional<Period> period;
    QString problem;
};
Typed typed(const QString &from, const QString &to);

} // namespace ChartPeriod
