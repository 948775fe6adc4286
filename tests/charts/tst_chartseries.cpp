#include "../reports/ReportsFixture.h"

#include "budget/BudgetBook.h"
#include "budget/BudgetCategories.h"
#include "charts/ChartPeriod.h"
#include "charts/ChartSeries.h"
#include "core/EntryChecks.h"
#include "records/TransactionTypes.h"
#include "register/ViewRange.h"

#include <QTest>

using namespace ChartSeries;

namespace {

TransRecord entry(const char *date, const char *cls, int typeNum, qint64 cents, int budNum = 0,
                  const char *budName = "na")
{
    TransRecord r = ReportsFixture::record(QString::fromLatin1(date), QStringLiteral("x"),
                                           QStringLiteral("payee"), cents);
    r.TransClass = QString::fromLatin1(cls);
    r.TypeNum = std::int16_t(typeNum);
    r.BudNum = std::int16_t(budNum);
    r.BudName = QString::fromLatin1(budName);
    return r;
}

using namespace TransactionTypes::TypeNum;
const char *const Bank = "Norm Trans";
const char *const Card = "CC Trans";

} // namespace

class TestChartSeries : public QObject
{
    Q_OBJECT

    ReportsFixture m_fx;
    std::vector<BudgetRecord> m_budget;
    std::vector<TransRecord> m_checking;

    Figures figures(int bankNum, QDate from, QDate to, int maxPoints = 600)
    {
        return compute(m_fx.files, m_fx.accounts, m_budget, {bankNum, from, to, maxPoints});
    }

private Q_SLOTS:
    // Every class of entry: a bank account, a savings account and a card, over a year end.
    void initTestCase()
    {
        BudgetCategories categories(m_fx.files);
        categories.save(QStringLiteral("Groceries"), QStringLiteral("400"), {});
        BudgetCategories::ItemRows items;
        items[0] = {QStringLiteral("Soap"), QStringLiteral("30")};
        items[1] = {QStringLiteral("Bulbs"), QStringLiteral("20")};
        categories.save(QStringLiteral("Household"), QStringLiteral("0"), items);
        m_budget = BudgetBook(m_fx.files).readAll();
        BudgetRecord visa;
        visa.BudNum = 3;
        visa.BudName = QStringLiteral("Visa");
        visa.CCBankRecnum = 3;
        m_budget.push_back(visa);

        m_fx.addAccount(QStringLiteral("Checking"), QStringLiteral("CH"), 0);
        m_fx.addAccount(QStringLiteral("Savings"), QStringLiteral("SV"), 0);
        m_fx.addAccount(QStringLiteral("Visa"), QStringLiteral("CC"), 0);
        m_checking = {entry("12/31/2025", Bank, StartingBalance, 100000),
                      entry("01/05/2026", Bank, Deposit, 200000),
                      entry("01/10/2026", Bank, Withdrawal, -2500),
                      entry("01/15/2026", "Transfer From", None, -50000),
                      entry("01/20/2026", "PayCC BankLedger", None, -30000),
                      entry("01/22/2026", Bank, None, 0, 1, "Groceries"),
                      entry("01/31/2026", Bank, DebitCard, -10000, 1, "Groceries"),
                      entry("02/01/2026", Bank, Check, -6000, 2, "Household"),
                      entry("03/01/26", Bank, Withdrawal, -700, 0, "Gone")};
        m_fx.writeRegister(QStringLiteral("Checking"), m_checking);
        m_fx.writeRegister(QStringLiteral("Savings"),
                           {entry("12/31/2025", Bank, InterestReceived, 1000),
                            entry("01/15/2026", "Transfer To", None, 50000),
                            entry("13/45/2026", Bank, Withdrawal, -99900)});
        m_fx.writeRegister(QStringLiteral("Visa"),
                           {entry("12/31/2025", Card, StartingBalance, -5000),
                            entry("01/03/2026", Card, Charge, -8000, 1, "Groceries"),
                            entry("01/20/2026", "PayCC CCLedger", None, 30000),
                            entry("01/21/2026", Card, Credit, 2000, 1, "Groceries"),
                            entry("01/25/2026", Card, Charge, -4000, 3, "Visa")});
    }

