// The transcript the script runner prints, and how it reports script errors.

#include "QuillmereRun.h"
#include "app/ScriptControls.h"
#include "app/ScriptInteraction.h"
#include "app/ScriptLine.h"
#include "app/ScriptRunner.h"
#include "ui/WindowReport.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QTableView>
#include <QTest>
#include <QVBoxLayout>

using namespace Transcript;

class TestScriptRunner : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void escapesTranscriptStrings_data();
    void escapesTranscriptStrings();
    void windowsTakeQueuedAnswers();
    void questionsAndFileDialogs();
    void windowsReportShownAndClosed();
    void controlsGetRealInputEvents();
    void modalWindowOutsideTheSeamIsClosed();
    void scriptErrorsNameTheLine_data();
    void scriptErrorsNameTheLine();
};

void TestScriptRunner::escapesTranscriptStrings_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("quoted");
    const std::pair<QString, const char *> rows[]
        = {{"a\r\nb\n", R"("a\nb\n")"},       // CR LF is one break
           {"a\rb", R"("a\rb")"},             // a lone CR
           {"C:\\x\ty", R"("C:\\x\ty")"},     // tab and backslash
           {"say \"hi\"", R"("say \"hi\"")"}, // quotes
           {QString(QChar(1)), R"("\x01")"}}; // another control character
    for (const auto &[text, quoted] : rows)
        QTest::newRow(quoted) << text << QString(quoted);
}

