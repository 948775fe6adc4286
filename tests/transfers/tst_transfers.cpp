#include "FolderSnapshot.h"
#include "accounts/AccountBook.h"
#include "accounts/AccountNames.h"
#include "accounts/AccountService.h"
#include "budget/BudgetBook.h"
#include "core/EntryChecks.h"
#include "records/RecordFile.h"
#include "records/TransactionTemplate.h"
#include "records/UnitOfWork.h"
#include "register/CardPayments.h"
#include "register/EntryRules.h"
#include "register/LinkedRecords.h"
#include "register/LinkedVoid.h"
#include "register/RegisterService.h"
#include "transfers/TransferService.h"

#include <QTemporaryDir>
#include <QtTest>

using Request = TransferService::Request;
Q_DECLARE_METATYPE(Request)

namespace {

enum Account { Everyday = 1, Savings = 2, Visa = 3, Amex = 4 };

Request transfer(int from, int to, const QString &type, const QString &amount)
{
    return {from, to, type, amount, "3/5/25", "03/05/2025", {}, {}, " Move money ", "note"};
}

// Checking "Everyday" $1,000.00, savings "Savings" $200.00, the card "Visa"
// owing $300.00 with $50.00 in its category, the card "Amex" owing nothing.
// Every reader below opens the files afresh, as a restarted program would.
struct Books
{
    QTemporaryDir dir;
    DataFiles files{dir.path(), false};

