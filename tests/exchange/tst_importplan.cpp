// An import matched against a register and entered: the register's words
// for each row, duplicates (the three-day window, one transaction matched
// once, ids imported before), check numbers, the category memory, and the
// one unit of work that enters it all or nothing.

#include "accounts/AccountArchive.h"
#include "accounts/AccountBook.h"
#include "accounts/AccountService.h"
#include "budget/BudgetBook.h"
#include "budget/BudgetCategories.h"
#include "exchange/ImportEntry.h"
#include "exchange/ImportPlan.h"
#include "exchange/QifExport.h"
#include "exchange/QifReader.h"
#include "records/RecordFile.h"
#include "records/UnitOfWork.h"
#include "register/RegisterService.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

ImportRow row(int day, qint64 cents, const char *payee = "Shop", const char *fitId = "")
{
    ImportRow r;
    r.date = QDate(2026, 11, day);
    r.amount = Currency::fromCents(cents);
    r.payee = QString::fromLatin1(payee);
    r.fitId = QString::fromLatin1(fitId);
    r.line = day;
    return r;
}

ImportFile fileOf(std::vector<ImportRow> rows, const char *accountId = "")
{
    ImportFile f;
    f.format = QStringLiteral("OFX");
    f.accountId = QString::fromLatin1(accountId);
    f.rows = std::move(rows);
    return f;
}

// A checking account "Everyday" with $100 and a category "Food".
struct Books
{
    QTemporaryDir dir;
    DataFiles files{dir.path(), false};
    int bank = 0;
    int food = 0;
    Books()
    {
        bank = AccountService(files)
                   .add({0, QStringLiteral("Everyday"), true, QStringLiteral("100"), false,
                         QDate(2026, 1, 1)})
                   .bankNum;
        food = BudgetCategories(files).save(QStringLiteral("Food"), QStringLiteral("0"), {}).budNum;
    }
    BankAcctRecord account() const { return AccountBook(files).read(bank); }
    std::vector<TransRecord> records() const
    {
        return RegisterService(files).load(account()).records;
    }
    // Enters a row through the import itself, ticking everything.
    ImportEntry::Outcome enter(const ImportFile &f)
    {
        ImportPlan plan(files, account());
        plan.build(f);
        for (int i = 0; i < int(plan.rows().size()); ++i)
            plan.setIncluded(i, true);
        return ImportEntry::enter(plan);
    }
    QStringList statuses(const ImportFile &f) const
    {
        ImportPlan plan(files, account());
        plan.build(f);
        QStringList s;
        for (const auto &r : plan.rows())
            s << ImportPlan::statusText(r);
        return s;
    }
};

} // namespace

