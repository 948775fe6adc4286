// A search of every register: 20 accounts of 32,767 records each (655,340
// records), for a description and a range of dates, and the same over 5 and
// 10 of the registers to show how the time grows with the records read.

#include "BenchData.h"

#include "accounts/AccountBook.h"
#include "app/AppPaths.h"
#include "records/DataFiles.h"
#include "reports/TransactionSearch.h"

#include <benchmark/benchmark.h>

namespace {

void BM_SearchRegisters(benchmark::State &state)
{
    const DataFiles files(AppPaths::dataDir(BenchData::twentyAccountsAppFolder()), false);
    std::vector<BankAcctRecord> accounts
        = AccountBook(files).readAll().value_or(std::vector<BankAcctRecord>{});
    if (accounts.size() < std::size_t(state.range(0))) {
        state.SkipWithError("the account list of the benchmark folder could not be read");
        return;
    }
    accounts.resize(std::size_t(state.range(0)));

    TransactionSearch::Request q;
    q.description = QStringLiteral("grocery");
    q.dateFrom = QStringLiteral("01/01/2000");
    q.dateTo = QStringLiteral("12/31/2009");
    const TransactionSearch::Checked checked = TransactionSearch::check(q);
    std::size_t found = 0;
    for (auto _ : state) {
        const TransactionSearch::Result r
            = TransactionSearch::run(files, accounts, 0, checked.criteria);
        found = r.hits.size();
        benchmark::DoNotOptimize(found);
    }
    state.counters["records"] = double(state.range(0)) * BenchData::FullRegister;
    state.counters["found"] = double(found);
}

} // namespace

BENCHMARK(BM_SearchRegisters)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Arg(5)
    ->Arg(10)
    ->Arg(20)
    ->Iterations(10);
