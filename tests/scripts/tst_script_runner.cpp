// The script language and its answers to windows, and how whole runs report
// script errors.

#include "QuillmereRun.h"
#include "ScriptInteraction.h"
#include "ScriptLine.h"

#include <QTest>

namespace {

const QString Manifest = QStringLiteral(
    "msgbox title=\"Application manifest file missing\" text=\"Did not find a Manifest file, so one has been "
    "created for you.\\nXP styles will be applied next time you run this application\" icon=information "
    "buttons=OK -> OK\n");

} // namespace

class TestScriptRunner : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsScriptLines_data();
    void readsScriptLines();
    void refusesBadQuotedStrings_data();
    void refusesBadQuotedStrings();
    void escapesTranscriptStrings_data();
    void escapesTranscriptStrings();

    void messageBoxesTakeQueuedAnswers();
    void answersThatDoNotFitAreFaults();
    void fundAndOtherEvents();

    void scriptErrorsNameTheLine_data();
    void scriptErrorsNameTheLine();
    void scriptsWithCrLfAndCommentsRun();
    void missingScriptIsAnError();
};

// --- Script lines --------------------------------------------------------

void TestScriptRunner::readsScriptLines_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("words"); // words taken before rest()
    QTest::addColumn<QString>("rest");

    QTest::newRow("rest as written") << "set txtMemo   Check #12 for  rent  " << QStringList{"set", "txtMemo"}
                                     << "Check #12 for  rent";
    QTest::newRow("quoted rest keeps blanks") << "set txtMemo \"  two  \"" << QStringList{"set", "txtMemo"}
                                              << "  two  ";
    QTest::newRow("escapes") << R"(set t "a \"b\" \\ c\td\ne")" << QStringList{"set", "t"}
                             << "a \"b\" \\ c\td\ne";
    QTest::newRow("empty quoted") << "set t \"\"" << QStringList{"set", "t"} << "";
    QTest::newRow("nothing left") << "click cmdOK" << QStringList{"click", "cmdOK"} << "";
    QTest::newRow("quoted word") << "cell \"grid one\" 1 2" << QStringList{"cell", "grid one", "1"} << "2";
}

void TestScriptRunner::readsScriptLines()
{
    QFETCH(QString, line);
    QFETCH(QStringList, words);
    QFETCH(QString, rest);
    ScriptLine l(line);
    for (const QString &w : words)
        QCOMPARE(l.word(), w);
    QCOMPARE(l.rest(), rest);
    QVERIFY(l.error().isEmpty());
    QVERIFY(l.atEnd());
}

void TestScriptRunner::refusesBadQuotedStrings_data()
{
    QTest::addColumn<QString>("line");
    QTest::newRow("no closing quote") << "set t \"abc";
    QTest::newRow("unknown escape") << R"(set t "a\qb")";
    QTest::newRow("text after the quote") << "set t \"abc\" def";
    QTest::newRow("glued to the quote") << "set t \"abc\"def";
    QTest::newRow("backslash at the end") << "set t \"abc\\";
}

void TestScriptRunner::refusesBadQuotedStrings()
{
    QFETCH(QString, line);
    ScriptLine l(line);
    l.word();
    l.word();
    l.rest();
    QVERIFY(!l.error().isEmpty());
}

void TestScriptRunner::escapesTranscriptStrings_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("quoted");
    QTest::addColumn<QString>("unquoted");

    QTest::newRow("plain") << "Balance: $1.00" << "\"Balance: $1.00\"" << "Balance: $1.00";
    QTest::newRow("LF") << "a\nb" << R"("a\nb")" << R"(a\nb)";
    QTest::newRow("CR LF is one break") << "a\r\nb\r\n" << R"("a\nb\n")" << R"(a\nb\n)";
    QTest::newRow("lone CR") << "a\rb" << R"("a\rb")" << R"(a\rb)";
    QTest::newRow("tab and backslash") << "C:\\x\ty" << R"("C:\\x\ty")" << R"(C:\\x\ty)";
    QTest::newRow("quotes") << "say \"hi\"" << R"("say \"hi\"")" << "say \"hi\"";
    QTest::newRow("other control") << QString(QChar(1)) << R"("\x01")" << R"(\x01)";
    QTest::newRow("not ASCII") << QStringLiteral("Quillmere \u2014 caf\u00e9") << QStringLiteral("\"Quillmere \u2014 caf\u00e9\"")
                               << QStringLiteral("Quillmere \u2014 caf\u00e9");
}

