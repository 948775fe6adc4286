#include "exchange/CsvExport.h"
#include "exchange/JournalExport.h"
#include "exchange/QifExport.h"
#include "exchange/RegisterExport.h"

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

namespace {

// A checking account and a card with one entry of every kind: opening
// balances, a deposit, a check, a purchase, both sides of transfers with a
// savings account, both sides of a card payment, a void and a card charge.
struct Fixture
{
    struct Entry
    {
        const char *type, *date, *payee, *category, *memo;
        qint64 cents;
        const char *cls, *cleared, *from = "", *to = "";
        int fromRecord = 0;
    };
    static std::vector<TransRecord> build(const std::vector<Entry> &entries)
    {
        std::vector<TransRecord> out;
        for (const Entry &e : entries) {
            TransRecord r;
            r.Type = QString::fromUtf8(e.type);
            r.Date = e.date;
            r.Description = QString::fromUtf8(e.payee);
            r.BudName = e.category;
            r.Memo = e.memo;
            r.Amount = Currency::fromCents(e.cents);
            r.TransClass = e.cls;
            r.DateClear = e.cleared;
            r.Status = *e.cleared ? QStringLiteral("CL") : QStringLiteral("OP");
            r.PaidFromBankName = e.from;
            r.PaidToBankName = e.to;
            r.PaidFromBankTransRecNum = std::int16_t(e.fromRecord);
            out.push_back(r);
        }
        return out;
    }
    static BankAcctRecord account(const char *name, const char *type)
    {
        BankAcctRecord a;
        a.BankName = name;
        a.Type = type;
        return a;
    }

    std::vector<BankAcctRecord> accounts
        = {account("Main Checking", "CH"), account("Rainy Day", "SV"), account("Visa; Gold", "CC")};
    std::vector<TransRecord> checking = build({
        {"Starting Balance", "01/01/2026", "New Account", "na", "Initial deposit", 100000,
         "Norm Trans", "01/31/2026"},
        {"Deposit", "01/02/2026", "Acme, Inc.", "Salary", "Pay \"January\"", 250000, "Norm Trans",
         ""},
        {" 1001", "01/03/2026", "City  Water", "Utilities", "", -4550, "Norm Trans", "01/31/2026"},
        {"Debit Card", "01/04/2026", "Café Grocer", "Food", "", -8210, "Norm Trans", ""},
        {"Withdrawal", "01/05/2026", "To savings", "", "", -20000, "Transfer From", "",
         "Main Checking", "Rainy Day", 5},
        {"Deposit", "01/06/2026", "From savings", "", "", 5000, "Transfer To", "", "Rainy Day",
         "Main Checking", 2},
        {"Payment", "01/07/2026", "Visa payment", "Visa; Gold", "", -30000, "PayCC BankLedger", "",
         "Main Checking", "Visa; Gold", 7},
        {"Void", "01/08/2026", "Void", "na", "", 0, "Norm Trans", ""},
    });
    std::vector<TransRecord> card = build({
        {"Starting Balance", "01/01/2026", "New Account", "na", "", -12000, "CC Trans", ""},
        {"Charge", "01/09/2026", "Cafe", "Dining", "", -3000, "CC Trans", ""},
        {"Payment", "01/07/2026", "Visa payment", "na", "", 30000, "PayCC CCLedger", "",
         "Main Checking", "Visa; Gold", 7},
    });

    ExportSet checkingSet() const { return ExportSet::ofRegister(accounts[0], checking, accounts); }
    ExportSet cardSet() const { return ExportSet::ofRegister(accounts[2], card, accounts); }
    // Both registers, as a search of every account finds them.
    ExportSet bothSet() const
    {
        ExportSet both = checkingSet();
        for (std::size_t i = 0; i < card.size(); ++i)
            both.addRow("Visa; Gold", int(i) + 1, card[i]);
        return both;
    }
};

} // namespace

class TestExport : public QObject
{
    Q_OBJECT

