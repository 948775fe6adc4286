// Balancing a statement without a window: the list and its groups, the sums
// after ticks, the checks of a confirm in their order, the explanation of a
// disagreeing starting balance, and what each write leaves on disk.

#include "FolderSnapshot.h"
#include "accounts/AccountBook.h"
#include "accounts/AccountService.h"
#include "core/EntryChecks.h"
#include "reconcile/BalanceExplanation.h"
#include "reconcile/StatementBook.h"
#include "reconcile/StatementFigures.h"
#include "reconcile/StatementList.h"
#include "records/RawRecordFile.h"
#include "records/RecordFile.h"
#include "records/TransactionTemplate.h"
#include "records/UnitOfWork.h"
#include "register/RegisterService.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

TransRecord entry(const char *payee, qint64 cents, const char *status = "OP")
{
    TransRecord t = TransactionTemplate::blank();
    t.Description = QString::fromLatin1(payee);
    t.Type = cents < 0 ? QStringLiteral("Withdrawal") : QStringLiteral("Deposit");
    t.Date = QStringLiteral("10/01/2026");
    t.Amount = Currency::fromCents(cents);
    t.Status = QString::fromLatin1(status);
    return t;
}

Currency money(const char *text)
{
    return *Currency::parse(QString::fromLatin1(text));
}

// A data folder with one account opened from its last statement.
struct Books
{
    QTemporaryDir dir;
    DataFiles files{dir.path(), false};
    int bank = 0;
    QString name;

    explicit Books(int kind = 0, const char *opening = "100.00", bool debit = false)
    {
        name = kind == 3 ? QStringLiteral("Visa") : QStringLiteral("Everyday");
        bank = AccountService(files)
                   .add({kind, name, true, QString::fromLatin1(opening), debit, QDate(2026, 9, 1)})
                   .bankNum;
    }
    int add(const TransRecord &t) { return RegisterService(files).add(bank, t).recordNumber; }
    QString path() const { return files.registerFile(name); }
    std::vector<TransRecord> records() const { return RecordFile<TransRecord>(path()).readAll(); }
    TransRecord record(int n) const { return RecordFile<TransRecord>(path()).read(n); }
    BankAcctRecord account() const { return AccountBook(files).read(bank); }
};

QStringList texts(const StatementList &list)
{
    QStringList out;
    for (const auto &r : list.rows())
        out << (r.isHeading() ? QStringLiteral("#") : QString::number(r.recordNumber));
    return out;
}

} // namespace

class TestStatement : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void listGroupsOpenTransactionsInRecordOrder();
    void newTransactionsJoinTheirOwnGroup();
    void sumsFollowTheTicksExactly();
    void confirmChecksInOrder();
    void explanationWordsAndAmounts();
    void clearingWritesTickedRecordsOnly();
    void correctionRecordByteForByte();
    void correctionOnACardAndOnAFullRegister();
    void priorStatementsAndUnclearing();
    void vanishedAccountOrRegisterWritesNothing();
};

void TestStatement::listGroupsOpenTransactionsInRecordOrder()
{
    std::vector<TransRecord> records = {
        entry("opening", 10000, "CL"),
        entry("pay", 2000),
        entry("rent", -500),
        entry("fee", -100),
        entry("gift", 300),
        entry("old", 700, "CL"),
    };
    TransRecord voided = TransactionTemplate::blank();
    voided.Type = QStringLiteral("Void");
    records.push_back(voided);

    StatementList list;
    list.fill(records);
    // Only open entries, never a voided one; headings first in each group.
    QCOMPARE(texts(list), QStringList({"#", "2", "5", "#", "3", "4", "#"}));
    QCOMPARE(list.row(0).group, StatementList::Group::Deposits);
    QCOMPARE(list.row(3).group, StatementList::Group::Withdrawals);
    QCOMPARE(list.row(6).group, StatementList::Group::New);

    // Heading rows cannot be ticked and never count.
    QVERIFY(!list.toggle(0));
    QVERIFY(!list.toggle(3));
    QCOMPARE(list.tickedCount(), 0);
    QVERIFY(list.clearedSum().isZero());

    // A later fill keeps the ticks of the records still listed.
    QVERIFY(list.toggle(1));
    QVERIFY(list.toggle(4));
    records[2].Status = QStringLiteral("CL"); // cleared elsewhere meanwhile
    list.fill(records);
    QCOMPARE(texts(list), QStringList({"#", "2", "5", "#", "4", "#"}));
    QCOMPARE(list.tickedRecords(), std::vector<int>({2}));
}