void TestScriptRunner::escapesTranscriptStrings()
{
    QFETCH(QString, text);
    QFETCH(QString, quoted);
    QCOMPARE(ScriptLine::quote(text), quoted);
    // What the transcript prints reads back in a script as the same text.
    ScriptLine back(QStringLiteral("x ") + quoted);
    back.word();
    if (!text.contains(QChar(1)))
        QCOMPARE(back.rest(), QString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
}

void TestScriptRunner::windowsTakeQueuedAnswers()
{
    QStringList lines;
    ScriptInteraction s([&lines](const QString &l) { lines << l; });
    using I = Interaction;
    s.queueAnswer(QStringLiteral("msgbox"), QStringLiteral("No"), 3);
    s.queueAnswer(QStringLiteral("frmFund"), QStringLiteral("Cancel"), 4);
    // A box that only informs answers itself and leaves the queue alone.
    QCOMPARE(s.messageBox(QStringLiteral("Saved"), QStringLiteral("T"), I::Icon::Information,
                          I::Buttons::OK),
             I::Answer::OK);
    QCOMPARE(s.messageBox(QStringLiteral("Delete?"), QStringLiteral("T"), I::Icon::Question,
                          I::Buttons::YesNo),
             I::Answer::No);
    QCOMPARE(s.fund(QStringLiteral("Over budget"), QStringLiteral("Food is over.\r\nGo on?")), 1);
    QVERIFY(!s.takeFault());
    // Without an answer the program carries on as if the window were closed, and the script is
    // told.
    QCOMPARE(s.messageBox(QStringLiteral("Go?"), QStringLiteral("T"), I::Icon::Critical,
                          I::Buttons::YesNoCancel),
             I::Answer::Cancel);
    QVERIFY(s.takeFault());
    QCOMPARE(s.fund(QStringLiteral("A"), QStringLiteral("b")), 1);
    QVERIFY(s.takeFault());
    QVERIFY(!s.takeFault());
    // (How answered boxes are written down is pinned by every scenario transcript.)
    QCOMPARE(lines.mid(3),
             QStringList({
                 R"(msgbox title="T" text="Go?" icon=critical buttons=YesNoCancel -> (no answer))",
                 R"(fund title="A" text="b" -> (no answer))",
             }));

    // An answer for another window, or naming a button the window lacks, is a fault of its line.
    s.queueAnswer(QStringLiteral("frmFund"), QStringLiteral("Continue"), 7);
    QCOMPARE(s.messageBox(QStringLiteral("?"), QString(), I::Icon::None, I::Buttons::YesNo),
             I::Answer::No);
    QVERIFY(s.takeFault().value_or(QString()).contains(QStringLiteral("line 7")));
    QCOMPARE(s.fund(QStringLiteral("T"), QStringLiteral("x")), 0);
    s.queueAnswer(QStringLiteral("frmCalendar"), QStringLiteral("Today"), 11);
    QCOMPARE(s.askWindow(QStringLiteral("frmReport"), {QStringLiteral("Print")},
                         QStringLiteral("Close")),
             QStringLiteral("Close"));
    QVERIFY(s.takeFault());
    QCOMPARE(s.askWindow(QStringLiteral("frmCalendar"), {QStringLiteral("Today")},
                         QStringLiteral("Close")),
             QStringLiteral("Today"));
    s.queueAnswer(QStringLiteral("msgbox"), QStringLiteral("Yes"), 9);
    QCOMPARE(s.messageBox(QStringLiteral("?"), QString(), I::Icon::None, I::Buttons::OKCancel),
             I::Answer::Cancel);
    QVERIFY(s.takeFault().value_or(QString()).contains(QStringLiteral("line 9")));
}

// A modal question takes the queued button by its caption; a file dialog takes
// a path, relative to the home folder, or "" to cancel.
void TestScriptRunner::questionsAndFileDialogs()
{
    QStringList lines;
    ScriptInteraction s([&lines](const QString &l) { lines << l; });
    s.setFileFolder(QStringLiteral("/home/q"));
    using I = Interaction;
    const QStringList buttons{QStringLiteral("Save As"), QStringLiteral("Discard")};
    s.queueAnswer(QStringLiteral("frmImport"), QStringLiteral("save as"), 2);
    s.queueAnswer(QStringLiteral("filedialog"), QStringLiteral("out/Register 2026.txt"), 3);
    s.queueAnswer(QStringLiteral("filedialog"), QString(), 4);
    s.queueAnswer(QStringLiteral("filedialog"), QStringLiteral("/tmp/in.qif"), 5);
    QCOMPARE(s.ask(QStringLiteral("frmImport"), QStringLiteral("Keep it?"), buttons,
                   QStringLiteral("Import")),
             QStringLiteral("Save As"));
    QCOMPARE(s.fileDialog(I::FileDialog::Save, QStringLiteral("Export"), QString(),
                          QStringLiteral("Text (*.txt)")),
             QStringLiteral("/home/q/out/Register 2026.txt"));
    QCOMPARE(s.fileDialog(I::FileDialog::Open, QStringLiteral("Import"), QString(), QString()),
             QString());
    QCOMPARE(s.fileDialog(I::FileDialog::Open, QStringLiteral("Import"), QString(), QString()),
             QStringLiteral("/tmp/in.qif"));
    QVERIFY(!s.takeFault());
    // Nothing queued, or an answer meant for another window: closed, and the script is told.
    QCOMPARE(s.ask(QStringLiteral("frmImport"), QStringLiteral("?"), buttons), QString());
    QVERIFY(s.takeFault());
    s.queueAnswer(QStringLiteral("frmImport"), QStringLiteral("Keep"), 9);
    QCOMPARE(s.ask(QStringLiteral("frmImport"), QStringLiteral("?"), buttons), QString());
    QVERIFY(s.takeFault().value_or(QString()).contains(QStringLiteral("line 9")));
    QCOMPARE(s.fileDialog(I::FileDialog::Open, QStringLiteral("Import"), QString(), QString()),
             QString());
    QVERIFY(s.takeFault().value_or(QString()).contains(QStringLiteral("line 9")));
    QCOMPARE(
        lines,
        QStringList({
            R"x(ask frmImport title="Import" text="Keep it?" buttons="Save As" "Discard" -> "Save As")x",
            R"x(filedialog save title="Export" filter="Text (*.txt)" -> "out/Register 2026.txt")x",
            R"x(filedialog open title="Import" filter="" -> "")x",
            R"x(filedialog open title="Import" filter="" -> "/tmp/in.qif")x",
            R"x(ask frmImport text="?" buttons="Save As" "Discard" -> (no answer))x",
            R"x(ask frmImport text="?" buttons="Save As" "Discard" -> (no answer))x",
            R"x(filedialog open title="Import" filter="" -> (no answer))x",
        }));
}

// A watched window says when it opens and closes, once each time; being
// hidden with the window beneath it is not closing it.
void TestScriptRunner::windowsReportShownAndClosed()
{
    QStringList lines;
    ScriptInteraction s([&lines](const QString &l) { lines << l; });
    QWidget main;
    auto *dialog = new QDialog(&main);
    dialog->setObjectName(QStringLiteral("frmCalc"));
    WindowReport::watch(dialog, s);
    main.show();
    dialog->show();
    dialog->show();
    main.hide();
    main.show();
    dialog->accept();
    dialog->open();
    dialog->reject();
    QCOMPARE(lines, QStringList({"window frmCalc shown", "window frmCalc closed",
                                 "window frmCalc shown", "window frmCalc closed"}));
}

namespace {
// Writes down the mouse presses and key presses a widget is sent.
class InputLog : public QObject
{
public:
    QStringList seen;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::MouseButtonPress) {
            const auto *m = static_cast<QMouseEvent *>(event);
            seen << QStringLiteral("press %1 %2").arg(int(m->button())).arg(int(m->modifiers()));
        } else if (event->type() == QEvent::KeyPress) {
            seen << QStringLiteral("key ") + static_cast<QKeyEvent *>(event)->text();
        }
        return false;
    }
};
} // namespace