    static QStringList lines(const QByteArray &bytes, const QString &end)
    {
        QStringList out = QString::fromUtf8(bytes).split(end);
        if (!out.isEmpty() && out.last().isEmpty())
            out.removeLast();
        return out;
    }

private Q_SLOTS:
    // Fields quoted for CSV and names made safe for the journal.
    void fieldsMadeSafe()
    {
        const QStringList csv[] = {{"Grocer", "Grocer"},
                                   {"Acme, Inc.", "\"Acme, Inc.\""},
                                   {"say \"hi\"", "\"say \"\"hi\"\"\""},
                                   {"two\nlines", "\"two\nlines\""},
                                   {"Café", "Café"}};
        for (const QStringList &c : csv)
            QCOMPARE(CsvExport::quoted(c[0]), c[1]);
        const QStringList journal[] = {{"Car  Loan", "Car Loan"},
                                       {" Car\tLoan ", "Car Loan"},
                                       {"Home:Repairs", "Home-Repairs"},
                                       {"A;B", "A,B"},
                                       {"401k", "401k"},
                                       {"", "unnamed"}};
        for (const QStringList &c : journal)
            QCOMPARE(JournalExport::safeName(c[0]), c[1]);
    }

    void csvLines()
    {
        Fixture f;
        for (const auto form : {CsvExport::DateForm::Iso, CsvExport::DateForm::MonthDayYear}) {
            const bool iso = form == CsvExport::DateForm::Iso;
            const QStringList got = lines(CsvExport::write(f.checkingSet(), form), "\r\n");
            QCOMPARE(got.size(), 9);
            QCOMPARE(got[0],
                     "Account,Date,Type,Number,Payee,Category,Memo,Amount,Cleared,Date Cleared");
            QCOMPARE(got[2], QString("Main Checking,%1,Deposit,,\"Acme, Inc.\",Salary,"
                                     "\"Pay \"\"January\"\"\",2500.00,no,")
                                 .arg(iso ? "2026-01-02" : "01/02/2026"));
            QCOMPARE(got[3], QString("Main Checking,%1,Check,1001,City  Water,Utilities,,"
                                     "-45.50,yes,%2")
                                 .arg(iso ? "2026-01-03" : "01/03/2026",
                                      iso ? "2026-01-31" : "01/31/2026"));
            // Transfers and card payments name the other account as their category.
            QVERIFY(got[5].endsWith(",Withdrawal,,To savings,[Rainy Day],,-200.00,no,"));
            QVERIFY(got[6].endsWith(",From savings,[Rainy Day],,50.00,no,"));
            QVERIFY(got[7].endsWith(",Visa payment,[Visa; Gold],,-300.00,no,"));
            QVERIFY(got[8].endsWith(",Void,,Void,,,0.00,no,"));
        }
    }

    void qifLines()
    {
        Fixture f;
        const QifExport::Output out = QifExport::write(f.checkingSet());
        QVERIFY(out.bytes.contains("PCaf\xc3\xa9 Grocer")); // UTF-8
        QCOMPARE(out.written, 7);                           // the void is left out
        QCOMPARE(lines(out.bytes, "\r\n").join('|'),
                 "!Type:Bank|D01/01/2026|T1000.00|CX|PNew Account|MInitial deposit|"
                 "L[Main Checking]|^|D01/02/2026|T2500.00|PAcme, Inc.|MPay \"January\"|LSalary|^|"
                 "D01/03/2026|T-45.50|CX|N1001|PCity  Water|LUtilities|^|"
                 "D01/04/2026|T-82.10|PCafé Grocer|LFood|^|D01/05/2026|T-200.00|PTo savings|"
                 "L[Rainy Day]|^|D01/06/2026|T50.00|PFrom savings|L[Rainy Day]|^|"
                 "D01/07/2026|T-300.00|PVisa payment|L[Visa; Gold]|^");
        const QStringList card = lines(QifExport::write(f.cardSet()).bytes, "\r\n");
        QCOMPARE(card.first(), "!Type:CCard");
        QVERIFY(card.contains("L[Main Checking]"));
        // Several accounts: each list is named by an account block.
        QVERIFY(lines(QifExport::write(f.bothSet()).bytes, "\r\n")
                    .join('|')
                    .contains("^|!Account|NVisa; Gold|TCCard|^|!Type:CCard|D01/01/2026|"));
    }