    // Transfers, card payments, voids, openings and card credits count for
    // nothing; a card charge is spending; the months split at their edges.
    void sumsOverEveryClass()
    {
        const Figures f = figures(0, QDate(2025, 12, 15), QDate(2026, 2, 10));
        QCOMPARE(f.badDates, 1);
        QCOMPARE(f.accounts, 3);
        QCOMPARE(int(f.months.size()), 3);
        const struct
        {
            QDate month;
            qint64 income, spending;
        } months[] = {{QDate(2025, 12, 1), 1000, 0},
                      {QDate(2026, 1, 1), 200000, 2500 + 10000 + 8000 + 4000},
                      {QDate(2026, 2, 1), 0, 6000}};
        for (std::size_t i = 0; i < 3; ++i) {
            QCOMPARE(f.months[i].month, months[i].month);
            QCOMPARE(f.months[i].income, Currency::fromCents(months[i].income));
            QCOMPARE(f.months[i].spending, Currency::fromCents(months[i].spending));
        }
        const QStringList order = {"Groceries", "Household", "Uncategorised", "Visa"};
        const qint64 spent[] = {18000, 6000, 2500, 4000};
        QCOMPARE(int(f.spending.size()), order.size());
        for (int i = 0; i < order.size(); ++i) {
            QCOMPARE(f.spending[std::size_t(i)].category, order[i]);
            QCOMPARE(f.spending[std::size_t(i)].amount, Currency::fromCents(spent[i]));
            QCOMPARE(f.spending[std::size_t(i)].card, i == 3);
        }
        // The itemised category's monthly amount is its items' sum; the card's category comes last.
        QCOMPARE(int(f.budget.size()), 3);
        QCOMPARE(f.budget[1].category, QStringLiteral("Household"));
        QCOMPARE(f.budget[1].monthly, Currency::fromUnits(50));
        QCOMPARE(f.budget[1].spent, Currency::fromCents(6000));
        QCOMPARE(f.budget[2].category, QStringLiteral("Visa"));
        QVERIFY(f.budget[2].card);

        // A removed category keeps the entry's own name; only the chosen account is read.
        const Figures march = figures(1, QDate(2026, 3, 1), QDate(2026, 3, 1));
        QCOMPARE(march.spending.size(), std::size_t(1));
        QCOMPARE(march.spending[0].category, QStringLiteral("Gone"));
        QCOMPARE(march.badDates, 0);
    }

    // Each point of the line is the register's running balance after the
    // last entry dated on or before it; for every account, the cards only in net worth.
    void balanceFollowsTheRegister()
    {
        const Figures f = figures(1, QDate(2025, 12, 30), QDate(2026, 3, 5));
        const std::vector<Currency> running = ViewRange::runningBalances(m_checking);
        QCOMPARE(int(f.balances.size()), 66);
        for (const BalancePoint &p : f.balances) {
            Currency expected;
            for (std::size_t i = 0; i < m_checking.size(); ++i)
                if (*EntryChecks::parseDate(m_checking[i].Date.text()) <= p.date)
                    expected = running[i];
            QCOMPARE(p.balance, expected);
        }
        const Figures all = figures(0, QDate(2026, 1, 31), QDate(2026, 1, 31));
        QCOMPARE(all.balances.size(), std::size_t(1));
        QCOMPARE(all.balances[0].balance,
                 Currency::fromCents(100000 + 200000 - 2500 - 30000 - 10000 + 1000));
        QCOMPARE(all.balances[0].netWorth,
                 all.balances[0].balance + Currency::fromCents(-5000 - 8000 + 30000 + 2000 - 4000));
        // Sampled by whole weeks when a point a day would not fit.
        const Figures years = figures(1, QDate(2020, 1, 1), QDate(2025, 12, 31), 100);
        QVERIFY(years.balances.size() <= 100 && years.balances.size() > 50);
        QCOMPARE(years.balances[0].date.daysTo(years.balances[1].date) % 7, 0);
        QCOMPARE(years.balances.back().date, QDate(2025, 12, 31));
        QCOMPARE(sampleStep(1, 600), 1);
        QCOMPARE(sampleStep(700, 100), 7);
    }

    // Nothing to draw gets a sentence, never a fault.
    void emptyAndOddPeriods()
    {
        const Figures none = figures(2, QDate(2024, 6, 1), QDate(2024, 6, 1));
        QCOMPARE(none.balances.size(), std::size_t(1));
        QCOMPARE(emptySentence(Chart::Spending, none),
                 QStringLiteral("Nothing was spent between 06/01/2024 and 06/01/2024."));
        QVERIFY(!emptySentence(Chart::IncomeSpending, none).isEmpty());
        QCOMPARE(badDatesSentence(none),
                 QStringLiteral("1 entry has a date that is not a valid date and was left out."));
        QVERIFY(!emptySentence(Chart::Balance, figures(9, QDate(2026, 1, 1), QDate(2026, 1, 2)))
                     .isEmpty());
        QVERIFY(figures(0, QDate(2026, 2, 1), QDate(2026, 1, 1)).months.empty());

        const QDate today(2026, 1, 15);
        QCOMPARE(ChartPeriod::of(ChartPeriod::Choice::LastMonth, today)->from, QDate(2025, 12, 1));
        QCOMPARE(ChartPeriod::of(ChartPeriod::Choice::LastMonth, today)->to, QDate(2025, 12, 31));
        QCOMPARE(ChartPeriod::of(ChartPeriod::Choice::Last12Months, today)->from,
                 QDate(2025, 2, 1));
        QVERIFY(
            !ChartPeriod::typed(QStringLiteral("02/30/2026"), QStringLiteral("03/01/2026")).period);
        QVERIFY(
            !ChartPeriod::typed(QStringLiteral("03/02/2026"), QStringLiteral("03/01/2026")).period);
    }
};

QTEST_GUILESS_MAIN(TestChartSeries)
#include "tst_chartseries.moc"
