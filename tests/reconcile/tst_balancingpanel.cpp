// The balancing panel as a user drives it, beyond what the balancing scenario
// drives: a prior statement's tick taken back, the bank's starting balance
// used, entries changed from the register, the edit lock, and input that must
// leave the ticks alone.

#include "accounts/AccountBook.h"
#include "accounts/AccountService.h"
#include "core/Interaction.h"
#include "reconcile/BalancingPanel.h"
#include "reconcile/StatementModel.h"
#include "reconcile/TickPictures.h"
#include "records/RecordFile.h"
#include "records/TransactionTemplate.h"
#include "register/RegisterService.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QTemporaryDir>
#include <QtTest>

namespace {

class Answers : public Interaction
{
public:
    Answer messageBox(const QString &text, const QString &title, Icon, Buttons buttons) override
    {
        said << title + QLatin1Char('|') + text;
        return buttons == Buttons::YesNo ? (yes ? Answer::Yes : Answer::No) : Answer::OK;
    }
    int fund(const QString &, const QString &) override { return 0; }
    void beep() override {}
    void print(const QString &, const QStringList &) override {}
    void setClipboard(const QString &) override {}
    void openUrl(const QString &) override {}
    void windowEvent(const QString &, bool) override {}
    std::optional<QString> answerFor(const QString &window, const QString &text,
                                     const QStringList &) override
    {
        asked << window + QLatin1Char('|') + text;
        return formAnswer;
    }

    QStringList said;
    QStringList asked;
    QString formAnswer = QStringLiteral("Cancel");
    bool yes = true;
};

TransRecord entry(const char *payee, qint64 cents)
{
    TransRecord t = TransactionTemplate::blank();
    t.Description = QString::fromLatin1(payee);
    t.Type = cents < 0 ? QStringLiteral("Withdrawal") : QStringLiteral("Deposit");
    t.Date = QStringLiteral("10/01/2026");
    t.Amount = Currency::fromCents(cents);
    return t;
}

struct Desk
{
    QTemporaryDir dir;
    DataFiles files{dir.path(), false};
    Answers ui;
    BalancingPanel panel{ui};
    int bank = 0;

    Desk()
    {
        bank = AccountService(files)
                   .add({0, QStringLiteral("Everyday"), true, QStringLiteral("100.00"), false,
                         QDate(2026, 9, 1)})
                   .bankNum;
        for (auto [p, c] : {std::pair{"pay", 10}, std::pair{"tip", 20}, std::pair{"rent", -5}})
            RegisterService(files).add(bank, entry(p, c));
        panel.setDataFiles(files);
        panel.setAccount(AccountBook(files).read(bank));
        panel.resize(800, 500);
        panel.show();
    }
    template<class W> W *get(const char *name) const
    {
        return panel.findChild<W *>(QString::fromLatin1(name));
    }
    QTableView *grid() const { return get<QTableView>("flxgdBSTrans"); }
    QString text(const char *name) const { return get<QLineEdit>(name)->text(); }
    void type(const char *name, const char *text) const
    {
        get<QLineEdit>(name)->setText(QString::fromLatin1(text));
    }
    void date(const char *text) const
    {
        get<QComboBox>("cmbDate(6)")->setEditText(QString::fromLatin1(text));
    }
    void tick(int row) const
    {
        Q_EMIT grid()->clicked(panel.model()->index(row, StatementModel::Tick));
    }
    // The row of a record in the grid.
    int rowOf(int recordNumber) const { return panel.model()->list().rowOf(recordNumber); }
    bool ticked(int row) const
    {
        return panel.model()->index(row, 0).data().toString() == StatementModel::TickedText;
    }
    void confirm() const { get<QPushButton>("cmdOKBankState")->click(); }
    TransRecord record(int n) const
    {
        return RecordFile<TransRecord>(files.registerFile(QStringLiteral("Everyday"))).read(n);
    }
};

} // namespace

