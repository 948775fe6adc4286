#include "ReportsFixture.h"

#include "records/BudgetRecord.h"
#include "reports/PrintedReports.h"
#include "reports/ReportPages.h"

#include <QTest>

using namespace PrintedReports;

namespace {
const QDate Printed(2026, 11, 21);

// The pages of a report, split at its page breaks.
QList<QStringList> pagesOf(const QStringList &lines)
{
    QList<QStringList> pages{{}};
    for (const QString &l : lines) {
        if (l == ReportPages::PageBreak)
            pages.append(QStringList());
        else
            pages.last() << l;
    }
    return pages;
}
} // namespace

class TestPrintedReports : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // The headings and the refusals' wording are pinned by the print scenario;
    // here the figures: a card owing, a category beside a card's.
    void bankAccountsWithSummary()
    {
        ReportsFixture fx;
        fx.addAccount(QStringLiteral("Main Checking"), QStringLiteral("CH"), 123456);
        fx.addAccount(QStringLiteral("Visa"), QStringLiteral("CC"), -2500);
        const QStringList lines = accountsReport(fx.accounts, Printed);
        const QStringList expected{
            QStringLiteral("Checking"),
            QStringLiteral("Main Checking..................$1,234.56"),
            QStringLiteral("Credit Cards"),
            QStringLiteral("Visa...........................($25.00)"),
            QString(),
            QStringLiteral("Accounts Summary (11/21/2026)"),
            QString(16, QLatin1Char('_')),
            QStringLiteral("Total Bank Accounts..........  $1,234.56"),
            QStringLiteral("- Credit Card Debts..........  ($25.00)"),
            QString(31, QLatin1Char(' ')) + QString(15, QLatin1Char('_')),
            QStringLiteral("Net Balance..................  $1,209.56"),
        };
        QCOMPARE(lines.mid(5), expected);
    }

    void budgetWithCardSectionAndSummary()
    {
        ReportsFixture fx;
        fx.addAccount(QStringLiteral("Main Checking"), QStringLiteral("CH"), 100000);
        fx.addAccount(QStringLiteral("Visa"), QStringLiteral("CC"), 0);
        BudgetRecord food;
        food.BudNum = 1;
        food.BudName = QStringLiteral("Groceries");
        food.AmountText = QStringLiteral(" 400");
        food.Balance = Currency::fromCents(12550);
        BudgetRecord card = food;
        card.BudNum = 2;
        card.BudName = QStringLiteral("Visa");
        card.CCBankRecnum = 2;
        card.AmountText = QStringLiteral(" 0");
        card.Balance = Currency::fromCents(2000);
        const QStringList lines = budgetReport({card, food}, fx.accounts, Printed);
        const QStringList expected{
            QStringLiteral("Groceries                      $400.00      $125.50"),
            QString(),
            QStringLiteral("Credit Cards"),
            QStringLiteral("Visa                             $0.00       $20.00"),
            QString(),
            QStringLiteral("Budget Summary (11/21/2026)"),
            QString(24, QLatin1Char('_')),
            QStringLiteral("Monthly Budget...............  $400.00"),
            QStringLiteral("Total Bank Accounts..........  $1,000.00"),
            QStringLiteral("-Total Budget Balance........  $145.50"),
            QString(30, QLatin1Char(' ')) + QString(14, QLatin1Char('_')),
            QStringLiteral("Disposable Cash................$854.50"),
        };
        QCOMPARE(lines.mid(5), expected);
    }

    void longReportRepeatsItsHeaderOnEveryPage()
    {
        ReportsFixture fx;
        fx.addAccount(QStringLiteral("Main Checking"), QStringLiteral("CH"), 0);
        std::vector<TransRecord> records;
        for (int i = 0; i < 120; ++i) {
            TransRecord r = ReportsFixture::record(
                QStringLiteral("03/%1/2026").arg(i % 28 + 1, 2, 10, QLatin1Char('0')),
                QStringLiteral("Deposit"), QStringLiteral("Entry %1").arg(i + 1), 100);
            if (i % 10 == 0)
                r.Memo = QStringLiteral("note %1").arg(i + 1);
            records.push_back(r);
        }
        fx.writeRegister(QStringLiteral("Main Checking"), records);
        RegisterChoice choice;
        choice.bankNum = 1;
        choice.count = QStringLiteral("120");
        const RegisterReport report = registerReport(fx.files, fx.accounts, choice, Printed, 50);
        QVERIFY(report.error.isEmpty());
        const auto pages = pagesOf(report.lines);
        QCOMPARE(pages.size(), 3);
        for (int p = 0; p < pages.size(); ++p) {
            QCOMPARE(pages[p].value(0), QStringLiteral("Page %1").arg(p + 1));
            QCOMPARE(pages[p].value(1), QStringLiteral("Main Checking (11/21/2026)"));
            QVERIFY(pages[p].value(2).startsWith(QStringLiteral("_____")));
            QCOMPARE(pages[p].value(3), registerHeading());
            QVERIFY(pages[p].size() <= 50);
            // A memo never starts a page: it stays with its transaction.
            QVERIFY(!pages[p].value(4).endsWith(QStringLiteral(" (Memo)")));
        }
        QCOMPARE(pages[0].value(4), QStringLiteral("03/01/2026 Deposit           Entry 1")
                                        + QString(39, QLatin1Char(' '))
                                        + QStringLiteral("$1.00          $1.00"));
        QCOMPARE(pages[0].value(5),
                 QString(29, QLatin1Char(' ')) + QStringLiteral("note 1 (Memo)"));
        QVERIFY(pages[2].last().contains(QStringLiteral("$120.00")));

        // The last few, and a range of dates (bounds included).
        choice.count = QStringLiteral("2");
        QStringList last = registerReport(fx.files, fx.accounts, choice, Printed).lines;
        QCOMPARE(last.size(), 4 + 2);
        choice.byDates = true;
        choice.from = QStringLiteral("03/28/2026");
        choice.to = QStringLiteral("03/28/26");
        last = registerReport(fx.files, fx.accounts, choice, Printed).lines;
        QCOMPARE(last.size(), 4 + 4); // the four entries of the 28th
    }

    void registerChoicesRefused()
    {
        ReportsFixture fx;
        fx.addAccount(QStringLiteral("Main Checking"), QStringLiteral("CH"), 0);
        RegisterChoice c;
        c.count = QStringLiteral("5");
        QCOMPARE(registerReport(fx.files, fx.accounts, c, Printed).error, SelectAccount);
        c.bankNum = 1;
        for (const QString &bad :
             {QStringLiteral("0"), QStringLiteral("-3"), QStringLiteral("x"), QString()}) {
            c.count = bad;
            QCOMPARE(registerReport(fx.files, fx.accounts, c, Printed).error, CountNotAboveZero);
        }
        c.byDates = true;
        c.from = QStringLiteral("01/01/2026");
        QCOMPARE(registerReport(fx.files, fx.accounts, c, Printed).error, SelectTwoDates);
        c.to = QStringLiteral("02/30/2026");
        QVERIFY(registerReport(fx.files, fx.accounts, c, Printed).badDate);
        c.to = QStringLiteral("12/31/2025");
        QCOMPARE(registerReport(fx.files, fx.accounts, c, Printed).error, DatesReversed);
        // The register file is gone: said so, and nothing is created.
        c.to = QStringLiteral("12/31/2026");
        const RegisterReport r = registerReport(fx.files, fx.accounts, c, Printed);
        QVERIFY(r.error.contains(QStringLiteral("Main Checking")));
        QVERIFY(r.lines.isEmpty());
        QVERIFY(!QFile::exists(fx.files.registerFile(QStringLiteral("Main Checking"))));
    }

    void moneyIsNeverCut()
    {
        TransRecord r = ReportsFixture::record(QStringLiteral("01/01/2026"),
                                               QStringLiteral("Deposit"), QStringLiteral("Big"), 0);
        r.Amount = Currency::fromUnits(90'000'000'000);
        const QString line = registerLine(r, -Currency::fromUnits(90'000'000'000));
        QVERIFY(line.contains(QStringLiteral("$90,000,000,000.00")));
        QVERIFY(line.contains(QStringLiteral("($90,000,000,000.00)")));
    }
};

QTEST_GUILESS_MAIN(TestPrintedReports)
#include "tst_printedreports.moc"
