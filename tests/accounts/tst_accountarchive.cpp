#include "FolderSnapshot.h"
#include "accounts/AccountArchive.h"
#include "accounts/AccountBook.h"
#include "accounts/AccountService.h"
#include "accounts/AccountSummary.h"
#include "budget/BudgetBook.h"
#include "records/ArchiveRecord.h"
#include "records/BudgetRecord.h"
#include "records/PayeeRecord.h"
#include "records/RecordFile.h"
#include "records/TransRecord.h"
#include "records/UnitOfWork.h"
#include "register/PayeeBook.h"
#include "register/RegisterService.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

const QString Archived
    = QStringLiteral(" has been Archived. Select Show Archived Accounts to view file.");

void add(const DataFiles &files, int kind, const QString &name, const char *balance,
         bool debit = false)
{
    AccountService::NewAccount a;
    a.kind = kind;
    a.name = name;
    a.startBalance = QString::fromLatin1(balance);
    a.debit = debit;
    a.date = QDate(2026, 8, 1);
    const auto r = AccountService(files).add(a);
    QVERIFY2(r.ok, qPrintable(r.error));
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

TransRecord entry(const char *payee, qint64 cents)
{
    TransRecord t;
    t.Description = QString::fromLatin1(payee);
    t.Amount = Currency::fromCents(cents);
    t.BudName = QStringLiteral("na");
    t.TransClass = QStringLiteral("Norm Trans");
    return t;
}

// Everyday (1, checking), Rainy Day (2, savings, a second entry), Visa (3, a
// card owing 300 whose category holds 120), Spare (4, checking, balance 0);
// an archive list of three entries whose second is free; payees under 1 and 2.
DataFiles setUp(const QString &dir)
{
    const DataFiles f(dir, false);
    add(f, 0, QStringLiteral("Everyday"), "1000");
    add(f, 1, QStringLiteral("Rainy Day"), "500");
    add(f, 3, QStringLiteral("Visa"), "300", true);
    add(f, 0, QStringLiteral("Spare"), "0");
    [&] { QVERIFY(RegisterService(f).add(2, entry("Interest", 2'50)).ok); }();
    const int cat = BudgetBook(f).cardCategory(3);
    BudgetRecord c = get<BudgetRecord>(f.budget(), cat);
    c.Balance = Currency::fromUnits(120);
    put(f.budget(), cat, c);
    BudgetRecord food;
    food.BudNum = 2;
    food.BudName = QStringLiteral("Food");
    food.Balance = Currency::fromUnits(80);
    put(f.budget(), 2, food);
    const char *names[] = {"Old Checking", "Deleted", "Old Loan"};
    for (int i = 0; i < 3; ++i)
        put(f.archiveList(), i + 1,
            ArchiveRecord{std::int16_t(i + 1), QStringLiteral("CH"),
                          QString::fromLatin1(names[i])});
    writeBytes(f.archivedRegisterFile(QStringLiteral("Old Checking")),
               UnitOfWork::encoded(entry("Opening", 10'00)));
    put(f.payees(), 1, PayeeRecord{1, 2, QStringLiteral("Rainy Day"), QStringLiteral("Bank")});
    put(f.payees(), 2, PayeeRecord{2, 1, QStringLiteral("Everyday"), QStringLiteral("Grocer")});
    put(f.payees(), 3, PayeeRecord{3, 2, QStringLiteral("Rainy Day"), QStringLiteral("Broker")});
    return f;
}

QByteArray bytesOf(const QString &path)
{
    return folderSnapshot(QFileInfo(path).path()).value(QFileInfo(path).fileName());
}

} // namespace

class AccountArchiveTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Archiving takes the first free entry of the list, then appends; the
    // register moves whole to its "Archive " name and the report names the kind.
    void archiveTakesFreeEntryThenAppends()
    {
        QTemporaryDir dir;
        const DataFiles f = setUp(dir.path());
        const QByteArray reg = bytesOf(f.registerFile(QStringLiteral("Rainy Day")));
        const QByteArray budget = bytesOf(f.budget());

        AccountArchive archive(f);
        const auto r = archive.RemoveAccount(2, AccountArchive::ArchiveMode);
        QVERIFY2(r.ok, qPrintable(r.error));
        QCOMPARE(r.archNum, 2);
        QCOMPARE(r.report, QStringLiteral("Savings Account Rainy Day") + Archived);
        const ArchiveRecord e = get<ArchiveRecord>(f.archiveList(), 2);
        QCOMPARE(e.ArchNum, std::int16_t(2));
        QCOMPARE(e.Type.text(), QStringLiteral("SV"));
        QCOMPARE(e.BankName.text().trimmed(), QStringLiteral("Rainy Day"));
        QVERIFY(!QFileInfo::exists(f.registerFile(QStringLiteral("Rainy Day"))));
        QCOMPARE(bytesOf(f.archivedRegisterFile(QStringLiteral("Rainy Day"))), reg);
        // The record stays in place, marked, with its balance and number.
        const BankAcctRecord a = get<BankAcctRecord>(f.accountList(), 2);
        QVERIFY(a.isDeleted());
        QCOMPARE(a.BankNum, std::int16_t(2));
        QCOMPARE(a.Balance, Currency::fromCents(502'50));
        // A checking or savings account leaves the budget alone.
        QCOMPARE(bytesOf(f.budget()), budget);

        const auto r2 = archive.RemoveAccount(1, AccountArchive::ArchiveMode);
        QCOMPARE(r2.archNum, 4);
        QCOMPARE(r2.report, QStringLiteral("Checking Account Everyday") + Archived);
        QCOMPARE(get<ArchiveRecord>(f.archiveList(), 4).ArchNum, std::int16_t(4));
        QCOMPARE(bytesOf(f.budget()), budget);

        // The list offers the live entries by kind and name.
        QStringList shown;
        for (const auto &entry : archive.entries())
            shown << QStringLiteral("%1 %2%3")
                         .arg(entry.archNum)
                         .arg(AccountArchive::listText(entry.typeCode, entry.name),
                              entry.fileMissing ? QStringLiteral(" (missing)") : QString());
        QCOMPARE(shown, (QStringList{"1 Archived Checking Account Old Checking",
                                     "2 Archived Savings Account Rainy Day",
                                     "3 Archived Checking Account Old Loan (missing)",
                                     "4 Archived Checking Account Everyday"}));
        QCOMPARE(AccountArchive::listText(QStringLiteral("MM"), QStringLiteral("Fund")),
                 QStringLiteral("Archived Money Market Account Fund"));
    }

    // A card goes with its own category (found by number even after the card
    // was renamed): the category's balance returns to disposable cash.
    void removingACardFreesItsCategory_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<bool>("renamed");
        QTest::newRow("delete") << 0 << false;
        QTest::newRow("archive") << 1 << false;
        QTest::newRow("archive a renamed card") << 1 << true;
    }
    void removingACardFreesItsCategory()
    {
        QFETCH(int, mode);
        QFETCH(bool, renamed);
        QTemporaryDir dir;
        const DataFiles f = setUp(dir.path());
        const int cat = BudgetBook(f).cardCategory(3);
        if (renamed) {
            BudgetRecord c = get<BudgetRecord>(f.budget(), cat);
            c.BudName = QStringLiteral("Card Payments");
            put(f.budget(), cat, c);
        }
        const Currency before = BudgetBook(f).totals().disposable();
        const auto r = AccountArchive(f).RemoveAccount(3, mode);
        QVERIFY2(r.ok, qPrintable(r.error));
        const BudgetRecord c = get<BudgetRecord>(f.budget(), cat);
        QVERIFY(c.isDeleted());
        QCOMPARE(c.Balance, Currency());
        QCOMPARE(BudgetBook(f).cardCategory(3), 0);
        QCOMPARE(BudgetBook(f).totals().disposable(), before + Currency::fromUnits(120));
        QVERIFY(!get<BudgetRecord>(f.budget(), 2).isDeleted());
        QCOMPARE(QFileInfo::exists(f.archivedRegisterFile(QStringLiteral("Visa"))), mode == 1);
        QVERIFY(!QFileInfo::exists(f.registerFile(QStringLiteral("Visa"))));
        if (mode == 1)
            QCOMPARE(r.report, QStringLiteral("Credit Card Account Visa") + Archived);
    }

    // The account's payees become free records, which the payee list reuses.
    void payeesAreFreedAndReused()
    {
        QTemporaryDir dir;
        const DataFiles f = setUp(dir.path());
        QVERIFY(AccountArchive(f).RemoveAccount(2, AccountArchive::DeleteMode).ok);
        for (int n : {1, 3}) {
            const PayeeRecord p = get<PayeeRecord>(f.payees(), n);
            QCOMPARE(p.PayeeNum, std::int16_t(n));
            QCOMPARE(p.BankNum, std::int16_t(0));
            QVERIFY(p.BankName.isBlank() && p.Payee.isBlank());
        }
        QCOMPARE(get<PayeeRecord>(f.payees(), 2).Payee.text().trimmed(), QStringLiteral("Grocer"));
        PayeeBook payees(f);
        QCOMPARE(payees.listFor(1).size(), std::size_t(1));
        const auto added = payees.add(1, QStringLiteral("Everyday"), QStringLiteral("Bank"));
        QVERIFY2(added.ok, qPrintable(added.error));
        QCOMPARE(added.recordNumber, 1);
        QCOMPARE(payees.count(), 3);
    }

    // Deleting removes the register for good; a register already gone is no
    // error. The first live account is then the next one, and with none left
    // there is no current account and every total is zero.
    void deleteRemovesRegisterDownToNoAccount()
    {
        QTemporaryDir dir;
        const DataFiles f = setUp(dir.path());
        QFile::remove(f.registerFile(QStringLiteral("Spare")));
        AccountArchive archive(f);
        for (int bankNum : {1, 4, 2, 3}) {
            const auto r = archive.RemoveAccount(bankNum, AccountArchive::DeleteMode);
            QVERIFY2(r.ok, qPrintable(r.error));
            QVERIFY(r.report.isEmpty() && r.archNum == 0);
            QVERIFY(!QFileInfo::exists(
                f.registerFile(get<BankAcctRecord>(f.accountList(), bankNum).BankName.text())));
            if (bankNum == 1)
                QCOMPARE(AccountBook(f).firstLive()->BankNum, std::int16_t(2));
        }
        QVERIFY(!QFileInfo::exists(f.registerFile(QStringLiteral("Everyday"))));
        QVERIFY(!AccountBook(f).firstLive());
        QCOMPARE(AccountBook(f).count(), 4);
        const AccountSummary summary = AccountSummary::build(AccountBook(f).readAll().value());
        QVERIFY(summary.rows.empty());
        QCOMPARE(summary.bankTotal, Currency());
        QCOMPARE(summary.creditCardTotal, Currency());
        // Deletion never touches the archive list.
        QCOMPARE(archive.entries().size(), std::size_t(2));
    }

    // No account chosen, or one removed meanwhile: the prompt, and nothing written.
    void withoutAnAccountNothingChanges()
    {
        QTemporaryDir dir;
        const DataFiles f = setUp(dir.path());
        QVERIFY(AccountArchive(f).RemoveAccount(4, AccountArchive::DeleteMode).ok);
        const auto before = folderSnapshot(dir.path());
        for (int bankNum : {0, 4, 5, -1})
            for (int mode : {0, 1}) {
                const auto r = AccountArchive(f).RemoveAccount(bankNum, mode);
                QVERIFY(!r.ok);
                QCOMPARE(r.prompt, QStringLiteral("Entries not Complete "));
            }
        // An "Archive " file of that name already there is never overwritten.
        writeBytes(f.archivedRegisterFile(QStringLiteral("Everyday")), "someone else's");
        const auto withFile = folderSnapshot(dir.path());
        const auto r = AccountArchive(f).RemoveAccount(1, AccountArchive::ArchiveMode);
        QVERIFY(!r.ok && r.error.contains(QStringLiteral("\"Archive Everyday.Dat\"")));
        QVERIFY(folderSnapshot(dir.path()) == withFile);
        QFile::remove(f.archivedRegisterFile(QStringLiteral("Everyday")));
        QVERIFY(folderSnapshot(dir.path()) == before);
    }

    // The wording is pinned by the archive scenario; any balance, a cent either way, adds one.
    void deleteWarningsFollowTheBalance()
    {
        BankAcctRecord a;
        for (const auto &[cents, warnings] : {std::pair{0, 1}, {-1, 2}, {1, 2}}) {
            a.Balance = Currency::fromCents(cents);
            QCOMPARE(AccountArchive::deleteWarnings(a).size(), warnings);
        }
    }

    // The archived register reads whole records only; an entry whose file is
    // missing shows as such and can still be removed; removing an entry frees
    // it and deletes its file; the sample set keeps its own list.
    void archivedRegistersAndTheirRemoval()
    {
        QTemporaryDir dir;
        const DataFiles f = setUp(dir.path());
        AccountArchive archive(f);
        QVERIFY(archive.RemoveAccount(2, AccountArchive::ArchiveMode).ok);
        const QString path = f.archivedRegisterFile(QStringLiteral("Rainy Day"));
        auto shown = archive.readRegister(2);
        QVERIFY(!shown.missing && !shown.creditCard);
        QCOMPARE(shown.records.size(), std::size_t(2));
        QCOMPARE(shown.records[1].Description.text().trimmed(), QStringLiteral("Interest"));
        {
            QFile cut(path);
            QVERIFY(cut.open(QIODevice::ReadWrite) && cut.resize(TransRecord::Size + 250));
        }
        shown = archive.readRegister(2);
        QCOMPARE(shown.records.size(), std::size_t(1));
        QCOMPARE(shown.ignoredBytes, qint64(250));
        QVERIFY(archive.readRegister(3).missing);
        QVERIFY(!QFileInfo::exists(f.archivedRegisterFile(QStringLiteral("Old Loan"))));
        QVERIFY(archive.readRegister(9).missing);

        for (int archNum : {3, 2}) {
            const auto r = archive.deleteEntry(archNum);
            QVERIFY2(r.ok, qPrintable(r.error));
            QVERIFY(get<ArchiveRecord>(f.archiveList(), archNum).isDeleted());
        }
        QVERIFY(!QFileInfo::exists(path));
        QCOMPARE(archive.deleteEntry(2).prompt, QStringLiteral("Entries not Complete "));
        QCOMPARE(archive.entries().size(), std::size_t(1));
        // The freed entry is the next one taken.
        QCOMPARE(archive.RemoveAccount(1, AccountArchive::ArchiveMode).archNum, 2);

        const DataFiles sample = f.other();
        add(sample, 1, QStringLiteral("Demo Savings"), "5");
        QCOMPARE(AccountArchive(sample).RemoveAccount(1, AccountArchive::ArchiveMode).archNum, 1);
        QCOMPARE(AccountArchive(sample).entries().size(), std::size_t(1));
        QCOMPARE(archive.entries().size(), std::size_t(2));
    }
};

QTEST_GUILESS_MAIN(AccountArchiveTest)
#include "tst_accountarchive.moc"
