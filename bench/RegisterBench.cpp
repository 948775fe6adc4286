// The register of a full account on screen: listing it again (read, decode,
// running balances, model reset, then the visible rows laid out and painted),
// and one Enter from the entry row that makes the register full.

#include "BenchData.h"

#include "SilentInteraction.h"
#include "core/EntryChecks.h"
#include "records/BankAcctRecord.h"
#include "records/DataFiles.h"
#include "records/RawRecordFile.h"
#include "records/TransRecord.h"
#include "register/RegisterModel.h"
#include "register/RegisterPanel.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QEvent>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QWindow>

#include <benchmark/benchmark.h>

#include <chrono>
#include <string>

#include <unistd.h>

namespace {

using SteadyClock = std::chrono::steady_clock;

double msBetween(SteadyClock::time_point from, SteadyClock::time_point to)
{
    return std::chrono::duration<double, std::milli>(to - from).count();
}

// A data folder with one checking account whose register holds `records`
// records and whose balance agrees with them.
struct OneAccount
{
    DataFiles files{QString(), false};
    BankAcctRecord account;
    QByteArray accountBytes; // the account list as written
    QString registerPath;
};

OneAccount oneAccount(const QString &folder, int records)
{
    const QString name = QStringLiteral("Main Street Checking");
    const QString data
        = BenchData::scratchDir() + QLatin1Char('/') + folder + QStringLiteral("/Data");
    QDir().mkpath(data);
    OneAccount out;
    out.files = DataFiles(data, false);
    const BenchData::Register reg = BenchData::makeRegister(records, 7, name, false, 1, 0);
    out.account.BankNum = 1;
    out.account.Type = QStringLiteral("CH");
    out.account.BankName = name;
    out.account.Balance = reg.balance;
    out.account.NextCheckNum = -1;
    out.account.ViewFromDate = QStringLiteral("All");
    out.account.ViewOption = 0;
    out.accountBytes = QByteArray(BankAcctRecord::Size, '\0');
    out.account.encode(out.accountBytes.data());
    out.registerPath = out.files.registerFile(name);

    const auto write = [](const QString &path, const QByteArray &bytes) {
        QFile f(path);
        return f.open(QIODevice::WriteOnly | QIODevice::Truncate) && f.write(bytes) == bytes.size();
    };
    if (!write(out.registerPath, reg.bytes) || !write(out.files.accountList(), out.accountBytes)
        || !write(out.files.budget(), {}) || !write(out.files.payees(), {}))
        out.registerPath.clear();
    return out;
}

// Puts the register back to `records` records and the account record back as
// it was written, in place as a unit of work writes it, and makes both durable.
bool restore(const OneAccount &data, int records)
{
    QFile reg(data.registerPath);
    QFile list(data.files.accountList());
    const bool ok = reg.open(QIODevice::ReadWrite)
                    && reg.resize(qint64(records) * TransRecord::Size)
                    && list.open(QIODevice::ReadWrite)
                    && list.write(data.accountBytes) == data.accountBytes.size() && list.flush();
    return ok && ::fsync(reg.handle()) == 0 && ::fsync(list.handle()) == 0;
}

// Counts the paint events of the grid, so that a measurement can wait until
// the visible rows have really been drawn.
class PaintCounter : public QObject
{
public:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            ++paints;
        return false;
    }
    int paints = 0;
};

// A register panel about the size the main window gives it, on screen.
struct ShownPanel
{
    SilentInteraction ui;
    PaintCounter counter; // outlives the panel it watches
    RegisterPanel panel{ui};

    bool show(const OneAccount &data)
    {
        panel.resize(860, 640);
        panel.setDataFiles(data.files);
        panel.setAccount(data.account);
        panel.grid()->viewport()->installEventFilter(&counter);
        panel.show();
        const auto deadline = SteadyClock::now() + std::chrono::seconds(10);
        while (SteadyClock::now() < deadline) {
            QApplication::processEvents();
            const QWindow *w = panel.windowHandle();
            if (w && w->isExposed()) {
                QApplication::processEvents();
                return counter.paints > 0;
            }
        }
        return false;
    }

    // What happens after a refresh before the user sees it: the delayed layout
    // of the view (scroll range, headers) and the paint of the visible rows.
    // Returns false when the grid was not painted by the event loop and had to
    // be painted directly.
    bool layOutAndPaint()
    {
        const int before = counter.paints;
        QApplication::processEvents();
        if (counter.paints > before)
            return true;
        panel.grid()->viewport()->repaint();
        return false;
    }

    // The row at the top of the grid's visible part.
    int topRow() const { return panel.grid()->rowAt(0); }
};

// Keeps a per-iteration figure in milliseconds as a counter.
void addCounter(benchmark::State &state, const char *name, double totalMs)
{
    state.counters[name] = benchmark::Counter(totalMs, benchmark::Counter::kAvgIterations);
}

