// The layout check names what a user could not see whole, and nothing else;
// grids share out their width so that what must be seen whole is.

#include "ui/ColumnFit.h"
#include "ui/FundForm.h"
#include "ui/LayoutCheck.h"

#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QStandardItemModel>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

#include <functional>

class TestLayoutCheck : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsWhatIsHidden_data();
    void findsWhatIsHidden();
    void warningWindowFits();
    void columnWidths_data();
    void columnWidths();
    void userWidthsAreKept();
};

using Build = std::function<void(QWidget *window)>;
Q_DECLARE_METATYPE(Build)

namespace {

QPushButton *button(QWidget *parent, const char *name, QRect where, const char *text = "OK")
{
    auto *b = new QPushButton(QString::fromLatin1(text), parent);
    b->setObjectName(QString::fromLatin1(name));
    b->setGeometry(where);
    return b;
}

} // namespace

void TestLayoutCheck::findsWhatIsHidden_data()
{
    QTest::addColumn<Build>("build");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("apart") << Build([](QWidget *w) {
        button(w, "cmdA", {10, 10, 80, 30});
        button(w, "cmdB", {90, 10, 80, 30});
    }) << QStringList();
    QTest::newRow("overlap") << Build([](QWidget *w) {
        button(w, "cmdA", {10, 10, 80, 30});
        button(w, "cmdB", {85, 20, 80, 30});
    }) << QStringList{QStringLiteral("cmdA and cmdB overlap (5x20 pixels)")};
    QTest::newRow("hidden and empty controls do not count") << Build([](QWidget *w) {
        button(w, "cmdA", {10, 10, 80, 30});
        button(w, "cmdB", {10, 10, 80, 30})->hide();
        new QLabel(w); // empty, at 0,0 over cmdA's corner
    }) << QStringList();
    QTest::newRow("past the window's edge") << Build([](QWidget *w) {
        button(w, "cmdA", {150, 80, 80, 30});
    }) << QStringList{QStringLiteral("cmdA lies outside the window (150,80 80x30 in 200x100)")};
    QTest::newRow("cut by its frame") << Build([](QWidget *w) {
        auto *frame = new QFrame(w);
        frame->setObjectName(QStringLiteral("fraBox"));
        frame->setGeometry(0, 0, 60, 60);
        button(frame, "cmdA", {10, 10, 80, 30});
    }) << QStringList{QStringLiteral("cmdA is cut by fraBox (50x30 of 80x30 shown)")};
    QTest::newRow("caption and closed list cut")
        << Build([](QWidget *w) {
               button(w, "cmdA", {0, 0, 40, 30}, "A much longer caption");
               auto *list = new QComboBox(w);
               list->setObjectName(QStringLiteral("cmbList"));
               list->addItem(QStringLiteral("An entry far too long for its box"));
               list->setGeometry(0, 40, 90, 30);
           })
        << QStringList{QStringLiteral("cmdA shows its text cut"),
                       QStringLiteral("cmbList shows its text cut")};
}

void TestLayoutCheck::findsWhatIsHidden()
{
    QFETCH(Build, build);
    QFETCH(QStringList, expected);
    QWidget window;
    window.resize(200, 100);
    build(&window);
    const QStringList found = LayoutCheck::problems(&window);
    QCOMPARE(found.size(), expected.size());
    for (qsizetype i = 0; i < found.size(); ++i)
        QVERIFY2(found[i].startsWith(expected[i]), qPrintable(found[i]));
}

void TestLayoutCheck::warningWindowFits()
{
    // The warning window grows with a long text rather than cutting it.
    FundForm form(QStringLiteral("Budget Exceeded"),
                  QStringLiteral("The category Groceries has $12.00 left, and this transaction "
                                 "takes $1,250.00 from it. Continue anyway, or Cancel and choose "
                                 "another category or a smaller amount?"));
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));
    const QStringList found = LayoutCheck::problems(&form);
    QVERIFY2(found.isEmpty(), qPrintable(found.join(QStringLiteral("; "))));
}

void TestLayoutCheck::columnWidths_data()
{
    QTest::addColumn<int>("room");
    QTest::addColumn<QList<int>>("chosen");
    QTest::addColumn<QList<int>>("expected");
    QTest::addColumn<int>("weight");
    // Columns: an amount (Content), two texts (Share, at least 40) and a
    // cleared date (Overflow), wanting 50, 100, 60 and 70 pixels.
    const QList<int> none{0, 0, 0, 0};
    QTest::newRow("room to spare goes to the texts")
        << 400 << none << QList<int>{50, 175, 105, 70} << 100;
    QTest::newRow("short: the longer text gives way")
        << 250 << none << QList<int>{50, 70, 60, 70} << 100;
    QTest::newRow("shorter: the date goes past the edge")
        << 150 << none << QList<int>{50, 50, 50, 70} << 100;
    QTest::newRow("shortest: no text under its minimum")
        << 100 << none << QList<int>{50, 40, 40, 70} << 100;
    QTest::newRow("a width the user chose stays")
        << 400 << QList<int>{0, 120, 0, 0} << QList<int>{50, 120, 160, 70} << 100;
    QTest::newRow("a heavier text keeps more") << 250 << none << QList<int>{50, 78, 52, 70} << 150;
}

void TestLayoutCheck::columnWidths()
{
    QFETCH(int, room);
    QFETCH(QList<int>, chosen);
    QFETCH(QList<int>, expected);
    QFETCH(int, weight);
    using C = ColumnFit::Column;
    const QList<C> columns{C{ColumnFit::Content}, C{ColumnFit::Share, 40, 400, weight},
                           C{ColumnFit::Share, 40}, C{ColumnFit::Overflow}};
    QCOMPARE(ColumnFit::widths(columns, {50, 100, 60, 70}, chosen, room), expected);
}

void TestLayoutCheck::userWidthsAreKept()
{
    QTemporaryDir config;
    qputenv("XDG_CONFIG_HOME", config.path().toLocal8Bit());
    QSettings(QStringLiteral("quillmere"))
        .setValue(QStringLiteral("Columns/flxgdTest"),
                  QStringList{QStringLiteral("0"), QStringLiteral("150")});
    QStandardItemModel model(3, 2);
    model.setItem(0, 0, new QStandardItem(QStringLiteral("A payee")));
    QTableView grid;
    grid.setObjectName(QStringLiteral("flxgdTest"));
    grid.setModel(&model);
    grid.resize(400, 200);
    auto *fit = ColumnFit::install(&grid, {{ColumnFit::Share}, {ColumnFit::Share}});
    grid.show();
    QVERIFY(QTest::qWaitForWindowExposed(&grid));
    fit->fit();
    QCOMPARE(grid.columnWidth(1), 150);
    QCOMPARE(fit->chosenWidths(), (QList<int>{0, 150}));
    QVERIFY(grid.columnWidth(0) > 150); // the rest of the room
}

QTEST_MAIN(TestLayoutCheck)
#include "tst_layoutcheck.moc"
