#include "RecordingInteraction.h"
#include "accounts/AccountBook.h"
#include "accounts/AccountService.h"
#include "records/TransactionTemplate.h"
#include "register/CheckNumberPrompt.h"
#include "register/EntryRules.h"
#include "register/RegisterPanel.h"
#include "register/RegisterService.h"
#include "transfers/TransferPanel.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const QString TooLarge
    = CheckNumbers::TooLargeTitle + QLatin1Char('|') + CheckNumbers::TooLargeText;

// The register and the transfer panel of a checking account "Everyday",
// which also has a savings account to transfer to.
struct Panels
{
    QTemporaryDir dir;
    DataFiles files{dir.path(), false};
    RecordingInteraction ui;
    int bank = 0;
    RegisterPanel registerPanel{ui};
    TransferPanel transferPanel{ui};

    Panels()
    {
        bank = AccountService(files)
                   .add({0, QStringLiteral("Everyday"), true, QStringLiteral("100"), false,
                         QDate(2025, 1, 1)})
                   .bankNum;
        AccountService(files).add(
            {1, QStringLiteral("Savings"), true, QStringLiteral("0"), false, QDate(2025, 1, 1)});
        registerPanel.setDataFiles(files);
        transferPanel.setDataFiles(files);
        refresh();
    }
    void writeCheck(const QString &typeText)
    {
        EntryRules::Input in;
        in.typeText = typeText;
        in.payee = QStringLiteral("Landlord");
        in.amountText = QStringLiteral("1");
        in.dateText = QStringLiteral("03/01/2025");
        const BankAcctRecord account = AccountBook(files).read(bank);
        QVERIFY(RegisterService(files)
                    .add(bank, EntryRules::fillRecord(TransactionTemplate::blank(), in, account, 0))
                    .ok);
        refresh();
    }
    void refresh()
    {
        registerPanel.setAccount(AccountBook(files).read(bank));
        transferPanel.reloadAccounts(bank);
    }
    QWidget *panel(int which)
    {
        return which == 0 ? static_cast<QWidget *>(&registerPanel) : &transferPanel;
    }
};

QComboBox *typeBox(QWidget *panel)
{
    auto *box = panel->findChild<QComboBox *>(QStringLiteral("cmbType"));
    return box ? box : panel->findChild<QComboBox *>(QStringLiteral("cmbTransType"));
}

void choose(QComboBox *box, const QString &text)
{
    const int at = box->findText(text);
    QVERIFY(at >= 0);
    box->setCurrentIndex(at);
    Q_EMIT box->activated(at);
}

} // namespace

// The register and the transfer panel share one check-number prompt, so they
// settle a check's number alike.
class TestCheckPrompts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bothPanels_data()
    {
        QTest::addColumn<int>("which");
        QTest::addColumn<QStringList>("names");
        QTest::newRow("register") << 0 << QStringList{"Label(2)", "txtchkno", "cmdchkno"};
        QTest::newRow("transfer") << 1
                                  << QStringList{"lblstartcknotrans", "txtChknoTrans",
                                                 "cmdchknoenter"};
    }

    void bothPanels()
    {
        QFETCH(int, which);
        QFETCH(QStringList, names);
        Panels p;
        QWidget *panel = p.panel(which);
        QComboBox *type = typeBox(panel);
        auto *prompt = panel->findChild<CheckNumberPrompt *>();
        QVERIFY(type && prompt);
        QCOMPARE((QStringList{prompt->caption()->objectName(), prompt->box()->objectName(),
                              prompt->ok()->objectName()}),
                 names);
        auto shown = [&] { return prompt->caption()->isVisibleTo(panel); };
        QVERIFY(!shown());

        // A typed number goes into the type box as typed, leading zeros kept.
        choose(type, CheckNumbers::EnterCheck);
        QVERIFY(shown() && prompt->box()->isVisibleTo(panel) && prompt->pending());
        QCOMPARE(prompt->caption()->text(), CheckNumbers::EnterPrompt);
        prompt->box()->setText(QStringLiteral("0012"));
        prompt->ok()->click();
        QCOMPARE(type->currentText(), QStringLiteral("Check #0012"));
        QVERIFY(!shown() && !prompt->pending());

        // An empty box leaves no type chosen.
        choose(type, CheckNumbers::EnterCheck);
        prompt->ok()->click();
        QCOMPARE(type->currentText(), QString());
        QVERIFY(!shown() && !prompt->pending());
        QVERIFY(p.ui.said.isEmpty());

        // A number already used is refused and the prompt stays.
        p.writeCheck(QStringLiteral("Check #1002"));
        choose(type, CheckNumbers::EnterCheck);
        prompt->box()->setText(QStringLiteral("1002"));
        prompt->ok()->click();
        QCOMPARE(p.ui.said, QStringList{QStringLiteral("beep")});
        QCOMPARE(prompt->caption()->text(), CheckNumbers::Duplicate);
        QVERIFY(shown() && prompt->pending());

        // The next number is offered; when it is taken, it waits for another choice.
        p.writeCheck(QStringLiteral("Check #1001"));
        p.ui.said.clear();
        choose(type, CheckNumbers::NextCheck);
        QCOMPARE(type->currentText(), QStringLiteral("Check # 1002"));
        QCOMPARE(p.ui.said, QStringList{QStringLiteral("beep")});
        QCOMPARE(prompt->caption()->text(), CheckNumbers::Duplicate);
        QVERIFY(shown() && !prompt->box()->isVisibleTo(panel) && prompt->pending());
        choose(type, QStringLiteral("Withdrawal"));
        QVERIFY(!shown() && !prompt->pending());

        // A next number beyond 32 bits: the message, and no type is left chosen.
        p.writeCheck(QStringLiteral("Check #2147483647"));
        p.ui.said.clear();
        choose(type, CheckNumbers::NextCheck);
        QCOMPARE(p.ui.said, QStringList{TooLarge});
        QCOMPARE(type->currentText(), QString());
        QCOMPARE(type->currentIndex(), -1);
        QVERIFY(!shown() && !prompt->pending());
    }
};

QTEST_MAIN(TestCheckPrompts)
#include "tst_checkprompts.moc"
