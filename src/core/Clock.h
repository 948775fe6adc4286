#pragma once

#include <QDate>

// Today's date as the program sees it; scenario scripts may fix it.
namespace Clock {

QDate today();
void setToday(const QDate &date); // an invalid date goes back to the system clock

} // namespace Clock