class TestImportPlan : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void typesAndSigns_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<int>("cents");
        QTest::addColumn<QString>("bankType");
        QTest::addColumn<QString>("number");
        QTest::addColumn<QString>("type");
        QTest::newRow("deposit") << "CH" << 100 << ""
                                 << ""
                                 << "Deposit";
        QTest::newRow("withdrawal") << "CH" << -100 << ""
                                    << ""
                                    << "Withdrawal";
        QTest::newRow("card credit") << "CC" << 100 << "CREDIT"
                                     << ""
                                     << "Credit";
        QTest::newRow("card charge") << "CC" << -100 << "POS"
                                     << ""
                                     << "Charge";
        QTest::newRow("card interest") << "CC" << -100 << "INT"
                                       << ""
                                       << "Interest Charge";
        QTest::newRow("check") << "CH" << -100 << "CHECK"
                               << "1001"
                               << "Check #1001";
        QTest::newRow("savings check") << "SV" << -100 << ""
                                       << "1001"
                                       << "Withdrawal";
        QTest::newRow("pos") << "CH" << -100 << "POS"
                             << ""
                             << "Debit Card";
        QTest::newRow("atm") << "MM" << -100 << "ATM"
                             << ""
                             << "Debit Card";
        QTest::newRow("savings atm") << "SV" << -100 << "ATM"
                                     << ""
                                     << "Withdrawal";
        QTest::newRow("fee") << "CH" << -100 << "SRVCHG"
                             << ""
                             << "Bank Fee";
        QTest::newRow("interest") << "SV" << 100 << "INT"
                                  << ""
                                  << "Interest Received";
        QTest::newRow("direct deposit") << "CH" << 100 << "DIRECTDEP"
                                        << ""
                                        << "Direct Deposit";
        QTest::newRow("refund on pos") << "CH" << 100 << "POS"
                                       << ""
                                       << "Deposit";
    }
    void typesAndSigns()
    {
        QFETCH(QString, kind);
        QFETCH(int, cents);
        QFETCH(QString, bankType);
        QFETCH(QString, number);
        QFETCH(QString, type);
        ImportRow r = row(1, cents);
        r.bankType = bankType;
        r.number = number;
        QCOMPARE(ImportPlan::typeFor(kind, r), type);
    }

    void duplicatesWindowAndOneToOne()
    {
        Books b;
        // In the register: $10 on the 10th, $20 on the 10th.
        QVERIFY(b.enter(fileOf({row(10, -1000), row(10, -2000)})).ok);
        QCOMPARE(b.statuses(fileOf({row(12, -1000), row(14, -1000), row(7, -2000), row(6, -2000)})),
                 QStringList({"already in register", "new", "already in register", "new"}));
        // Two equal purchases on one day, one of them in the register.
        QCOMPARE(b.statuses(fileOf({row(10, -1000), row(10, -1000)})),
                 QStringList({"already in register", "new"}));
    }

    void fitIdsAndOtherAccount()
    {
        Books b;
        const ImportFile first = fileOf({row(1, -500, "A", "X1"), row(2, 700, "B", "X2")}, "111");
        const auto out = b.enter(first);
        QVERIFY2(out.ok, qPrintable(out.error));
        // Same ids a month later, other amounts: still known by their ids.
        ImportFile again = fileOf({row(28, -1, "A", "X1"), row(28, -2, "C", "X3")}, "111");
        QCOMPARE(b.statuses(again), QStringList({"already in register", "new"}));
        ImportPlan plan(b.files, b.account());
        plan.build(again);
        QVERIFY(plan.otherAccountWarning().isEmpty());
        again.accountId = QStringLiteral("222");
        plan.build(again);
        QVERIFY(plan.otherAccountWarning().contains(QStringLiteral("222")));
    }

    void checkNumbersAndCategoryMemory()
    {
        Books b;
        ImportRow grocer = row(3, -4000, "Grocer");
        QVERIFY(b.enter(fileOf({grocer})).ok);
        // Taught: the register's last "Grocer" had Food.
        ImportPlan teach(b.files, b.account());
        teach.build(fileOf({row(4, -100, "Grocer"), row(5, -200, "GROCER")}));
        QVERIFY(teach.setCategory(0, b.food));
        QCOMPARE(teach.rows()[1].budNum, b.food);
        QVERIFY(ImportEntry::enter(teach).ok);

        ImportRow c1 = row(20, -100, "Water");
        c1.number = QStringLiteral("1001");
        ImportRow c2 = row(21, -200, "Power");
        c2.number = QStringLiteral("1001");
        ImportPlan plan(b.files, b.account());
        plan.build(fileOf({c1, c2, row(22, -300, "grocer"), row(23, 0, "Nothing")}));
        const auto &rows = plan.rows();
        QCOMPARE(rows[0].typeText, QStringLiteral("Check"));
        QCOMPARE(ImportPlan::statusText(rows[1]), QStringLiteral("refused: Duplicate Number"));
        QCOMPARE(rows[2].budName, QStringLiteral("Food"));
        QCOMPARE(rows[0].budNum, 0);
        QVERIFY(ImportPlan::statusText(rows[3]).startsWith(QStringLiteral("refused: ")));
        QVERIFY(!plan.setIncluded(1, true));
        QVERIFY(ImportEntry::enter(plan).ok);
        const auto records = b.records();
        QCOMPARE(records[records.size() - 2].Type.text(), QStringLiteral("1001"));
        QCOMPARE(b.account().NextCheckNum, 1001);
        // One check and the grocer went in: 100 - 40 - 1 - 2 - 1 - 3.
        QCOMPARE(b.account().Balance, Currency::fromCents(10000 - 4000 - 100 - 200 - 100 - 300));
    }

    void enteredAllOrNothing()
    {
        Books b;
        ImportRow cleared = row(5, 2500, "Refund", "F1");
        cleared.cleared = true;
        const ImportFile f = fileOf({cleared, row(6, -700, "Cafe", "F2")}, "9");
        const int before = int(b.records().size());
        for (int failing = 1; failing <= 3; ++failing) {
            UnitOfWork::setFaultHook([failing](int k) { return k == failing; });
            const auto out = b.enter(f);
            UnitOfWork::setFaultHook({});
            QVERIFY(!out.ok);
            QCOMPARE(int(b.records().size()), before);
            QCOMPARE(b.account().Balance, Currency::fromUnits(100));
            QVERIFY(!QFile::exists(b.files.importedIds(QStringLiteral("Everyday"))));
        }
        // Stopped after the journal and one change reached the disk: the next
        // start finishes the whole import.
        struct Killed
        {
        };
        UnitOfWork::setStepHook([](int done) {
            if (done == 1)
                throw Killed{};
        });
        QVERIFY_THROWS_EXCEPTION(Killed, b.enter(f));
        UnitOfWork::setStepHook({});
        QVERIFY(UnitOfWork::recover(b.files.dataDir()));
        const auto records = b.records();
        QCOMPARE(int(records.size()), before + 2);
        QCOMPARE(records[std::size_t(before)].Status.text(), QStringLiteral("CL"));
        QCOMPARE(b.account().Balance, Currency::fromCents(10000 + 2500 - 700));
        QCOMPARE(b.statuses(f), QStringList({"already in register", "already in register"}));
    }

    void idsFollowTheAccount()
    {
        Books b;
        QVERIFY(b.enter(fileOf({row(1, -500, "A", "Z1")})).ok);
        QVERIFY(AccountService(b.files).rename(b.bank, QStringLiteral("Daily")).ok);
        QVERIFY(!QFile::exists(b.files.importedIds(QStringLiteral("Everyday"))));
        QCOMPARE(ImportedIds::read(b.files, QStringLiteral("Daily")).size(), 1);
        QVERIFY(AccountArchive(b.files).RemoveAccount(b.bank, AccountArchive::DeleteMode).ok);
        QVERIFY(!QFile::exists(b.files.importedIds(QStringLiteral("Daily"))));
    }

    void qifRoundTrip()
    {
        // Exported to QIF and imported into an empty account, a register comes
        // back the same; the same file again finds every row in the register.
        Books b;
        ImportRow check = row(4, -8000, "City Water");
        check.number = QStringLiteral("1001");
        ImportRow pay = row(15, 125000, "Payroll");
        pay.cleared = true;
        ImportRow food = row(16, -4217, "Grocer, \"Corner\"");
        food.memo = QStringLiteral("weekly");
        ImportPlan plan(b.files, b.account());
        plan.build(fileOf({check, pay, food}));
        QVERIFY(plan.setCategory(2, b.food));
        QVERIFY(ImportEntry::enter(plan).ok);
        const auto accounts = AccountBook(b.files).readAll().value();
        const QByteArray qif
            = QifExport::write(ExportSet::ofRegister(b.account(), b.records(), accounts)).bytes;

        const int copy = AccountService(b.files)
                             .add({0, QStringLiteral("Copy"), true, QStringLiteral("0"), false,
                                   QDate(2026, 1, 1)})
                             .bankNum;
        const ImportFile file = QifReader::read(qif).file;
        QVERIFY2(file.ok(), qPrintable(file.error));
        ImportPlan in(b.files, AccountBook(b.files).read(copy));
        in.build(file);
        QVERIFY(ImportEntry::enter(in).ok);
        const auto original = b.records();
        const auto copied = RegisterService(b.files).load(AccountBook(b.files).read(copy)).records;
        QCOMPARE(copied.size(), original.size() + 1); // after the copy's own opening entry
        for (std::size_t i = 1; i < original.size(); ++i) {
            const TransRecord &o = original[i];
            const TransRecord &c = copied[i + 1];
            QCOMPARE(c.Date.text(), o.Date.text());
            QCOMPARE(c.Amount, o.Amount);
            QCOMPARE(c.Type.text(), o.Type.text());
            QCOMPARE(c.Description.text(), o.Description.text());
            QCOMPARE(c.Memo.text(), o.Memo.text());
            QCOMPARE(c.BudNum, o.BudNum);
            QCOMPARE(c.Status.text(), o.Status.text());
        }
        QCOMPARE(AccountBook(b.files).read(copy).Balance, b.account().Balance);
        ImportPlan again(b.files, AccountBook(b.files).read(copy));
        again.build(file);
        for (const auto &r : again.rows())
            QCOMPARE(ImportPlan::statusText(r), QStringLiteral("already in register"));
    }
};

QTEST_GUILESS_MAIN(TestImportPlan)
#include "tst_importplan.moc"
