#include "register/ViewRange.h"

#include "core/EntryChecks.h"

namespace ViewRange {

int firstShown(const std::vector<TransRecord> &records, const QString &viewFrom)
{
    const auto from = EntryChecks::parseDate(viewFrom);
    if (!from)
        return 1;
    for (std::size_t i = 0; i < records.size(); ++i) {
        const auto date = EntryChecks::parseDate(records[i].Date.text());
        if (date && *date >= *from)
            return int(i) + 1;
    }
    return int(records.size()) + 1;
}

bool isValid(const QString &typed)
{
    return typed.trimmed().compare(All, Qt::CaseInsensitive) == 0
           || EntryChecks::ValidateEntryDate(typed);
}

QString storedForm(const QString &typed)
{
    if (typed.trimmed().compare(All, Qt::CaseInsensitive) == 0)
        return All;
    return EntryChecks::formatLongDate(*EntryChecks::parseDate(typed));
}

std::vector<Currency> runningBalances(const std::vector<TransRecord> &records)
{
    std::vector<Currency> out;
    out.reserve(records.size());
    Currency running;
    for (const TransRecord &r : records) {
        running += r.Amount;
        out.push_back(running);
    }
    return out;
}

} // namespace ViewRange