void TestStatement::newTransactionsJoinTheirOwnGroup()
{
    std::vector<TransRecord> records
        = {entry("opening", 10000, "CL"), entry("pay", 2000), entry("rent", -500)};
    StatementList list;
    list.fill(records);

    // Entered while the statement is open: under "New Transactions", tickable.
    const int at = list.enter(4, entry("forgotten", -1234));
    QCOMPARE(at, list.size() - 1);
    QCOMPARE(list.row(at).group, StatementList::Group::New);
    QVERIFY(list.toggle(at));
    QCOMPARE(list.clearedSum(), Currency::fromCents(-1234));

    // Its change keeps the row and the tick; the sum follows the new amount.
    list.enter(4, entry("forgotten", -1000));
    QCOMPARE(list.row(at).ticked, true);
    QCOMPARE(list.clearedSum(), Currency::fromCents(-1000));

    // Reading the register again keeps it under "New Transactions".
    records.push_back(entry("forgotten", -1000));
    list.fill(records);
    QCOMPARE(texts(list), QStringList({"#", "2", "#", "3", "#", "4"}));
    QCOMPARE(list.tickedRecords(), std::vector<int>({4}));

    // A void takes it off the list, and its tick with it.
    TransRecord voided = TransactionTemplate::blank();
    voided.Type = QStringLiteral("Void");
    QCOMPARE(list.enter(4, voided), -1);
    QCOMPARE(texts(list), QStringList({"#", "2", "#", "3", "#"}));
    QVERIFY(list.clearedSum().isZero());

    // An older entry that becomes open again goes back to its own group.
    list.enter(1, entry("opening", 10000));
    QCOMPARE(texts(list), QStringList({"#", "1", "2", "#", "3", "#"}));

    // Done with the statement: the next one starts afresh.
    list.reset();
    QCOMPARE(list.size(), 0);
}

void TestStatement::sumsFollowTheTicksExactly()
{
    // 0.10 + 0.20 against 0.30: in binary doubles this never balances.
    std::vector<TransRecord> records
        = {entry("a", 10), entry("b", 20), entry("c", -5), entry("d", 100000000)};
    StatementList list;
    list.fill(records);
    const Currency start = money("1000.00");
    list.toggle(1);
    list.toggle(2);
    auto sums = StatementFigures::sums(start, list.clearedSum(), QStringLiteral("1000.30"));
    QCOMPARE(sums.cleared.toFixedText(), QStringLiteral("1000.30"));
    QCOMPARE(sums.difference.toFixedText(), QStringLiteral("0.00"));
    QVERIFY(sums.balanced());
    QVERIFY(sums.caption.isEmpty());

    // Ticking and unticking the same rows twice changes nothing.
    for (int i = 0; i < 2; ++i) {
        list.toggle(5);
        list.toggle(1);
        list.toggle(1);
        list.toggle(5);
    }
    QCOMPARE(StatementFigures::sums(start, list.clearedSum(), "1000.30").difference, Currency());

    // Under and over; an ending balance not (yet) typed counts as zero.
    sums = StatementFigures::sums(start, list.clearedSum(), QStringLiteral("1000.31"));
    QCOMPARE(sums.caption, StatementFigures::UnderBy);
    QCOMPARE(sums.difference.toFixedText(), QStringLiteral("0.01"));
    sums = StatementFigures::sums(start, list.clearedSum(), QStringLiteral("$1,000.00"));
    QCOMPARE(sums.caption, StatementFigures::OverBy);
    QCOMPARE(sums.difference.toFixedText(), QStringLiteral("-0.30"));
    sums = StatementFigures::sums(start, list.clearedSum(), QString());
    QCOMPARE(sums.difference.toFixedText(), QStringLiteral("-1000.30"));
    // A withdrawal ticked counts against the balance.
    QVERIFY(list.toggle(5));
    QCOMPARE(StatementFigures::sums(start, list.clearedSum(), "1000.25").difference, Currency());
}