class TestBalancingPanel : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void spaceTicksAndTheFiguresFollow();
    void priorStatementTickTakenBack();
    void startingBalanceTakenFromTheBank();
    void newEntriesAndChangesFromTheRegister();
    void editLockFollowsTheStatement();
    void badInputKeepsTheTicks();
    void tickPicturesOrDrawnMarks();
};

// Space on the current row ticks it as a click does; the caption says which
// way the figures differ.
void TestBalancingPanel::spaceTicksAndTheFiguresFollow()
{
    Desk d;
    d.grid()->setFocus();
    d.grid()->setCurrentIndex(d.panel.model()->index(d.rowOf(3), 2));
    QTest::keyClick(d.grid(), Qt::Key_Space);
    QVERIFY(d.ticked(d.rowOf(3)));
    QCOMPARE(d.text("txtat(1)"), QStringLiteral("100.20"));
    d.type("cmbamt(7)", "100.00");
    QCOMPARE(d.get<QLabel>("lblBSDifference")->text(), QStringLiteral("Balance over by"));
    QCOMPARE(d.text("txtat(2)"), QStringLiteral("-0.20"));
}

// Ticks, figures, a confirm that does not balance, one that does and the
// prior statement's list are driven by the balancing scenario; here what it
// does not do: a tick taken back from a prior statement.
void TestBalancingPanel::priorStatementTickTakenBack()
{
    Desk d;
    d.date("10/31/26");
    d.type("cmbamt(6)", "100");
    d.type("cmbamt(7)", "100.30");
    d.tick(d.rowOf(2));
    d.tick(d.rowOf(3));
    d.confirm();
    QCOMPARE(d.record(3).DateClear.text(), QStringLiteral("10/31/2026"));
    QCOMPARE(d.record(4).Status.text(), QStringLiteral("OP"));
    QCOMPARE(d.text("cmbamt(6)"), QString()); // emptied for the next statement

    auto *dates = d.get<QComboBox>("cmbBSDate");
    dates->setCurrentIndex(1);
    Q_EMIT dates->activated(1);
    QCOMPARE(d.text("txtat(1)"), QStringLiteral("100.30"));
    QCOMPARE(d.panel.model()->rowCount(), 4); // two headings, two deposits
    d.tick(1);
    QCOMPARE(d.record(2).Status.text(), QStringLiteral("OP"));
    QVERIFY(d.record(2).DateClear.isBlank());
    QCOMPARE(d.text("txtat(1)"), QStringLiteral("100.20"));
}

// Cancel and Correct Register are driven by the balancing scenario.
void TestBalancingPanel::startingBalanceTakenFromTheBank()
{
    Desk u;
    u.date("10/31/2026");
    u.type("cmbamt(6)", "120.00");
    u.type("cmbamt(7)", "120.10");
    u.tick(u.rowOf(2));
    u.ui.formAnswer = QStringLiteral("Use");
    u.confirm();
    QCOMPARE(u.ui.asked.size(), 1);
    QVERIFY(u.ui.asked[0].startsWith(QStringLiteral("BalanceErrorForm|")));
    QVERIFY(u.ui.asked[0].contains(QStringLiteral("is less than the Bank Statement by $20.00")));
    QCOMPARE(u.record(2).Status.text(), QStringLiteral("CL")); // balanced at once
    QCOMPARE(RecordFile<TransRecord>(u.files.registerFile("Everyday")).count(), 4);
}

