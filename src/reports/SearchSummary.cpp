#include "reports/SearchSummary.h"

SearchSummary SearchSummary::of(const std::vector<TransactionSearch::Hit> &hits)
{
    SearchSummary s;
    for (const TransactionSearch::Hit &h : hits) {
        const Currency a = h.record.Amount;
        if (a.isNegative()) {
            ++s.withdrawals;
            s.withdrawalSum += a.abs();
        } else if (!a.isZero()) {
            ++s.deposits;
            s.depositSum += a;
        }
    }
    return s;
}

std::optional<Currency> SearchSummary::average(Currency sum, int count)
{
    if (count <= 0)
        return std::nullopt;
    const std::int64_t raw = sum.raw();
    const std::int64_t half = count / 2;
    const std::int64_t q = raw >= 0 ? (raw + half) / count : -((-raw + half) / count);
    return Currency::fromRaw(q);
}

std::array<SearchSummary::Row, SearchSummary::RowCount> SearchSummary::rows() const
{
    const auto money
        = [](std::optional<Currency> c) { return c ? c->toCurrencyText() : QStringLiteral("-"); };
    return {{
        {QStringLiteral("# of Deposits"), QString::number(deposits)},
        {QStringLiteral("# of Withdrawals"), QString::number(withdrawals)},
        {QStringLiteral("          Total Transactions"), QString::number(deposits + withdrawals)},
        {QStringLiteral("Sum of Deposits"), depositSum.toCurrencyText()},
        {QStringLiteral("Sum of Withdrawals"), withdrawalSum.toCurrencyText()},
        {QStringLiteral("                  Net Amount"),
         (depositSum - withdrawalSum).toCurrencyText()},
        {QStringLiteral("Average Deposit"), money(average(depositSum, deposits))},
        {QStringLiteral("Average Withdrawal"), money(average(withdrawalSum, withdrawals))},
    }};
}
