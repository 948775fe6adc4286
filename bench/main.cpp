// quillmere_bench: runs the benchmarks, then checks the figures that matter
// against what the program promises its users.

#include "BenchData.h"

#include "app/TipForm.h"

#include <QApplication>
#include <QDir>
#include <QFile>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>

namespace {

struct Figures
{
    double medianTime = -1; // in the benchmark's own unit
    double meanTime = -1;
    double medianBytesPerSecond = -1;
    std::map<std::string, double> medianCounters; // the parts a benchmark times separately
    std::string unit;
    std::string error;
};

const char *unitName(benchmark::TimeUnit unit)
{
    switch (unit) {
    case benchmark::kNanosecond:
        return "ns";
    case benchmark::kMicrosecond:
        return "us";
    case benchmark::kMillisecond:
        return "ms";
    case benchmark::kSecond:
        return "s";
    }
    return "";
}

// Shows the usual table and keeps the median and mean of every benchmark.
class CapturingReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs) {
            Figures &f = figures[run.run_name.function_name];
            f.unit = unitName(run.time_unit);
            if (run.error_occurred) {
                f.error = run.error_message;
                continue;
            }
            if (run.run_type != Run::RT_Aggregate)
                continue;
            if (run.aggregate_name == "median") {
                f.medianTime = run.GetAdjustedRealTime();
                const auto bps = run.counters.find("bytes_per_second");
                if (bps != run.counters.end())
                    f.medianBytesPerSecond = bps->second.value;
                for (const auto &[counter, value] : run.counters)
                    f.medianCounters[counter] = value.value;
            } else if (run.aggregate_name == "mean") {
                f.meanTime = run.GetAdjustedRealTime();
            }
        }
        ConsoleReporter::ReportRuns(runs);
    }

    std::map<std::string, Figures> figures;
};

const char *verdict(bool met)
{
    return met ? "met" : "NOT MET";
}

