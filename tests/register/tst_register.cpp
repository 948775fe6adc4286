#include "FolderSnapshot.h"
#include "accounts/AccountBook.h"
#include "accounts/AccountNames.h"
#include "accounts/AccountService.h"
#include "core/EntryChecks.h"
#include "records/AccountKinds.h"
#include "records/PayeeRecord.h"
#include "records/RecordFile.h"
#include "records/TransactionTemplate.h"
#include "records/TransactionTypes.h"
#include "records/UnitOfWork.h"
#include "register/AccountPosting.h"
#include "register/CheckNumbers.h"
#include "register/EntryRules.h"
#include "register/PayeeBook.h"
#include "register/RegisterRefusals.h"
#include "register/RegisterService.h"
#include "register/ViewRange.h"

#include <QTemporaryDir>
#include <QtTest>

using EntryRules::Input;
Q_DECLARE_METATYPE(EntryRules::Input)

namespace {

QString overdrawn(const char *amount, const char *balance, const char *by)
{
    return QStringLiteral(
               "The transaction amount of %1 exceeds the Everyday balance of %2 by %3.\n\n"
               "     ---- The Account will go negative. ----")
        .arg(QLatin1String(amount), QLatin1String(balance), QLatin1String(by));
}

Input entry(const QString &type, const QString &amount,
            const QString &date = QStringLiteral("03/01/2025"))
{
    Input in;
    in.typeText = type;
    in.payee = QStringLiteral("  Corner Grocer ");
    in.amountText = amount;
    in.dateText = date;
    return in;
}

// A checking account "Everyday" opened with 100.00; returns its number.
int openEveryday(const DataFiles &files)
{
    return AccountService(files)
        .add({0, QStringLiteral("Everyday"), true, QStringLiteral("100.00"), false,
              QDate(2025, 1, 1)})
        .bankNum;
}

TransRecord newRecord(const BankAcctRecord &account, const Input &in)
{
    return EntryRules::fillRecord(TransactionTemplate::blank(), in, account, 0);
}

TransRecord dated(const char *date, qint64 cents)
{
    TransRecord r;
    r.Date = QString::fromLatin1(date);
    r.Amount = Currency::fromCents(cents);
    return r;
}

} // namespace

