#include "FolderSnapshot.h"
#include "accounts/AccountBook.h"
#include "accounts/AccountService.h"
#include "budget/BudgetBook.h"
#include "budget/BudgetCategories.h"
#include "budget/BudgetCheck.h"
#include "budget/BudgetTransfers.h"
#include "core/EntryChecks.h"
#include "records/RecordFile.h"
#include "records/TransactionTemplate.h"
#include "register/EntryRules.h"
#include "register/RegisterService.h"

#include <QTemporaryDir>
#include <QtTest>

#include <numeric>

using Check = BudgetCheck::Input;
using Request = BudgetTransfers::Request;
Q_DECLARE_METATYPE(Check)
Q_DECLARE_METATYPE(Request)

namespace {

Currency cents(qint64 c)
{
    return Currency::fromCents(c);
}

// A data folder with the checking account "Everyday" holding $1,000.00.
struct Books
{
    QTemporaryDir dir;
    DataFiles files{dir.path(), false};
    int everyday = open(0, "Everyday", "1000");

    int open(int kind, const QString &name, const QString &start, bool debit = false)
    {
        return AccountService(files)
            .add({kind, name, true, start, debit, QDate(2025, 1, 1)})
            .bankNum;
    }
    int category(const QString &n, const QString &m)
    {
        return BudgetCategories(files).save(n, m, {}).budNum;
    }
    Currency balance(int budNum) const { return BudgetBook(files).read(budNum).Balance; }
    Currency disposable() const { return BudgetBook(files).totals().disposable(); }
    QByteArray bytes(const QString &p) const
    {
        return folderSnapshot(dir.path()).value(QFileInfo(p).fileName());
    }

    BudgetTransfers::Result periodic(bool remove = false)
    {
        return BudgetTransfers(files).periodic({"03/01/2025", "Budget", {}, -1, -1, "1"}, remove);
    }
    BudgetTransfers::Result single(int from, int to, const QString &amount, bool confirmed = false,
                                   const QString &what = "Move")
    {
        return BudgetTransfers(files).single({"03/02/2025", what, {}, from, to, amount}, confirmed);
    }
    // Enters (or, with a record number, rewrites) a transaction through the register.
    RegisterService::Result enter(int bankNum, const QString &type, const QString &amount,
                                  int budNum, int n = 0)
    {
        const EntryRules::Input in{
            type, "Corner Shop",       amount, "03/05/2025",
            {},   budNum != 0 ? 1 : 0, budNum, BudgetBook(files).read(budNum).BudName.text()};
        const TransRecord r = EntryRules::fillRecord(TransactionTemplate::blank(), in,
                                                     AccountBook(files).read(bankNum),
                                                     BudgetBook(files).cardCategory(bankNum));
        return n == 0 ? RegisterService(files).add(bankNum, r)
                      : RegisterService(files).change(bankNum, n, r);
    }
};

QString overBudget(const QString &amount, const QString &name, const QString &balance,
                   const QString &taken)
{
    return "The new transaction amount of " + amount + " exceeds the " + name
           + " budget balance of " + balance + ". \n\n" + taken
           + " will be taken from disposable cash.";
}

} // namespace