// Clicks, keys and list choices reach a control as input events do, through
// the filters that watch it and the window's shortcuts.
void TestScriptRunner::controlsGetRealInputEvents()
{
    QWidget window;
    auto *table = new QTableView(&window);
    QStandardItemModel model(40, 2);
    table->setModel(&model);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    auto *copy = new QAction(table);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    table->addAction(copy);
    auto *combo = new QComboBox(&window);
    combo->addItems({QStringLiteral("Monthly"), QStringLiteral("Weekly")});
    auto *layout = new QVBoxLayout(&window);
    layout->addWidget(table);
    layout->addWidget(combo);
    window.resize(400, 300);
    window.show();
    InputLog log;
    table->viewport()->installEventFilter(&log);
    table->installEventFilter(&log);
    QSignalSpy copied(copy, &QAction::triggered);
    QSignalSpy activated(combo, &QComboBox::activated);

    // Row 35 is scrolled into view before it is clicked.
    QCOMPARE(
        ScriptControls::clickCell(table, QStringLiteral("g"), 35, 1, QStringLiteral("Shift+Right")),
        QString());
    QCOMPARE(ScriptControls::clickCell(table, QStringLiteral("g"), 2, 0), QString());
    QCOMPARE(table->currentIndex(), model.index(1, 0));
    QVERIFY(!ScriptControls::clickCell(table, QStringLiteral("g"), 1, 0, QStringLiteral("Middle"))
                 .isEmpty());
    QCOMPARE(ScriptControls::pressKey(table, QStringLiteral("g"), QStringLiteral("Ctrl+C")),
             QString());
    QCOMPARE(ScriptControls::pressKey(table, QStringLiteral("g"), QStringLiteral("x")), QString());
    QCOMPARE(
        log.seen,
        QStringList(
            {QStringLiteral("press %1 %2").arg(int(Qt::RightButton)).arg(int(Qt::ShiftModifier)),
             QStringLiteral("press %1 0").arg(int(Qt::LeftButton)), QStringLiteral("key x")}));
    QCOMPARE(copied.size(), 1);

    // An entry is clicked in the open list, even when it is already chosen.
    QCOMPARE(ScriptControls::chooseIndex(combo, QStringLiteral("c"), 1), QString());
    QCOMPARE(ScriptControls::chooseIndex(combo, QStringLiteral("c"), 1), QString());
    QCOMPARE(activated.size(), 2);
    QCOMPARE(combo->currentIndex(), 1);
    QVERIFY(!combo->view()->isVisible());
}

