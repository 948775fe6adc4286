#pragma once

#include "exchange/ExportSet.h"

#include <QByteArray>

// Transactions as comma-separated values for a spreadsheet: UTF-8, one
// heading line, CRLF line ends, a field quoted when it holds a comma, a quote
// or a line break, amounts signed with a dot and no grouping.
namespace CsvExport {

enum class DateForm { Iso, MonthDayYear }; // "2026-03-31" or "03/31/2026"

QByteArray write(const ExportSet &set, DateForm dates);

// One field as it goes into a line.
QString quoted(const QString &field);

} // namespace CsvExport