    Books()
    {
        for (const auto &[kind, name, start] : {std::tuple{0, "Everyday", "1000"},
                                                {1, "Savings", "200"},
                                                {3, "Visa", "300"},
                                                {3, "Amex", "0"}})
            AccountService(files).add({kind, name, true, start, kind == 3, QDate(2025, 1, 1)});
        UnitOfWork unit(dir.path());
        BudgetRecord c = unit.read<BudgetRecord>(files.budget(), visaCat());
        c.Balance = Currency::fromCents(50'00);
        unit.write(files.budget(), visaCat(), c);
        unit.commit();
    }
    int visaCat() const { return BudgetBook(files).cardCategory(Visa); }
    Currency category() const { return BudgetBook(files).read(visaCat()).Balance; }
    BankAcctRecord account(int n) const { return AccountBook(files).read(n); }
    Currency balance(int n) const { return account(n).Balance; }
    QString path(int n) const { return files.registerFile(account(n).BankName.text()); }
    int length(int n) const { return RecordFile<TransRecord>(path(n)).count(); }
    TransRecord record(int n, int r) const { return RecordFile<TransRecord>(path(n)).read(r); }
    // The balances of Everyday, Savings and Visa and the Visa category.
    QString money() const
    {
        return QString("%1 %2 %3 %4")
            .arg(balance(Everyday).toFixedText(), balance(Savings).toFixedText(),
                 balance(Visa).toFixedText(), category().toFixedText());
    }
    QMap<QString, QByteArray> snapshot() const { return folderSnapshot(dir.path()); }

    // Ordinary entries that make a register longer.
    void spend(int n, int times)
    {
        const EntryRules::Input in{
            n == Visa ? "Charge" : "Withdrawal", "Shop", "1", "03/01/2025", {}, 0, 0, {}};
        const TransRecord r
            = EntryRules::fillRecord(TransactionTemplate::blank(), in, account(n), 0);
        for (int i = 0; i < times; ++i)
            QVERIFY(RegisterService(files).add(n, r).ok);
    }
    // A payment from Everyday to a card as the register enters it (or changes it: the bank-side
    // record).
    CardPayments::Result pay(const QString &amount, int card = Visa, int bankRecord = 0)
    {
        const EntryRules::Input in{
            "Withdrawal", "Visa Payment", amount, "03/05/2025", "Statement", 0, 0, {}, 1};
        const TransRecord base
            = bankRecord ? record(Everyday, bankRecord) : TransactionTemplate::blank();
        const TransRecord r = EntryRules::fillRecord(base, in, account(Everyday), 0);
        return bankRecord ? CardPayments(files).change(Everyday, bankRecord, r, card)
                          : CardPayments(files).add(Everyday, r, card);
    }
    bool move(int from, int to, const QString &type, const QString &amount)
    {
        return TransferService(files).enter(transfer(from, to, type, amount)).ok;
    }
};

// The fields of a record, "|" between them, ending with its links:
// "from name, account, record > to name, account, record".
QString fields(const TransRecord &r)
{
    const QString links = QString("%1 %2 %3 > %4 %5 %6")
                              .arg(r.PaidFromBankName.text())
                              .arg(r.PaidFromBankNum)
                              .arg(r.PaidFromBankTransRecNum)
                              .arg(r.PaidToBankName.text())
                              .arg(r.PaidToBankNum)
                              .arg(r.PaidToBankTransRecNum);
    QStringList out;
    out << QString::number(r.Tranno) << r.Status.text() << r.Type.text()
        << QString::number(r.TypeNum) << r.Date.text() << r.DateClear.text() << r.Description.text()
        << r.Memo.text() << QString::number(r.BudNum) << r.BudName.text() << r.TransClass.text()
        << r.CCBankName.text() << QString::number(r.CCBankNum) << QString::number(r.CCBudNum)
        << r.Amount.toFixedText() << links;
    return out.join('|');
}

// Rows for a transfer and a payment, each with a second choice off and on.
void pairs(const char *second, const std::array<const char *, 2> &names)
{
    QTest::addColumn<bool>("payment");
    QTest::addColumn<bool>(second);
    for (bool payment : {false, true})
        for (bool on : {false, true})
            QTest::addRow("%s, %s", payment ? "payment" : "transfer", names[on]) << payment << on;
}

QString overdrawn(const QString &amount, const QString &name, const QString &balance,
                  const QString &by)
{
    return QString("The transfer amount of %1 exceeds the %2 balance of %3 by %4.\r\n\r\n"
                   "     ---- The Account will go negative. ----")
        .arg(amount, name, balance, by);
}

} // namespace

class TestTransfers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // The from register is made longer (from record 5, to record 2), so that a mix-up of the two
    // shows.
    void linking_data()
    {
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("to");
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("fromFields");
        QTest::addColumn<QString>("toFields");
        QTest::addColumn<int>("nextCheck");
        QTest::addColumn<QString>("money"); // after $3.00 spent from the from-account

        const QString tail = "|03/05/2025||Move money|note|0||Transfer ", out = "||0|0|-125.50",
                      in = "||0|0|125.50";
        const QString deposit = "2|OP|Deposit|1" + tail + "To" + in,
                      credit = "2|OP|Credit|5" + tail + "To" + in;
        auto row = [&](const char *name, int from, int to, const char *type,
                       const QString &fromType, int nextCheck, const char *money) {
            const QStringList names{"", "Everyday", "Savings", "Visa"};
            const QString link
                = QString("|%1 %2 5 > %3 %4 2").arg(names[from]).arg(from).arg(names[to]).arg(to);
            QTest::newRow(name) << from << to << QString(type)
                                << "5|OP|" + fromType + tail + "From" + out + link
                                << (to == Visa ? credit : deposit) + link << nextCheck
                                << QString(money);
        };
        row("withdrawal", Everyday, Savings, "Withdrawal", "Withdrawal|7", -1,
            "871.50 325.50 -300.00 50.00");
        row("next check", Everyday, Savings, "Check # 1005", " 1005|6", 1005,
            "871.50 325.50 -300.00 50.00");
        row("typed check to a card", Everyday, Visa, "Check #1005", "1005|6", 1005,
            "871.50 200.00 -174.50 50.00");
        row("card charge", Visa, Savings, "Charge", "Charge|14", -1,
            "1000.00 325.50 -428.50 50.00");
        row("savings to a card", Savings, Visa, "Withdrawal", "Withdrawal|7", -1,
            "1000.00 71.50 -174.50 50.00");
    }

    void linking()
    {
        QFETCH(int, from);
        QFETCH(int, to);
        QFETCH(QString, type);
        Books b;
        b.spend(from, 3);
        const auto r = TransferService(b.files).enter(transfer(from, to, type, "125.50"));
        QVERIFY2(r.ok, qPrintable(r.error));
        QCOMPARE(std::pair(b.length(from), b.length(to)), std::pair(5, 2));
        const TransRecord f = b.record(from, 5), t = b.record(to, 2);
        QTEST(fields(f), "fromFields");
        QTEST(fields(t), "toFields");
        QTEST(b.money(), "money");
        QTEST(int(b.account(from).NextCheckNum), "nextCheck");
        for (const TransRecord &x : {f, t}) { // either side finds the pair
            const LinkedRecords l
                = LinkedRecords::find(b.files, x).records.value_or(LinkedRecords{});
            QCOMPARE(fields(l.from) + fields(l.to), fields(f) + fields(t));
        }
    }

