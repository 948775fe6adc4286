// Acting on controls as a user would, and reading them back; and the guard
// against windows that wait outside the script's reach.

#include "ScriptControls.h"
#include "ScriptRunner.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QStandardItemModel>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QVBoxLayout>

#include <memory>

namespace {

template<typename W>
W *add(QWidget *parent, const QString &name)
{
    auto *w = new W(parent);
    w->setObjectName(name);
    parent->layout()->addWidget(w);
    return w;
}

std::unique_ptr<QWidget> window(const QString &name)
{
    auto w = std::make_unique<QWidget>();
    w->setObjectName(name);
    w->setWindowTitle(name + QStringLiteral(" title"));
    new QVBoxLayout(w.get());
    return w;
}

} // namespace

class TestScriptControls : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void findsControlsByName();
    void visibilityFollowsWindowsAndParents();
    void typesIntoTextBoxes();
    void choosesListEntries();
    void clicksButtonsAndGridCells();
    void pressesKeys();
    void describesControls();
    void modalWindowOutsideTheSeamIsClosed();

private:
    QTemporaryDir m_config;
};

void TestScriptControls::initTestCase()
{
    // Runs inside this process read per-user settings; keep them away from the user's.
    QVERIFY(m_config.isValid());
    qputenv("XDG_CONFIG_HOME", m_config.path().toLocal8Bit());
}


void TestScriptControls::findsControlsByName()
{
    auto a = window(QStringLiteral("frmA"));
    auto *date0 = add<QLineEdit>(a.get(), QStringLiteral("cmbDate(0)"));
    auto *date6 = add<QLineEdit>(a.get(), QStringLiteral("cmbDate(6)"));
    auto *plain = add<QLineEdit>(a.get(), QStringLiteral("txtAmount"));
    auto *nameA = add<QLineEdit>(a.get(), QStringLiteral("txtName"));
    auto b = window(QStringLiteral("frmB"));
    auto *nameB = add<QLineEdit>(b.get(), QStringLiteral("txtName"));
    auto *onlyB = add<QLineEdit>(b.get(), QStringLiteral("txtOnlyB"));
    a->show();
    b->show();

    QString error;
    QCOMPARE(ScriptControls::find(QStringLiteral("cmbDate"), &error), date0);
    QCOMPARE(ScriptControls::find(QStringLiteral("cmbDate(0)"), &error), date0);
    QCOMPARE(ScriptControls::find(QStringLiteral("cmbDate(6)"), &error), date6);
    QCOMPARE(ScriptControls::find(QStringLiteral("txtAmount(0)"), &error), plain);
    QCOMPARE(ScriptControls::find(QStringLiteral("frmA.txtName"), &error), nameA);
    QCOMPARE(ScriptControls::find(QStringLiteral("frmB.txtName"), &error), nameB);
    QCOMPARE(ScriptControls::find(QStringLiteral("frmA"), &error), a.get());

    for (const char *missing : {"cmbDate(1)", "txtAmount(2)", "frmA.txtOnlyB", "cmbdate"}) {
        error.clear();
        QVERIFY2(!ScriptControls::find(QString::fromLatin1(missing), &error), missing);
        QCOMPARE(error, QStringLiteral("no control named %1").arg(QString::fromLatin1(missing)));
    }
    error.clear();
    QVERIFY(!ScriptControls::find(QStringLiteral("txtName"), &error));
    QVERIFY(error.contains(QStringLiteral("more than one")));

    // A control of a closed window gives way to the open one.
    b->hide();
    QCOMPARE(ScriptControls::find(QStringLiteral("txtName"), &error), nameA);
    QCOMPARE(ScriptControls::find(QStringLiteral("txtOnlyB"), &error), onlyB);
}

void TestScriptControls::visibilityFollowsWindowsAndParents()
{
    auto w = window(QStringLiteral("frmV"));
    auto *stack = add<QStackedWidget>(w.get(), QStringLiteral("stack"));
    auto *page1 = new QLabel(QStringLiteral("one"));
    page1->setObjectName(QStringLiteral("page1"));
    auto *page2 = new QWidget;
    auto *onPage2 = new QLabel(QStringLiteral("two"), page2);
    stack->addWidget(page1);
    stack->addWidget(page2);
    auto *hidden = add<QLabel>(w.get(), QStringLiteral("lblHidden"));
    hidden->hide();

    // Not shown until the window is.
    QVERIFY(!ScriptControls::isShown(page1));
    w->show();
    QVERIFY(ScriptControls::isShown(page1));
    QVERIFY(!ScriptControls::isShown(onPage2));
    QVERIFY(!ScriptControls::isShown(hidden));
    stack->setCurrentIndex(1);
    QVERIFY(ScriptControls::isShown(onPage2));
    QVERIFY(!ScriptControls::isShown(page1));
    w->close();
    QVERIFY(!ScriptControls::isShown(onPage2));
    QVERIFY(!ScriptControls::isShown(w.get()));
}

