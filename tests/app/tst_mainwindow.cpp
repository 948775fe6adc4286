// The main window as a user meets it, at the two screen sizes the program is
// laid out for: keyboard paths through its controls, and money that is never
// shown cut.

#include "app/MainForm.h"
#include "app/ScriptInteraction.h"
#include "app/StartForm.h"
#include "core/Clock.h"
#include "ui/DateBox.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QStyleOptionFrame>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace {

// Lets every pending layout pass run, as the event loop does before painting.
void settle()
{
    for (int i = 0; i < 5; ++i) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        QApplication::processEvents();
    }
}

// One start of the program on a fresh home folder, the sample accounts open.
struct Run
{
    QTemporaryDir home;
    QStringList transcript;
    ScriptInteraction interaction{[this](const QString &line) { transcript << line; }};
    std::unique_ptr<StartForm> start;
    MainForm *main = nullptr;

    explicit Run(QSize screen)
    {
        StartForm::Options options;
        options.appPath = home.path();
        options.screen = screen;
        start = std::make_unique<StartForm>(options, interaction);
        if (!start->start())
            return;
        main = start->mainForm();
        main->switchDataSet();
        settle();
    }

    template<typename W = QWidget> W *find(const QString &name) const
    {
        return main->findChild<W *>(name);
    }
};

const QRegularExpression Money(QStringLiteral("^\\(?-?\\$?[0-9,]+\\.[0-9]+\\)?$"));

// Where a label, a text box or a grid cell has less room than its text needs.
QStringList cutLabels(const QWidget *window)
{
    QStringList cut;
    for (const QLabel *label : window->findChildren<QLabel *>()) {
        const QString text = label->text().trimmed();
        if (!label->isVisibleTo(window) || !Money.match(text).hasMatch())
            continue;
        // Where the text is drawn, and the part of the label its window shows:
        // a label pushed past the edge of a panel is cut there.
        const int needed = label->fontMetrics().horizontalAdvance(label->text());
        const QRect inside = label->contentsRect().adjusted(
            label->margin() + std::max(0, label->indent()), 0, -label->margin(), 0);
        const QRect drawn = QStyle::alignedRect(label->layoutDirection(), label->alignment(),
                                                QSize(needed, inside.height()), inside);
        QRect shown = label->rect();
        for (const QWidget *w = label; w != window; w = w->parentWidget())
            shown = shown.translated(w->pos()) & w->parentWidget()->rect();
        shown.translate(-label->mapTo(window, QPoint(0, 0)));
        if (drawn.left() < inside.left() || drawn.left() < shown.left()
            || drawn.right() > inside.right() || drawn.right() > shown.right())
            cut << QStringLiteral("%1 \"%2\": %3 of %4 pixels")
                       .arg(label->objectName(), text)
                       .arg((shown & inside).width())
                       .arg(needed);
    }
    return cut;
}

int textRoom(const QLineEdit *edit)
{
    QStyleOptionFrame option;
    option.initFrom(edit);
    option.rect = edit->contentsRect();
    option.lineWidth = edit->hasFrame()
                           ? edit->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, edit)
                           : 0;
    const QRect r = edit->style()->subElementRect(QStyle::SE_LineEditContents, &option, edit);
    const QMargins margins = edit->textMargins();
    // A line edit keeps two pixels clear on each side of its text.
    return r.width() - margins.left() - margins.right() - 4;
}

QStringList cutCells(const QTableView *grid, int column)
{
    QStringList cut;
    const int margin = grid->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, grid) + 1;
    for (int row = 0; row < grid->model()->rowCount(); ++row) {
        const QString text = grid->model()->index(row, column).data().toString();
        const int needed = grid->fontMetrics().horizontalAdvance(text) + 2 * margin;
        if (needed > grid->columnWidth(column))
            cut << QStringLiteral("%1 row %2 \"%3\": %4 of %5 pixels")
                       .arg(grid->objectName())
                       .arg(row + 1)
                       .arg(text)
                       .arg(grid->columnWidth(column))
                       .arg(needed);
    }
    return cut;
}

#define expectNone(list)                                                                           \
    do {                                                                                           \
        const QStringList found = list;                                                            \
        QVERIFY2(found.isEmpty(), qPrintable(found.join(QStringLiteral("; "))));                   \
    } while (false)

} // namespace

class TestMainWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void tabLeavesEveryList();
    void moneyIsNeverCut_data();
    void moneyIsNeverCut();
    void calendarGoesWhereItFits_data();
    void calendarGoesWhereItFits();
    void calendarOpensWholeAtTheBottom();
    void enterUpdatesFiguresInPlace();
};

void TestMainWindow::initTestCase()
{
    static QTemporaryDir config;
    QVERIFY(config.isValid());
    qputenv("XDG_CONFIG_HOME", config.path().toLocal8Bit());
    QFile conf(config.filePath(QStringLiteral("quillmere.conf")));
    QVERIFY(conf.open(QIODevice::WriteOnly));
    conf.write("[Options]\nShow%20Tips%20at%20Startup=0\n");
    Clock::setToday(QDate(2026, 11, 21));
}