    void refusals_data()
    {
        QTest::addColumn<Request>("request");
        QTest::addColumn<QString>("error");
        QTest::addColumn<QString>("title");

        const QString incomplete = TransferService::Incomplete, badDate = EntryChecks::BadDateText;
        const QString dateTitle = EntryChecks::BadDateTitle;
        auto with = [](auto edit) {
            Request r = transfer(Everyday, Savings, "Withdrawal", "10");
            edit(r);
            return r;
        };
        QTest::newRow("same account, nothing else")
            << with([](Request &r) { r.toBankNum = Everyday, r.amountText = r.description = ""; })
            << TransferService::SameAccounts << "";
        QTest::newRow("no to-account")
            << with([](Request &r) { r.toBankNum = 0; }) << incomplete << "";
        QTest::newRow("no type") << with([](Request &r) { r.typeText = " "; }) << incomplete << "";
        QTest::newRow("no amount")
            << with([](Request &r) { r.amountText = ""; }) << incomplete << "";
        QTest::newRow("no description")
            << with([](Request &r) { r.description = "  "; }) << incomplete << "";
        QTest::newRow("bad date") << with([](Request &r) { r.date = "02/30/2025"; }) << badDate
                                  << dateTitle;
        QTest::newRow("bad date first")
            << with([](Request &r) { r.date3 = "13/01/2025", r.toBankNum = Everyday; }) << badDate
            << dateTitle;
        QTest::newRow("bad cleared date")
            << with([](Request &r) { r.fromCleared = "9/99/25"; }) << badDate << dateTitle;
        // Only checking and money-market accounts write checks, even when one is typed.
        QTest::newRow("check from savings") << with([](Request &r) {
            r.fromBankNum = Savings, r.toBankNum = Everyday, r.typeText = "Check #12";
        }) << "Choose how the money leaves Savings"
                                            << QString();
        QTest::newRow("check from a card")
            << with([](Request &r) { r.fromBankNum = Visa, r.typeText = "Check #12"; })
            << "Choose how the money leaves Visa" << QString();
        QTest::newRow("not a number") << with([](Request &r) { r.amountText = "12x"; })
                                      << "The amount must be a number" << QString();
        QTest::newRow("too large") << with([](Request &r) { r.amountText = "90,000,000,000"; })
                                   << EntryChecks::MaxAmountText << EntryChecks::MaxAmountTitle;
        QTest::newRow("plus sign") << with([](Request &r) { r.amountText = "+5"; })
                                   << "Type the amount without a sign" << QString();
        QTest::newRow("minus zero") << with([](Request &r) { r.amountText = " -0"; })
                                    << "Type the amount without a sign" << QString();
        // An account list damaged on disk: no file is built from the name.
        QTest::newRow("damaged to-name")
            << with([](Request &r) { r.toBankNum = Amex + 1; }) << "damaged" << QString();
    }

    void refusals()
    {
        QFETCH(Request, request);
        QFETCH(QString, error);
        QFETCH(QString, title);
        Books b;
        if (error == QLatin1String("damaged")) {
            AccountService(b.files).add({1, "Spare", true, "0", false, QDate(2025, 1, 1)});
            BankAcctRecord spare = b.account(Amex + 1);
            spare.BankName = QStringLiteral("a") + QChar(0) + QStringLiteral("/b");
            UnitOfWork unit(b.dir.path());
            unit.write(b.files.accountList(), Amex + 1, spare);
            QVERIFY(unit.commit());
            error = *AccountNames::damagedNotice(spare.BankName.text());
            title = AccountNames::DamagedTitle;
        }
        const auto before = b.snapshot();
        const auto r = TransferService(b.files).enter(request);
        QVERIFY(!r.ok);
        QCOMPARE(r.error, error);
        QCOMPARE(r.title, title);
        QVERIFY(b.snapshot() == before);
    }

    void balanceWarning_data()
    {
        QTest::addColumn<int>("from");
        QTest::addColumn<QString>("amount");
        QTest::addColumn<qint64>("oldAmount"); // cents as stored; not 0: a change
        QTest::addColumn<QString>("warning");

        QTest::newRow("from a card") << +Visa << "5000" << 0LL << "";
        QTest::newRow("to exactly zero") << +Everyday << "1000.00" << 0LL << "";
        QTest::newRow("one cent over") << +Everyday << "1000.01" << 0LL
                                       << overdrawn("$1,000.01", "Everyday", "$1,000.00", "$0.01");
        QTest::newRow("savings") << +Savings << "250" << 0LL
                                 << overdrawn("$250.00", "Savings", "$200.00", "$50.00");
        QTest::newRow("change to exactly zero") << +Everyday << "1,200" << -200'00LL << "";
        QTest::newRow("change one cent over")
            << +Everyday << "1200.01" << -200'00LL
            << overdrawn("$1,200.01", "Everyday", "$1,200.00", "$0.01");
    }