void TestScriptControls::typesIntoTextBoxes()
{
    auto w = window(QStringLiteral("frmT"));
    auto *edit = add<QLineEdit>(w.get(), QStringLiteral("txtName"));
    edit->setMaxLength(5);
    auto *readOnly = add<QLineEdit>(w.get(), QStringLiteral("txtRO"));
    readOnly->setReadOnly(true);
    auto *disabled = add<QLineEdit>(w.get(), QStringLiteral("txtOff"));
    disabled->setEnabled(false);
    auto *list = add<QComboBox>(w.get(), QStringLiteral("cmbList"));
    auto *editable = add<QComboBox>(w.get(), QStringLiteral("cmbPayee"));
    editable->setEditable(true);
    w->show();

    QSignalSpy edited(edit, &QLineEdit::textEdited);
    QCOMPARE(ScriptControls::setText(edit, QStringLiteral("txtName"), QStringLiteral("abcdefgh")), QString());
    QCOMPARE(edit->text(), QStringLiteral("abcde")); // as typing would stop
    QCOMPARE(edited.count(), 1);
    // Typing the same text again is still typing: the box hears about it.
    QCOMPARE(ScriptControls::setText(edit, QStringLiteral("txtName"), QStringLiteral("abcde")), QString());
    QCOMPARE(edited.count(), 2);

    QSignalSpy changed(editable, &QComboBox::editTextChanged);
    QCOMPARE(ScriptControls::setText(editable, QStringLiteral("cmbPayee"), QStringLiteral("Grocer")), QString());
    QCOMPARE(editable->currentText(), QStringLiteral("Grocer"));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(ScriptControls::setText(editable, QStringLiteral("cmbPayee"), QStringLiteral("Grocer")), QString());
    QCOMPARE(changed.count(), 2);

    QCOMPARE(ScriptControls::setText(readOnly, QStringLiteral("txtRO"), QStringLiteral("x")),
             QStringLiteral("txtRO is read-only"));
    QCOMPARE(ScriptControls::setText(disabled, QStringLiteral("txtOff"), QStringLiteral("x")),
             QStringLiteral("txtOff is disabled"));
    QVERIFY(ScriptControls::setText(list, QStringLiteral("cmbList"), QStringLiteral("x")).contains(QStringLiteral("choose")));
    edit->hide();
    QCOMPARE(ScriptControls::setText(edit, QStringLiteral("txtName"), QStringLiteral("x")),
             QStringLiteral("txtName is not visible"));
}

void TestScriptControls::choosesListEntries()
{
    auto w = window(QStringLiteral("frmC"));
    auto *combo = add<QComboBox>(w.get(), QStringLiteral("cmbKind"));
    combo->addItems({QStringLiteral("Checking"), QStringLiteral("Savings"), QStringLiteral("#2")});
    w->show();
    QSignalSpy activated(combo, &QComboBox::activated);

    QCOMPARE(ScriptControls::chooseText(combo, QStringLiteral("cmbKind"), QStringLiteral("Savings")), QString());
    QCOMPARE(combo->currentIndex(), 1);
    // Choosing the entry that is already chosen is still a click on it.
    QCOMPARE(ScriptControls::chooseText(combo, QStringLiteral("cmbKind"), QStringLiteral("Savings")), QString());
    QCOMPARE(ScriptControls::chooseText(combo, QStringLiteral("cmbKind"), QStringLiteral("#2")), QString());
    QCOMPARE(ScriptControls::chooseIndex(combo, QStringLiteral("cmbKind"), -1), QString());
    QCOMPARE(combo->currentIndex(), -1);
    QCOMPARE(activated.count(), 4);
    QCOMPARE(activated.at(0).at(0).toInt(), 1);
    QCOMPARE(activated.at(2).at(0).toInt(), 2);
    QCOMPARE(activated.at(3).at(0).toInt(), -1);

    QVERIFY(!ScriptControls::chooseText(combo, QStringLiteral("cmbKind"), QStringLiteral("savings")).isEmpty());
    QVERIFY(!ScriptControls::chooseIndex(combo, QStringLiteral("cmbKind"), 3).isEmpty());
    QVERIFY(!ScriptControls::chooseIndex(combo, QStringLiteral("cmbKind"), -2).isEmpty());
    QCOMPARE(activated.count(), 4);
}

