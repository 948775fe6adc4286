// The help a user gets: the help panel's text for every panel, the tips, the
// about box's system information and the manual opened through the seam.

#include "app/MainForm.h"
#include "app/SampleData.h"
#include "app/StartForm.h"
#include "app/SystemInfo.h"
#include "app/TipForm.h"
#include "core/HelpTexts.h"
#include "core/UserManual.h"

#include "../ui/RecordingInteraction.h"

#include <QFile>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

namespace {

struct UrlRecorder : RecordingInteraction
{
    void openUrl(const QString &url) override { said << QStringLiteral("open|") + url; }
};

} // namespace

class TestHelp : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void everyPanelHasItsHelp();
    void quotedLinesStandInTheirPanel_data();
    void quotedLinesStandInTheirPanel();
    void tipsCycleThroughAll();
    void systemInformation();
    void manualOpenedOrMissing();
};

void TestHelp::everyPanelHasItsHelp()
{
    QTemporaryDir home;
    qputenv("XDG_CONFIG_HOME", home.filePath(QStringLiteral("config")).toUtf8());
    TipForm::setShowTipsSetting(0);
    UrlRecorder seam;
    StartForm::Options options;
    options.appPath = home.path();
    options.screen = QSize(1024, 768);
    StartForm start(options, seam);
    QVERIFY(start.start());
    MainForm *main = start.mainForm();
    main->findChild<QPushButton *>(QStringLiteral("cmdHC"))->click();
    auto *text = main->findChild<QPlainTextEdit *>(QStringLiteral("txtHelp"));
    QVERIFY(text->isVisible());
    for (const QString &id : main->panelIds()) {
        const HelpTexts::Text help = HelpTexts::forPanel(id);
        QVERIFY2(!help.isEmpty() && !help.title.isEmpty(), qPrintable(id));
        QVERIFY(main->showPanel(id));
        QCOMPARE(text->toPlainText(), help.body());
    }
}

void TestHelp::quotedLinesStandInTheirPanel_data()
{
    QTest::addColumn<QString>("panel");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("budget") << "budget"
                            << QStringList{
                                   "4.  15 sub-categories are available for each Budget Category.",
                                   "5.  If a categrory with a balance is deleted, the money will "
                                   "be transferred to ",
                                   "disposable cash.",
                                   "The category balance (money left to spend) is reduced by the "
                                   "transaction amount.",
                                   "Selecting None will take the money from disposable cash.",
                                   "Your budget entries should be consistent with the ",
                                   "period selected."};
    QTest::newRow("budget transfers")
        << "budgettransfer"
        << QStringList{"Transferring money into budget categories is the budgeting process.",
                       "The actions below do not change the original budget transfers"};
    QTest::newRow("register") << "register"
                              << QStringList{"Selecting Credit Card Payment will automatically "
                                             "enter the transaction into the",
                                             "Credit Card Register."};
    QTest::newRow("balancing") << "balancing"
                               << QStringList{"To see a prior Bank Statement select the Bank and "
                                              "the Bank Statement date."};
}

void TestHelp::quotedLinesStandInTheirPanel()
{
    QFETCH(QString, panel);
    QFETCH(QStringList, lines);
    const QStringList help = HelpTexts::forPanel(panel).lines;
    // Each line whole and in order: a line split in two stays two lines.
    qsizetype at = -1;
    for (const QString &line : lines) {
        const qsizetype found = help.indexOf(line, at + 1);
        QVERIFY2(found > at, qPrintable(line));
        at = found;
    }
}

void TestHelp::tipsCycleThroughAll()
{
    QTemporaryDir config;
    qputenv("XDG_CONFIG_HOME", config.path().toUtf8());
    const QStringList tips = TipForm::tips();
    QVERIFY(tips.size() >= 20);
    QCOMPARE(QSet<QString>(tips.begin(), tips.end()).size(), tips.size());

    TipForm form;
    auto *text = form.findChild<QLabel *>(QStringLiteral("lblTipText"));
    auto *next = form.findChild<QPushButton *>(QStringLiteral("cmdNextTip"));
    const QString first = text->text();
    QSet<QString> seen;
    for (int i = 0; i < tips.size(); ++i) {
        QVERIFY(tips.contains(text->text()));
        seen << text->text();
        next->click();
    }
    QCOMPARE(seen.size(), tips.size());
    QCOMPARE(text->text(), first);
}

void TestHelp::systemInformation()
{
    QTemporaryDir home;
    QVERIFY(SampleData::ensure(home.path()).isEmpty());
    SystemInfo::Facts facts = SystemInfo::gather(DataFiles(home.path(), true));
    QCOMPARE(facts.programVersion, SystemInfo::version());
    QVERIFY(facts.accounts > 0);
    QVERIFY(facts.records > facts.accounts);
    QCOMPARE(SystemInfo::gather(DataFiles(home.path(), false)).accounts, 0);

    facts.screen = QSize(1024, 768);
    facts.scale = 2;
    facts.settingsFile = QStringLiteral("/home/u/.config/quillmere.conf");
    const QStringList lines = SystemInfo::lines(facts);
    const QStringList expected = {"Program version: " + facts.programVersion,
                                  "Qt version: " + QString::fromLatin1(qVersion()),
                                  "Operating system: " + facts.operatingSystem,
                                  QStringLiteral("Screen: 1024 x 768, scale 2"),
                                  "Data folder: " + home.path(),
                                  QStringLiteral("Open data set: Sample accounts"),
                                  QStringLiteral("Accounts: %1").arg(facts.accounts),
                                  QStringLiteral("Transactions: %1").arg(facts.records),
                                  QStringLiteral("Settings file: /home/u/.config/quillmere.conf")};
    QCOMPARE(lines, expected);
    QVERIFY(!facts.programVersion.isEmpty() && !facts.operatingSystem.isEmpty());
}

void TestHelp::manualOpenedOrMissing()
{
    QTemporaryDir program;
    UrlRecorder seam;
    QVERIFY(!UserManual::open(seam, QString(), program.path()));
    QCOMPARE(seam.said.size(), 1);
    QVERIFY(seam.said[0].startsWith(QStringLiteral("User Manual|The user manual was not found")));
    QVERIFY(seam.said[0].contains(UserManual::path(program.path())));

    QVERIFY(QDir(program.path()).mkpath(QStringLiteral("Help")));
    QFile manual(UserManual::path(program.path()));
    QVERIFY(manual.open(QIODevice::WriteOnly));
    manual.close();
    seam.said.clear();
    QVERIFY(UserManual::open(seam, UserManual::BalanceAccounts, program.path()));
    const QString url = QUrl::fromLocalFile(manual.fileName()).toString();
    QCOMPARE(seam.said, QStringList{"open|" + url + "#balance-accounts"});
}

QTEST_MAIN(TestHelp)
#include "tst_help.moc"