    void balanceWarning()
    {
        QFETCH(int, from);
        QFETCH(QString, amount);
        QFETCH(qint64, oldAmount);
        Books b;
        const Request r = transfer(from, Amex, "Withdrawal", amount);
        const auto w = TransferService(b.files).balanceWarning(r, Currency::fromCents(oldAmount));
        QTEST(w.value_or(QString()), "warning");
    }

    void changeTransfer()
    {
        Books b;
        b.spend(Everyday, 2);
        QVERIFY(b.move(Everyday, Savings, "Withdrawal", "100")); // records 4 and 2
        const Request r{Everyday, Savings, "Check #2001", "250.25", "3/5/25", "3/5/25",
                        "3/9/25", {},      "Rent share",  "note"};
        QVERIFY(TransferService(b.files).change(Everyday, 4, r).ok);
        QCOMPARE(std::pair(b.length(Everyday), b.length(Savings)), std::pair(4, 2));
        const QString link = "|Everyday 1 4 > Savings 2 2";
        QCOMPARE(fields(b.record(Everyday, 4)),
                 "4|CL|2001|6|03/05/2025|03/09/2025|Rent share|note|0||Transfer From||0|0|-250.25"
                     + link);
        QCOMPARE(fields(b.record(Savings, 2)),
                 "2|OP|Deposit|1|03/05/2025||Rent share|note|0||Transfer To||0|0|250.25" + link);
        QCOMPARE(b.money(), QString("747.75 450.25 -300.00 50.00")); // after $2.00 spent
        QCOMPARE(b.account(Everyday).NextCheckNum, 2001);

        // The accounts of a transfer stay as they are.
        const auto before = b.snapshot();
        QVERIFY(!TransferService(b.files)
                     .change(Everyday, 4, transfer(Everyday, Visa, "Withdrawal", "5"))
                     .ok);
        QVERIFY(!TransferService(b.files)
                     .change(Everyday, 4, transfer(Savings, Everyday, "Withdrawal", "5"))
                     .ok);
        QVERIFY(b.snapshot() == before);
    }

    void cardPayments()
    {
        Books b;
        b.spend(Everyday, 2); // $998.00 left
        const auto r = b.pay("120");
        QVERIFY2(r.ok, qPrintable(r.error));
        QCOMPARE(std::pair(r.bankRecord, r.cardRecord),
                 std::pair(4, 2)); // the card side after its opening entry
        const QString card = QString("|Visa|3|%1|").arg(b.visaCat()),
                      link = "|Everyday 1 4 > Visa 3 2";
        QCOMPARE(fields(b.record(Everyday, 4)),
                 "4|OP|Withdrawal|7|03/05/2025||Visa Payment|Statement|0|na|PayCC BankLedger" + card
                     + "-120.00" + link);
        QCOMPARE(fields(b.record(Visa, 2)),
                 "2|OP|Payment|5|03/05/2025||Visa Payment|Statement|0|na|PayCC CCLedger" + card
                     + "120.00" + link);
        QCOMPARE(b.money(), QString("878.00 200.00 -180.00 0.00")); // the category stops at zero

        // Paying beyond the debt leaves the card in credit.
        QCOMPARE(b.pay("500").cardRecord, 3);
        QCOMPARE(b.money(), QString("378.00 200.00 320.00 0.00"));

        // Changes give the old amount back in full, then take the new one.
        QVERIFY(b.pay("100", Visa, 4).ok);
        QCOMPARE(b.money(), QString("398.00 200.00 300.00 20.00"));
        QVERIFY(CardPayments(b.files).changeFromCard(Visa, 2, "60", "3/6/25", "Card side", "m").ok);
        QCOMPARE(b.money(), QString("438.00 200.00 260.00 60.00"));
        QCOMPARE(std::pair(b.length(Everyday), b.length(Visa)), std::pair(5, 3));
        QCOMPARE(fields(b.record(Everyday, 4)),
                 "4|OP|Withdrawal|7|03/06/2025||Card side|m|0|na|PayCC BankLedger" + card + "-60.00"
                     + link);
        QCOMPARE(fields(b.record(Visa, 2)),
                 "2|OP|Payment|5|03/06/2025||Card side|m|0|na|PayCC CCLedger" + card + "60.00"
                     + link);

        const auto before = b.snapshot();
        QVERIFY(!b.pay("60", Amex, 4).ok);
        QVERIFY(b.snapshot() == before);
    }

