#pragma once

#include "records/Currency.h"
#include "reports/TransactionSearch.h"

#include <QString>

#include <array>
#include <optional>
#include <vector>

// The counts, sums and averages shown under a search (flxgdSrchSum).
struct SearchSummary
{
    int deposits = 0;
    int withdrawals = 0;
    Currency depositSum;
    Currency withdrawalSum; // as a positive figure

    struct Row
    {
        QString item;
        QString amount;
    };
    static constexpr int RowCount = 8;
    // "# of Deposits" ... "Average Withdrawal"; an average of no entries is "-".
    std::array<Row, RowCount> rows() const;

    static SearchSummary of(const std::vector<TransactionSearch::Hit> &hits);
    // The sum over the count, rounded half away from zero; none for no entries.
    static std::optional<Currency> average(Currency sum, int count);
};