class TestRegister : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void balanceWarning_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("amount");
        QTest::addColumn<qint64>("balance");   // cents
        QTest::addColumn<qint64>("oldAmount"); // cents as stored; not 0: a change
        QTest::addColumn<int>("card");
        QTest::addColumn<QString>("warning");
        QTest::addColumn<bool>("notice");

        auto row = [](const char *name, const char *type, const char *amount, qint64 balance,
                      qint64 oldAmount, int card, const QString &warning, bool notice = false) {
            QTest::newRow(name) << QString(type) << QString(amount) << balance << oldAmount << card
                                << warning << notice;
        };
        row("to exactly zero", "Withdrawal", "100.00", 100'00LL, 0LL, 0, QString());
        row("one cent over", "Withdrawal", "100.01", 100'00LL, 0LL, 0,
            overdrawn("$100.01", "$100.00", "$0.01"));
        row("check over", "Check # 1001", "1,250", 1'000'00LL, 0LL, 0,
            overdrawn("$1,250.00", "$1,000.00", "$250.00"));
        row("change 50 into 60", "Withdrawal", "60.00", 5'00LL, -50'00LL, 0,
            overdrawn("$60.00", "$55.00", "$5.00"));
        row("change 50 into 55", "Withdrawal", "55.00", 5'00LL, -50'00LL, 0, QString());
        row("deposit", "Deposit", "5000", 0LL, 0LL, 0, QString());
        row("deposit on a card", "Deposit", "5", 10'00LL, 0LL, 2, QString(), true);
        row("auto charge, balance up", "Auto Charge", "1,000,000", 1'00LL, 0LL, 0, QString());
        row("auto charge, balance down", "Auto Charge", "10", -1'00LL, 0LL, 0,
            overdrawn("$0.00", "($1.00)", "$1.00"));
        row("auto charge on a card", "Auto Charge", "10", 50'00LL, 0LL, 1, QString(), true);
        row("withdrawal on a card", "Withdrawal", "10", 50'00LL, 0LL, 1, QString());
        row("opening debit", "Starting Balance", "10", 0LL, 0LL, 1,
            overdrawn("$10.00", "$0.00", "$10.00"));
    }

    void balanceWarning()
    {
        QFETCH(QString, type);
        QFETCH(QString, amount);
        QFETCH(qint64, balance);
        QFETCH(qint64, oldAmount);
        QFETCH(int, card);

        Input in = entry(type, amount);
        in.cardIndex = card;
        in.debit = true; // only the opening entry reads it
        const auto check = EntryRules::checkAccountBalance(
            in, QStringLiteral("Everyday"), Currency::fromCents(balance), oldAmount != 0,
            Currency::fromCents(oldAmount));
        QTEST(check.warning.value_or(QString()), "warning");
        QTEST(check.incorrectPaymentType, "notice");
    }

    void refusals_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<Input>("in");
        QTest::addColumn<QString>("text");  // empty: accepted
        QTest::addColumn<QString>("title"); // empty: the error label, else a message box

        const QString ok;
        const QString date = EntryChecks::BadDateText, dateT = EntryChecks::BadDateTitle;
        const QString type = EntryRules::UnknownType, cat = EntryRules::SelectCategory;
        auto row = [](const char *name, const char *type, const char *amount,
                      const char *date = "03/01/2025", int bud = 0, int card = 0,
                      const char *kind = "CH") -> QTestData & {
            Input in = entry(QString::fromLatin1(type), QString::fromLatin1(amount),
                             QString::fromLatin1(date));
            in.budgetIndex = bud;
            in.cardIndex = card;
            return QTest::newRow(name) << QString::fromLatin1(kind) << in;
        };

        row("only the date missing", "Nonsense", "abc", "", -1, 3) << EntryRules::CompleteAll << ok;
        row("no category selected", "Nonsense", "abc", "02/30/2025", -1) << cat << ok;
        row("no card selected", "Withdrawal", "5", "03/01/2025", 0, -1) << cat << ok;
        row("category and card", "Withdrawal", "5", "03/01/2025", 2, 1) << cat << ok;
        row("card alone", "Withdrawal", "5", "03/01/2025", 0, 2) << ok << ok;
        row("february 30", "Nonsense", "abc", "02/30/2025") << date << dateT;
        row("month 13", "Withdrawal", "5", "13/01/2025") << date << dateT;
        row("single digits, short year", "Withdrawal", "5", "1/1/25") << ok << ok;
        row("unknown type", "Transfer", "abc") << type << ok;
        row("next check unsettled", "Next Check #", "5") << type << ok;
        row("check without number", "Check #", "5") << type << ok;
        row("check too large", "Check #99999999999", "abc")
            << CheckNumbers::TooLargeText << CheckNumbers::TooLargeTitle;
        row("largest check", "Check #2147483647", "5") << ok << ok;
        row("not a number", "Withdrawal", "12x") << "The amount must be a number" << ok;
        row("negative", "Withdrawal", "-5")
            << "Type the amount without a sign: the type gives it its sign" << ok;
        row("plus sign", "Withdrawal", "+5")
            << "Type the amount without a sign: the type gives it its sign" << ok;
        row("minus zero opening", "Starting Balance", " -0")
            << "Type the amount without a sign: the type gives it its sign" << ok;
        row("zero", "Withdrawal", "0.00") << "Enter an amount greater than zero" << ok;
        row("zero opening", "Starting Balance", "0") << ok << ok;
        row("ninety billion", "Deposit", "90,000,000,000")
            << EntryChecks::MaxAmountText << EntryChecks::MaxAmountTitle;
        row("just under", "Deposit", "89,999,999,999.99") << ok << ok;
        row("debit card in savings", "Debit Card", "5", "03/01/2025", 0, 0, "SV") << type << ok;
        row("withdrawal in a card", "Withdrawal", "5", "03/01/2025", 0, 0, "CC") << type << ok;
    }

    void refusals()
    {
        QFETCH(QString, kind);
        QFETCH(Input, in);
        QFETCH(QString, title);
        const auto refusal = EntryRules::validate(kind, in);
        QTEST(refusal ? refusal->text : QString(), "text");
        if (!refusal)
            return;
        QCOMPARE(refusal->title, title);
        QCOMPARE(refusal->where, title.isEmpty() ? EntryRules::Refusal::Where::Label
                                                 : EntryRules::Refusal::Where::MessageBox);
    }

    // Every type an account offers (beyond the two check prompts) is enterable and
    // gives the amount a sign, so that nothing is stored as zero or with the wrong sign.
    void offeredTypesCarryASign()
    {
        const QStringList deposits
            = {"Deposit", "ATM Deposit", "Direct Deposit", "Interest Received", "Credit"};
        for (const QString kind : {"CH", "SV", "MM", "CC"}) {
            const QStringList types = EntryRules::typesFor(kind);
            QCOMPARE(types.contains(CheckNumbers::NextCheck),
                     kind == QLatin1String("CH") || kind == QLatin1String("MM"));
            for (const QString &t : types) {
                if (t == CheckNumbers::NextCheck || t == CheckNumbers::EnterCheck)
                    continue;
                QVERIFY2(!EntryRules::validate(kind, entry(t, QStringLiteral("7"))),
                         qPrintable(QString(kind + t)));
                const Currency expected = Currency::fromUnits(deposits.contains(t) ? 7 : -7);
                QCOMPARE(EntryRules::signedAmount(entry(t, QStringLiteral("7"))), expected);
            }
        }
    }

    void checkNumbers()
    {
        using namespace CheckNumbers;
        QCOMPARE(numericValue(QStringLiteral(" 1001")), std::optional<std::int64_t>(1001));
        QCOMPARE(numericValue(QStringLiteral("00123")), std::optional<std::int64_t>(123));
        QVERIFY(!numericValue(QStringLiteral("Deposit")));

        std::vector<TransRecord> records(4);
        records[0].Type = QStringLiteral("Starting Balance");
        records[1].Type = QStringLiteral("123");
        records[2].Type = QStringLiteral(" 1001");
        records[3].Type
            = QStringLiteral("Check #77"); // a savings account's check: no number of the register
        QVERIFY(isDuplicate(records, *numericValue(QStringLiteral("00123"))));
        QVERIFY(isDuplicate(records, 1001));
        QVERIFY(!isDuplicate(records, 124));
        QVERIFY(!isDuplicate(records, 77));

        QCOMPARE(nextAfter(1000), std::optional<std::int32_t>(1001));
        QVERIFY(!nextAfter(2147483647));

        QVERIFY(acceptsKey(Qt::Key_0, QStringLiteral("0")));
        QVERIFY(acceptsKey(Qt::Key_Backspace, QString()));
        QVERIFY(!acceptsKey(Qt::Key_A, QStringLiteral("a")));
        QVERIFY(!acceptsKey(Qt::Key_Minus, QStringLiteral("-")));
        QVERIFY(!acceptsKey(Qt::Key_Delete, QString()));
    }

    // A number typed (or pasted) with separators is tested for a duplicate with
    // the number that is stored and shown: its digits.
    void typedCheckNumbers_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("outcome");
        QTest::addColumn<QString>("digits");
        using O = CheckNumbers::TypedNumber::Outcome;
        QTest::newRow("comma") << "1,234" << int(O::Duplicate) << "1234";
        QTest::newRow("blank") << " 1 234 " << int(O::Duplicate) << "1234";
        QTest::newRow("letter") << "12a34" << int(O::Duplicate) << "1234";
        QTest::newRow("leading zero") << "01234" << int(O::Duplicate) << "01234";
        QTest::newRow("pasted exponent") << "1e5" << int(O::Accepted) << "15";
        QTest::newRow("free") << "1,235" << int(O::Accepted) << "1235";
        QTest::newRow("too large") << "2,147,483,648" << int(O::TooLarge) << "2147483648";
        QTest::newRow("far too large")
            << "99999999999999999999999" << int(O::TooLarge) << "99999999999999999999999";
        QTest::newRow("no digit") << "abc" << int(O::NotNumber) << "";
    }
    void typedCheckNumbers()
    {
        QFETCH(QString, typed);
        QFETCH(QString, digits);
        std::vector<TransRecord> records(1);
        records[0].Type = QStringLiteral("1234");
        const auto taken
            = [&records](std::int64_t n) { return CheckNumbers::isDuplicate(records, n); };
        const auto result = CheckNumbers::acceptTyped(typed, taken);
        QTEST(int(result.outcome), "outcome");
        QCOMPARE(result.digits, digits);
        if (result.outcome == CheckNumbers::TypedNumber::Outcome::NotNumber)
            return;
        // What the entry row then holds reads back as the number tested, and is stored so.
        const QString typeText = CheckNumbers::typedText(result.digits);
        QCOMPARE(CheckNumbers::numberOfTypeText(typeText), std::optional(result.number));
        QCOMPARE(CheckNumbers::storedTypeText(typeText), digits);
        QCOMPARE(CheckNumbers::numericValue(CheckNumbers::storedTypeText(typeText)),
                 std::optional(result.number));
    }

    // A check typed straight into the type box is stored with the number it was checked by.
    void typedCheckTypeStored()
    {
        BankAcctRecord account;
        account.Type = QStringLiteral("CH");
        const TransRecord typed
            = newRecord(account, entry(QStringLiteral("Check #1,234"), QStringLiteral("5")));
        QCOMPARE(typed.Type.text(), QStringLiteral("1234"));
        const TransRecord offered
            = newRecord(account, entry(QStringLiteral("Check # 1001"), QStringLiteral("5")));
        QCOMPARE(offered.Type.text(), QStringLiteral(" 1001"));
    }

    // Expected: Type|TypeNum|Amount|BudName|BudNum|TransClass|CCBankName|CCBankNum|CCBudNum
    void filledRecord_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("type");
        QTest::addColumn<int>("bud");
        QTest::addColumn<QString>("stored");

        auto row = [](const char *name, const char *kind, const QString &type, int bud,
                      const char *stored) {
            QTest::newRow(name) << QString(kind) << type << bud << QString(stored);
        };
        row("withdrawal, category", "CH", "Withdrawal", 2,
            "Withdrawal|7|-25|Groceries|7|Norm Trans|na|0|0");
        row("next check", "CH", CheckNumbers::offeredText(1001), 0,
            " 1001|6|-25|na|0|Norm Trans|na|0|0");
        row("typed check", "MM", "Check #00123", 0, "00123|6|-25|na|0|Norm Trans|na|0|0");
        row("check in savings", "SV", "Check #12", 0, "Check #12|6|-25|na|0|Norm Trans|na|0|0");
        row("check in a card", "CC", "Check #12", 0, "Check #12|6|-25|na|0|CC Trans|Visa|4|9");
        row("charge", "CC", "Charge", 2, "Charge|14|-25|Groceries|7|CC Trans|Visa|4|9");
        row("card credit", "CC", " Credit ", 0, "Credit|5|25|na|0|CC Trans|Visa|4|9");
    }

    void filledRecord()
    {
        QFETCH(QString, kind);
        QFETCH(QString, type);
        QFETCH(int, bud);
        BankAcctRecord account;
        account.BankNum = 4;
        account.Type = kind;
        account.BankName
            = kind == QLatin1String("CC") ? QStringLiteral("Visa") : QStringLiteral("Everyday");
        Input in = entry(type, QStringLiteral("$25"), QStringLiteral("1/1/25"));
        in.budgetIndex = bud;
        in.budNum = 7;
        in.budName = QStringLiteral("Groceries");
        const TransRecord r = EntryRules::fillRecord(TransactionTemplate::blank(), in, account, 9);

        const QStringList stored
            = {r.Type.text(),       QString::number(r.TypeNum),   r.Amount.toPlainText(),
               r.BudName.text(),    QString::number(r.BudNum),    r.TransClass.text(),
               r.CCBankName.text(), QString::number(r.CCBankNum), QString::number(r.CCBudNum)};
        QTEST(stored.join(QLatin1Char('|')), "stored");
        QCOMPARE(r.Date.text(), QStringLiteral("01/01/2025"));
        QCOMPARE(r.Description.text(), QStringLiteral("Corner Grocer"));
        QCOMPARE(r.Status.text(), TransactionTemplate::Open);
        QVERIFY(r.DateClear.isBlank() && r.PaidFromBankName.isBlank());
    }

    void addChangeVoidOnDisk()
    {
        QTemporaryDir dir;
        const DataFiles files(dir.path(), false);
        const int bank = openEveryday(files);
        const BankAcctRecord account = AccountBook(files).read(bank);

        RegisterService service(files);
        auto r
            = service.add(bank, newRecord(account, entry(CheckNumbers::offeredText(1005), "10")));
        QVERIFY2(r.ok, qPrintable(r.error));
        QCOMPARE(r.recordNumber, 2);
        QCOMPARE(r.account.NextCheckNum, 1005);
        // An older number typed by hand becomes the last number: no maximum is kept.
        r = service.add(bank, newRecord(account, entry(QStringLiteral("Check #1001"), "5")));
        QCOMPARE(r.recordNumber, 3);
        QCOMPARE(r.account.NextCheckNum, 1001);
        r = service.add(bank, newRecord(account, entry(QStringLiteral("Deposit"), "20")));
        QCOMPARE(r.recordNumber, 4);
        QCOMPARE(r.account.NextCheckNum, 1001);
        QCOMPARE(r.account.Balance, Currency::fromUnits(105));

        std::vector<TransRecord> recs
            = RegisterService(files).load(AccountBook(files).read(bank)).records;
        QCOMPARE(recs.size(), std::size_t(4));
        QCOMPARE(int(recs[3].Tranno), 4);

        // A change keeps the record's place and what the entry does not set.
        TransRecord base = recs[1];
        base.Status = TransactionTemplate::Cleared;
        base.DateClear = QStringLiteral("03/05/2025");
        r = service.change(
            bank, 2,
            EntryRules::fillRecord(base, entry(CheckNumbers::offeredText(1005), "30"), account, 0));
        QVERIFY(r.ok);
        QCOMPARE(r.account.Balance, Currency::fromUnits(85));
        QCOMPARE(r.account.NextCheckNum, 1001); // same check number: left alone
        r = service.change(
            bank, 3,
            EntryRules::fillRecord(recs[2], entry(QStringLiteral("Check #1010"), "5"), account, 0));
        QCOMPARE(r.account.NextCheckNum, 1010);
        QCOMPARE(r.account.Balance, Currency::fromUnits(85));
        r = service.change(
            bank, 4,
            EntryRules::fillRecord(recs[3], entry(QStringLiteral("Withdrawal"), "20"), account, 0));
        QCOMPARE(r.account.Balance, Currency::fromUnits(45));
        QVERIFY(!service.change(bank, 5, recs[3]).ok);

        r = service.voidRecord(bank, 2);
        QVERIFY2(r.ok, qPrintable(r.error));
        QCOMPARE(r.account.Balance, Currency::fromUnits(75));
        QCOMPARE(r.account.NextCheckNum, 1010);
        QVERIFY(!service.voidRecord(bank, 2).ok); // void already
        QVERIFY(!service.voidRecord(bank, 1).ok); // the opening entry
        QVERIFY(service.setViewFrom(bank, QStringLiteral("03/01/2025")).ok);

        // Read back from disk, as after a restart.
        const BankAcctRecord stored = AccountBook(files).read(bank);
        QCOMPARE(stored.Balance, Currency::fromUnits(75));
        QCOMPARE(stored.NextCheckNum, 1010);
        QCOMPARE(stored.ViewFromDate.text(), QStringLiteral("03/01/2025"));
        QCOMPARE(int(stored.ViewOption), 1);
        recs = RegisterService(files).load(stored).records;
        QCOMPARE(recs.size(), std::size_t(4));
        QCOMPARE(ViewRange::runningBalances(recs).back(), stored.Balance);
        const TransRecord &voided = recs[1];
        QCOMPARE(voided.Description.text(), QStringLiteral("Void"));
        QVERIFY(voided.Amount.isZero());
        QCOMPARE(voided.Status.text(), TransactionTemplate::Cleared);
        QCOMPARE(int(voided.Tranno), 2);
        QCOMPARE(recs[2].Type.text(), QStringLiteral("1010"));
        QCOMPARE(recs[3].Amount, Currency::fromUnits(-20));
    }

    // Balances move by the difference; the last check number follows a new
    // check number in a checking or money-market account only, and only when
    // it fits in 32 bits.
    void accountPostings()
    {
        const auto check = [](const char *number, qint64 cents) {
            TransRecord r;
            r.Type = QString::fromLatin1(number);
            r.TypeNum = TransactionTypes::TypeNum::Check;
            r.Amount = Currency::fromCents(cents);
            return r;
        };
        BankAcctRecord a;
        a.Type = AccountKinds::MoneyMarket;
        a.Balance = Currency::fromCents(100'00);
        a.NextCheckNum = 1000;

        const TransRecord first = check("1001", -20'00);
        AccountPosting::apply(a, nullptr, first);
        QCOMPARE(a.Balance, Currency::fromCents(80'00));
        QCOMPARE(a.NextCheckNum, 1001);

        a.NextCheckNum = 1005; // a later check was written since
        const TransRecord sameNumber = check("1001", -25'00);
        AccountPosting::apply(a, &first, sameNumber);
        QCOMPARE(a.Balance, Currency::fromCents(75'00));
        QCOMPARE(a.NextCheckNum, 1005);

        AccountPosting::apply(a, &sameNumber, check("2147483648", -25'00));
        QCOMPARE(a.NextCheckNum, 1005);
        AccountPosting::apply(a, nullptr, check("2147483647", 0));
        QCOMPARE(a.NextCheckNum, 2147483647);

        TransRecord voided = TransactionTemplate::blank();
        voided.Type = QStringLiteral("Void");
        AccountPosting::apply(a, &sameNumber, voided);
        QCOMPARE(a.Balance, Currency::fromCents(100'00));
        QCOMPARE(a.NextCheckNum, 2147483647);

        a.Type = AccountKinds::Savings;
        AccountPosting::apply(a, nullptr, check("7", -1'00));
        QCOMPARE(a.NextCheckNum, 2147483647);
        QCOMPARE(a.Balance, Currency::fromCents(99'00));
    }

    void fullRegisterRefused()
    {
        QTemporaryDir dir;
        const DataFiles files(dir.path(), false);
        const int bank = openEveryday(files);
        QFile reg(files.registerFile(QStringLiteral("Everyday")));
        QVERIFY(reg.resize(qint64(RawRecordFile::MaxRecords) * TransRecord::Size));
        const auto before = folderSnapshot(dir.path());

        const BankAcctRecord account = AccountBook(files).read(bank);
        const auto r = RegisterService(files).add(
            bank, newRecord(account, entry(QStringLiteral("Deposit"), "1")));
        QVERIFY(!r.ok);
        QCOMPARE(r.title, RegisterRefusals::FullTitle);
        QVERIFY(folderSnapshot(dir.path()) == before);
    }

    void missingRegister()
    {
        QTemporaryDir dir;
        const DataFiles files(dir.path(), false);
        const int bank = openEveryday(files);
        const QString path = files.registerFile(QStringLiteral("Everyday"));
        const BankAcctRecord account = AccountBook(files).read(bank);

        QVERIFY(QFile::remove(path));
        auto expected = folderSnapshot(dir.path());
        expected.insert(QFileInfo(path).fileName(), QByteArray());
        const auto r = RegisterService(files).add(
            bank, newRecord(account, entry(QStringLiteral("Deposit"), "1")));
        QVERIFY(!r.ok);
        QCOMPARE(r.title, RegisterRefusals::MissingTitle);
        QVERIFY(folderSnapshot(dir.path()) == expected);

        QVERIFY(QFile::remove(path));
        const auto loaded = RegisterService(files).load(account);
        QVERIFY(loaded.recreated);
        QVERIFY(loaded.error.isEmpty() && loaded.records.empty());
        QVERIFY(folderSnapshot(dir.path()) == expected);
    }

    // An account list damaged on disk can hold a name with "/" or a NUL byte: no
    // file is built from it; the register is not opened and nothing is written.
    void damagedAccountName_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("slash") << QStringLiteral("a/b");
        QTest::newRow("nul") << QStringLiteral("a") + QChar(0) + QStringLiteral("b");
        QTest::newRow("dots") << QStringLiteral("..");
    }
    void damagedAccountName()
    {
        QFETCH(QString, name);
        QTemporaryDir dir;
        const DataFiles files(dir.path(), false);
        const int bank = openEveryday(files);
        UnitOfWork unit(dir.path());
        BankAcctRecord account = AccountBook(files).read(bank);
        account.BankName = name;
        unit.write(files.accountList(), bank, account);
        QVERIFY(unit.commit());
        account = AccountBook(files).read(bank);
        QCOMPARE(account.BankName.text(), name);

        const auto before = folderSnapshot(dir.path());
        const auto loaded = RegisterService(files).load(account);
        QCOMPARE(loaded.title, AccountNames::DamagedTitle);
        QVERIFY(loaded.error.contains(QStringLiteral("Its register is not opened")));
        QVERIFY(!loaded.recreated && loaded.records.empty());
        const auto added = RegisterService(files).add(
            bank, newRecord(account, entry(QStringLiteral("Deposit"), "1")));
        QVERIFY(!added.ok);
        QCOMPARE(added.title, AccountNames::DamagedTitle);
        QVERIFY(folderSnapshot(dir.path()) == before);
        QVERIFY(!QFileInfo::exists(dir.path() + QStringLiteral("/trans a")));

        // Renamed, the account is usable again; its register starts afresh.
        QVERIFY(AccountService(files).rename(bank, QStringLiteral("Mended")).ok);
        QCOMPARE(QDir(dir.path()).entryList(QDir::Dirs | QDir::NoDotAndDotDot), QStringList());
        account = AccountBook(files).read(bank);
        const auto reopened = RegisterService(files).load(account);
        QVERIFY(reopened.error.isEmpty() && reopened.recreated);
        QVERIFY(RegisterService(files)
                    .add(bank, newRecord(account, entry(QStringLiteral("Deposit"), "1")))
                    .ok);
    }

    void viewRange_data()
    {
        QTest::addColumn<QString>("from");
        QTest::addColumn<int>("first");

        QTest::newRow("all") << "All" << 1;
        QTest::newRow("before every record") << "12/31/2024" << 1;
        QTest::newRow("between, entry order wins")
            << "01/03/2025" << 2; // record 4 bears 01/03 but comes later
        QTest::newRow("short form") << "1/6/25" << 3;
        QTest::newRow("skips an earlier date") << "01/11/2025" << 5;
        QTest::newRow("on the last") << "01/25/2025" << 6;
        QTest::newRow("after the last") << "02/01/2025" << 7;
    }

    void viewRange()
    {
        QFETCH(QString, from);
        QFETCH(int, first);

        const std::vector<TransRecord> recs
            = {dated("01/01/2025", 100'00), dated("01/05/2025", -10'00), dated("01/10/2025", 20'00),
               dated("01/03/2025", -5'00),  dated("01/20/2025", 7'00),   dated("01/25/2025", 3'00)};
        QCOMPARE(ViewRange::firstShown(recs, from), first);
        QCOMPARE(ViewRange::runningBalances(recs)[4], Currency::fromUnits(112));
        QVERIFY(ViewRange::isValid(from) && !ViewRange::isValid(QStringLiteral("soon")));
        QCOMPARE(ViewRange::storedForm(QStringLiteral(" aLL ")), ViewRange::All);
        QCOMPARE(ViewRange::storedForm(QStringLiteral("1/6/25")), QStringLiteral("01/06/2025"));
    }

    void payees()
    {
        QTemporaryDir dir;
        const DataFiles files(dir.path(), false);
        PayeeBook book(files);
        const QStringList names = {"Alpha", "Bravo", "Charlie", "Delta", "Echo"};
        for (int i = 0; i < names.size(); ++i)
            QCOMPARE(book.add(i % 2 ? 2 : 1, "Account", names[i]).recordNumber, i + 1);

        QVERIFY(book.remove(3).ok);
        const auto added = book.add(2, QStringLiteral("Savings"), QStringLiteral("  Foxtrot "));
        QCOMPARE(added.recordNumber, 3);
        QCOMPARE(book.count(), 5);
        const PayeeRecord stored = RecordFile<PayeeRecord>(files.payees()).read(3);
        QCOMPARE(QStringList({QString::number(stored.PayeeNum), QString::number(stored.BankNum),
                              stored.BankName.text(), stored.Payee.text()}),
                 QStringList({"3", "2", "Savings", "Foxtrot"}));

        // A text already saved is refused, also when a free record lies before it.
        QVERIFY(book.remove(2).ok);
        QVERIFY(!book.add(1, "Account", QStringLiteral("ECHO")).ok);
        QVERIFY(!book.add(1, "Account", QStringLiteral(" alpha")).ok);
        QVERIFY(!book.add(1, "Account", QStringLiteral("  ")).ok);
        QCOMPARE(book.add(1, "Account", QStringLiteral(" Deleted ")).error,
                 QStringLiteral("\"Deleted\" cannot be a payee"));
        QVERIFY(!book.remove(0).ok);
        QVERIFY(!book.remove(6).ok);

        // Records written by an older list may hold the same text under two accounts.
        UnitOfWork unit(dir.path());
        unit.write(files.payees(), 6,
                   PayeeRecord{6, 1, QStringLiteral("Account"), QStringLiteral("delta")});
        QVERIFY(unit.commit());

        auto listed = [&book](int bank) {
            QStringList out;
            for (const PayeeBook::Entry &e : book.listFor(bank))
                out << e.payee + QLatin1Char('@') + QString::number(e.recordNumber);
            return out;
        };
        QCOMPARE(listed(1), QStringList({"Alpha@1", "Echo@5", "delta@6", "Foxtrot@3"}));
        QCOMPARE(listed(2), QStringList({"Foxtrot@3", "Delta@4", "Alpha@1", "Echo@5"}));
        QCOMPARE(book.add(1, "Account", QStringLiteral("Golf")).recordNumber, 2);
    }
};

QTEST_GUILESS_MAIN(TestRegister)
#include "tst_register.moc"
