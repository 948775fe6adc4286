// The four chart series over every register: 20 accounts of 32,767 records
// each (655,340 records), for the last twelve months and for the whole thirty
// years the registers span (the balance line then sampled by the week).

#include "BenchData.h"

#include "accounts/AccountBook.h"
#include "app/AppPaths.h"
#include "budget/BudgetBook.h"
#include "charts/ChartSeries.h"
#include "records/DataFiles.h"

#include <benchmark/benchmark.h>

namespace {

void BM_ChartSeries(benchmark::State &state)
{
    const DataFiles files(AppPaths::dataDir(BenchData::twentyAccountsAppFolder()), false);
    const std::vector<BankAcctRecord> accounts
        = AccountBook(files).readAll().value_or(std::vector<BankAcctRecord>{});
    const std::vector<BudgetRecord> budget = BudgetBook(files).readAll();
    if (accounts.size() < std::size_t(BenchData::AccountCount)) {
        state.SkipWithError("the account list of the benchmark folder could not be read");
        return;
    }
    ChartSeries::Request request;
    request.to = QDate(2026, 12, 31);
    request.from = state.range(0) == 1 ? QDate(2026, 1, 1) : QDate(1990, 1, 1);
    request.maxPoints = 400;
    ChartSeries::Figures f;
    for (auto _ : state) {
        f = ChartSeries::compute(files, accounts, budget, request);
        benchmark::DoNotOptimize(f.entries);
    }
    state.counters["records"] = double(f.entries + f.badDates);
    state.counters["points"] = double(f.balances.size());
    state.counters["months"] = double(f.months.size());
}

} // namespace

BENCHMARK(BM_ChartSeries)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Arg(1)
    ->Arg(37)
    ->Iterations(10);