void TestStatement::confirmChecksInOrder()
{
    using Stop = StatementFigures::Stop;
    const Currency expected = money("500");
    auto check = [&](const char *date, const char *start, const char *ending, Currency ticked,
                     bool skip = false, Currency listStart = money("500")) {
        return StatementFigures::check(
            {QString::fromLatin1(date), QString::fromLatin1(start), QString::fromLatin1(ending)},
            expected, listStart, ticked, skip);
    };
    // A bad date comes before anything else, even before missing figures.
    auto c = check("13/45/2026", "", "", Currency());
    QCOMPARE(c.stop, Stop::BadDate);
    QCOMPARE(c.text, EntryChecks::BadDateText);
    QCOMPARE(c.title, EntryChecks::BadDateTitle);
    for (auto [d, s, e] : {std::tuple{"", "500", "500"}, std::tuple{"10/31/26", " ", "500"},
                           std::tuple{"10/31/26", "500", ""}}) {
        c = check(d, s, e, Currency());
        QCOMPARE(c.stop, Stop::Missing);
        QCOMPARE(c.text, QStringLiteral("Enter Bank Statement Information"));
    }
    QCOMPARE(check("10/31/26", "abc", "500", Currency()).stop, Stop::BadAmount);
    c = check("10/31/26", "500", "90000000000", Currency());
    QCOMPARE(c.stop, Stop::BadAmount);
    QCOMPARE(c.text, EntryChecks::MaxAmountText);

    // The starting balance is compared before the difference; zero never asks.
    c = check("10/31/26", "499.99", "700", Currency());
    QCOMPARE(c.stop, Stop::StartDiffers);
    QCOMPARE(c.startDifference, money("-0.01"));
    QCOMPARE(check("10/31/26", "500.00", "700", Currency()).stop, Stop::NotBalanced);
    QCOMPARE(check("10/31/26", "500.00", "700", Currency()).text,
             QStringLiteral(" Statement is not balanced"));
    // With the bank's figure in use, the comparison is skipped.
    QCOMPARE(check("10/31/26", "499.99", "699.99", money("200"), true, money("499.99")).stop,
             Stop::None);

    // No ticks: a statement that ends where the register starts confirms.
    c = check("10/31/2026", "500", "500", Currency());
    QCOMPARE(c.stop, Stop::None);
    QCOMPARE(c.date, QDate(2026, 10, 31));
    QCOMPARE(check("10/31/26", "500", "500.30", money("0.30")).stop, Stop::None);
}

// The wording of the other direction is pinned by the balancing scenario.
void TestStatement::explanationWordsAndAmounts()
{
    const QString under = BalanceExplanation::text(money("1234.5"), money("-20.25"));
    QCOMPARE(under.count(QStringLiteral("\r\n")), 18);
    QCOMPARE(under.count(QStringLiteral("\r\n")), under.count(QLatin1Char('\n')));
    // The sign is in the words, never in the amounts.
    for (const char *words :
         {"balance is $1,234.50 which is greater than the Bank Statement by $20.25",
          "enter a withdrawal transaction of $20.25 to make Quillmere",
          "also decrease your current balance  by $20.25."})
        QVERIFY2(under.contains(QLatin1String(words)), words);
    const QString over = BalanceExplanation::text(money("10"), money("0.07"));
    QVERIFY(over.contains(QStringLiteral("which is less than the Bank Statement by $0.07")));
    QVERIFY(!over.contains(QStringLiteral("($")) && !under.contains(QStringLiteral("($")));
}

