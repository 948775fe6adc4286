// Importing a bank download of 10,000 transactions (QIF, then OFX) into a
// checking account whose register already holds 20,000: reading the file,
// matching every row against the register (2,000 of the rows are already
// there, so the duplicate check has work to do), and entering the 8,000 new
// ones in one unit of work.

#include "BenchData.h"

#include "accounts/AccountBook.h"
#include "accounts/AccountService.h"
#include "exchange/ImportEntry.h"
#include "exchange/ImportPlan.h"
#include "exchange/OfxReader.h"
#include "exchange/QifReader.h"

#include <QDir>
#include <QFile>

#include <benchmark/benchmark.h>

namespace {

constexpr int Existing = 20000;
constexpr int Rows = 10000;
constexpr int Repeated = 2000;

ImportRow makeRow(int i)
{
    ImportRow r;
    r.date = QDate(2000, 1, 1).addDays(i / 4);
    r.amount = Currency::fromCents((i % 7 == 0 ? 1 : -1) * (500 + (i * 7919) % 90000));
    r.payee = QStringLiteral("Payee %1").arg(i % 300);
    r.memo = QStringLiteral("memo %1").arg(i);
    r.fitId = QStringLiteral("ID%1").arg(i);
    return r;
}

struct Folder
{
    QString pristine;
    QString work;
    int bankNum = 0;
};

// A data folder whose account "Everyday" holds 20,000 transactions, made once.
const Folder &folder()
{
    static const Folder f = [] {
        Folder out;
        out.pristine = BenchData::scratchDir() + QStringLiteral("/import-pristine");
        out.work = BenchData::scratchDir() + QStringLiteral("/import-work");
        QDir().mkpath(out.pristine);
        const DataFiles files(out.pristine, false);
        out.bankNum = AccountService(files)
                          .add({0, QStringLiteral("Everyday"), true, QStringLiteral("1000000"),
                                false, QDate(1999, 12, 31)})
                          .bankNum;
        ImportFile file;
        for (int i = 0; i < Existing - 1; ++i) {
            file.rows.push_back(makeRow(i));
            file.rows.back().fitId.clear();
        }
        ImportPlan plan(files, AccountBook(files).read(out.bankNum));
        plan.build(file);
        for (int i = 0; i < int(plan.rows().size()); ++i)
            plan.setIncluded(i, true);
        if (!ImportEntry::enter(plan).ok)
            BenchData::note("import: the register of 20,000 records could not be made");
        return out;
    }();
    return f;
}

void restore(const Folder &f)
{
    QDir(f.work).removeRecursively();
    QDir().mkpath(f.work);
    for (const QString &name : QDir(f.pristine).entryList(QDir::Files))
        QFile::copy(f.pristine + QLatin1Char('/') + name, f.work + QLatin1Char('/') + name);
}

// The last 2,000 transactions of the register again, then 8,000 new ones.
std::vector<ImportRow> downloadRows()
{
    std::vector<ImportRow> rows;
    for (int i = Existing - 1 - Repeated; i < Existing - 1 + Rows - Repeated; ++i)
        rows.push_back(makeRow(i));
    return rows;
}

QByteArray qifText()
{
    QByteArray out = "!Type:Bank\n";
    for (const ImportRow &r : downloadRows())
        out += "D" + r.date.toString(QStringLiteral("MM/dd/yyyy")).toLatin1() + "\nT"
               + r.amount.toPlainText().toLatin1() + "\nP" + r.payee.toLatin1() + "\nM"
               + r.memo.toLatin1() + "\n^\n";
    return out;
}

QByteArray ofxText()
{
    QByteArray out = "OFXHEADER:100\nDATA:OFXSGML\nVERSION:102\nSECURITY:NONE\nENCODING:USASCII\n"
                     "CHARSET:1252\nCOMPRESSION:NONE\nOLDFILEUID:NONE\nNEWFILEUID:NONE\n\n<OFX>\n"
                     "<BANKMSGSRSV1><STMTTRNRS><TRNUID>1<STATUS><CODE>0<SEVERITY>INFO</STATUS>\n"
                     "<STMTRS><CURDEF>USD<BANKACCTFROM><BANKID>1<ACCTID>2<ACCTTYPE>CHECKING"
                     "</BANKACCTFROM>\n<BANKTRANLIST><DTSTART>20000101<DTEND>20300101\n";
    for (const ImportRow &r : downloadRows())
        out += "<STMTTRN><TRNTYPE>POS<DTPOSTED>"
               + r.date.toString(QStringLiteral("yyyyMMdd")).toLatin1() + "<TRNAMT>"
               + r.amount.toPlainText().toLatin1() + "<FITID>" + r.fitId.toLatin1() + "<NAME>"
               + r.payee.toLatin1() + "<MEMO>" + r.memo.toLatin1() + "</STMTTRN>\n";
    out += "</BANKTRANLIST></STMTRS></STMTTRNRS></BANKMSGSRSV1>\n</OFX>\n";
    return out;
}

void BM_Import(benchmark::State &state)
{
    const bool ofx = state.range(0) == 1;
    const Folder &f = folder();
    const QString path
        = BenchData::scratchDir()
          + (ofx ? QStringLiteral("/download.ofx") : QStringLiteral("/download.qif"));
    QFile out(path);
    out.open(QIODevice::WriteOnly);
    out.write(ofx ? ofxText() : qifText());
    out.close();
    int entered = 0;
    int duplicates = 0;
    for (auto _ : state) {
        state.PauseTiming();
        restore(f);
        const DataFiles files(f.work, false);
        state.ResumeTiming();
        ImportFile file;
        if (ofx) {
            file = OfxReader::read(path);
        } else {
            QFile in(path);
            in.open(QIODevice::ReadOnly);
            file = QifReader::read(in.readAll(), ImportDates::Order::MonthFirst).file;
        }
        ImportPlan plan(files, AccountBook(files).read(f.bankNum));
        plan.build(file);
        duplicates = 0;
        for (const auto &r : plan.rows())
            duplicates += r.status == ImportPlan::Status::Duplicate ? 1 : 0;
        const ImportEntry::Outcome done = ImportEntry::enter(plan);
        if (!done.ok) {
            state.SkipWithError(qPrintable(done.error));
            return;
        }
        entered = done.entered;
    }
    state.counters["entered"] = entered;
    state.counters["duplicates"] = duplicates;
}

} // namespace

BENCHMARK(BM_Import)
    ->Name("BM_ImportQif")
    ->Arg(0)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(1)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);
BENCHMARK(BM_Import)
    ->Name("BM_ImportOfx")
    ->Arg(1)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(1)
    ->Repetitions(5)
    ->ReportAggregatesOnly(true);
