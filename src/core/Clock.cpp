#include "core/Clock.h"

namespace {
QDate &fixedToday()
{
    static QDate date;
    return date;
}
} // namespace

namespace Clock {

QDate today()
{
    return fixedToday().isValid() ? fixedToday() : QDate::currentDate();
}

void setToday(const QDate &date)
{
    fixedToday() = date;
}

} // namespace Clock
