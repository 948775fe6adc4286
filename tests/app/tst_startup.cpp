#include "AccountBook.h"
#include "AppPaths.h"
#include "FolderSnapshot.h"
#include "GeneralSettings.h"
#include "RecordFile.h"
#include "SampleData.h"
#include "StartupChecks.h"
#include "TransRecord.h"
#include "WindowPlacement.h"

#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

#include <unistd.h>

namespace {
QByteArray encoded(const GenInfoRecord &r)
{
    QByteArray b(GenInfoRecord::Size, '\0');
    r.encode(b.data());
    return b;
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
        QVERIFY(text.endsWith("\r\n"));
        QCOMPARE(text.count("\r\n"), 22);
        QCOMPARE(text.count('\r'), 22);
        QCOMPARE(text.count('\n'), 22);
        const QList<QByteArray> lines = text.chopped(2).split('\n');
        QCOMPARE(lines.first(), QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\r"));
        QCOMPARE(lines[1], QByteArray("<assembly xmlns=\"urn:schemas-microsoft-com:asm.v1\" manifestVersion=\"1.0\">\r"));
        QCOMPARE(lines[5], QByteArray("name=\"Company Name.Application Name.Application Title\"\r"));
        QCOMPARE(lines[8], QByteArray("<description>You Application Name Here</description>\r"));
        QCOMPARE(lines[16], QByteArray("publicKeyToken=\"6595b64144ccf1df\"\r"));
        QCOMPARE(lines[17], QByteArray("language=\"*\"\r"));
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
        QCOMPARE(StartupChecks::ensureManifest(dir.filePath(QStringLiteral("no/such/folder/x.exe.Manifest"))),
                 StartupChecks::ManifestResult::Failed);
    }

    void screenSize_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<bool>("ok");
        QTest::newRow("exactly 800x600") << QSize(800, 600) << true;
        QTest::newRow("799 wide") << QSize(799, 600) << false;
        QTest::newRow("599 high") << QSize(800, 599) << false;
        QTest::newRow("large") << QSize(1920, 1080) << true;
        QTest::newRow("tall narrow") << QSize(600, 800) << false;
    }
    void screenSize()
    {
        QFETCH(QSize, size);
        QFETCH(bool, ok);
        QCOMPARE(StartupChecks::screenLargeEnough(size), ok);
    }

    void generalSettings()
    {
        QTemporaryDir dir;
        const GeneralSettings settings(dir.path());
        QCOMPARE(encoded(settings.load()), QByteArray(GenInfoRecord::Size, '\0')); // zeros, blank texts
        QVERIFY(settings.load().ThemeName.isBlank());
        QVERIFY(!QFileInfo::exists(dir.filePath(QStringLiteral("Geninfo.dat"))));

        GenInfoRecord r;
        r.PeriodIndex = 2;
        r.SamplePeriodIndex = 5;
        r.ThemeName = QStringLiteral("Rainbow");
        r.SampleMode = 1;
        r.HelpShown = 1;
        r.PanelState = {3, 0, 2, 1};
        r.Reserved1 = QStringLiteral("kept");
        QVERIFY(settings.save(r).isEmpty());
        QCOMPARE(folderSnapshot(dir.path()).value(QStringLiteral("Geninfo.dat")), encoded(r));
        QCOMPARE(encoded(GeneralSettings(dir.path()).load()), encoded(r));
    }

    void appPath()
    {
        QTemporaryDir exe;
        QTemporaryDir home;
        const QString perUser = QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
        QCOMPARE(AppPaths::resolveAppPath(QString(), exe.path()), perUser);
        QCOMPARE(AppPaths::resolveAppPath(QStringLiteral("  "), exe.path()), perUser);
        writeBytes(exe.filePath(QStringLiteral("Data")), "a file, not a folder");
        QCOMPARE(AppPaths::resolveAppPath(QString(), exe.path()), perUser);
        QFile::remove(exe.filePath(QStringLiteral("Data")));
        QVERIFY(QDir(exe.path()).mkdir(QStringLiteral("Data")));
        QCOMPARE(AppPaths::resolveAppPath(QString(), exe.path()), exe.path());
        QCOMPARE(AppPaths::resolveAppPath(home.path() + QStringLiteral(" "), exe.path()), home.path());
        QCOMPARE(AppPaths::dataDir(home.path()), home.path() + QStringLiteral("/Data"));
    }

    void prepareDataDir()
    {
        QTemporaryDir dir;
        const QString nested = dir.filePath(QStringLiteral("a/b/Data"));
        QCOMPARE(AppPaths::prepareDataDir(nested), QString());
        QVERIFY(QFileInfo(nested).isDir());
        QVERIFY(QDir(nested).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));

        writeBytes(dir.filePath(QStringLiteral("plain")), "x");
        QVERIFY(!AppPaths::prepareDataDir(dir.filePath(QStringLiteral("plain/Data"))).isEmpty());

        if (::geteuid() == 0)
            QSKIP("permissions do not hold for root");
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
        QTemporaryDir b;
        QCOMPARE(SampleData::ensure(a.path()), QString());
        QCOMPARE(SampleData::ensure(b.path()), QString());
        const auto files = folderSnapshot(a.path());
        QVERIFY(files.size() > 4);
        QVERIFY(files == folderSnapshot(b.path()));
        // Only the sample set is written.
        for (const QString &name : files.keys())
            QVERIFY2(name.startsWith(QStringLiteral("Sample ")) || name.startsWith(QStringLiteral("trans ")),
                     qPrintable(name));
        // A second start leaves it alone.
        QCOMPARE(SampleData::ensure(a.path()), QString());
        QVERIFY(folderSnapshot(a.path()) == files);

        const DataFiles sample(a.path(), true);
        const auto accounts = AccountBook(sample).readAll();
        QVERIFY(accounts && accounts->size() >= 4);
        for (const BankAcctRecord &acct : *accounts) {
            Currency sum;
            int n = 0;
            for (const TransRecord &t : RecordFile<TransRecord>(sample.registerFile(acct.BankName.text())).readAll()) {
                sum += t.Amount;
                QCOMPARE(t.Tranno, std::int16_t(++n));
            }
            QVERIFY2(n >= 1, qPrintable(acct.BankName.text()));
            QCOMPARE(acct.Balance, sum);
        }
    }

    void centredPosition_data()
    {
        QTest::addColumn<QSize>("screen");
        QTest::addColumn<QSize>("window");
        QTest::addColumn<QPoint>("pos");
        QTest::newRow("1024x768") << QSize(1024, 768) << QSize(400, 300) << QPoint(312, 214);
        QTest::newRow("800x600 full") << QSize(800, 600) << QSize(800, 570) << QPoint(0, 0);
        QTest::newRow("odd sizes") << QSize(1920, 1080) << QSize(801, 401) << QPoint(559, 312);
    }
    void centredPosition()
    {
        QFETCH(QSize, screen);
        QFETCH(QSize, window);
        QFETCH(QPoint, pos);
        QCOMPARE(::centredPosition(screen, window), pos);
    }
};

QTEST_GUILESS_MAIN(StartupTest)
#include "tst_startup.moc"