void TestStatement::clearingWritesTickedRecordsOnly()
{
    Books b;
    const int pay = b.add(entry("pay", 2000));
    const int rent = b.add(entry("rent", -500));
    const int fee = b.add(entry("fee", -100));
    QCOMPARE(StatementBook::expectedStart(b.records()), money("100")); // the opening entry
    const QByteArray feeBefore = RecordFile<TransRecord>(b.path()).read(fee).Memo.bytes();
    const auto accountBefore = b.account().Balance;

    const auto r = StatementBook(b.files).clear(b.bank, b.name, QDate(2026, 10, 31), {pay, rent});
    QVERIFY2(r.ok, qPrintable(r.error));
    QCOMPARE(b.record(pay).Status.text(), QStringLiteral("CL"));
    QCOMPARE(b.record(pay).DateClear.text(), QStringLiteral("10/31/2026"));
    QCOMPARE(b.record(rent).DateClear.text(), QStringLiteral("10/31/2026"));
    QCOMPARE(b.record(fee).Status.text(), QStringLiteral("OP"));
    QVERIFY(b.record(fee).DateClear.isBlank());
    QCOMPARE(b.account().Balance, accountBefore); // clearing moves no balance
    QCOMPARE(StatementBook::expectedStart(b.records()), money("115"));

    // Nothing ticked: a balanced statement clears nothing and writes nothing.
    const auto before = folderSnapshot(b.dir.path());
    QVERIFY(StatementBook(b.files).clear(b.bank, b.name, QDate(2026, 11, 30), {}).ok);
    QVERIFY(folderSnapshot(b.dir.path()) == before);

    // A record cleared meanwhile: nothing written, the list should be read again.
    const auto again
        = StatementBook(b.files).clear(b.bank, b.name, QDate(2026, 11, 30), {fee, pay});
    QVERIFY(!again.ok && again.relist);
    QVERIFY(folderSnapshot(b.dir.path()) == before);
}

void TestStatement::correctionRecordByteForByte()
{
    Books b;
    b.add(entry("pay", 2000));
    const Currency balance = b.account().Balance;
    const auto r = StatementBook(b.files).correct(b.bank, b.name, money("-12.3456"),
                                                  QDate(2026, 10, 31), QDate(2026, 11, 21));
    QVERIFY2(r.ok, qPrintable(r.error));
    QCOMPARE(r.recordNumber, 3);

    TransRecord want;
    want.Tranno = 3;
    want.Status = QStringLiteral("OP");
    want.Type = QStringLiteral("Withdrawal");
    want.Date = QStringLiteral("11/21/2026");
    want.Description = QStringLiteral("Correction to Starting Balance for Statement dated "
                                      "10/31/2026");
    want.TransClass = QStringLiteral("Norm Trans");
    want.CCBankName = b.name;
    want.CCBankNum = std::int16_t(b.bank);
    want.Amount = money("-12.3456");
    // Every other field is blank or zero: no template "Void", no category.
    QCOMPARE(UnitOfWork::encoded(b.record(3)), UnitOfWork::encoded(want));
    QCOMPARE(b.account().Balance, balance + money("-12.3456"));

    // A positive difference is a deposit.
    const auto up = StatementBook(b.files).correct(b.bank, b.name, money("5"), QDate(2026, 10, 31),
                                                   QDate(2026, 11, 21));
    QCOMPARE(b.record(up.recordNumber).Type.text(), QStringLiteral("Deposit"));
    QCOMPARE(b.record(up.recordNumber).Amount, money("5"));
}

