// Reading a full register: the bytes alone, then the bytes decoded into
// records. Opening an account reads its whole register this way, so decoding
// must not cost much more than the read itself.

#include "BenchData.h"

#include "records/RawRecordFile.h"
#include "records/RecordFile.h"
#include "records/TransRecord.h"

#include <benchmark/benchmark.h>

namespace {

constexpr qint64 RegisterBytes = qint64(BenchData::FullRegister) * TransRecord::Size;

void BM_ReadRegisterBytes(benchmark::State &state)
{
    const QString path = BenchData::fullRegisterFile();
    for (auto _ : state) {
        RawRecordFile file(path, TransRecord::Size);
        QByteArray bytes = file.readAll();
        benchmark::DoNotOptimize(bytes.data());
        benchmark::ClobberMemory();
        if (bytes.size() != RegisterBytes) {
            state.SkipWithError("the register did not read back whole");
            break;
        }
    }
    state.SetBytesProcessed(state.iterations() * RegisterBytes);
}

void BM_DecodeRegister(benchmark::State &state)
{
    const QString path = BenchData::fullRegisterFile();
    // What was written must be what is decoded, or the figure means nothing.
    {
        const BenchData::Register expected = BenchData::makeRegister(
            BenchData::FullRegister, 7, QStringLiteral("Main Street Checking"), false, 1, 0);
        const std::vector<TransRecord> records = RecordFile<TransRecord>(path).readAll();
        Currency sum;
        bool numbered = records.size() == std::size_t(BenchData::FullRegister);
        for (std::size_t i = 0; i < records.size(); ++i) {
            sum += records[i].Amount;
            numbered = numbered && records[i].Tranno == std::int16_t(i + 1);
        }
        if (!numbered || sum != expected.balance) {
            state.SkipWithError("the decoded register does not match what was written");
            return;
        }
    }
    for (auto _ : state) {
        RecordFile<TransRecord> file(path);
        std::vector<TransRecord> records = file.readAll();
        benchmark::DoNotOptimize(records.data());
        benchmark::ClobberMemory();
        if (records.size() != std::size_t(BenchData::FullRegister)) {
            state.SkipWithError("the register did not decode whole");
            break;
        }
    }
    state.SetBytesProcessed(state.iterations() * RegisterBytes);
}

} // namespace

BENCHMARK(BM_ReadRegisterBytes)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);
BENCHMARK(BM_DecodeRegister)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);
