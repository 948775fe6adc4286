// Whole runs of the program that one script cannot arrange on its own: a copy
// already running on the data folder, runs stopped in the middle of writing to
// disk, and a journal left in the data folder by someone else.

#include "QuillmereRun.h"

#include "records/BankAcctRecord.h"
#include "records/BudgetRecord.h"
#include "records/DataFiles.h"
#include "records/Journal.h"
#include "records/RecordFile.h"
#include "records/TransRecord.h"
#include "records/UnitOfWork.h"

#include <QLockFile>
#include <QTest>

namespace {

using namespace Transcript;
const QString AlreadyRunning = QStringLiteral("msgbox title=\"Quillmere\" text=\"Quillmere is "
                                              "already running\" icon=none buttons=OK -> OK\n");

} // namespace

class TestRuns : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void secondCopyOnTheSameFolderIsRefused();
    void secondCopyIsRefusedWhileTheFirstShowsItsFirstMessage();
    void stoppedFirstStartWritesTheWholeSampleSetNextTime_data();
    void stoppedFirstStartWritesTheWholeSampleSetNextTime();
    void journalNamingOutsideFilesIsReportedNotApplied();
    void interruptedAddComesBackComplete_data();
    void interruptedAddComesBackComplete();
};

void TestRuns::secondCopyOnTheSameFolderIsRefused()
{
    QTemporaryDir home;
    QTemporaryDir other;
    const QString data = home.filePath(QStringLiteral("Data"));
    QVERIFY(QDir().mkpath(data));
    QLockFile running(data + QStringLiteral("/Quillmere.lock"));
    QVERIFY(running.tryLock(0));

    const QuillmereRun refused
        = QuillmereRun::run(home.path(), QStringLiteral("# nothing to do\n"));
    QVERIFY(refused.finished);
    QCOMPARE(refused.exitCode, 0);
    QCOMPARE(refused.out, AlreadyRunning);
    // The copy that gave way wrote nothing into the data folder and left the lock alone.
    QCOMPARE(QDir(data).entryList(QDir::Files | QDir::Hidden),
             QStringList{QStringLiteral("Quillmere.lock")});
    QVERIFY(running.isLocked());
    // A copy on another home folder runs side by side.
    QCOMPARE(QuillmereRun::run(other.path(), QStringLiteral("show lblTitle\n")).out,
             Manifest + Tip + Title);
}

void TestRuns::secondCopyIsRefusedWhileTheFirstShowsItsFirstMessage()
{
    // The first copy runs as a person starts it and waits on its first-start
    // message ("Application manifest file missing") until it is stopped.
    QTemporaryDir home;
    QTemporaryDir config;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    env.insert(QStringLiteral("XDG_CONFIG_HOME"), config.path());
    env.remove(QStringLiteral("QUILLMERE_STOP_AFTER_STEP"));
    QProcess first;
    first.setProcessEnvironment(env);
    first.start(QStringLiteral(QUILLMERE_BINARY),
                {QStringLiteral("--home"), home.path(), QStringLiteral("--screen"),
                 QStringLiteral("1024x768")});
    QVERIFY(first.waitForStarted());
    const QString manifest = home.filePath(QStringLiteral("quillmere.exe.Manifest"));
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(manifest), 30000);
    QTest::qWait(300);
    QCOMPARE(first.state(), QProcess::Running);

    const QuillmereRun second = QuillmereRun::run(home.path(), QStringLiteral("show lblTitle\n"));
    first.kill();
    first.waitForFinished();
    QVERIFY(second.finished);
    QCOMPARE(second.out, AlreadyRunning);
}

void TestRuns::stoppedFirstStartWritesTheWholeSampleSetNextTime_data()
{
    // The first start writes the sample set, one operation after another; a
    // run is stopped in the first operation that reaches the given step.
    QTest::addColumn<int>("stopAfter");
    for (int step : {0, 1, 3, 4, 6})
        QTest::newRow(qPrintable(QStringLiteral("step %1").arg(step))) << step;
}

void TestRuns::stoppedFirstStartWritesTheWholeSampleSetNextTime()
{
    QFETCH(int, stopAfter);
    auto dataFiles = [](const QTemporaryDir &home) {
        const QString data = home.filePath(QStringLiteral("Data"));
        QMap<QString, QByteArray> files;
        for (const QString &name :
             QDir(data).entryList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden)) {
            QFile f(data + QLatin1Char('/') + name);
            if (name != QLatin1String("Quillmere.lock"))
                files.insert(name, f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("?"));
        }
        return files;
    };
    const QString script = QStringLiteral("show lblTitle\n");
    QTemporaryDir whole;
    QCOMPARE(QuillmereRun::run(whole.path(), script).exitCode, 0);
    const auto sampleSet = dataFiles(whole);
    QVERIFY(sampleSet.contains(QStringLiteral("Sample Payee.Dat")));

    QTemporaryDir home;
    QuillmereRun::Options stopping;
    stopping.extraEnv.insert(QStringLiteral("QUILLMERE_STOP_AFTER_STEP"),
                             QString::number(stopAfter));
    const QuillmereRun stopped = QuillmereRun::run(home.path(), script, stopping);
    QVERIFY(stopped.finished);
    QCOMPARE(stopped.exitCode, 70);
    // Whatever the stopped start left, no sample account list: the set is not there.
    QVERIFY(!QFile::exists(home.filePath(QStringLiteral("Data/Sample BankAcctName.Dat"))));

    const QuillmereRun next = QuillmereRun::run(home.path(), script);
    QCOMPARE(next.exitCode, 0);
    QCOMPARE(next.out, Tip + Title);
    const auto after = dataFiles(home);
    QCOMPARE(after.keys(), sampleSet.keys());
    QVERIFY(after == sampleSet);
}