int printTargets(const std::map<std::string, Figures> &figures)
{
    int errors = 0;
    std::printf("\nTargets\n");
    for (const auto &[name, f] : figures) {
        if (!f.error.empty()) {
            std::printf("  %s failed: %s\n", name.c_str(), f.error.c_str());
            ++errors;
        }
    }

    const auto read = figures.find("BM_ReadRegisterBytes");
    const auto decode = figures.find("BM_DecodeRegister");
    if (read != figures.end() && decode != figures.end() && read->second.medianBytesPerSecond > 0
        && decode->second.medianBytesPerSecond > 0) {
        const double mb = 1024.0 * 1024.0;
        const double ratio
            = decode->second.medianBytesPerSecond / read->second.medianBytesPerSecond;
        std::printf("  read a full register:   %8.1f MiB/s (median)\n",
                    read->second.medianBytesPerSecond / mb);
        std::printf("  decode a full register: %8.1f MiB/s (median, read included)\n",
                    decode->second.medianBytesPerSecond / mb);
        std::printf(
            "  decode/read throughput ratio: %.2f (target >= 0.5: decoding at least half as fast "
            "as the read): %s\n",
            ratio, verdict(ratio >= 0.5));
    }

    const auto start = figures.find("BM_StartupTwentyFullAccounts");
    if (start != figures.end() && start->second.medianTime >= 0) {
        const Figures &f = start->second;
        std::printf(
            "  start-up to the shown main window, 20 accounts x 32,767 records: median %.1f %s, "
            "mean %.1f %s (target < 60 ms): %s\n",
            f.medianTime, f.unit.c_str(), f.meanTime, f.unit.c_str(),
            verdict(f.unit == "ms" && f.medianTime < 60.0));
    }

    const auto add = figures.find("BM_AddAccount");
    if (add != figures.end() && add->second.medianTime >= 0) {
        const Figures &f = add->second;
        std::printf(
            "  add one account (one unit of work, synced to disk): median %.2f %s, mean %.2f %s "
            "(no target; the cost of a durable write)\n",
            f.medianTime, f.unit.c_str(), f.meanTime, f.unit.c_str());
    }

    // A counter's median, or -1 when the benchmark did not keep it.
    const auto part = [](const Figures &f, const char *counter) {
        const auto it = f.medianCounters.find(counter);
        return it == f.medianCounters.end() ? -1.0 : it->second;
    };

    const auto fill = figures.find("BM_FillRegisterGrid");
    if (fill != figures.end() && fill->second.medianTime >= 0) {
        const Figures &f = fill->second;
        std::printf("  list a full register (32,767 records) again, up to its visible rows "
                    "painted: median %.1f %s, "
                    "mean %.1f %s (target < 30 ms): %s\n",
                    f.medianTime, f.unit.c_str(), f.meanTime, f.unit.c_str(),
                    verdict(f.unit == "ms" && f.medianTime < 30.0));
        std::printf(
            "      of which FillRegisterGrid (read, decode, balances, model reset) %.1f ms, "
            "layout and paint %.1f ms (medians)\n",
            part(f, "fill_ms"), part(f, "paint_ms"));
    }

    const auto balancing = figures.find("BM_OpenBalancingPanel");
    if (balancing != figures.end() && balancing->second.medianTime >= 0) {
        const Figures &f = balancing->second;
        std::printf("  open the balancing panel on 32,767 records, 5,000 of them open (read, "
                    "list, paint): median %.1f %s, mean %.1f %s (target < 50 ms): %s\n",
                    f.medianTime, f.unit.c_str(), f.meanTime, f.unit.c_str(),
                    verdict(f.unit == "ms" && f.medianTime < 50.0));
    }
    const auto tick = figures.find("BM_TickRecount");
    if (tick != figures.end() && tick->second.medianTime >= 0) {
        const Figures &f = tick->second;
        std::printf("  one tick and its recount on that list: median %.3f %s, mean %.3f %s "
                    "(target < 2 ms): %s\n",
                    f.medianTime, f.unit.c_str(), f.meanTime, f.unit.c_str(),
                    verdict(f.unit == "ms" && f.medianTime < 2.0));
    }

    const auto enter = figures.find("BM_EnterOnFullRegister");
    if (enter != figures.end() && enter->second.medianTime >= 0) {
        const Figures &f = enter->second;
        std::printf("  one Enter that fills the register (validation, durable write, balance, "
                    "refresh, paint): "
                    "median %.1f %s, mean %.1f %s (target < 30 ms): %s\n",
                    f.medianTime, f.unit.c_str(), f.meanTime, f.unit.c_str(),
                    verdict(f.unit == "ms" && f.medianTime < 30.0));
        std::printf("      of which the click up to the refreshed grid %.1f ms (its unit of work "
                    "syncs to disk: "
                    "see add one account above), layout and paint %.1f ms (medians)\n",
                    part(f, "enter_ms"), part(f, "paint_ms"));
    }

    for (const char *name : {"BM_ImportQif", "BM_ImportOfx"}) {
        const auto import = figures.find(name);
        if (import == figures.end() || import->second.medianTime < 0)
            continue;
        const Figures &f = import->second;
        std::printf("  %s import of 10,000 transactions into a register of 20,000 (2,000 of them "
                    "already there): median %.1f %s, mean %.1f %s (target < 1 s): %s\n",
                    name + 9, f.medianTime, f.unit.c_str(), f.meanTime, f.unit.c_str(),
                    verdict(f.unit == "ms" && f.medianTime < 1000.0));
    }

    for (const std::string &line : BenchData::notes())
        std::printf("  note: %s\n", line.c_str());
    return errors;
}

} // namespace

int main(int argc, char **argv)
{
    // Start-up shows real windows; without a display they go off screen.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // Keep the per-user settings of these runs away from the real ones.
    const QString config = BenchData::scratchDir() + QStringLiteral("/config");
    QDir().mkpath(config);
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(config));

    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("quillmere"));
    // No tip window: start-up is measured up to the main window alone.
    TipForm::setShowTipsSetting(0);

    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    CapturingReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    const int errors = printTargets(reporter.figures);
    benchmark::Shutdown();
    return errors > 0 ? 1 : 0;
}