class TestBudget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Categories 1 Groceries ($40.00), 2 Dining ($25.00), 3 the card Visa ($10.00).
    void budgetCheck_data()
    {
        QTest::addColumn<Check>("in");
        QTest::addColumn<int>("checked");
        QTest::addColumn<QString>("warning");

        const QString none, sixty = overBudget("$60.00", "Dining", "$55.00", "$5.00");
        // With a record number: a change of that record, before it a $30.00 purchase in oldBud.
        auto entry = [](const char *type, const char *amount, int bud, int tranno = 0,
                        int oldBud = 0, int applies = 0, bool card = false) {
            return Check{.amountText = amount,
                         .typeText = type,
                         .budgetIndex = bud != 0,
                         .budNum = bud,
                         .budName = QStringList{"", "Groceries", "Dining"}.value(bud, "Gone"),
                         .cardIndex = card,
                         .cardBudNum = 3,
                         .cardName = "Visa",
                         .mode = tranno != 0,
                         .tranno = tranno,
                         .oldTransAmount = cents(tranno != 0 ? -30'00 : 0),
                         .oldBudNum = oldBud,
                         .oldAmountApplies = applies};
        };
        QTest::newRow("exactly the balance") << entry("Withdrawal", "40", 1) << 1 << none;
        QTest::newRow("groceries example") << entry("Withdrawal", "55.00", 1) << 1
                                           << overBudget("$55.00", "Groceries", "$40.00", "$15.00");
        QTest::newRow("deposit") << entry(" Deposit ", "5000", 1) << 1 << none;
        QTest::newRow("credit, empty category") << entry("Credit", "5", 99) << 99 << none;
        QTest::newRow("change 30 to 50") << entry("Withdrawal", "50", 2, 5, 2, -1) << 2 << none;
        QTest::newRow("change 30 to 60") << entry("Withdrawal", "60", 2, 5, 2, -1) << 2 << sixty;
        QTest::newRow("30 to 50, flag clear") << entry("Withdrawal", "50", 2, 5, 2, 0) << 2 << none;
        QTest::newRow("30 to 60, flag clear")
            << entry("Withdrawal", "60", 2, 5, 2, 0) << 2 << sixty;
        QTest::newRow("moved to another category")
            << entry("Withdrawal", "30", 2, 5, 1, 0) << 2
            << overBudget("$30.00", "Dining", "$25.00", "$5.00");
        QTest::newRow("no category, no card") << entry("Withdrawal", "5000", 0) << 0 << none;
        QTest::newRow("card") << entry("Charge", "15", 0, 0, 0, 0, true) << 3
                              << overBudget("$15.00", "Visa", "$10.00", "$5.00");
        QTest::newRow("change of record 1")
            << entry("Withdrawal", "5000", 1, 1, 1, -1) << 0 << none;
        QTest::newRow("past the end") << entry("Withdrawal", "0.01", 99) << 99
                                      << overBudget("$0.01", "Gone", "$0.00", "$0.01");
    }

    void budgetCheck()
    {
        QFETCH(Check, in);
        Books b;
        QCOMPARE(b.category("Groceries", "40"), 1);
        QCOMPARE(b.category("Dining", "25"), 2);
        QCOMPARE(BudgetBook(b.files).cardCategory(b.open(3, "Visa", "0")), 3);
        QVERIFY(b.periodic().ok);
        QVERIFY(b.single(0, 3, "10").ok);
        const auto before = folderSnapshot(b.dir.path());
        const auto result = BudgetCheck::budgetcheck(b.files, in);
        QTEST(result.curBudNum, "checked");
        QTEST(result.warning.value_or(QString()), "warning");
        QVERIFY(folderSnapshot(b.dir.path()) == before);
    }

    void postingThroughTheRegister()
    {
        Books b;
        const int groceries = b.category("Groceries", "40"), dining = b.category("Dining", "25");
        QVERIFY(b.periodic().ok);
        // What the category cannot cover is not deducted anywhere.
        const int n = b.enter(b.everyday, "Withdrawal", "70", groceries).recordNumber;
        QCOMPARE(b.balance(groceries), Currency());
        // A change first gives the old amount back in full, then takes the new one.
        QVERIFY(b.enter(b.everyday, "Withdrawal", "10", groceries, n).ok);
        QCOMPARE(b.balance(groceries), cents(60'00));
        QVERIFY(b.enter(b.everyday, "Withdrawal", "5", dining, n).ok);
        QCOMPARE(b.balance(groceries), cents(70'00));
        QCOMPARE(b.balance(dining), cents(20'00));
        QVERIFY(RegisterService(b.files).voidRecord(b.everyday, n).ok);
        QCOMPARE(b.balance(dining), cents(25'00));
        // Voiding a deposit after its money was moved away: no floor.
        const int d = b.enter(b.everyday, "Deposit", "15", dining).recordNumber;
        QCOMPARE(b.balance(dining), cents(40'00));
        QVERIFY(b.single(dining, 0, "40").ok);
        QVERIFY(RegisterService(b.files).voidRecord(b.everyday, d).ok);
        QCOMPARE(b.balance(dining), cents(-15'00));
        // A category number past the end of the file: nothing moves, no record is added.
        const QByteArray budget = b.bytes(b.files.budget());
        QVERIFY(b.enter(b.everyday, "Withdrawal", "5", 40).ok);
        QCOMPARE(b.bytes(b.files.budget()), budget);
    }

    void cardChargesMoveMoneyToTheCard()
    {
        Books b;
        const int groceries = b.category("Groceries", "40");
        const int visa = b.open(3, "Visa", "0"), visaCat = BudgetBook(b.files).cardCategory(visa);
        QVERIFY(b.periodic().ok);
        const int n = b.enter(visa, "Charge", "30", groceries).recordNumber;
        QCOMPARE(b.balance(groceries), cents(10'00));
        QCOMPARE(b.balance(visaCat), cents(30'00));
        QVERIFY(b.enter(visa, "Credit", "50", groceries).ok); // the card's category stops at zero
        QCOMPARE(b.balance(groceries), cents(60'00));
        QCOMPARE(b.balance(visaCat), Currency());
        QVERIFY(b.enter(visa, "Charge", "100", groceries, n).ok); // the category stops at zero
        QCOMPARE(b.balance(groceries), Currency());
        QCOMPARE(b.balance(visaCat), cents(70'00));
    }

    void disposableCash()
    {
        Books b;
        b.open(3, "Visa", "200", true); // a card is not a bank account
        const int groceries = b.category("Groceries", "40"), dining = b.category("Dining", "25");
        QCOMPARE(b.disposable(), cents(1000'00));
        QVERIFY(b.periodic().ok);
        QCOMPARE(b.disposable(), cents(935'00));
        // $70.00 from a $40.00 category: the other $30.00 leaves disposable cash.
        QVERIFY(b.enter(b.everyday, "Withdrawal", "70", groceries).ok);
        QCOMPARE(b.disposable(), cents(905'00));
        QVERIFY(b.periodic(true).ok);
        QCOMPARE(b.disposable(), cents(930'00));
        QVERIFY(b.single(0, dining, "100").ok);
        QCOMPARE(b.disposable(), cents(830'00));
        QVERIFY(BudgetCategories(b.files).remove(dining).ok);
        QCOMPARE(b.disposable(), cents(930'00));

        const BudgetBook::Totals fresh = BudgetBook(DataFiles(b.dir.path(), false)).totals();
        QCOMPARE(fresh.bankAccounts, cents(930'00));
        QCOMPARE(fresh.monthly, cents(40'00));
    }

    void categoryRecords()
    {
        Books b;
        const int travel = b.category("Travel", "20");
        b.category("Rent", "500");
        QVERIFY(b.periodic().ok);
        // The same name with blanks around it: the same record, balance kept.
        QCOMPARE(BudgetCategories(b.files).save("  Travel ", "5", {{{"Bus", "20"}}}).budNum,
                 travel);
        QCOMPARE(b.balance(travel), cents(20'00));

        QVERIFY(BudgetCategories(b.files).remove(travel).ok);
        const BudgetRecord freed = BudgetBook(b.files).read(travel);
        QVERIFY(freed.isDeleted());
        QCOMPARE(freed.Balance, Currency());
        QCOMPARE(int(freed.ItemCount), 0);
        QCOMPARE(int(freed.Flag), 0);
        QCOMPARE(b.category("Fuel", "30"), travel);
        QCOMPARE(b.balance(travel), Currency());

        // A card's own category is kept as long as the card.
        const int card = BudgetBook(b.files).cardCategory(b.open(3, "Visa", "0"));
        QCOMPARE(BudgetCategories(b.files).rename(card, "Other").error,
                 BudgetCategories::CardRename);
        QCOMPARE(BudgetCategories(b.files).remove(card).error, BudgetCategories::CardRemove);
        QCOMPARE(BudgetBook(b.files).read(card).BudName.text(), "Visa");
    }

    void items_data()
    {
        QTest::addColumn<QList<int>>("filled");   // rows holding an item, from 0
        QTest::addColumn<QStringList>("amounts"); // the typed amounts of those rows
        QTest::addColumn<QString>("monthly");     // as kept; "30" was typed

        QTest::newRow("rows 2 and 5") << QList<int>{1, 4} << QStringList{"12.50", "7.5"} << " 20";
        QTest::newRow("adding up to zero") << QList<int>{0, 1} << QStringList{"10", "-10"} << " 30";
        QTest::newRow("a name only") << QList<int>{3} << QStringList{""} << " 30";
        QList<int> all(BudgetRecord::MaxItems);
        std::iota(all.begin(), all.end(), 0);
        QTest::newRow("all fifteen") << all << QStringList(BudgetRecord::MaxItems, "1") << " 15";
    }

    void items()
    {
        QFETCH(QList<int>, filled);
        QFETCH(QStringList, amounts);
        Books b;
        BudgetCategories::ItemRows rows;
        for (int i = 0; i < filled.size(); ++i)
            rows[filled[i]]
                = {QStringLiteral(" Item %1 ").arg(i + 1), QLatin1Char(' ') + amounts[i]};
        const auto r = BudgetCategories(b.files).save("Food", "30", rows);
        const BudgetRecord c = BudgetBook(b.files).read(r.budNum);
        QTEST(c.AmountText.text(), "monthly");
        QCOMPARE(int(c.ItemCount), filled.size());
        for (int i = 0; i < BudgetRecord::MaxItems; ++i) {
            QCOMPARE(c.ItemNames[i].text(),
                     i < filled.size() ? QStringLiteral("Item %1").arg(i + 1) : QString());
            QCOMPARE(c.ItemAmounts[i].text(), amounts.value(i));
        }
    }

    void amounts_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("problem");
        QTest::addColumn<QString>("kept");

        const QString max = EntryChecks::MaxAmountText, ok;
        auto row
            = [](const char *name, const char *typed, const QString &problem, const char *kept) {
                  QTest::newRow(name) << QString(typed) << problem << QString(kept);
              };
        row("whole", "50", ok, " 50");
        row("negative", "-12.50", ok, "-12.5");
        row("blank", "", ok, " 0");
        row("ninety billion", "90,000,000,000", max, "");
        row("minus ninety billion", "-90000000000", max, "");
        row("a cent below", "89,999,999,999.99", ok, " 89999999999.99");
        row("a cent above minus", "-89999999999.99", ok, "-89999999999.99");
        row("not a number", "12x", "The monthly amount must be a number", "");
        // Too many digits for the 15-character field: kept to the cent, not cut.
        row("long decimals", "1234567890.1234", ok, " 1234567890.12");
    }

    void amounts()
    {
        QFETCH(QString, typed);
        QFETCH(QString, problem);
        Books b;
        const auto before = folderSnapshot(b.dir.path());
        QCOMPARE(BudgetCategories(b.files).save("Rent", typed, {}).error, problem);
        QTEST(BudgetBook(b.files).read(1).AmountText.text(), "kept");
        QVERIFY((folderSnapshot(b.dir.path()) == before) == !problem.isEmpty());
    }

    void names_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("error");
        QTest::addColumn<bool>("ok");

        QTest::newRow("twenty characters") << "  Twenty characters! " << QString() << true;
        QTest::newRow("twenty-one")
            << "Twenty-one characters" << BudgetCategories::NameTooLong << false;
        QTest::newRow("Deleted") << " Deleted " << BudgetCategories::NameReserved << false;
        QTest::newRow("blank") << "   " << QString() << false;
    }

    // Saving a new category and renaming one take the same names.
    void names()
    {
        QFETCH(QString, name);
        Books b;
        const int other = b.category("Other", "5");
        const auto before = folderSnapshot(b.dir.path());
        const auto saved = BudgetCategories(b.files).save(name, "5", {});
        QTEST(saved.error, "error");
        QTEST(saved.ok, "ok");
        QVERIFY((folderSnapshot(b.dir.path()) == before) == !saved.ok);
        QCOMPARE(BudgetCategories(b.files).rename(other, name).error, saved.error);
    }

    // Record 1 is a periodic transfer (unless nothing is budgeted), record 2 a single one.
    void transferRefusals_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<Request>("request");
        QTest::addColumn<QString>("error");
        QTest::addColumn<QString>("title");

        const QString ok = "03/01/2025", all = BudgetTransfers::CompleteAll;
        const QString setUp = BudgetTransfers::SetUpBudget,
                      same = BudgetTransfers::DifferentCategories;
        const QString date = EntryChecks::BadDateText, dateTitle = EntryChecks::BadDateTitle;
        const QString fixed = "That transfer cannot be changed";
        auto row = [](const char *name, const char *kind, const Request &request,
                      const QString &error, const QString &title = {}) {
            QTest::newRow(name) << QString(kind) << request << error << title;
        };
        row("periodic, amount 0", "periodic", {ok, "d", {}, -1, -1, "0"}, setUp);
        row("nothing budgeted", "zero", {ok, "d", {}, -1, -1, "25"}, setUp);
        row("bad date", "periodic", {"02/30/2025", "d", {}, -1, -1, "5"}, date, dateTitle);
        row("periodic, no description", "periodic", {ok, "  ", {}, -1, -1, "5"}, all);
        // Stored, "Deleted" would mark the transfer's record free: it would vanish from the list.
        const QString reserved = BudgetTransfers::DescriptionReserved;
        row("periodic, described Deleted", "periodic", {ok, " Deleted ", {}, -1, -1, "5"},
            reserved);
        row("single, described Deleted", "single", {ok, "Deleted", {}, 0, 1, "5"}, reserved);
        row("change, described DELETED", "change", {ok, "DELETED", {}, 0, 1, "5"}, reserved);
        row("single, no source", "single", {ok, "d", {}, -1, 1, "5"}, all);
        row("single, same", "single", {ok, "d", {}, 1, 1, "5"}, same);
        row("cash to cash", "single", {ok, "d", {}, 0, 0, "5"}, same);
        row("change, same", "change", {ok, "d", {}, 1, 1, "5"}, same);
        row("change, no amount", "change", {ok, "d", {}, 0, 1, ""}, all);
        row("change periodic", "change periodic", {ok, "d", {}, 0, 1, "5"}, fixed);
    }

    void transferRefusals()
    {
        QFETCH(QString, kind);
        QFETCH(Request, request);
        Books b;
        const bool budgeted = !kind.startsWith("zero");
        b.category("Rent", budgeted ? "500" : "0");
        QCOMPARE(b.periodic().ok, budgeted);
        QVERIFY(b.single(0, 1, "5").ok);
        const auto before = folderSnapshot(b.dir.path());
        BudgetTransfers transfers(b.files);
        const auto r = kind.startsWith("change")
                           ? transfers.change(kind.endsWith("periodic") ? 1 : 2, request)
                       : kind == "single" ? transfers.single(request, true)
                                          : transfers.periodic(request, false);
        QVERIFY(!r.ok);
        QTEST(r.error, "error");
        QTEST(r.title, "title");
        QVERIFY(folderSnapshot(b.dir.path()) == before);
    }

    void periodicTransfers()
    {
        Books b;
        const int groceries = b.category("Groceries", "40"), dining = b.category("Dining", "25.5");
        QVERIFY(b.periodic().ok && b.periodic().ok);
        QCOMPARE(b.balance(groceries), cents(80'00));
        QCOMPARE(b.balance(dining), cents(51'00));
        QVERIFY(b.single(groceries, 0, "70").ok);
        QCOMPARE(b.periodic(true).recordNumber, 4);
        QCOMPARE(b.balance(groceries), Currency()); // $10.00 - $40.00 stops at zero
        QCOMPARE(b.balance(dining), cents(25'50));

        const auto list = BudgetTransfers(b.files).list();
        QCOMPARE(list.size(), std::size_t(4));
        for (int i : {0, 3}) {
            QCOMPARE(list[i].record.FromBudNum, i == 0 ? 32000 : 31000);
            QCOMPARE(list[i].record.ToBudNum, i == 0 ? 31000 : 32000);
            QCOMPARE(list[i].record.Amount, cents(65'50));
        }
    }

    void singleTransfers()
    {
        Books b;
        const int groceries = b.category("Groceries", "40"), dining = b.category("Dining", "25");
        QVERIFY(b.periodic().ok);
        QVERIFY(b.single(0, dining, "5").ok); // from disposable cash
        QCOMPARE(b.balance(groceries), cents(40'00));
        QCOMPARE(b.balance(dining), cents(30'00));

        const auto before = folderSnapshot(b.dir.path());
        const auto asked = b.single(groceries, dining, "55");
        QCOMPARE(asked.warning,
                 "$55.00 exceeds the Groceries balance of $40.00. $15.00 will be taken from "
                 "disposable cash)");
        QVERIFY(folderSnapshot(b.dir.path()) == before);
        QCOMPARE(b.single(groceries, dining, "55", true).recordNumber, 3);
        QCOMPARE(b.balance(groceries), Currency());
        QCOMPARE(b.balance(dining), cents(85'00));
        QCOMPARE(BudgetTransfers(b.files).list().back().record.Amount, cents(55'00));
    }

    void changeTransfer()
    {
        Books b;
        const int a = b.category("A", "60"), bb = b.category("B", "0"), c = b.category("C", "0");
        QVERIFY(b.periodic().ok);
        const int n = b.single(a, bb, "50").recordNumber;
        QCOMPARE(b.balance(a), cents(10'00));
        QVERIFY(BudgetTransfers(b.files).change(n, {"3/9/25", " Moved ", "memo", a, c, "80"}).ok);
        QCOMPARE(b.balance(a), cents(-20'00));
        QCOMPARE(b.balance(bb), Currency());
        QCOMPARE(b.balance(c), cents(80'00));
        const BudgetTransRecord t
            = RecordFile<BudgetTransRecord>(b.files.budgetTransfers()).read(n);
        QCOMPARE(t.ToBudNum, c);
        QCOMPARE(t.Amount, cents(80'00));
    }

    void removeCompactsTheList()
    {
        Books b;
        const int rent = b.category("Rent", "0");
        for (int i = 1; i <= 5; ++i)
            QVERIFY(b.single(0, rent, QString::number(i), false, QStringLiteral("t%1").arg(i)).ok);
        const QByteArray budget = b.bytes(b.files.budget());
        QVERIFY(BudgetTransfers(b.files).remove({4, 2, 4}).ok);
        QCOMPARE(b.bytes(b.files.budget()), budget); // no money moves back

        const auto all = RecordFile<BudgetTransRecord>(b.files.budgetTransfers()).readAll();
        QCOMPARE(all.size(), std::size_t(5));
        const QStringList kept = {"t1", "t3", "t5", "Deleted", "Deleted"};
        for (int i = 0; i < 5; ++i) {
            QCOMPARE(all[i].Description.text(), kept[i]);
            QCOMPARE(all[i].FromBudNum, 0);
            QCOMPARE(all[i].ToBudNum, i < 3 ? rent : 0);
            QCOMPARE(all[i].Amount, Currency::fromUnits(kept[i].mid(1).toInt()));
        }
        QCOMPARE(b.single(0, rent, "6").recordNumber, 4);
    }
};

QTEST_GUILESS_MAIN(TestBudget)
#include "tst_budget.moc"