void BM_FillRegisterGrid(benchmark::State &state)
{
    const OneAccount data = oneAccount(QStringLiteral("fill"), BenchData::FullRegister);
    if (data.registerPath.isEmpty()) {
        state.SkipWithError("cannot write the register");
        return;
    }
    ShownPanel shown;
    if (!shown.show(data)) {
        state.SkipWithError("the register panel was not shown");
        return;
    }
    RegisterPanel &panel = shown.panel;
    double fillMs = 0, paintMs = 0;
    int direct = 0;
    bool checked = false;
    for (auto _ : state) {
        const auto t0 = SteadyClock::now();
        panel.FillRegisterGrid();
        const auto t1 = SteadyClock::now();
        if (!shown.layOutAndPaint())
            ++direct;
        const auto t2 = SteadyClock::now();
        state.SetIterationTime(std::chrono::duration<double>(t2 - t0).count());
        fillMs += msBetween(t0, t1);
        paintMs += msBetween(t1, t2);
        if (!checked) {
            checked = true;
            // The whole register is listed and the newest entry is in view.
            const int last = panel.model()->lastRow();
            const int top = shown.topRow();
            if (panel.model()->shownCount() != BenchData::FullRegister || top < 0 || top > last
                || last - top > 40) {
                const std::string why
                    = "the grid lists " + std::to_string(panel.model()->shownCount())
                      + " records with row " + std::to_string(top) + " at the top";
                state.SkipWithError(why.c_str());
                break;
            }
        }
        if (shown.ui.messages > 0) {
            state.SkipWithError(
                ("the register said: " + shown.ui.lastMessage.toStdString()).c_str());
            break;
        }
    }
    addCounter(state, "fill_ms", fillMs);
    addCounter(state, "paint_ms", paintMs);
    if (direct > 0)
        BenchData::note("fill the register grid: the event loop did not paint the grid in "
                        + std::to_string(direct) + " iterations; it was painted directly");
}

void BM_EnterOnFullRegister(benchmark::State &state)
{
    constexpr int Before = BenchData::FullRegister - 1;
    const OneAccount data = oneAccount(QStringLiteral("enter"), Before);
    if (data.registerPath.isEmpty()) {
        state.SkipWithError("cannot write the register");
        return;
    }
    // Well inside the balance, so that no warning window comes up.
    const QString amountText = QStringLiteral("42.17");
    const Currency withdrawn = Currency::fromCents(42'17);
    if (data.account.Balance < Currency::fromUnits(1'000)) {
        state.SkipWithError(
            "the register's balance is too small for a withdrawal without a warning");
        return;
    }
    ShownPanel shown;
    if (!shown.show(data)) {
        state.SkipWithError("the register panel was not shown");
        return;
    }
    RegisterPanel &panel = shown.panel;
    auto *type = qobject_cast<QComboBox *>(panel.findChild<QWidget *>(QStringLiteral("cmbType")));
    auto *date = qobject_cast<QComboBox *>(panel.findChild<QWidget *>(QStringLiteral("cmbDate")));
    auto *payee = qobject_cast<QComboBox *>(panel.findChild<QWidget *>(QStringLiteral("cmbDesc")));
    auto *amount = qobject_cast<QLineEdit *>(panel.findChild<QWidget *>(QStringLiteral("cmbamt")));
    auto *category
        = qobject_cast<QComboBox *>(panel.findChild<QWidget *>(QStringLiteral("cmbBudItems")));
    auto *card
        = qobject_cast<QComboBox *>(panel.findChild<QWidget *>(QStringLiteral("cmbCreditCards")));
    auto *enter
        = qobject_cast<QPushButton *>(panel.findChild<QWidget *>(QStringLiteral("cmdEnterTrans")));
    auto *error
        = qobject_cast<QLabel *>(panel.findChild<QWidget *>(QStringLiteral("lblTranserror")));
    if (!type || !date || !payee || !amount || !category || !card || !enter || !error) {
        state.SkipWithError("the entry row's controls were not found");
        return;
    }
    const int withdrawal = type->findText(QStringLiteral("Withdrawal"));
    const QString dateText = EntryChecks::formatShortDate(QDate(2026, 8, 3));

    double enterMs = 0, paintMs = 0;
    int direct = 0;
    for (auto _ : state) {
        type->setCurrentIndex(withdrawal);
        date->setEditText(dateText);
        payee->setEditText(QStringLiteral("Green Basket Grocery"));
        amount->setText(amountText);
        category->setCurrentIndex(0);
        card->setCurrentIndex(0);

        const auto t0 = SteadyClock::now();
        enter->click(); // validates, writes, moves the balance and lists the register again
        const auto t1 = SteadyClock::now();
        if (!shown.layOutAndPaint())
            ++direct;
        const auto t2 = SteadyClock::now();
        state.SetIterationTime(std::chrono::duration<double>(t2 - t0).count());
        enterMs += msBetween(t0, t1);
        paintMs += msBetween(t1, t2);

        // The entry went in, the register is full, and the grid lists it.
        const int count = RawRecordFile(data.registerPath, TransRecord::Size).count();
        const RegisterModel *model = panel.model();
        if (shown.ui.messages > 0 || shown.ui.beeps > 0 || !error->text().isEmpty()
            || count != BenchData::FullRegister || model->shownCount() != BenchData::FullRegister
            || model->records().back().Amount != -withdrawn
            || panel.account().Balance != data.account.Balance - withdrawn) {
            const std::string why
                = "Enter left " + std::to_string(count) + " records ("
                  + std::to_string(model->shownCount()) + " listed); said: "
                  + (shown.ui.messages > 0 ? shown.ui.lastMessage : error->text()).toStdString();
            state.SkipWithError(why.c_str());
            break;
        }

        // Back to 32,766 records and the balance they had, for the next Enter,
        // and on disk for good: the next Enter should not pay for this reset.
        if (!restore(data, Before)) {
            state.SkipWithError("cannot restore the register and the account's balance");
            break;
        }
        panel.setAccount(data.account);
        shown.layOutAndPaint();
    }
    addCounter(state, "enter_ms", enterMs);
    addCounter(state, "paint_ms", paintMs);
    if (direct > 0)
        BenchData::note("one Enter: the event loop did not paint the grid in "
                        + std::to_string(direct) + " iterations; it was painted directly");
}

} // namespace

BENCHMARK(BM_FillRegisterGrid)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(20)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);
BENCHMARK(BM_EnterOnFullRegister)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(15)
    ->Repetitions(3)
    ->ReportAggregatesOnly(true);