void TestBalancingPanel::newEntriesAndChangesFromTheRegister()
{
    Desk d;
    d.tick(d.rowOf(2));
    TransRecord late = entry("forgotten", -700);
    const int n = RegisterService(d.files).add(d.bank, late).recordNumber;
    d.panel.entryWritten(d.bank, n, d.record(n));
    const int row = d.rowOf(n);
    QCOMPARE(row, d.panel.model()->rowCount() - 1);
    QCOMPARE(d.panel.model()->list().row(row).group, StatementList::Group::New);
    d.tick(row);
    QCOMPARE(d.text("txtat(1)"), QStringLiteral("93.10"));

    // Another account's entries are not this list's.
    d.panel.entryWritten(d.bank + 1, 9, late);
    QCOMPARE(d.rowOf(9), -1);
    // A change shows at once; a void takes the row away.
    late.Amount = Currency::fromUnits(-8);
    d.panel.entryWritten(d.bank, n, late);
    QCOMPARE(d.text("txtat(1)"), QStringLiteral("92.10"));
    TransRecord voided = TransactionTemplate::blank();
    voided.Type = QStringLiteral("Void");
    d.panel.entryWritten(d.bank, n, voided);
    QCOMPARE(d.rowOf(n), -1);
    QCOMPARE(d.text("txtat(1)"), QStringLiteral("100.10"));

    // A click outside the tick column asks for the change in the register.
    QSignalSpy change(&d.panel, &BalancingPanel::changeRequested);
    Q_EMIT d.grid()->clicked(d.panel.model()->index(d.rowOf(3), StatementModel::Payee));
    QCOMPARE(change.size(), 1);
    QCOMPARE(change[0][1].toInt(), 3);
}

void TestBalancingPanel::editLockFollowsTheStatement()
{
    Desk d;
    QSignalSpy lock(&d.panel, &BalancingPanel::editLockChanged);
    d.tick(d.rowOf(2));
    QCOMPARE(lock.size(), 1);
    QCOMPARE(lock[0][0].toBool(), true);
    d.tick(d.rowOf(2));
    QCOMPARE(lock.last()[0].toBool(), false);
    d.date("10/31/2026");
    QCOMPARE(lock.last()[0].toBool(), true);
    d.get<QPushButton>("cmdCancelBankState")->click();
    QCOMPARE(lock.last()[0].toBool(), false);
    QCOMPARE(d.panel.inProgress(), false);

    // Another account drops the statement (and the lock).
    d.tick(d.rowOf(2));
    QVERIFY(d.panel.inProgress());
    BankAcctRecord none;
    d.panel.setAccount(none);
    QCOMPARE(lock.last()[0].toBool(), false);
}

void TestBalancingPanel::badInputKeepsTheTicks()
{
    Desk d;
    d.tick(d.rowOf(2));
    d.date("02/30/2026");
    d.type("cmbamt(6)", "100");
    d.type("cmbamt(7)", "100.10");
    d.confirm();
    QCOMPARE(d.ui.said.size(), 1);
    QVERIFY(d.ui.said[0].startsWith(QStringLiteral(" Not a valid date!|")));
    d.date("10/31/2026");
    d.type("cmbamt(7)", "1O0.10");
    d.confirm();
    QVERIFY(d.ui.said.last().startsWith(QStringLiteral("Not a valid amount|")));
    d.type("cmbamt(7)", "90000000000");
    d.confirm();
    QVERIFY(d.ui.said.last().contains(QStringLiteral("90,000,000,000")));

    // The register vanished: told, nothing written, the ticks stay.
    QVERIFY(QFile::remove(d.files.registerFile(QStringLiteral("Everyday"))));
    d.type("cmbamt(7)", "100.10");
    d.confirm();
    QVERIFY(d.ui.said.last().contains(QStringLiteral("missing")));
    QVERIFY(!QFile::exists(d.files.registerFile(QStringLiteral("Everyday"))));
    QCOMPARE(d.panel.model()->list().tickedCount(), 1);
    QVERIFY(d.ticked(d.rowOf(2)));
}

void TestBalancingPanel::tickPicturesOrDrawnMarks()
{
    QTemporaryDir empty;
    const TickPictures drawn(empty.path());
    QVERIFY(!drawn.fromFiles());
    QVERIFY(!drawn.ticked().isNull() && !drawn.unticked().isNull());
    QVERIFY(drawn.ticked().toImage() != drawn.unticked().toImage());

    const QString shipped = QStringLiteral(QUILL_IMAGES_DIR);
    const TickPictures files(shipped);
    QVERIFY2(files.fromFiles(), qPrintable(shipped));
    QVERIFY(files.ticked().toImage() != files.unticked().toImage());
}

QTEST_MAIN(TestBalancingPanel)
#include "tst_balancingpanel.moc"