void TestScriptRunner::escapesTranscriptStrings()
{
    QFETCH(QString, text);
    QFETCH(QString, quoted);
    QFETCH(QString, unquoted);
    QCOMPARE(ScriptLine::quote(text), quoted);
    QCOMPARE(ScriptLine::escape(text, false), unquoted);
    // What the transcript prints reads back as the same text in a script
    // (a CR LF pair comes back as a line break).
    ScriptLine back(QStringLiteral("x ") + quoted);
    back.word();
    if (!text.contains(QChar(1)))
        QCOMPARE(back.rest(), QString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
}

// --- Answers -------------------------------------------------------------

void TestScriptRunner::messageBoxesTakeQueuedAnswers()
{
    QStringList lines;
    ScriptInteraction s([&lines](const QString &l) { lines << l; });
    using I = Interaction;
    s.queueAnswer(QStringLiteral("msgbox"), QStringLiteral("No"), 3);
    s.queueAnswer(QStringLiteral("msgbox"), QStringLiteral("Cancel"), 4);

    // A box that only informs answers itself and leaves the queue alone.
    QCOMPARE(s.messageBox(QStringLiteral("Saved"), QStringLiteral("T"), I::Icon::Information, I::Buttons::OK),
             I::Answer::OK);
    QCOMPARE(s.queuedAnswers().size(), size_t(2));
    QCOMPARE(s.messageBox(QStringLiteral("Delete?"), QStringLiteral("T"), I::Icon::Question, I::Buttons::YesNo),
             I::Answer::No);
    QCOMPARE(s.messageBox(QStringLiteral("Save?"), QStringLiteral("T"), I::Icon::Exclamation,
                          I::Buttons::YesNoCancel),
             I::Answer::Cancel);
    QVERIFY(s.queuedAnswers().empty());
    QVERIFY(!s.takeFault());
    QCOMPARE(lines, QStringList({
                        R"(msgbox title="T" text="Saved" icon=information buttons=OK -> OK)",
                        R"(msgbox title="T" text="Delete?" icon=question buttons=YesNo -> No)",
                        R"(msgbox title="T" text="Save?" icon=exclamation buttons=YesNoCancel -> Cancel)",
                    }));

    // Without an answer the program carries on as if the box were closed,
    // and the script is told.
    lines.clear();
    QCOMPARE(s.messageBox(QStringLiteral("Go?"), QStringLiteral("T"), I::Icon::None, I::Buttons::OKCancel),
             I::Answer::Cancel);
    QVERIFY(s.takeFault());
    QCOMPARE(s.messageBox(QStringLiteral("Go?"), QStringLiteral("T"), I::Icon::Critical, I::Buttons::YesNo),
             I::Answer::No);
    QVERIFY(s.takeFault());
    QVERIFY(!s.takeFault());
    QCOMPARE(lines.first(), R"(msgbox title="T" text="Go?" icon=none buttons=OKCancel -> (no answer))");
    QVERIFY(lines.last().endsWith(QStringLiteral("icon=critical buttons=YesNo -> (no answer)")));
}

void TestScriptRunner::answersThatDoNotFitAreFaults()
{
    ScriptInteraction s([](const QString &) {});
    using I = Interaction;

    // The next answer belongs to frmFund: a message box must not take it.
    s.queueAnswer(QStringLiteral("frmFund"), QStringLiteral("Continue"), 7);
    QCOMPARE(s.messageBox(QStringLiteral("?"), QString(), I::Icon::None, I::Buttons::YesNo), I::Answer::No);
    const auto fault = s.takeFault();
    QVERIFY(fault && fault->contains(QStringLiteral("line 7")));
    QCOMPARE(s.queuedAnswers().size(), size_t(1));
    QCOMPARE(s.fund(QStringLiteral("T"), QStringLiteral("x")), 0);

    // A button the box does not have.
    s.queueAnswer(QStringLiteral("msgbox"), QStringLiteral("Yes"), 9);
    QCOMPARE(s.messageBox(QStringLiteral("?"), QString(), I::Icon::None, I::Buttons::OKCancel), I::Answer::Cancel);
    const auto wrongButton = s.takeFault();
    QVERIFY(wrongButton && wrongButton->contains(QStringLiteral("line 9")));

    // Other modal windows answer by name.
    ScriptInteraction other([](const QString &) {});
    other.queueAnswer(QStringLiteral("frmCalendar"), QStringLiteral("Today"), 11);
    QCOMPARE(other.askWindow(QStringLiteral("frmReport"), {QStringLiteral("Print")}, QStringLiteral("Close")),
             QStringLiteral("Close"));
    QVERIFY(other.takeFault());
    QCOMPARE(other.askWindow(QStringLiteral("frmCalendar"), {QStringLiteral("Today"), QStringLiteral("Close")},
                             QStringLiteral("Close")),
             QStringLiteral("Today"));
    QVERIFY(!other.takeFault());
    QVERIFY(other.queuedAnswers().empty());
}

void TestScriptRunner::fundAndOtherEvents()
{
    QStringList lines;
    ScriptInteraction s([&lines](const QString &l) { lines << l; });
    s.queueAnswer(QStringLiteral("frmFund"), QStringLiteral("Continue"), 1);
    s.queueAnswer(QStringLiteral("frmFund"), QStringLiteral("Cancel"), 2);
    s.queueAnswer(QStringLiteral("frmFund"), QStringLiteral("Close"), 3);
    QCOMPARE(s.fund(QStringLiteral("Over budget"), QStringLiteral("Food is over.\r\nGo on?")), 0);
    QCOMPARE(s.fund(QStringLiteral("A"), QStringLiteral("b")), 1);
    QCOMPARE(s.fund(QStringLiteral("A"), QStringLiteral("b")), 1);
    QVERIFY(!s.takeFault());
    QCOMPARE(s.fund(QStringLiteral("A"), QStringLiteral("b")), 1); // nothing queued
    QVERIFY(s.takeFault());
    s.beep();
    s.print(QStringLiteral("Register"), {QStringLiteral("Date\tAmount"), QStringLiteral("\"x\""), QString()});
    s.setClipboard(QStringLiteral("12.50"));
    s.openUrl(QStringLiteral("https://example.org/help"));
    s.windowEvent(QStringLiteral("frmCalc"), true);
    s.windowEvent(QStringLiteral("frmCalc"), false);
    QCOMPARE(lines, QStringList({
                        R"(fund title="Over budget" text="Food is over.\nGo on?" -> Continue)",
                        R"(fund title="A" text="b" -> Cancel)",
                        R"(fund title="A" text="b" -> Close)",
                        R"(fund title="A" text="b" -> (no answer))",
                        "beep",
                        R"(print job="Register")",
                        R"(| Date\tAmount)",
                        R"(| "x")",
                        "| ",
                        R"(clipboard text="12.50")",
                        R"(open url="https://example.org/help")",
                        "window frmCalc shown",
                        "window frmCalc closed",
                    }));
}

// --- Whole runs: script errors -------------------------------------------

void TestScriptRunner::scriptErrorsNameTheLine_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("screen");
    QTest::addColumn<QString>("error");
    QTest::addColumn<QString>("transcript");

    const QString screen = QStringLiteral("1024x768");
    const QString title = QStringLiteral("show lblTitle text=\"Quillmere\" visible=1 enabled=1\n");
    const QString tip = QStringLiteral("window frmTip shown\n");

    QTest::newRow("unknown command") << "show lblTitle\n# note\n\nfrobnicate x\nshow lblTitle\n" << screen
                                     << "run.qms:4: unknown command frobnicate" << Manifest + tip + title;
    QTest::newRow("no such control") << "click cmdFoo\n" << screen << "run.qms:1: no control named cmdFoo"
                                     << Manifest + tip;
    QTest::newRow("disabled control")
        << "set txtBankName Main\nset txtStartBal 5\nclick cmdAcctEnter\nclick cmdRenameAcct\nset txtStartBal 5\n"
        << screen << "run.qms:5: txtStartBal is disabled" << Manifest + tip;
    QTest::newRow("unused answer") << "answer msgbox Yes\nshow lblTitle\n" << screen
                                   << "run.qms:1: answer msgbox Yes was never used" << Manifest + tip + title;
    QTest::newRow("no such button") << "show lblTitle\nanswer msgbox Maybe\n" << screen
                                    << "run.qms:2: a message box has no button Maybe (OK, Yes, No or Cancel)"
                                    << Manifest + tip + title;
    QTest::newRow("no such panel") << "panel nowhere\n" << screen << "run.qms:1: there is no panel nowhere"
                                   << Manifest + tip;
    QTest::newRow("bad quoted text") << "set txtBankName \"Main\n" << screen
                                     << "run.qms:1: a quoted string has no closing \"" << Manifest + tip;
    QTest::newRow("row not a number") << "cell flxgdBankAcct two 0\n" << screen
                                      << "run.qms:1: ROW must be a whole number, not \"two\"" << Manifest + tip;
    QTest::newRow("row out of range") << "cell flxgdBankAcct 10 0\n" << screen
                                      << "run.qms:1: flxgdBankAcct has no row 10 to click" << Manifest + tip;
    QTest::newRow("bad date") << "today 13/45/2026\n" << screen
                              << "run.qms:1: today wants a date MM/DD/YYYY, not \"13/45/2026\"" << QString();
    QTest::newRow("extra words") << "click cmdAcctEnter now\n" << screen
                                 << "run.qms:1: too much on the line for click" << Manifest + tip;
    QTest::newRow("after a refused start")
        << "# the screen is too small\nrestart\nshow lblTitle\n" << QStringLiteral("640x480")
        << "run.qms:3: Quillmere is not running: start-up stopped (see the transcript)"
        << Manifest
               + "msgbox title=\"Screen Resolution too small\" text=\"Please make your screen resolution 800x600 "
                 "or higher.\" icon=exclamation buttons=OK -> OK\n";
}

