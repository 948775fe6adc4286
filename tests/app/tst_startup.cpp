#include "FolderSnapshot.h"
#include "accounts/AccountArchive.h"
#include "accounts/AccountBook.h"
#include "app/AppPaths.h"
#include "app/SampleData.h"
#include "app/StartupChecks.h"
#include "records/RecordFile.h"
#include "records/TransRecord.h"
#include "records/UnitOfWork.h"
#include "reports/PrintedReports.h"
#include "reports/ReportPages.h"

#include <QTemporaryDir>
#include <QtTest>

#include <unistd.h>

namespace {

// The sample set as one start writes it, and the number of operations it takes.
struct WholeSampleSet
{
    QMap<QString, QByteArray> files;
    int operations = 0;
};

const WholeSampleSet &wholeSampleSet()
{
    static const WholeSampleSet whole = [] {
        WholeSampleSet w;
        QTemporaryDir dir;
        UnitOfWork::setStepHook([&w](int step) { w.operations += step == 0 ? 1 : 0; });
        const QString error = SampleData::ensure(dir.path());
        UnitOfWork::setStepHook({});
        if (error.isEmpty())
            w.files = folderSnapshot(dir.path());
        return w;
    }();
    return whole;
}

} // namespace

class StartupTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void manifestText()
    {
        const QByteArray text = StartupChecks::manifestText();
        // 22 lines, each ended by CR LF, and no other line breaks.
        QCOMPARE(text.count("\r\n"), 22);
        QCOMPARE(text.count('\r'), 22);
        QCOMPARE(text.count('\n'), 22);
        const QList<QByteArray> lines = text.chopped(2).split('\n');
        QCOMPARE(lines.first(),
                 QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\r"));
        QCOMPARE(lines.last(), QByteArray("</assembly>"));
    }

    void manifestWrittenOnce()
    {
        QTemporaryDir dir;
        const QString path = StartupChecks::manifestPath(dir.path(), QStringLiteral("quillmere"));
        QCOMPARE(path, dir.path() + QStringLiteral("/quillmere.exe.Manifest"));
        QCOMPARE(StartupChecks::ensureManifest(path), StartupChecks::ManifestResult::Created);
        QCOMPARE(folderSnapshot(dir.path()).value(QStringLiteral("quillmere.exe.Manifest")),
                 StartupChecks::manifestText());
        writeBytes(path, "edited by hand");
        QCOMPARE(StartupChecks::ensureManifest(path), StartupChecks::ManifestResult::Existed);
        QCOMPARE(folderSnapshot(dir.path()).value(QStringLiteral("quillmere.exe.Manifest")),
                 QByteArray("edited by hand"));
        QCOMPARE(StartupChecks::ensureManifest(
                     dir.filePath(QStringLiteral("no/such/folder/x.exe.Manifest"))),
                 StartupChecks::ManifestResult::Failed);
    }

    // Each side on its own must reach 800x600: a tall narrow screen is refused too.
    void screenSize()
    {
        QVERIFY(StartupChecks::screenLargeEnough(QSize(800, 600)));
        QVERIFY(!StartupChecks::screenLargeEnough(QSize(600, 800)));
    }

    // A data folder that cannot be written is reported, and left as it was.
    void readOnlyDataDir()
    {
        if (::geteuid() == 0)
            QSKIP("permissions do not hold for root");
        QTemporaryDir dir;
        const QString locked = dir.filePath(QStringLiteral("locked"));
        QVERIFY(QDir().mkdir(locked));
        QFile::setPermissions(locked, QFile::ReadOwner | QFile::ExeOwner);
        const QString message = AppPaths::prepareDataDir(locked);
        QFile::setPermissions(locked, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        QVERIFY(message.contains(QStringLiteral("read-only")));
        QVERIFY(QDir(locked).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
    }

    void sampleDataIsFixedAndBalanced()
    {
        QTemporaryDir a;
        QCOMPARE(SampleData::ensure(a.path()), QString());
        const auto files = folderSnapshot(a.path());
        QVERIFY(files == wholeSampleSet().files);
        // A second start leaves it alone.
        QCOMPARE(SampleData::ensure(a.path()), QString());
        QVERIFY(folderSnapshot(a.path()) == files);

        const DataFiles sample(a.path(), true);
        const auto accounts = AccountBook(sample).readAll();
        QVERIFY(accounts && accounts->size() >= 4);
        for (const BankAcctRecord &acct : *accounts) {
            if (acct.isDeleted())
                continue;
            Currency sum;
            int n = 0;
            for (const TransRecord &t :
                 RecordFile<TransRecord>(sample.registerFile(acct.BankName.text())).readAll()) {
                sum += t.Amount;
                QCOMPARE(t.Tranno, std::int16_t(++n));
            }
            QVERIFY2(n >= 1, qPrintable(acct.BankName.text()));
            QCOMPARE(acct.Balance, sum);
        }
        // The archived savings club: a year of entries, paid out to zero.
        const auto archived = AccountArchive(sample).entries();
        QCOMPARE(archived.size(), std::size_t(1));
        QVERIFY(!archived[0].fileMissing);
        const auto club = AccountArchive(sample).readRegister(archived[0].archNum).records;
        QVERIFY(club.size() >= 24);
        Currency sum;
        for (const TransRecord &t : club)
            sum += t.Amount;
        QCOMPARE(sum, Currency());
        QVERIFY(club.front().Date.text().endsWith(QStringLiteral("2025")));
        QVERIFY(AccountArchive(DataFiles(a.path(), false)).entries().empty());
    }

    // The main checking account's whole register fills more than one printed
    // page, so a long printout can be tried on the sample set alone.
    void sampleCheckingPrintsOnSeveralPages()
    {
        QTemporaryDir a;
        QCOMPARE(SampleData::ensure(a.path()), QString());
        const DataFiles sample(a.path(), true);
        const auto accounts = AccountBook(sample).readAll();
        QVERIFY(accounts);
        PrintedReports::RegisterChoice choice;
        for (const BankAcctRecord &acct : *accounts)
            if (!acct.isDeleted()
                && acct.BankName.text() == QStringLiteral("First Community Checking"))
                choice.bankNum = acct.BankNum;
        QVERIFY(choice.bankNum != 0);
        choice.byDates = true;
        choice.from = QStringLiteral("01/01/2026");
        choice.to = QStringLiteral("12/31/2026");
        const auto report
            = PrintedReports::registerReport(sample, *accounts, choice, QDate(2026, 11, 21));
        QVERIFY2(report.error.isEmpty(), qPrintable(report.error));
        QVERIFY(report.lines.count(ReportPages::PageBreak) >= 1);
    }

    // Stopped anywhere while it is written, the sample set is either not there
    // at all or, at the next start, written again whole: never a part of it.
    void stoppedSampleSetIsWrittenAgainWhole()
    {
        const auto &whole = wholeSampleSet().files;
        const int all = wholeSampleSet().operations;
        QVERIFY(all > 50);
        struct Stopped
        {
        };
        int commits = 0;

        // The first operation as its journal is made valid, one half way through
        // its first write, the last one.
        const std::pair<int, int> stops[] = {{1, 0}, {all / 2, 1}, {all, 0}};
        for (const auto &stop : stops) {
            const int stopAt = stop.first;
            const int step = stop.second;
            const QString at = QStringLiteral("operation %1 step %2").arg(stopAt).arg(step);
            QTemporaryDir dir;
            commits = 0;
            UnitOfWork::setStepHook([&commits, stopAt, step](int done) {
                commits += done == 0 ? 1 : 0;
                if (commits == stopAt && done == step)
                    throw Stopped{};
            });
            bool stopped = false;
            try {
                SampleData::ensure(dir.path());
            } catch (const Stopped &) {
                stopped = true;
            }
            UnitOfWork::setStepHook({});
            QVERIFY2(stopped, qPrintable(at));
            QVERIFY2(!QFileInfo::exists(DataFiles(dir.path(), true).accountList()), qPrintable(at));
            QVERIFY(UnitOfWork::recover(dir.path()));
            QCOMPARE(SampleData::ensure(dir.path()), QString());
            QVERIFY2(folderSnapshot(dir.path()) == whole, qPrintable(at));
            QVERIFY(!QFileInfo::exists(dir.filePath(SampleData::BuildingFolder)));
        }
        UnitOfWork::setStepHook({});
    }

    // Stopped while the finished set was being moved in: some of its files are
    // in place, the account list (moved last) is not. The set is written again.
    void halfMovedSampleSetIsWrittenAgain()
    {
        const auto &whole = wholeSampleSet().files;
        QVERIFY(!whole.isEmpty());
        QTemporaryDir dir;
        QVERIFY(QDir().mkpath(dir.filePath(SampleData::BuildingFolder)));
        writeBytes(dir.filePath(SampleData::BuildingFolder + QStringLiteral("/Sample Budget.Dat")),
                   "left over");
        int moved = 0;
        for (auto it = whole.begin(); it != whole.end(); ++it)
            if (it.key() != QLatin1String("Sample BankAcctName.Dat") && ++moved % 2 == 0)
                writeBytes(dir.filePath(it.key()), it.value().left(it.value().size() / 2));
        QCOMPARE(SampleData::ensure(dir.path()), QString());
        QVERIFY(folderSnapshot(dir.path()) == whole);
        QVERIFY(!QFileInfo::exists(dir.filePath(SampleData::BuildingFolder)));

        // A set stopped part way by a version that wrote it in place: the
        // accounts are there, a register cut short and the payees missing.
        QTemporaryDir old;
        for (auto it = whole.begin(); it != whole.end(); ++it)
            writeBytes(old.filePath(it.key()), it.key().startsWith(QLatin1String("trans J"))
                                                   ? it.value().left(TransRecord::Size * 3)
                                                   : it.value());
        QVERIFY(QFile::remove(old.filePath(QStringLiteral("Sample Payee.Dat"))));
        QCOMPARE(SampleData::ensure(old.path()), QString());
        QVERIFY(folderSnapshot(old.path()) == whole);
    }
};

QTEST_GUILESS_MAIN(StartupTest)
#include "tst_startup.moc"