void TestMainWindow::tabLeavesEveryList()
{
    Run run(QSize(1024, 768));
    QVERIFY(run.main);
    // Each list that is only read is one stop for Tab: Tab moves on to the
    // next control and Shift+Tab comes back, neither walks the cells. (The
    // budget's item grid is typed into cell by cell, so Tab moves in it.)
    const struct
    {
        const char *panel;
        const char *grid;
    } lists[] = {{"register", "flxgdBankAcct"},
                 {"register", "flxgdtrans"},
                 {"budget", "flxgdAcctBudget"},
                 {"budgettransfer", "flxgdBudTrans"}};
    for (const auto &l : lists) {
        QVERIFY(run.main->showPanel(QString::fromLatin1(l.panel)));
        settle();
        auto *grid = run.find<QTableView>(QString::fromLatin1(l.grid));
        QVERIFY2(grid, l.grid);
        grid->setFocus(Qt::TabFocusReason);
        QCOMPARE(run.main->focusWidget(), grid);
        QTest::keyClick(grid, Qt::Key_Tab);
        QWidget *next = run.main->focusWidget();
        QVERIFY2(next != grid, l.grid);
        QTest::keyClick(next, Qt::Key_Backtab);
        QCOMPARE(run.main->focusWidget(), grid);
        QTest::keyClick(grid, Qt::Key_Backtab);
        QVERIFY2(run.main->focusWidget() != grid, l.grid);
    }
}

void TestMainWindow::moneyIsNeverCut_data()
{
    QTest::addColumn<QSize>("screen");
    QTest::newRow("1024x768") << QSize(1024, 768);
    QTest::newRow("800x600") << QSize(800, 600);
}

void TestMainWindow::moneyIsNeverCut()
{
    QFETCH(QSize, screen);
    Run run(screen);
    QVERIFY(run.main);
    QCOMPARE(run.main->size(), screen);
    auto *accounts = run.find<QTableView>(QStringLiteral("flxgdBankAcct"));
    QVERIFY(accounts);

    const QString largest = QStringLiteral("90,000,000,000.00");
    const struct
    {
        const char *panel;
        const char *amountBox;
    } panels[]
        = {{"register", "cmbamt"},          {"transfer", "cmbamt(2)"},   {"budget", "txtBudAmount"},
           {"budgettransfer", "cmbamt(3)"}, {"accounts", "txtStartBal"}, {"balancing", "cmbamt(6)"},
           {"balancing", "cmbamt(7)"}};
    for (const auto &p : panels) {
        QVERIFY(run.main->showPanel(QString::fromLatin1(p.panel)));
        settle();
        expectNone(cutLabels(run.main));
        expectNone(cutCells(accounts, 1));
        auto *box = run.find<QLineEdit>(QString::fromLatin1(p.amountBox));
        QVERIFY2(box, p.amountBox);
        QVERIFY2(run.main->fontMetrics().horizontalAdvance(largest) <= textRoom(box), p.amountBox);
    }
    // Every panel button shows its whole caption inside the button row.
    auto *row = run.find<QWidget>(QStringLiteral("picPanelButtons"));
    QVERIFY(row);
    for (auto *button : row->findChildren<QPushButton *>()) {
        QVERIFY2(button->width() >= button->sizeHint().width()
                     && row->rect().contains(button->geometry()),
                 qPrintable(button->text()));
    }
    // The category list shows its figures whole, without scrolling sideways.
    QVERIFY(run.main->showPanel(QStringLiteral("budget")));
    settle();
    auto *budget = run.find<QTableView>(QStringLiteral("flxgdAcctBudget"));
    QVERIFY(budget && budget->model()->rowCount() > 0);
    for (int column : {2, 3}) {
        expectNone(cutCells(budget, column));
        QVERIFY2(budget->columnViewportPosition(column) + budget->columnWidth(column)
                     <= budget->viewport()->width(),
                 "a budget figure lies outside the list");
    }
    // The row that sets the first date listed takes room from the register's
    // heading, never from the account list.
    QVERIFY(run.main->showPanel(QStringLiteral("register")));
    run.find<QPushButton>(QStringLiteral("cmdView"))->click();
    settle();
    expectNone(cutLabels(run.main));
    expectNone(cutCells(accounts, 1));
}

void TestMainWindow::calendarGoesWhereItFits_data()
{
    QTest::addColumn<QRect>("screen");
    QTest::addColumn<QRect>("box");
    QTest::addColumn<QRect>("expected");
    const QSize month(280, 190);
    const QRect large(0, 0, 1024, 768);
    const QRect small(0, 0, 800, 600);
    // Room below: it opens below.
    QTest::newRow("1024x768, top")
        << large << QRect(300, 100, 120, 24) << QRect(QPoint(300, 124), month);
    QTest::newRow("800x600, top") << small << QRect(300, 100, 120, 24)
                                  << QRect(QPoint(300, 124), month);
    // The entry row at the bottom of the window: it opens above.
    QTest::newRow("1024x768, bottom")
        << large << QRect(380, 670, 110, 24) << QRect(QPoint(380, 480), month);
    QTest::newRow("800x600, bottom")
        << small << QRect(372, 498, 110, 24) << QRect(QPoint(372, 308), month);
    // Near the right edge it moves left to stay on the screen.
    QTest::newRow("800x600, right")
        << small << QRect(700, 498, 110, 24) << QRect(QPoint(520, 308), month);
    // Room neither below nor above: as low as it can be, all of it shown.
    QTest::newRow("short screen") << QRect(0, 0, 800, 300) << QRect(10, 100, 110, 24)
                                  << QRect(QPoint(10, 110), month);
}

