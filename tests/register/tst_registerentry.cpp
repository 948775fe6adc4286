// The order of the checks of one entry, without a window: what is refused
// before anything is asked, which warning comes first, what a Cancel stops,
// and where the entry is written.

#include "accounts/AccountBook.h"
#include "accounts/AccountService.h"
#include "budget/BudgetCategories.h"
#include "budget/BudgetCheck.h"
#include "core/EntryChecks.h"
#include "records/RecordFile.h"
#include "records/TransactionClasses.h"
#include "register/RegisterEntry.h"
#include "register/RegisterService.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

// Answers frmFund from a list (Continue when it runs out) and writes down, in
// order, the beeps, the warnings asked and the notices given.
class ScriptedInteraction : public Interaction
{
public:
    Answer messageBox(const QString &text, const QString &, Icon, Buttons) override
    {
        said << QStringLiteral("box:") + text;
        return Answer::OK;
    }
    int fund(const QString &title, const QString &) override
    {
        said << QStringLiteral("fund:") + title;
        return cancels.isEmpty() ? 0 : (cancels.takeFirst() ? 1 : 0);
    }
    void beep() override { said << QStringLiteral("beep"); }
    void print(const QString &, const QStringList &) override {}
    void setClipboard(const QString &) override {}
    void openUrl(const QString &) override {}
    void windowEvent(const QString &, bool) override {}

    QList<bool> cancels; // true: Cancel
    QStringList said;
};

const QString BudgetAsked = QStringLiteral("fund:") + BudgetCheck::Title;
const QString BalanceAsked = QStringLiteral("fund:") + EntryRules::BalanceExceededTitle;
const QString PaymentNotice = QStringLiteral("notice:") + EntryRules::IncorrectPaymentType;

// A data folder with a checking account "Everyday" and a card "Visa".
struct Books
{
    QTemporaryDir dir;
    DataFiles files{dir.path(), false};
    int bank = 0;
    int card = 0;
    ScriptedInteraction ui;
    Confirmations confirmations{
        ui, [this](const QString &text) { ui.said << QStringLiteral("notice:") + text; }};

    explicit Books(const char *opening = "100.00", bool debit = false)
    {
        bank = AccountService(files)
                   .add({0, QStringLiteral("Everyday"), true, QString::fromLatin1(opening), debit,
                         QDate(2025, 1, 1)})
                   .bankNum;
        card = AccountService(files)
                   .add({3, QStringLiteral("Visa"), true, QStringLiteral("0"), false,
                         QDate(2025, 1, 1)})
                   .bankNum;
    }
    BankAcctRecord account(int n) const { return AccountBook(files).read(n); }
    int count(int n) const
    {
        return RecordFile<TransRecord>(files.registerFile(account(n).BankName.text())).count();
    }
    // A category with a monthly amount (so a budget is set up) and nothing in it.
    int category(const char *name) const
    {
        return BudgetCategories(files)
            .save(QString::fromLatin1(name), QStringLiteral("50"), {})
            .budNum;
    }
    RegisterEntry::Outcome enter(int n, const EntryRequest &request)
    {
        return RegisterEntry(files, account(n)).enter(request, confirmations);
    }
};

EntryRequest request(const QString &type, const QString &amount,
                     const QString &date = QStringLiteral("03/01/2025"))
{
    EntryRequest r;
    r.entry.typeText = type;
    r.entry.payee = QStringLiteral("Corner Grocer");
    r.entry.amountText = amount;
    r.entry.dateText = date;
    return r;
}

EntryRequest withCategory(EntryRequest r, int budNum, const QString &name)
{
    r.entry.budgetIndex = 1;
    r.entry.budNum = budNum;
    r.entry.budName = name;
    return r;
}

EntryRequest withCard(EntryRequest r, int cardBankNum)
{
    r.entry.cardIndex = 1;
    r.cardBankNum = cardBankNum;
    r.cardName = QStringLiteral("Visa");
    return r;
}

} // namespace

