#include "FolderSnapshot.h"
#include "accounts/AccountBook.h"
#include "accounts/AccountService.h"
#include "records/ArchiveRecord.h"
#include "records/BudgetRecord.h"
#include "records/PayeeRecord.h"
#include "records/RecordFile.h"
#include "records/TransRecord.h"
#include "records/UnitOfWork.h"
#include "register/RegisterService.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

const QDate Opened(2026, 8, 1);
const QString InUse = QStringLiteral(" This Name is in Use");

AccountService::Result add(const DataFiles &files, int kind, const QString &name,
                           const QString &balance = QStringLiteral("100.00"), bool debit = false)
{
    AccountService::NewAccount a;
    a.kind = kind;
    a.name = name;
    a.startBalance = balance;
    a.debit = debit;
    a.date = Opened;
    return AccountService(files).add(a);
}

template<typename R> void put(const QString &path, int n, const R &r)
{
    UnitOfWork unit(QFileInfo(path).path());
    unit.write(path, n, r);
    QVERIFY(unit.commit());
}

template<typename R> R get(const QString &path, int n)
{
    return RecordFile<R>(path).read(n);
}

// A live account, and an account archived in the other data set.
void takeNames(const QString &dir)
{
    const DataFiles own(dir, false);
    QVERIFY(add(own, 0, QStringLiteral("Everyday")).ok);
    put(own.other().archiveList(), 1,
        ArchiveRecord{1, QStringLiteral("CC"), QStringLiteral("Old Card")});
}

// A payment from Everyday (1) to the card Visa (2), as either side records it.
TransRecord payment(const char *cls, int cardNum, qint64 cents)
{
    TransRecord t;
    t.TransClass = QString::fromLatin1(cls);
    t.CCBankName = t.PaidToBankName = QStringLiteral("Visa");
    t.CCBankNum = t.PaidToBankNum = std::int16_t(cardNum);
    t.PaidFromBankName = QStringLiteral("Everyday");
    t.PaidFromBankNum = 1;
    t.Amount = Currency::fromCents(cents);
    return t;
}