void TestMainWindow::calendarGoesWhereItFits()
{
    QFETCH(QRect, screen);
    QFETCH(QRect, box);
    QFETCH(QRect, expected);
    QCOMPARE(DateBox::dropDownGeometry(box, expected.size(), screen), expected);
}

void TestMainWindow::calendarOpensWholeAtTheBottom()
{
    Run run(QSize(800, 600));
    QVERIFY(run.main);
    run.main->move(0, 0);
    QCOMPARE(run.main->screen()->geometry().size(), QSize(800, 600));
    settle();
    // No calendar is made before one is opened.
    QCOMPARE(run.main->findChildren<QCalendarWidget *>().size(), 0);
    auto *date = run.find<DateBox>(QStringLiteral("cmbDate"));
    QVERIFY(date);
    date->showPopup();
    QCalendarWidget *calendar = date->calendar();
    QVERIFY(calendar);
    QVERIFY(calendar->isVisible());
    QCOMPARE(run.main->findChildren<QCalendarWidget *>().size(), 1);
    const QRect shown = calendar->geometry();
    QVERIFY2(run.main->screen()->availableGeometry().contains(shown),
             qPrintable(QStringLiteral("calendar at %1,%2 %3x%4")
                            .arg(shown.x())
                            .arg(shown.y())
                            .arg(shown.width())
                            .arg(shown.height())));
    QVERIFY(shown.height() >= calendar->sizeHint().height());
    // The box is at the bottom of the window, so the month opens above it.
    QVERIFY(shown.bottom() < date->mapToGlobal(QPoint(0, 0)).y());
    date->hidePopup();
    QVERIFY(!calendar->isVisible());
}

// The offscreen screen is made 800 x 600, the smallest screen the program
// runs on, so that drop-downs meet its edges where a user's would.
int main(int argc, char **argv)
{
    QTemporaryDir dir;
    const QString config = dir.filePath(QStringLiteral("screen.json"));
    QFile file(config);
    if (!file.open(QIODevice::WriteOnly)
        || file.write(R"({"screens": [{"name": "small", "x": 0, "y": 0, "width": 800,
                          "height": 600, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})")
               < 0)
        return 1;
    file.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + config.toLocal8Bit());
    QApplication app(argc, argv);
    TestMainWindow test;
    return QTest::qExec(&test, argc, argv);
}
namespace {

// Every cell of a grid and every label of a window, as shown.
QStringList shown(const QAbstractItemModel *model, const QWidget *window)
{
    QStringList cells;
    for (int r = 0; r < model->rowCount(); ++r)
        for (int c = 0; c < model->columnCount(); ++c)
            cells << model->index(r, c).data().toString();
    for (const QLabel *label : window->findChildren<QLabel *>())
        cells << label->objectName() + QLatin1Char('=') + label->text();
    return cells;
}

} // namespace

// An Enter updates the account list and the budget from the records it
// wrote, without reading them again: what they show is what a full reading
// of the files shows.
void TestMainWindow::enterUpdatesFiguresInPlace()
{
    Run run(QSize(1024, 768));
    QVERIFY(run.main);
    const auto *accounts = run.find<QTableView>(QStringLiteral("flxgdBankAcct"));
    const auto *budget = run.find<QTableView>(QStringLiteral("flxgdAcctBudget"));
    auto *category = run.find<QComboBox>(QStringLiteral("cmbBudItems"));
    QVERIFY(accounts && budget && category);
    const QStringList before
        = shown(accounts->model(), run.main) + shown(budget->model(), run.main);

    run.find<QComboBox>(QStringLiteral("cmbType"))->setCurrentText(QStringLiteral("Withdrawal"));
    run.find<QComboBox>(QStringLiteral("cmbDesc"))->setEditText(QStringLiteral("Corner Grocer"));
    run.find<QLineEdit>(QStringLiteral("cmbamt"))->setText(QStringLiteral("12.34"));
    category->setCurrentIndex(category->count() > 1 ? 1 : 0);
    run.find<QPushButton>(QStringLiteral("cmdEnterTrans"))->click();
    settle();
    const QStringList inPlace
        = shown(accounts->model(), run.main) + shown(budget->model(), run.main);
    QVERIFY(inPlace != before);

    Q_EMIT run.main->dataChanged({DataChange::Accounts | DataChange::Budget, {}, 0, nullptr});
    settle();
    QCOMPARE(inPlace, shown(accounts->model(), run.main) + shown(budget->model(), run.main));
}

#include "tst_mainwindow.moc"