void TestScriptControls::clicksButtonsAndGridCells()
{
    auto w = window(QStringLiteral("frmG"));
    auto *button = add<QPushButton>(w.get(), QStringLiteral("cmdGo"));
    auto *radio = add<QRadioButton>(w.get(), QStringLiteral("optA"));
    auto *table = add<QTableView>(w.get(), QStringLiteral("flxgd"));
    QStandardItemModel model(4, 2);
    model.setHorizontalHeaderLabels({QStringLiteral("Name"), QStringLiteral("Amount")});
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 2; ++c)
            model.setItem(r, c, new QStandardItem(QStringLiteral("r%1c%2").arg(r).arg(c)));
    model.item(1, 0)->setSelectable(false);
    model.item(2, 0)->setEnabled(false);
    table->setModel(&model);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    w->show();

    QSignalSpy pushed(button, &QPushButton::clicked);
    QCOMPARE(ScriptControls::click(button, QStringLiteral("cmdGo")), QString());
    QCOMPARE(ScriptControls::click(radio, QStringLiteral("optA")), QString());
    QVERIFY(radio->isChecked());
    button->setEnabled(false);
    QCOMPARE(ScriptControls::click(button, QStringLiteral("cmdGo")), QStringLiteral("cmdGo is disabled"));
    QCOMPARE(pushed.count(), 1);
    QVERIFY(!ScriptControls::click(table, QStringLiteral("flxgd")).isEmpty());

    QSignalSpy clicked(table, &QTableView::clicked);
    QSignalSpy header(table->horizontalHeader(), &QHeaderView::sectionClicked);
    // Row 1 of the script is the first model row.
    QCOMPARE(ScriptControls::clickCell(table, QStringLiteral("flxgd"), 1, 1), QString());
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(clicked.at(0).at(0).value<QModelIndex>(), model.index(0, 1));
    QCOMPARE(table->currentIndex(), model.index(0, 1));
    QCOMPARE(table->selectionModel()->selectedRows(), QModelIndexList{model.index(0, 0)});
    // A row that cannot be selected still takes the click; a disabled one does not.
    QCOMPARE(ScriptControls::clickCell(table, QStringLiteral("flxgd"), 2, 0), QString());
    QCOMPARE(clicked.count(), 2);
    QCOMPARE(table->selectionModel()->selectedRows(), QModelIndexList{model.index(0, 0)});
    QCOMPARE(ScriptControls::clickCell(table, QStringLiteral("flxgd"), 3, 0), QString());
    QCOMPARE(clicked.count(), 2);
    // Row 0 is the header.
    QCOMPARE(ScriptControls::clickCell(table, QStringLiteral("flxgd"), 0, 1), QString());
    QCOMPARE(header.count(), 1);
    QCOMPARE(header.at(0).at(0).toInt(), 1);
    QCOMPARE(clicked.count(), 2);
    for (auto [row, col] : {std::pair{5, 0}, std::pair{-1, 0}, std::pair{1, 2}, std::pair{1, -1}})
        QVERIFY(!ScriptControls::clickCell(table, QStringLiteral("flxgd"), row, col).isEmpty());

    // Several rows only where the grid allows it.
    QVERIFY(!ScriptControls::selectRows(table, QStringLiteral("flxgd"), 1, 3).isEmpty());
    table->setSelectionMode(QAbstractItemView::ExtendedSelection);
    QCOMPARE(ScriptControls::selectRows(table, QStringLiteral("flxgd"), 3, 4), QString());
    QCOMPARE(table->selectionModel()->selectedRows().size(), 2);
    QVERIFY(table->selectionModel()->isRowSelected(3, {}));
    QVERIFY(!ScriptControls::selectRows(table, QStringLiteral("flxgd"), 4, 5).isEmpty());
    QVERIFY(!ScriptControls::selectRows(table, QStringLiteral("flxgd"), 2, 1).isEmpty());

    QStringList rows;
    QCOMPARE(ScriptControls::gridRows(table, QStringLiteral("flxgd"), &rows), QString());
    QCOMPARE(rows.size(), 5);
    QCOMPARE(rows[0], QStringLiteral("0 \"Name\" \"Amount\""));
    QCOMPARE(rows[4], QStringLiteral("4 \"r3c0\" \"r3c1\""));
}

