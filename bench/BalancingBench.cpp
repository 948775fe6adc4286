// The balancing panel on a full register: opening it on an account of 32,767
// records of which the last 5,000 are still open (read, decode, list, model
// reset, visible rows painted), and one tick with its recount.

#include "BenchData.h"

#include "SilentInteraction.h"
#include "reconcile/BalancingPanel.h"
#include "reconcile/StatementModel.h"
#include "records/BankAcctRecord.h"
#include "records/DataFiles.h"
#include "records/TransRecord.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTableView>

#include <benchmark/benchmark.h>

#include <chrono>

namespace {

using SteadyClock = std::chrono::steady_clock;
constexpr int OpenRecords = 5000;

double msSince(SteadyClock::time_point from)
{
    return std::chrono::duration<double, std::milli>(SteadyClock::now() - from).count();
}

struct BalancingData
{
    DataFiles files{QString(), false};
    BankAcctRecord account;
    bool ok = false;
};

// One checking account with a full register: everything cleared on earlier
// statements except the last 5,000 entries.
const BalancingData &balancingData()
{
    static BalancingData data = [] {
        BalancingData d;
        const QString name = QStringLiteral("Statement Checking");
        const QString dir = BenchData::scratchDir() + QStringLiteral("/balancing/Data");
        QDir().mkpath(dir);
        d.files = DataFiles(dir, false);
        BenchData::Register reg
            = BenchData::makeRegister(BenchData::FullRegister, 11, name, false, 1, 0);
        for (int i = 0; i < BenchData::FullRegister; ++i) {
            char *p = reg.bytes.data() + qsizetype(i) * TransRecord::Size;
            TransRecord t = TransRecord::decode(p);
            const bool open = i >= BenchData::FullRegister - OpenRecords;
            t.Status = open ? QStringLiteral("OP") : QStringLiteral("CL");
            t.DateClear = open ? QString() : QStringLiteral("01/31/2026");
            t.encode(p);
        }
        d.account.BankNum = 1;
        d.account.Type = QStringLiteral("CH");
        d.account.BankName = name;
        d.account.Balance = reg.balance;
        QByteArray list(BankAcctRecord::Size, '\0');
        d.account.encode(list.data());
        QFile r(d.files.registerFile(name));
        QFile a(d.files.accountList());
        d.ok = r.open(QIODevice::WriteOnly) && r.write(reg.bytes) == reg.bytes.size()
               && a.open(QIODevice::WriteOnly) && a.write(list) == list.size();
        return d;
    }();
    return data;
}

void BM_OpenBalancingPanel(benchmark::State &state)
{
    const BalancingData &data = balancingData();
    if (!data.ok) {
        state.SkipWithError("could not write the register");
        return;
    }
    SilentInteraction ui;
    BalancingPanel panel(ui);
    panel.resize(700, 520);
    panel.setDataFiles(data.files);
    panel.show();
    QApplication::processEvents();
    for (auto _ : state) {
        panel.setAccount(BankAcctRecord{});
        QApplication::processEvents();
        const auto start = SteadyClock::now();
        panel.setAccount(data.account); // shown: lists the register at once
        panel.repaint();
        state.SetIterationTime(msSince(start) / 1000.0);
    }
    if (panel.model()->list().size() != OpenRecords + 3)
        state.SkipWithError("the list does not hold the open records");
}

void BM_TickRecount(benchmark::State &state)
{
    const BalancingData &data = balancingData();
    SilentInteraction ui;
    BalancingPanel panel(ui);
    panel.resize(700, 520);
    panel.setDataFiles(data.files);
    panel.show();
    panel.setAccount(data.account);
    QApplication::processEvents();
    auto *grid = panel.findChild<QTableView *>(QStringLiteral("flxgdBSTrans"));
    const QModelIndex row = panel.model()->index(2, StatementModel::Tick);
    for (auto _ : state) {
        const auto start = SteadyClock::now();
        Q_EMIT grid->clicked(row); // toggles the tick and recounts every row
        state.SetIterationTime(msSince(start) / 1000.0);
    }
}

} // namespace

BENCHMARK(BM_OpenBalancingPanel)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(20)
    ->Repetitions(3)
    ->ReportAggregatesOnly(true);
BENCHMARK(BM_TickRecount)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(200)
    ->Repetitions(3)
    ->ReportAggregatesOnly(true);
