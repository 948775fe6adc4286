#include "ExportFixture.h"
#include "exchange/CsvExport.h"
#include "exchange/JournalExport.h"
#include "exchange/QifExport.h"
#include "exchange/RegisterExport.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

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
        ExportFixture f;
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
        ExportFixture f;
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
        ExportFixture f;
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
        ExportFixture f;
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
            QStringList got;
            for (const QString &line : lines(run.readAllStandardOutput(), "\n"))
                if (!line.contains("equity:") && !line.contains("expenses:")
                    && !line.contains("income:"))
                    got << line.simplified();
            QCOMPARE(got, c.balances);
        }
    }

    // The file appears whole or not at all; the ending chooses the format.
    void writingFiles()
    {
        ExportFixture f;
        QTemporaryDir dir;
        QFile existing(dir.filePath("old.qif"));
        QVERIFY(existing.open(QIODevice::WriteOnly));
        existing.write("before");
        existing.close();
        QVERIFY(RegisterExport::write(f.checkingSet(), existing.fileName()).ok);
        QVERIFY(existing.open(QIODevice::ReadOnly));
        QVERIFY(existing.readAll().startsWith("!Type:Bank\r\n"));

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
        ExportFixture f;
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
