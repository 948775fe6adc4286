// Every kind of operation, with the data files refusing a write part way
// through its commit: the books end all old (what was written is put back)
// or, when putting back fails too, all new once the kept journal is finished.
// The user is told once, in a message box, either way.

#include "FolderSnapshot.h"
#include "accounts/AccountArchive.h"
#include "accounts/AccountBook.h"
#include "accounts/AccountService.h"
#include "budget/BudgetBook.h"
#include "budget/BudgetCategories.h"
#include "budget/BudgetTransfers.h"
#include "reconcile/StatementBook.h"
#include "records/RecordFile.h"
#include "records/TransactionTemplate.h"
#include "records/UnitOfWork.h"
#include "register/CardPayments.h"
#include "register/EntryRules.h"
#include "register/LinkedVoid.h"
#include "register/PayeeBook.h"
#include "register/RegisterService.h"
#include "transfers/TransferService.h"

#include <QTemporaryDir>
#include <QtTest>

#include <functional>

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

enum Account { Everyday = 1, Savings = 2, Visa = 3 };

// Checking "Everyday" $1,000.00, savings "Savings" $200.00, the card "Visa"
// owing $300.00, and the budget category "Food" holding $80.00.
struct Books
{
    QTemporaryDir dir;
    DataFiles files{dir.path(), false};
    int foodNum = 0;

    Books()
    {
        for (const auto &[kind, name, start] :
             {std::tuple{0, "Everyday", "1000"}, {1, "Savings", "200"}, {3, "Visa", "300"}})
            AccountService(files).add({kind, name, true, start, kind == 3, QDate(2025, 1, 1)});
        foodNum
            = BudgetCategories(files).save(QStringLiteral("Food"), QStringLiteral("80"), {}).budNum;
        BudgetTransfers(files).single({"03/01/2025", "Groceries money", {}, 0, food(), "80"}, true);
    }
    int food() const { return foodNum; }
    QMap<QString, QByteArray> snapshot() const { return folderSnapshot(dir.path()); }
    QString journal() const { return UnitOfWork::journalPath(dir.path()); }

    TransRecord entry(const char *type, const char *amount, int bankNum, int category,
                      const TransRecord &base = TransactionTemplate::blank()) const
    {
        const EntryRules::Input in{type, "Corner Shop", amount, "03/04/2025", {}, category, 0, {}};
        return EntryRules::fillRecord(base, in, AccountBook(files).read(bankNum), 0);
    }
    TransferService::Request transfer(const char *amount) const
    {
        return {Everyday,     Savings, "Withdrawal", amount,         "3/5/25",
                "03/05/2025", {},      {},           " Move money ", "note"};
    }
    bool pay(const char *amount, int bankRecord = 0)
    {
        const EntryRules::Input in{
            "Withdrawal", "Visa Payment", amount, "03/05/2025", "Statement", 0, 0, {}, 1};
        const TransRecord base = bankRecord
                                     ? RecordFile<TransRecord>(register_(Everyday)).read(bankRecord)
                                     : TransactionTemplate::blank();
        const TransRecord r
            = EntryRules::fillRecord(base, in, AccountBook(files).read(Everyday), 0);
        return (bankRecord ? CardPayments(files).change(Everyday, bankRecord, r, Visa)
                           : CardPayments(files).add(Everyday, r, Visa))
            .ok;
    }
    QString register_(int bankNum) const
    {
        return files.registerFile(AccountBook(files).read(bankNum).BankName.text());
    }
};

using Step = std::function<bool(Books &)>;
struct Operation
{
    Step setup; // what is there before
    Step run;   // the operation that meets the failing write
};