void TestStatement::correctionOnACardAndOnAFullRegister()
{
    Books card(3, "50", true);
    auto r
        = StatementBook(card.files)
              .correct(card.bank, card.name, money("-1"), QDate(2026, 10, 31), QDate(2026, 11, 1));
    QCOMPARE(card.record(r.recordNumber).Type.text(), QStringLiteral("Charge"));
    r = StatementBook(card.files)
            .correct(card.bank, card.name, money("2"), QDate(2026, 10, 31), QDate(2026, 11, 1));
    QCOMPARE(card.record(r.recordNumber).Type.text(), QStringLiteral("Credit"));
    QCOMPARE(card.record(r.recordNumber).TransClass.text(), QStringLiteral("Norm Trans"));

    // A full register refuses and writes nothing.
    Books b;
    {
        QFile f(b.path());
        QVERIFY(f.open(QIODevice::ReadWrite));
        QVERIFY(f.resize(qint64(RawRecordFile::MaxRecords) * TransRecord::Size));
    }
    const auto before = folderSnapshot(b.dir.path());
    r = StatementBook(b.files).correct(b.bank, b.name, money("1"), QDate(2026, 10, 31),
                                       QDate(2026, 11, 1));
    QVERIFY(!r.ok);
    QVERIFY(r.error.contains(b.name));
    QVERIFY(folderSnapshot(b.dir.path()) == before);
}

void TestStatement::priorStatementsAndUnclearing()
{
    Books b; // opening entry of 100.00 cleared on its own date
    const int a1 = b.add(entry("pay", 2000));
    const int a2 = b.add(entry("rent", -500));
    const int b1 = b.add(entry("pay", 3000));
    const int b2 = b.add(entry("open", 7));
    StatementBook book(b.files);
    QVERIFY(book.clear(b.bank, b.name, QDate(2026, 9, 30), {a1, a2}).ok);
    QVERIFY(book.clear(b.bank, b.name, QDate(2026, 10, 31), {b1}).ok);

    // Newest first, each date once; the opening entry is its own statement.
    QCOMPARE(StatementBook::statementDates(b.records()),
             QStringList({"10/31/2026", "09/30/2026", "09/01/2026"}));
    QCOMPARE(StatementBook::prior(b.records(), QStringLiteral("09/01/2026")).start, Currency());

    auto p = StatementBook::prior(b.records(), QStringLiteral("09/30/2026"));
    QCOMPARE(p.recordNumbers, std::vector<int>({a1, a2}));
    QCOMPARE(p.deposits, money("20"));
    QCOMPARE(p.withdrawals, money("5"));
    QCOMPARE(p.start, money("100"));
    QCOMPARE(p.ending, money("115"));
    p = StatementBook::prior(b.records(), QStringLiteral("10/31/2026"));
    QCOMPARE(p.start, money("115"));
    QCOMPARE(p.ending, money("145"));

    // Un-clearing: open again, no date; the expected start follows.
    const auto r = book.unclear(b.bank, b.name, a2);
    QVERIFY2(r.ok, qPrintable(r.error));
    QCOMPARE(b.record(a2).Status.text(), QStringLiteral("OP"));
    QVERIFY(b.record(a2).DateClear.isBlank());
    QCOMPARE(StatementBook::expectedStart(b.records()), money("150"));
    // Twice is refused, and an open record cannot be un-cleared.
    QVERIFY(!book.unclear(b.bank, b.name, a2).ok);
    QVERIFY(!book.unclear(b.bank, b.name, b2).ok);
}

void TestStatement::vanishedAccountOrRegisterWritesNothing()
{
    Books b;
    const int pay = b.add(entry("pay", 2000));
    // Another name than the one listed: the account was renamed or removed.
    auto r
        = StatementBook(b.files).clear(b.bank, QStringLiteral("Other"), QDate(2026, 9, 30), {pay});
    QVERIFY(!r.ok);
    QVERIFY(StatementBook(b.files).correct(99, b.name, money("1"), {}, {}).error.contains(b.name));

    QVERIFY(QFile::remove(b.path()));
    const auto before = folderSnapshot(b.dir.path());
    r = StatementBook(b.files).clear(b.bank, b.name, QDate(2026, 9, 30), {pay});
    QVERIFY(!r.ok);
    QVERIFY(r.error.contains(QStringLiteral("missing")));
    QVERIFY(!StatementBook(b.files).correct(b.bank, b.name, money("1"), {}, {}).ok);
    QVERIFY(folderSnapshot(b.dir.path()) == before); // not even started again
}

QTEST_GUILESS_MAIN(TestStatement)
#include "tst_statement.moc"
