// Start-up with a full household (20 accounts of 32,767 records each) up to
// the main window being on screen, and the cost of one durable write.

#include "BenchData.h"

#include "SilentInteraction.h"
#include "accounts/AccountService.h"
#include "app/MainForm.h"
#include "app/StartForm.h"
#include "records/DataFiles.h"

#include <QApplication>
#include <QDir>
#include <QWindow>

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <string>

namespace {

using Clock = std::chrono::steady_clock;

StartForm::Options optionsFor(const QString &appPath)
{
    StartForm::Options options;
    options.appPath = appPath;
    options.screen = QSize(1024, 768);
    return options;
}

// start() shows the window; it is on screen once the platform has exposed it
// and the events that paint it have run.
bool waitUntilShown(StartForm &form)
{
    const auto deadline = Clock::now() + std::chrono::seconds(10);
    while (Clock::now() < deadline) {
        QApplication::processEvents();
        const QWindow *w = form.mainForm() ? form.mainForm()->windowHandle() : nullptr;
        if (w && w->isExposed()) {
            QApplication::processEvents();
            return true;
        }
    }
    return false;
}

void closeDown(StartForm &form)
{
    form.stop();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QApplication::processEvents();
}

double msSince(Clock::time_point t0)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - t0).count();
}

// The first start on a folder writes the manifest, the sample set and the
// settings record; every later one only reads.
QString preparedTwentyAccounts()
{
    static const QString app = [] {
        const auto t0 = Clock::now();
        const QString path = BenchData::twentyAccountsAppFolder();
        const double built = msSince(t0);

        SilentInteraction ui;
        StartForm form(optionsFor(path), ui);
        const auto t1 = Clock::now();
        const bool ok = form.start() && waitUntilShown(form);
        const double first = msSince(t1);
        closeDown(form);
        if (!ok)
            return QString();
        char line[200];
        std::snprintf(line, sizeof line,
                      "start-up data: 20 registers of 32,767 records written in %.0f ms; "
                      "first start (writes the sample set) took %.0f ms",
                      built, first);
        BenchData::note(line);
        return path;
    }();
    return app;
}

void BM_StartupTwentyFullAccounts(benchmark::State &state)
{
    const QString app = preparedTwentyAccounts();
    if (app.isEmpty()) {
        state.SkipWithError("the first start did not show the main window");
        return;
    }
    SilentInteraction ui;
    for (auto _ : state) {
        StartForm form(optionsFor(app), ui);
        const auto t0 = Clock::now();
        const bool started = form.start();
        const bool shown = started && waitUntilShown(form);
        state.SetIterationTime(std::chrono::duration<double>(Clock::now() - t0).count());
        closeDown(form);
        if (!shown || ui.messages > 0) {
            const std::string why = ui.messages > 0
                                        ? "start-up said: " + ui.lastMessage.toStdString()
                                        : std::string("the main window was not shown");
            state.SkipWithError(why.c_str());
            break;
        }
    }
}

void BM_AddAccount(benchmark::State &state)
{
    const QString root = BenchData::scratchDir() + QStringLiteral("/add");
    AccountService::NewAccount account;
    account.kind = 0;
    account.name = QStringLiteral("Main Street Checking");
    account.lastStatement = true;
    account.startBalance = QStringLiteral("2450.00");
    account.date = QDate(2026, 8, 1);
    int n = 0;
    for (auto _ : state) {
        const QString data = root + QStringLiteral("/%1/Data").arg(++n);
        if (!QDir().mkpath(data)) {
            state.SkipWithError("cannot create a data folder");
            break;
        }
        AccountService service(DataFiles(data, false));
        const auto t0 = Clock::now();
        const AccountService::Result r = service.add(account);
        state.SetIterationTime(std::chrono::duration<double>(Clock::now() - t0).count());
        if (!r.ok) {
            state.SkipWithError(("adding refused: " + r.error.toStdString()).c_str());
            break;
        }
        QDir(root + QStringLiteral("/%1").arg(n)).removeRecursively();
    }
}

} // namespace

BENCHMARK(BM_StartupTwentyFullAccounts)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(10)
    ->Repetitions(3)
    ->ReportAggregatesOnly(true);
BENCHMARK(BM_AddAccount)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(20)
    ->Repetitions(3)
    ->ReportAggregatesOnly(true);