void TestScriptControls::pressesKeys()
{
    auto w = window(QStringLiteral("frmK"));
    auto *edit = add<QLineEdit>(w.get(), QStringLiteral("txtAmount"));
    auto *other = add<QLineEdit>(w.get(), QStringLiteral("txtOther"));
    w->show();
    QSignalSpy returned(edit, &QLineEdit::returnPressed);
    QCOMPARE(ScriptControls::pressKey(edit, QStringLiteral("txtAmount"), QStringLiteral("Enter")), QString());
    QCOMPARE(ScriptControls::pressKey(edit, QStringLiteral("txtAmount"), QStringLiteral("Return")), QString());
    QCOMPARE(returned.count(), 2);
    QCOMPARE(ScriptControls::pressKey(edit, QStringLiteral("txtAmount"), QStringLiteral("7")), QString());
    QCOMPARE(ScriptControls::pressKey(edit, QStringLiteral("txtAmount"), QStringLiteral("Shift+a")), QString());
    QCOMPARE(ScriptControls::pressKey(edit, QStringLiteral("txtAmount"), QStringLiteral("b")), QString());
    QCOMPARE(edit->text(), QStringLiteral("7Ab"));
    QCOMPARE(ScriptControls::pressKey(edit, QStringLiteral("txtAmount"), QStringLiteral("Backspace")), QString());
    QCOMPARE(edit->text(), QStringLiteral("7A"));
    // Tab moves on to the next control.
    QCOMPARE(ScriptControls::pressKey(edit, QStringLiteral("txtAmount"), QStringLiteral("Tab")), QString());
    QCOMPARE(QApplication::focusWidget(), other);

    // Keys reach the window's shortcuts first, as on the desktop.
    QShortcut save(QKeySequence(QStringLiteral("Ctrl+S")), w.get());
    QSignalSpy saved(&save, &QShortcut::activated);
    QCOMPARE(ScriptControls::pressKey(other, QStringLiteral("txtOther"), QStringLiteral("Ctrl+S")), QString());
    QCOMPARE(saved.count(), 1);
    QCOMPARE(other->text(), QString());

    for (const char *bad : {"Hyper+A", "F13", "Enterr", "ab", ""})
        QVERIFY2(!ScriptControls::pressKey(edit, QStringLiteral("txtAmount"), QString::fromLatin1(bad)).isEmpty(), bad);
}

void TestScriptControls::describesControls()
{
    auto w = window(QStringLiteral("frmD"));
    auto *combo = add<QComboBox>(w.get(), QStringLiteral("cmbKind"));
    combo->addItems({QStringLiteral("Checking"), QStringLiteral("Savings")});
    combo->setCurrentIndex(1);
    auto *check = add<QCheckBox>(w.get(), QStringLiteral("chkTips"));
    check->setText(QStringLiteral("Show \"tips\""));
    check->setChecked(true);
    auto *button = add<QPushButton>(w.get(), QStringLiteral("cmdOK"));
    button->setText(QStringLiteral("OK"));
    button->setEnabled(false);
    auto *label = add<QLabel>(w.get(), QStringLiteral("lblNote"));
    label->setText(QStringLiteral("one\ntwo"));
    label->hide();
    w->show();

    QCOMPARE(ScriptControls::describe(w.get()), QStringLiteral("text=\"frmD title\" visible=1 enabled=1"));
    QCOMPARE(ScriptControls::describe(combo), QStringLiteral("text=\"Savings\" visible=1 enabled=1 index=1"));
    QCOMPARE(ScriptControls::describe(check),
             QStringLiteral(R"(text="Show \"tips\"" visible=1 enabled=1 checked=1)"));
    QCOMPARE(ScriptControls::describe(button), QStringLiteral("text=\"OK\" visible=1 enabled=0"));
    QCOMPARE(ScriptControls::describe(label), QStringLiteral(R"(text="one\ntwo" visible=0 enabled=1)"));
}

// A window that waits in its own event loop instead of asking through the
// interaction seam would hang a headless run; the runner closes it and stops.
void TestScriptControls::modalWindowOutsideTheSeamIsClosed()
{
    QTemporaryDir home;
    auto w = window(QStringLiteral("frmAsk"));
    auto *ask = add<QPushButton>(w.get(), QStringLiteral("cmdAsk"));
    int result = -1;
    connect(ask, &QPushButton::clicked, this, [&] {
        QMessageBox box(QMessageBox::Question, QStringLiteral("Sure?"), QStringLiteral("Really?"),
                        QMessageBox::Yes | QMessageBox::No);
        box.setObjectName(QStringLiteral("msgDirect"));
        result = box.exec();
    });
    w->show();
    QFile script(home.filePath(QStringLiteral("ask.qms")));
    QVERIFY(script.open(QIODevice::WriteOnly));
    script.write("click frmAsk.cmdAsk\nshow frmAsk\n");
    script.close();

    StartForm::Options options;
    options.appPath = home.path();
    options.screen = QSize(1024, 768);
    ScriptRunner runner(options);
    QCOMPARE(runner.run(script.fileName()), 1);
    QCOMPARE(result, int(QMessageBox::No)); // closed: the No of a Yes/No box
    QVERIFY(!QApplication::activeModalWidget());
}

QTEST_MAIN(TestScriptControls)
#include "tst_script_controls.moc"