// A window that waits in its own event loop instead of asking through the
// interaction seam would hang a headless run; the runner closes it and stops.
void TestScriptRunner::modalWindowOutsideTheSeamIsClosed()
{
    QTemporaryDir home;
    qputenv("XDG_CONFIG_HOME", home.filePath(QStringLiteral("config")).toLocal8Bit());
    QWidget w;
    w.setObjectName(QStringLiteral("frmAsk"));
    auto *ask = new QPushButton(&w);
    ask->setObjectName(QStringLiteral("cmdAsk"));
    int result = -1;
    connect(ask, &QPushButton::clicked, this,
            [&] { result = QMessageBox::question(&w, QStringLiteral("Sure?"), {}); });
    w.show();
    QFile script(home.filePath(QStringLiteral("ask.qms")));
    QVERIFY(script.open(QIODevice::WriteOnly));
    script.write("click frmAsk.cmdAsk\nshow frmAsk\n");
    script.close();
    StartForm::Options options;
    options.appPath = home.path();
    options.screen = QSize(1024, 768);
    QCOMPARE(ScriptRunner(options).run(script.fileName()), 1);
    QCOMPARE(result, int(QMessageBox::No));
    QVERIFY(!QApplication::activeModalWidget());
}

void TestScriptRunner::scriptErrorsNameTheLine_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("error");
    QTest::addColumn<QString>("transcript");
    QTest::addColumn<QString>("screen");
    auto row = [](const char *tag, const char *script, const char *error, const QString &transcript,
                  const char *screen = "1024x768") {
        QTest::newRow(tag) << QString::fromUtf8(script)
                           << QStringLiteral("run.qms:") + QString::fromUtf8(error) << transcript
                           << QString::fromLatin1(screen);
    };
    // CR LF line ends, comments, blank lines, quoted and trailing blanks are read as meant.
    row("unknown command",
        "  # note\r\n\r\npanel accounts\r\nset txtBankName \"Rainy \\\"Day\\\"\"\r\nshow "
        "txtBankName\r\n"
        "set txtBankName Rainy Day   \r\nshow txtBankName\r\nfrobnicate x\r\nshow lblTitle\r\n",
        "8: unknown command frobnicate",
        Manifest + Tip
            + "show txtBankName text=\"Rainy \\\"Day\\\"\" visible=1 enabled=1\n"
              "show txtBankName text=\"Rainy Day\" visible=1 enabled=1\n");
    row("unknown control", "click cmdFoo\n", "1: no control named cmdFoo", Manifest + Tip);
    row("unused answer", "answer msgbox Yes\nshow lblTitle\n",
        "1: answer msgbox Yes was never used", Manifest + Tip + Title);
    row("no such button", "show lblTitle\nanswer msgbox Maybe\n",
        "2: a message box has no button Maybe (OK, Yes, No or Cancel)", Manifest + Tip + Title);
    row("file dialog without a path", "answer filedialog\n",
        "1: answer filedialog wants a path, or \"\" to cancel", QString());
    row("bad quoted text", "set txtBankName \"Main\n", "1: a quoted string has no closing \"",
        Manifest + Tip);
    row("row out of range", "cell flxgdBankAcct 10 0\n", "1: flxgdBankAcct has no row 10 to click",
        Manifest + Tip);
    row("after a refused start", "restart\nshow lblTitle\n",
        "2: Quillmere is not running: start-up stopped (see the transcript)",
        Manifest
            + "msgbox title=\"Screen Resolution too small\" text=\"Please make your screen "
              "resolution 800x600 "
              "or higher.\" icon=exclamation buttons=OK -> OK\n",
        "640x480");
}

void TestScriptRunner::scriptErrorsNameTheLine()
{
    QFETCH(QString, script);
    QFETCH(QString, error);
    QFETCH(QString, transcript);
    QFETCH(QString, screen);
    QTemporaryDir home;
    QuillmereRun::Options options;
    options.screen = screen;
    const QuillmereRun r = QuillmereRun::run(home.path(), script, options);
    QVERIFY(r.finished);
    QCOMPARE(r.exitCode, 1);
    QVERIFY2(r.err.contains(error + QLatin1Char('\n')), qPrintable(r.err));
    QCOMPARE(r.out, transcript);
}

QTEST_MAIN(TestScriptRunner)
#include "tst_script_runner.moc"