    void journalLines()
    {
        Fixture f;
        const JournalExport::Output out = JournalExport::write(f.checkingSet());
        QCOMPARE(out.written, 7);
        const QString got = lines(out.bytes, "\n").join('|');
        for (const char *entry : {
                 "|2026-01-01 * New Account  ; Initial deposit|"
                 "    assets:bank:Main Checking  $1000.00|"
                 "    equity:opening balances    $-1000.00|",
                 "|2026-01-03 * (1001) City Water|    assets:bank:Main Checking  $-45.50|"
                 "    expenses:Utilities         $45.50|",
                 "|2026-01-02 Acme, Inc.  ; Pay \"January\"|"
                 "    assets:bank:Main Checking  $2500.00|    income:Salary              "
                 "$-2500.00|",
                 "|    liabilities:card:Visa, Gold  $300.00",
                 "|    assets:bank:Rainy Day      $200.00|",
             })
            QVERIFY2(got.contains(entry), entry);
    }

    // hledger reads each journal, and its balances are the accounts' own;
    // with both registers in one file the card payment is counted once.
    void journalBalancesInHledger()
    {
        const QString hledger = QStandardPaths::findExecutable("hledger");
        if (hledger.isEmpty())
            QSKIP("hledger is not installed");
        Fixture f;
        const QString checking = "$2922.40 assets:bank:Main Checking";
        const struct
        {
            ExportSet set;
            QStringList balances;
        } cases[] = {
            {f.checkingSet(),
             {checking, "$150.00 assets:bank:Rainy Day", "$300.00 liabilities:card:Visa, Gold"}},
            {f.cardSet(),
             {"$-300.00 assets:bank:Main Checking", "$150.00 liabilities:card:Visa, Gold"}},
            {f.bothSet(),
             {checking, "$150.00 assets:bank:Rainy Day", "$150.00 liabilities:card:Visa, Gold"}},
        };
        QTemporaryDir dir;
        for (const auto &c : cases) {
            const QString path = dir.filePath("exported.journal");
            QVERIFY(RegisterExport::write(c.set, path).ok);
            QProcess run;
            run.start(hledger, {"-f", path, "balance", "--flat", "--no-total"});
            QVERIFY(run.waitForFinished(30000));
            QCOMPARE(QString::fromUtf8(run.readAllStandardError()), QString());
            const QStringList got = lines(run.readAllStandardOutput(), "\n")
                                        .filter(QRegularExpression("(assets|liabilities):"))
                                        .replaceInStrings(QRegularExpression("^ +| (?= )"), "");
            QCOMPARE(got, c.balances);
        }
    }

    // The file appears whole or not at all; the ending chooses the format.
    void writingFiles()
    {
        Fixture f;
        QTemporaryDir dir;
        QVERIFY(RegisterExport::write(f.checkingSet(), dir.filePath("old.qif")).ok);
        QCOMPARE(RegisterExport::write(f.checkingSet(), dir.filePath("a.txt")).error,
                 RegisterExport::UnknownEnding);
        const RegisterExport::Result failed
            = RegisterExport::write(f.checkingSet(), dir.filePath("no such folder/a.csv"));
        QVERIFY(failed.error.startsWith("Could not write a.csv: "));
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files), QStringList({"old.qif"}));

        // Nothing is written among the program's own files.
        const QString data = dir.filePath("Data");
        QVERIFY(RegisterExport::inDataFolder(data + "/Quillmere.journal", data));
        QVERIFY(RegisterExport::inDataFolder(data + "/sub/../a.csv", data));
        QVERIFY(!RegisterExport::inDataFolder(data + " copy/a.csv", data));
        QVERIFY(!RegisterExport::inDataFolder(dir.filePath("a.csv"), data));
    }

    // An entry whose stored date is no date keeps its text in a CSV file and
    // is left out, and counted, where a date is required.
    void unreadableDate()
    {
        Fixture f;
        f.checking[1].Date = QString("13/45/2026");
        ExportSet set = f.checkingSet();
        QVERIFY(CsvExport::write(set, CsvExport::DateForm::Iso).contains(",13/45/2026,Deposit,"));
        QCOMPARE(QifExport::write(set).skipped, 1);
        QCOMPARE(JournalExport::write(set).skipped, 1);
        QVERIFY(!JournalExport::write(set).bytes.contains("Acme"));
    }
};

QTEST_GUILESS_MAIN(TestExport)
#include "tst_export.moc"