void TestRuns::journalNamingOutsideFilesIsReportedNotApplied()
{
    QTemporaryDir home;
    QCOMPARE(QuillmereRun::run(home.path(), QStringLiteral("# first start\n")).exitCode, 0);
    const QString data = home.filePath(QStringLiteral("Data"));
    Journal j;
    j.writes.push_back({QStringLiteral("../escaped.Dat"), 0, QByteArray(63, 'x'), {}});
    {
        QFile f(UnitOfWork::journalPath(data));
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(j.serialize());
    }
    const QuillmereRun run = QuillmereRun::run(home.path(), QStringLiteral("show lblTitle\n"));
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.out,
             QStringLiteral("msgbox title=\"Quillmere\" text=\"The journal of an unfinished "
                            "change was not applied: \\\"../escaped.Dat\\\" is not a file of "
                            "the data folder. No file was changed; the journal has been kept as "
                            "\\\"Quillmere.journal-refused-1\\\".\" icon=exclamation "
                            "buttons=OK -> OK\n")
                 + Tip + Title);
    QVERIFY(!QFile::exists(home.filePath(QStringLiteral("escaped.Dat"))));
    QVERIFY(QFile::exists(data + QStringLiteral("/Quillmere.journal-refused-1")));
    QVERIFY(!QFile::exists(UnitOfWork::journalPath(data)));
}

void TestRuns::interruptedAddComesBackComplete_data()
{
    // Adding a credit card writes the account list, the card's budget
    // category and the card's register. The run is stopped once the journal
    // is in place (step 0) and after each of the three writes.
    QTest::addColumn<int>("stopAfter");
    QTest::newRow("not stopped") << -1;
    QTest::newRow("journal written") << 0;
    QTest::newRow("account list written") << 1;
    QTest::newRow("budget written") << 2;
    QTest::newRow("register written") << 3;
}

void TestRuns::interruptedAddComesBackComplete()
{
    QFETCH(int, stopAfter);
    QTemporaryDir home;
    QTemporaryDir config;
    {
        QFile conf(config.filePath(QStringLiteral("quillmere.conf")));
        QVERIFY(conf.open(QIODevice::WriteOnly));
        conf.write("[Options]\nShow%20Tips%20at%20Startup=0\n");
    }
    QuillmereRun::Options options;
    options.configDir = config.path();

    // A first run sets the home folder up and opens the Accounts panel (which
    // is remembered), so that adding the card is the first thing written in the next one.
    QCOMPARE(QuillmereRun::run(home.path(), QStringLiteral("panel accounts\n"), options).exitCode,
             0);

    QuillmereRun::Options stopping = options;
    if (stopAfter >= 0)
        stopping.extraEnv.insert(QStringLiteral("QUILLMERE_STOP_AFTER_STEP"),
                                 QString::number(stopAfter));
    const QuillmereRun add = QuillmereRun::run(home.path(),
                                               QStringLiteral("panel accounts\n"
                                                              "choose cmbAcctType Credit Card\n"
                                                              "set txtBankName Visa Card\n"
                                                              "set txtStartBal 300.25\n"
                                                              "click cmdAcctEnter\n"
                                                              "show lblRegisterTitle\n"),
                                               stopping);
    QVERIFY(add.finished);
    const QString data = home.filePath(QStringLiteral("Data"));
    if (stopAfter >= 0) {
        QCOMPARE(add.exitCode, 70);
        QVERIFY(add.out.isEmpty());
        QVERIFY(QFile::exists(UnitOfWork::journalPath(data)));
    } else {
        QCOMPARE(add.exitCode, 0);
        QCOMPARE(add.out,
                 QStringLiteral("show lblRegisterTitle text=\"Visa Card\" visible=0 enabled=1\n"));
    }

    // The next start finishes the operation: the card is there with its
    // balance, and the stopped run's lock is no obstacle.
    const QuillmereRun after = QuillmereRun::run(
        home.path(), QStringLiteral("show lbltotbalamt\nshow lblRegisterTitle\n"), options);
    QCOMPARE(after.exitCode, 0);
    QCOMPARE(after.out,
             QStringLiteral("show lbltotbalamt text=\"($300.25)\" visible=1 enabled=1\n"
                            "show lblRegisterTitle text=\"Visa Card\" visible=0 enabled=1\n"));
    QVERIFY(!QFile::exists(UnitOfWork::journalPath(data)));

    // Written once each, however often the operation was finished.
    const DataFiles files(data, false);
    RecordFile<BankAcctRecord> accounts(files.accountList());
    QCOMPARE(accounts.count(), 1);
    RecordFile<BudgetRecord> budget(files.budget());
    int cards = 0;
    for (const BudgetRecord &c : budget.readAll())
        if (!c.isDeleted() && c.CCBankRecnum == 1 && c.CCBankName.is(QStringLiteral("Visa Card")))
            ++cards;
    QCOMPARE(cards, 1);
    RecordFile<TransRecord> reg(files.registerFile(QStringLiteral("Visa Card")));
    QCOMPARE(reg.count(), 1);
    QCOMPARE(reg.read(1).Amount.toCurrencyText(), QStringLiteral("($300.25)"));
}

QTEST_MAIN(TestRuns)
#include "tst_runs.moc"