// Every kind of operation, by name.
QMap<QString, Operation> operations()
{
    const Step nothing = [](Books &) { return true; };
    const Step transfer
        = [](Books &b) { return TransferService(b.files).enter(b.transfer("25")).ok; };
    const Step payment = [](Books &b) { return b.pay("20"); };
    const Step entry = [](Books &b) {
        return RegisterService(b.files).add(Everyday, b.entry("Withdrawal", "12", Everyday, 1)).ok;
    };
    const Step archiveSavings = [](Books &b) {
        return AccountArchive(b.files).RemoveAccount(Savings, AccountArchive::ArchiveMode).ok;
    };
    // The opening entry is record 1 of every register: what is set up is record 2.
    return {
        {"card deleted",
         {payment,
          [](Books &b) {
              return AccountArchive(b.files).RemoveAccount(Visa, AccountArchive::DeleteMode).ok;
          }}},
        {"card archived",
         {payment,
          [](Books &b) {
              return AccountArchive(b.files).RemoveAccount(Visa, AccountArchive::ArchiveMode).ok;
          }}},
        {"savings archived", {transfer, archiveSavings}},
        {"statement cleared",
         {[transfer, entry](Books &b) { return transfer(b) && entry(b); },
          [](Books &b) {
              return StatementBook(b.files)
                  .clear(Everyday, "Everyday", QDate(2025, 3, 31), {2, 3})
                  .ok;
          }}},
        {"archive entry removed",
         {archiveSavings, [](Books &b) { return AccountArchive(b.files).deleteEntry(1).ok; }}},
        {"transfer", {nothing, transfer}},
        {"transfer change",
         {transfer,
          [](Books &b) {
              return TransferService(b.files).change(Everyday, 2, b.transfer("40")).ok;
          }}},
        {"transfer void",
         {transfer, [](Books &b) { return LinkedVoid::voidLinked(b.files, Savings, 2).ok; }}},
        {"card payment", {nothing, payment}},
        {"card payment change", {payment, [](Books &b) { return b.pay("35", 2); }}},
        {"card payment void",
         {payment, [](Books &b) { return LinkedVoid::voidLinked(b.files, Everyday, 2).ok; }}},
        {"entry", {nothing, entry}},
        {"entry change",
         {entry,
          [](Books &b) {
              const TransRecord old = RecordFile<TransRecord>(b.register_(Everyday)).read(2);
              return RegisterService(b.files)
                  .change(Everyday, 2, b.entry("Withdrawal", "15", Everyday, 1, old))
                  .ok;
          }}},
        {"entry void",
         {entry, [](Books &b) { return RegisterService(b.files).voidRecord(Everyday, 2).ok; }}},
        {"account add",
         {nothing,
          [](Books &b) {
              return AccountService(b.files)
                  .add({3, "Store Card", true, "45", true, QDate(2025, 2, 1)})
                  .ok;
          }}},
        {"account rename",
         {payment,
          [](Books &b) {
              return AccountService(b.files).rename(Visa, QStringLiteral("Travel Visa")).ok;
          }}},
        {"budget transfer",
         {nothing,
          [](Books &b) {
              return BudgetTransfers(b.files)
                  .single({"03/06/2025", "Back to cash", {}, b.food(), 0, "30"}, true)
                  .ok;
          }}},
        {"budget category",
         {nothing,
          [](Books &b) {
              return BudgetCategories(b.files)
                  .save(QStringLiteral("Fuel"), QStringLiteral("60"), {})
                  .ok;
          }}},
        {"payee", {nothing, [](Books &b) {
                       return PayeeBook(b.files)
                           .add(Everyday, QStringLiteral("Everyday"), QStringLiteral("Bakery"))
                           .ok;
                   }}}};
}

// Fails the n-th change to a data file, or (lasting) every change from it on,
// as a disk that has filled up does; counts the changes and the reports.
struct Faults
{
    int changes = 0;
    QStringList reports;

    Faults(int n, bool lasting)
    {
        UnitOfWork::setFaultHook([this, n, lasting](int k) {
            changes = std::max(changes, k);
            return n > 0 && (k == n || (lasting && k > n));
        });
        UnitOfWork::setFailureReport([this](const QString &text, const QString &title) {
            reports << title + QStringLiteral(": ") + text;
        });
    }
    ~Faults()
    {
        UnitOfWork::setFaultHook({});
        UnitOfWork::setFailureReport({});
    }
};

// Sets or clears the immutable flag; false where the file system cannot.
bool setImmutable(const QString &path, bool on)
{
    const int fd = ::open(QFile::encodeName(path).constData(), O_RDONLY);
    if (fd < 0)
        return false;
    int flags = 0;
    bool ok = ::ioctl(fd, FS_IOC_GETFLAGS, &flags) == 0;
    flags = on ? (flags | FS_IMMUTABLE_FL) : (flags & ~FS_IMMUTABLE_FL);
    ok = ok && ::ioctl(fd, FS_IOC_SETFLAGS, &flags) == 0;
    ::close(fd);
    return ok;
}

} // namespace