    void voidBothSides_data() { pairs("fromOtherSide", {"from side", "to side"}); }

    void voidBothSides()
    {
        QFETCH(bool, payment);
        QFETCH(bool, fromOtherSide);
        Books b;
        b.spend(Everyday, 1);
        const int to = payment ? Visa : Savings;
        QVERIFY(payment ? b.pay("120").ok : b.move(Everyday, Savings, "Withdrawal", "120"));
        QVERIFY(
            LinkedVoid::voidLinked(b.files, fromOtherSide ? to : +Everyday, fromOtherSide ? 2 : 3)
                .ok);
        QCOMPARE(std::pair(b.length(Everyday), b.length(to)), std::pair(3, 2));
        for (const TransRecord &x : {b.record(Everyday, 3), b.record(to, 2)})
            QVERIFY(x.Type.is("Void") && x.Amount.isZero() && !LinkedRecords::isLinked(x));
        // The payment had emptied the category; its whole amount comes back.
        QCOMPARE(b.money(), QString("999.00 200.00 -300.00 ") + (payment ? "120.00" : "50.00"));
    }

    void partnerGone_data() { pairs("fileRemoved", {"account deleted", "register removed"}); }

    // With the other account removed the link can no longer be changed, but
    // this side can still be voided alone: the removed side stays as it is and
    // so does the category of a removed card. A register missing behind the
    // program's back refuses the void too.
    void partnerGone()
    {
        QFETCH(bool, payment);
        QFETCH(bool, fileRemoved);
        Books b;
        const int to = payment ? Visa : Savings;
        const QString toPath = b.path(to);
        QVERIFY(payment ? b.pay("120").ok : b.move(Everyday, Savings, "Withdrawal", "120"));
        BankAcctRecord gone = b.account(to);
        gone.BankName = "Deleted";
        UnitOfWork unit(b.dir.path());
        unit.write(b.files.accountList(), to, gone);
        QVERIFY(fileRemoved ? QFile::remove(toPath) : unit.commit());
        const auto before = b.snapshot();
        const auto found = LinkedRecords::find(b.files, b.record(Everyday, 2));
        QVERIFY(!found.records && !found.problem.isEmpty());
        const Request again = transfer(Everyday, to, "Withdrawal", "10");
        QVERIFY(!(payment ? b.pay("10", Visa, 2).ok
                          : TransferService(b.files).change(Everyday, 2, again).ok));
        QVERIFY(!(payment ? b.pay("10").ok : b.move(Everyday, to, "Withdrawal", "10")));
        QVERIFY(b.snapshot() == before);

        const auto voided = LinkedVoid::voidLinked(b.files, Everyday, 2);
        if (fileRemoved) {
            QCOMPARE(voided.error, found.problem);
            QVERIFY(b.snapshot() == before);
            return;
        }
        QVERIFY2(voided.ok, qPrintable(voided.error));
        const TransRecord v = b.record(Everyday, 2);
        QVERIFY(v.Type.is("Void") && v.Amount.isZero() && !LinkedRecords::isLinked(v));
        QCOMPARE(b.balance(Everyday), Currency::fromUnits(1000));
        const TransRecord other = RecordFile<TransRecord>(toPath).read(2);
        QVERIFY(LinkedRecords::isLinked(other) && other.Amount == Currency::fromUnits(120));
        QCOMPARE(b.account(to).Balance, gone.Balance);
        QCOMPARE(b.category(), payment ? Currency() : Currency::fromUnits(50));
    }

    // A card's side of a payment whose bank account was removed voids alone
    // and gives the card's category the payment back.
    void cardSideVoidedAlone()
    {
        Books b;
        QVERIFY(b.pay("120").ok);
        BankAcctRecord gone = b.account(Everyday);
        gone.BankName = "Deleted";
        UnitOfWork unit(b.dir.path());
        unit.write(b.files.accountList(), Everyday, gone);
        QVERIFY(unit.commit());
        const auto r = LinkedVoid::voidLinked(b.files, Visa, 2);
        QVERIFY2(r.ok, qPrintable(r.error));
        QVERIFY(b.record(Visa, 2).Type.is("Void"));
        QCOMPARE(b.balance(Visa), Currency::fromUnits(-300));
        QCOMPARE(b.category(), Currency::fromUnits(120));
    }
};

QTEST_GUILESS_MAIN(TestTransfers)
#include "tst_transfers.moc"
