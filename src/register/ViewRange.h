#pragma once

#include "records/Currency.h"
#include "records/TransRecord.h"

#include <QString>

#include <vector>

// Which part of a register is listed, and the running balance beside it.
namespace ViewRange {

inline const QString All = QStringLiteral("All");

// The first record listed for a view-from text: 1 for "All" (or anything that
// is not a date), else the first record, in entry order, dated on or after it;
// one past the last record when none is.
int firstShown(const std::vector<TransRecord> &records, const QString &viewFrom);

// Whether a typed view start is acceptable ("All" in any case, or a date),
// and its stored form ("All" or "mm/dd/yyyy").
bool isValid(const QString &typed);
QString storedForm(const QString &typed);

// Running balance after each record, from the first record of the file.
std::vector<Currency> runningBalances(const std::vector<TransRecord> &records);

} // namespace ViewRange