class TestWriteFailures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyFailingWrite_data()
    {
        QTest::addColumn<QString>("name");
        for (const QString &name : operations().keys())
            QTest::newRow(qPrintable(name)) << name;
    }

    void everyFailingWrite()
    {
        QFETCH(QString, name);
        const Operation op = operations().value(name);
        QVERIFY(op.run);

        // The operation whole, counting the changes it makes.
        Books whole;
        QVERIFY(op.setup(whole));
        const auto allOld = whole.snapshot();
        int changes = 0;
        {
            Faults none(0, false);
            QVERIFY(op.run(whole));
            changes = none.changes;
            QVERIFY(none.reports.isEmpty());
        }
        const auto allNew = whole.snapshot();
        QVERIFY(allNew != allOld);
        QVERIFY(changes >= 1);

        for (int n = 1; n <= changes; ++n) {
            for (const bool lasting : {false, true}) {
                const QString at = QStringLiteral("write %1%2").arg(n).arg(lasting ? " on" : "");
                Books b;
                QVERIFY(op.setup(b));
                QVERIFY(b.snapshot() == allOld);
                Faults faults(n, lasting);
                QVERIFY2(!op.run(b), qPrintable(at));
                QCOMPARE(faults.reports.size(), 1);
                QVERIFY2(faults.reports[0].startsWith(UnitOfWork::FailureTitle + ": Not "),
                         qPrintable(faults.reports[0]));
                if (!QFileInfo::exists(b.journal())) {
                    // Put back: exactly as before, and the user hears so.
                    QVERIFY2(b.snapshot() == allOld, qPrintable(at));
                    QVERIFY(faults.reports[0].contains(QStringLiteral("as it was before")));
                    continue;
                }
                // Only when putting back failed too does the journal stay, and then
                // the next start (or the next save) finishes the operation.
                QVERIFY2(lasting, qPrintable(at));
                UnitOfWork::setFaultHook({});
                QVERIFY(UnitOfWork::recover(b.dir.path()));
                QVERIFY2(b.snapshot() == allNew, qPrintable(at));
            }
        }
    }

    // While a kept journal waits, the next save finishes it first and never
    // writes over it.
    void nextSaveFinishesAKeptJournal()
    {
        const Operation op = operations().value(QStringLiteral("transfer"));
        Books whole;
        QVERIFY(op.run(whole));
        QVERIFY(operations().value(QStringLiteral("payee")).run(whole));
        const auto bothDone = whole.snapshot();

        Books b;
        {
            Faults full(2, true);
            QVERIFY(!op.run(b));
        }
        QVERIFY(QFileInfo::exists(b.journal()));
        QVERIFY(operations().value(QStringLiteral("payee")).run(b));
        QVERIFY(!QFileInfo::exists(b.journal()));
        QVERIFY(b.snapshot() == bothDone);
    }

    // A register that cannot be written at all is found before anything is
    // written: no journal, no file touched, and the file named to the user.
    void unwritableFileIsFoundFirst_data()
    {
        QTest::addColumn<QString>("file");
        QTest::newRow("the partner register") << QStringLiteral("trans Savings.Dat");
        QTest::newRow("the account list") << QStringLiteral("BankAcctName.Dat");
    }
    void unwritableFileIsFoundFirst()
    {
        QFETCH(QString, file);
        Books b;
        const QString path = b.dir.filePath(file);
        if (!setImmutable(path, true))
            QSKIP("the file system has no immutable files");
        const auto before = b.snapshot();
        QStringList reports;
        UnitOfWork::setFailureReport(
            [&reports](const QString &text, const QString &) { reports << text; });
        const auto result = TransferService(b.files).enter(b.transfer("25"));
        UnitOfWork::setFailureReport({});
        setImmutable(path, false);
        QVERIFY(!result.ok);
        QCOMPARE(result.error, QStringLiteral("Not saved: \"%1\" cannot be written (%2).")
                                   .arg(file, QStringLiteral("Operation not permitted")));
        QCOMPARE(reports.size(), 1);
        QVERIFY(reports[0].startsWith(result.error + QStringLiteral("\n\n")));
        QVERIFY(b.snapshot() == before);
    }
};

QTEST_GUILESS_MAIN(TestWriteFailures)
#include "tst_writefailures.moc"