// Everyday (1), a card "Visa" (2) with its budget category, Rainy Day (3); a
// payment from Everyday to Visa recorded on both sides; payees under two accounts.
void setUpForRename(const QString &dir)
{
    const DataFiles f(dir, false);
    QVERIFY(add(f, 0, QStringLiteral("Everyday")).ok);
    QVERIFY(add(f, 3, QStringLiteral("Visa"), QStringLiteral("300"), true).ok);
    QVERIFY(add(f, 1, QStringLiteral("Rainy Day")).ok);
    QVERIFY(RegisterService(f).add(1, payment("PayCC BankLedger", 2, -50'00)).ok);
    // The same name with another account's number does not point at this card.
    QVERIFY(RegisterService(f).add(1, payment("Norm Trans", 3, -1'00)).ok);
    QVERIFY(RegisterService(f).add(2, payment("PayCC CCLedger", 2, 50'00)).ok);
    put(f.payees(), 1,
        PayeeRecord{1, 2, QStringLiteral("Visa"), QStringLiteral("Skyway Airlines")});
    put(f.payees(), 2,
        PayeeRecord{2, 1, QStringLiteral("Everyday"), QStringLiteral("Green Basket")});
}

} // namespace

class AccountServiceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void addRefusedWritesNothing_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("balance");
        QTest::addColumn<QString>("message");
        auto row = [](const char *tag, const QString &name, const char *message,
                      const char *balance = "100.00") {
            QTest::newRow(tag) << name << QString::fromLatin1(balance)
                               << QString::fromUtf8(message);
        };
        // Each reason once; a name is in use in either data set, live or archived,
        // and the register file names and the removal marker are taken too.
        row("archived in the other set", QStringLiteral("old card"), " This Name is in Use");
        row("budget transfer file", QStringLiteral("budget"), " This Name is in Use");
        row("removal marker", QStringLiteral("Deleted"), " This Name is in Use");
        row("blanks", QStringLiteral("   "), "Enter a name for the account");
        row("character", QStringLiteral("A/B"), "An account name cannot contain the character /");
        row("tab", QStringLiteral("A\tB"), "An account name cannot contain control characters");
        row("trailing dot", QStringLiteral("Visa."), "An account name cannot end with a dot");
        // Blanks at the end cannot be stored: the name is compared without them.
        row("trailing blanks, name taken", QStringLiteral("everyday  "), " This Name is in Use");
        row("leading blank", QStringLiteral(" Visa"), "An account name cannot begin with a blank");
        // The account list's text is single-byte: what it cannot hold is named.
        row("greek", QStringLiteral("\u03A9mega"),
            "An account name cannot contain the character \u03A9");
        row("undefined byte", QStringLiteral("x\u0081y"),
            "An account name cannot contain the character U+0081");
        row("emoji", QStringLiteral("Savings \U0001F4B0"),
            "An account name cannot contain the character \U0001F4B0");
        row("device name", QStringLiteral("lpt1.txt"), "An account name cannot be the word LPT1");
        row("no balance", QStringLiteral("New"), "Enter a Starting Balance (0 when there is none)",
            " ");
        row("balance not a number", QStringLiteral("New"), "The Starting Balance must be a number",
            "12x");
        row("negative balance", QStringLiteral("New"),
            "Enter the Starting Balance without a sign and choose Debit or Credit", "(5.00)");
        row("plus sign", QStringLiteral("New"),
            "Enter the Starting Balance without a sign and choose Debit or Credit", "+5");
        row("minus zero", QStringLiteral("New"),
            "Enter the Starting Balance without a sign and choose Debit or Credit", "-0");
        row("balance at the limit", QStringLiteral("New"), "Maximum Number is 90,000,000,000",
            "90,000,000,000");
    }
    void addRefusedWritesNothing()
    {
        QFETCH(QString, name);
        QFETCH(QString, balance);
        QFETCH(QString, message);
        QTemporaryDir dir;
        takeNames(dir.path());
        const auto before = folderSnapshot(dir.path());
        for (int kind : {0, 3}) {
            const auto r = add(DataFiles(dir.path(), false), kind, name, balance);
            QVERIFY(!r.ok);
            QCOMPARE(r.error, message);
        }
        QVERIFY(folderSnapshot(dir.path()) == before);
    }

    void addStoresAccountAndOpeningEntry_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("balance");
        QTest::addColumn<bool>("debit");
        QTest::addColumn<qint64>("raw");
        auto row = [](const char *tag, int kind, const QString &name, const char *balance,
                      bool debit, qint64 raw) {
            QTest::newRow(tag) << kind << name << QString(balance) << debit << raw;
        };
        row("checking", 0, "Second Checking", "1,250.75", false, 12507500);
        row("savings, debit", 1, "Overdrawn", "20", true, -200000);
        row("money market, 31 characters", 2, "ABCDEFGHIJKLMNOPQRSTUVWXYZ01234", "0", false, 0);
        row("card owing", 3, "Travel Visa", "642.18", true, -6421800);
        row("trailing blanks", 0, "Joint Checking  ", "5", false, 50000);
        row("blank as 30th character", 1, "ABCDEFGHIJKLMNOPQRSTUVWXYZ012 45", "5", false, 50000);
        row("code page letters", 0, "Caf\u00E9 \u20ACuro \u0160t\u00FCck", "5", false, 50000);
    }
    void addStoresAccountAndOpeningEntry()
    {
        QFETCH(int, kind);
        QFETCH(QString, name);
        QFETCH(QString, balance);
        QFETCH(bool, debit);
        QFETCH(qint64, raw);
        QTemporaryDir dir;
        takeNames(dir.path());
        const DataFiles f(dir.path(), false);
        const auto r = add(f, kind, name, balance, debit);
        QVERIFY2(r.ok, qPrintable(r.error));
        const QString stored = name.left(30).trimmed();
        const BankAcctRecord a = get<BankAcctRecord>(f.accountList(), 2);
        QCOMPARE(a.BankNum, std::int16_t(2));
        QCOMPARE(a.Type.text(), (QStringList{"CH", "SV", "MM", "CC"}[kind]));
        QCOMPARE(a.BankName.text(), stored);
        QCOMPARE(a.Balance.raw(), raw);
        QCOMPARE(a.NextCheckNum, -1);
        QCOMPARE(a.ViewFromDate.text(), QStringLiteral("All"));

        const QString reg
            = dir.filePath(QStringLiteral("trans ") + stored + QStringLiteral(".Dat"));
        QCOMPARE(QFileInfo(reg).size(), qint64(TransRecord::Size));
        const TransRecord t = get<TransRecord>(reg, 1);
        QCOMPARE(t.Tranno, std::int16_t(1));
        QCOMPARE(t.Type.text(), QStringLiteral("Starting Balance"));
        QCOMPARE(t.TypeNum, std::int16_t(15));
        QCOMPARE(t.Date.text(), QStringLiteral("08/01/2026"));
        QCOMPARE(t.Amount.raw(), raw);
        QCOMPARE(t.TransClass.text(),
                 kind == 3 ? QStringLiteral("CC Trans") : QStringLiteral("Norm Trans"));
        QCOMPARE(t.CCBankNum, std::int16_t(kind == 3 ? 2 : 0));
        QCOMPARE(QFileInfo::exists(f.budget()), kind == 3);
        // The name is now taken for the other data set too.
        QCOMPARE(add(f.other(), 0, stored.toLower()).error, InUse);
    }

    void cardTakesFirstRemovedBudgetCategory()
    {
        QTemporaryDir dir;
        const DataFiles f(dir.path(), false);
        for (int n = 1; n <= 3; ++n) {
            BudgetRecord c;
            c.BudNum = std::int16_t(n);
            c.BudName = n == 2 ? QStringLiteral("Deleted") : QStringLiteral("Cat %1").arg(n);
            c.ItemCount = 4;
            c.Balance = Currency::fromUnits(9);
            put(f.budget(), n, c);
        }
        QVERIFY(add(f, 0, QStringLiteral("Everyday")).ok);
        QVERIFY(add(f, 3, QStringLiteral("Visa"), QStringLiteral("10"), true).ok);
        const BudgetRecord cat = get<BudgetRecord>(f.budget(), 2);
        QCOMPARE(cat.BudName.text(), QStringLiteral("Visa"));
        QCOMPARE(cat.CCBankName.text(), QStringLiteral("Visa"));
        QCOMPARE(cat.CCBankRecnum, std::int16_t(2));
        QCOMPARE(cat.ItemCount, std::int16_t(0)); // nothing left over from the removed category
        QVERIFY(cat.Balance.isZero());
        QCOMPARE(get<TransRecord>(f.registerFile(QStringLiteral("Visa")), 1).CCBudNum,
                 std::int16_t(2));

        QVERIFY(add(f, 3, QStringLiteral("Store Card")).ok);
        QCOMPARE(RecordFile<BudgetRecord>(f.budget()).count(), 4);
        QCOMPARE(get<BudgetRecord>(f.budget(), 4).CCBankRecnum, std::int16_t(3));
        QCOMPARE(get<TransRecord>(f.registerFile(QStringLiteral("Store Card")), 1).CCBudNum,
                 std::int16_t(4));
    }

    void renameRefused()
    {
        QTemporaryDir dir;
        setUpForRename(dir.path());
        const DataFiles f(dir.path(), false);
        BankAcctRecord gone = get<BankAcctRecord>(f.accountList(), 3);
        gone.BankName = QStringLiteral("Deleted");
        put(f.accountList(), 3, gone);
        const auto before = folderSnapshot(dir.path());
        AccountService service(f);
        for (int bankNum : {0, 3, 4, -1})
            QCOMPARE(service.rename(bankNum, QStringLiteral("Fresh")).error,
                     AccountService::SelectToRename);
        QCOMPARE(service.rename(2, QStringLiteral("EVERYDAY")).error, InUse);
        QCOMPARE(service.rename(2, QStringLiteral("Everyday   ")).error, InUse);
        // The rules of a new name are checked the same way (see adding).
        QCOMPARE(service.rename(2, QStringLiteral("A/B")).error,
                 QStringLiteral("An account name cannot contain the character /"));
        QVERIFY(folderSnapshot(dir.path()) == before);
    }

    void renameUpdatesEveryReference()
    {
        QTemporaryDir dir;
        setUpForRename(dir.path());
        const DataFiles f(dir.path(), false);
        const BankAcctRecord old = get<BankAcctRecord>(f.accountList(), 2);
        const auto r = AccountService(f).rename(2, QStringLiteral("Travel Card"));
        QVERIFY2(r.ok, qPrintable(r.error));

        QVERIFY(!QFileInfo::exists(f.registerFile(QStringLiteral("Visa"))));
        const QString reg = f.registerFile(QStringLiteral("Travel Card"));
        QCOMPARE(RecordFile<TransRecord>(reg).count(), 2);
        BankAcctRecord a = get<BankAcctRecord>(f.accountList(), 2);
        QCOMPARE(a.BankName.text(), QStringLiteral("Travel Card"));
        a.BankName = old.BankName;
        QCOMPARE(UnitOfWork::encoded(a), UnitOfWork::encoded(old)); // nothing else changed
        QCOMPARE(get<PayeeRecord>(f.payees(), 1).BankName.text(), QStringLiteral("Travel Card"));
        QCOMPARE(get<PayeeRecord>(f.payees(), 2).BankName.text(), QStringLiteral("Everyday"));
        const BudgetRecord cat = get<BudgetRecord>(f.budget(), 1);
        QCOMPARE(cat.BudName.text(), QStringLiteral("Travel Card"));
        QCOMPARE(cat.CCBankName.text(), QStringLiteral("Travel Card"));

        const QString everyday = f.registerFile(QStringLiteral("Everyday"));
        const TransRecord bankSide = get<TransRecord>(everyday, 2);
        QCOMPARE(bankSide.CCBankName.text(), QStringLiteral("Travel Card"));
        QCOMPARE(bankSide.PaidToBankName.text(), QStringLiteral("Travel Card"));
        QCOMPARE(get<TransRecord>(everyday, 3).CCBankName.text(), QStringLiteral("Visa"));
        QCOMPARE(get<TransRecord>(reg, 1).CCBankName.text(), QStringLiteral("Travel Card"));
        QCOMPARE(get<TransRecord>(reg, 2).PaidToBankName.text(), QStringLiteral("Travel Card"));

        // Blanks typed at the end are dropped, not refused.
        QVERIFY(AccountService(f).rename(2, QStringLiteral("Travel Card   ")).ok);
        QCOMPARE(get<BankAcctRecord>(f.accountList(), 2).BankName.text(),
                 QStringLiteral("Travel Card"));
        QCOMPARE(RecordFile<TransRecord>(reg).count(), 2);

        // Only the case changes: allowed, the register follows.
        QVERIFY(AccountService(f).rename(2, QStringLiteral("TRAVEL CARD")).ok);
        QCOMPARE(RecordFile<TransRecord>(f.registerFile(QStringLiteral("TRAVEL CARD"))).count(), 2);
    }
};

QTEST_GUILESS_MAIN(AccountServiceTest)
#include "tst_accountservice.moc"