void TestScriptRunner::scriptErrorsNameTheLine()
{
    QFETCH(QString, script);
    QFETCH(QString, screen);
    QFETCH(QString, error);
    QFETCH(QString, transcript);
    QTemporaryDir home;
    QuillmereRun::Options options;
    options.screen = screen;
    const QuillmereRun r = QuillmereRun::run(home.path(), script, options);
    QVERIFY(r.finished);
    QCOMPARE(r.exitCode, 1);
    QCOMPARE(r.scriptError(), error);
    QCOMPARE(r.out, transcript);
}

void TestScriptRunner::scriptsWithCrLfAndCommentsRun()
{
    QTemporaryDir home;
    const QString script = QStringLiteral(
        "  # indented comment\r\n\r\n"
        "choose cmbAcctType Savings\r\n"
        "set txtBankName \"Rainy \\\"Day\\\"\"\r\n"
        "show txtBankName\r\n"
        "set txtBankName Rainy Day   \r\n"
        "show txtBankName\r\n");
    const QuillmereRun r = QuillmereRun::run(home.path(), script);
    QVERIFY(r.finished);
    QCOMPARE(r.exitCode, 0);
    QCOMPARE(r.out, Manifest + QStringLiteral("window frmTip shown\n"
                                              "show txtBankName text=\"Rainy \\\"Day\\\"\" visible=1 enabled=1\n"
                                              "show txtBankName text=\"Rainy Day\" visible=1 enabled=1\n"));
}

void TestScriptRunner::missingScriptIsAnError()
{
    QTemporaryDir home;
    QProcess p;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    env.insert(QStringLiteral("XDG_CONFIG_HOME"), home.filePath(QStringLiteral("config")));
    p.setProcessEnvironment(env);
    p.start(QStringLiteral(QUILLMERE_BINARY), {QStringLiteral("--home"), home.path(), QStringLiteral("--script"),
                                                home.filePath(QStringLiteral("missing.qms"))});
    QVERIFY(p.waitForFinished(60000));
    QCOMPARE(p.exitCode(), 1);
    QVERIFY(p.readAllStandardOutput().isEmpty());
    QVERIFY(QString::fromUtf8(p.readAllStandardError()).contains(QStringLiteral("missing.qms: cannot read the script")));
    // Nothing was started, so nothing was written.
    QVERIFY(QDir(home.path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries).filter(QStringLiteral("Data")).isEmpty());
}

QTEST_MAIN(TestScriptRunner)
#include "tst_script_runner.moc"