class TestRegisterEntry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Every refusal of the entry row comes before the budget and balance
    // warnings, which here would both be due, and writes nothing.
    void refusedBeforeAnything_data()
    {
        QTest::addColumn<QString>("amount");
        QTest::addColumn<QString>("date");
        QTest::addColumn<bool>("card");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("messageBox");
        auto row = [](const char *name, const char *amount, const char *date, bool card,
                      const QString &text, bool messageBox = false) {
            QTest::newRow(name) << QString(amount) << QString(date) << card << text << messageBox;
        };
        row("only the date missing", "500", "", false, EntryRules::CompleteAll);
        row("category and card", "500", "03/01/2025", true, EntryRules::SelectCategory);
        row("bad date", "500", "13/45/2025", false, EntryChecks::BadDateText, true);
        row("amount not a number", "abc", "03/01/2025", false, "The amount must be a number");
    }
    void refusedBeforeAnything()
    {
        QFETCH(QString, amount);
        QFETCH(QString, date);
        QFETCH(bool, card);
        Books b;
        const int food = b.category("Food");
        EntryRequest r = withCategory(request(QStringLiteral("Withdrawal"), amount, date), food,
                                      QStringLiteral("Food"));
        if (card)
            r = withCard(r, b.card);
        const auto out = b.enter(b.bank, r);
        QCOMPARE(out.result, RegisterEntry::Outcome::Result::Refused);
        QTEST(out.text, "text");
        QTEST(out.messageBox, "messageBox");
        QVERIFY(b.ui.said.isEmpty());
        QCOMPARE(b.count(b.bank), 1);
    }

    // The category's warning comes before the account's; a Cancel to either
    // stops the entry before anything is written.
    void warningsInOrder_data()
    {
        QTest::addColumn<QList<bool>>("cancels");
        QTest::addColumn<QStringList>("said");
        QTest::addColumn<bool>("written");
        const QStringList both
            = {QStringLiteral("beep"), BudgetAsked, QStringLiteral("beep"), BalanceAsked};
        QTest::newRow("continue twice") << QList<bool>{false, false} << both << true;
        QTest::newRow("cancel the budget")
            << QList<bool>{true} << QStringList{QStringLiteral("beep"), BudgetAsked} << false;
        QTest::newRow("cancel the balance") << QList<bool>{false, true} << both << false;
    }
    void warningsInOrder()
    {
        QFETCH(QList<bool>, cancels);
        Books b;
        const int food = b.category("Food");
        b.ui.cancels = cancels;
        const auto out = b.enter(b.bank, withCategory(request(QStringLiteral("Withdrawal"), "150"),
                                                      food, QStringLiteral("Food")));
        QTEST(b.ui.said, "said");
        QFETCH(bool, written);
        QCOMPARE(out.written(), written);
        QCOMPARE(out.result, written ? RegisterEntry::Outcome::Result::Written
                                     : RegisterEntry::Outcome::Result::Cancelled);
        QCOMPARE(b.count(b.bank), written ? 2 : 1);
        QCOMPARE(b.account(b.bank).Balance, Currency::fromUnits(written ? -50 : 100));
        if (written) {
            QCOMPARE(out.recordNumber, 2);
            QVERIFY(out.appended);
            QCOMPARE(out.account.Balance, Currency::fromUnits(-50));
        }
    }

    // Without a budget set up there is no budget check, only the balance's.
    void noBudgetNoBudgetCheck()
    {
        Books b;
        b.ui.cancels = {true};
        const auto out = b.enter(b.bank, request(QStringLiteral("Withdrawal"), "150"));
        QCOMPARE(b.ui.said, (QStringList{QStringLiteral("beep"), BalanceAsked}));
        QCOMPARE(out.result, RegisterEntry::Outcome::Result::Cancelled);
    }

    // A change is measured from the balance without its old amount; a card
    // account is never warned, whatever it is charged ("Auto Charge" too).
    // (The edges of the balance rule itself are the register's own test.)
    void balanceEdges()
    {
        {
            Books b("5.00");
            EntryRequest r = request(QStringLiteral("Withdrawal"), "50.00");
            b.ui.cancels = {false};
            const auto first = b.enter(b.bank, r);
            QVERIFY(first.written());
            b.ui.said.clear();
            r.entry.amountText = QStringLiteral("60.00");
            r.recordNumber = first.recordNumber;
            r.loaded = RecordFile<TransRecord>(b.files.registerFile(QStringLiteral("Everyday")))
                           .read(first.recordNumber);
            r.oldAmount = r.loaded.Amount;
            b.ui.cancels = {true};
            const auto changed = b.enter(b.bank, r);
            QCOMPARE(changed.result, RegisterEntry::Outcome::Result::Cancelled);
            QCOMPARE(b.ui.said, (QStringList{QStringLiteral("beep"), BalanceAsked}));
            b.ui.cancels = {false};
            QVERIFY(b.enter(b.bank, r).written());
            QCOMPARE(b.account(b.bank).Balance, Currency::fromUnits(-55));
            QCOMPARE(b.count(b.bank), 2);
        }
        {
            Books b;
            for (const char *type : {"Charge", "Auto Charge"})
                QVERIFY(b.enter(b.card, request(QString::fromLatin1(type), "1000000")).written());
            QVERIFY(b.ui.said.isEmpty());
            QCOMPARE(b.account(b.card).Balance, Currency::fromUnits(-2'000'000));
        }
    }

    // The payment-type notice does not stop the entry: it even overrides a
    // Cancel given to the balance warning just before it.
    void paymentNoticeOverridesCancel()
    {
        Books b("50.00", true); // opened overdrawn
        b.ui.cancels = {true};
        const auto out
            = b.enter(b.bank, withCard(request(QStringLiteral("Deposit"), "10"), b.card));
        QCOMPARE(b.ui.said, (QStringList{QStringLiteral("beep"), BalanceAsked, PaymentNotice}));
        QVERIFY(out.written());
        QVERIFY(out.paymentNotice);
        QCOMPARE(out.otherBankNum, b.card);
        QCOMPARE(b.account(b.bank).Balance, Currency::fromUnits(-40));
        QCOMPARE(b.count(b.card), 2);

        // A withdrawal paid to the card gives no notice.
        b.ui.said.clear();
        const auto paid
            = b.enter(b.bank, withCard(request(QStringLiteral("Withdrawal"), "1"), b.card));
        QVERIFY(paid.written() && !paid.paymentNotice);
        QCOMPARE(b.ui.said, (QStringList{QStringLiteral("beep"), BalanceAsked}));
    }

    // Where a change goes: a transfer is changed elsewhere, and an entry does
    // not turn into a card payment or back.
    void changesThatAreRefused()
    {
        Books b;
        const auto first = b.enter(b.bank, request(QStringLiteral("Withdrawal"), "10"));
        QVERIFY(first.written());
        EntryRequest r = withCard(request(QStringLiteral("Withdrawal"), "10"), b.card);
        r.recordNumber = first.recordNumber;
        r.loaded = RecordFile<TransRecord>(b.files.registerFile(QStringLiteral("Everyday")))
                       .read(first.recordNumber);
        r.oldAmount = r.loaded.Amount;
        auto out = b.enter(b.bank, r);
        QCOMPARE(out.text, RegisterEntry::VoidToPay);
        QVERIFY(!out.messageBox);

        r.loaded.TransClass = TransactionClasses::TransferFrom;
        out = b.enter(b.bank, r);
        QCOMPARE(out.text, RegisterEntry::TransferElsewhere);
        QCOMPARE(b.account(b.bank).Balance, Currency::fromUnits(90));
    }

    // A register that went missing is started again and the entry refused.
    void missingRegister()
    {
        Books b;
        QVERIFY(QFile::remove(b.files.registerFile(QStringLiteral("Everyday"))));
        const auto out = b.enter(b.bank, request(QStringLiteral("Deposit"), "1"));
        QCOMPARE(out.result, RegisterEntry::Outcome::Result::Refused);
        QVERIFY(out.messageBox && out.registerMissing);
        QCOMPARE(out.icon, Interaction::Icon::Exclamation);
        QCOMPARE(b.count(b.bank), 0);
    }
};

QTEST_GUILESS_MAIN(TestRegisterEntry)
#include "tst_registerentry.moc"
