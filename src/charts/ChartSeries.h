#pragma once

#include "records/BankAcctRecord.h"
#include "records/BudgetRecord.h"
#include "records/Currency.h"
#include "records/DataFiles.h"

#include <QDate>
#include <QString>
#include <QStringList>

#include <vector>

// The figures the four charts show, computed from the registers in one pass
// over the chosen accounts (what counts as spending and income: ChartRules).
namespace ChartSeries {

enum class Chart { Spending, IncomeSpending, Balance, Budget };

struct CategorySpending
{
    QString category;
    Currency amount;   // spent: a positive figure
    bool card = false; // a credit card's own category
};

struct MonthFlow
{
    QDate month; // its first day
    Currency income;
    Currency spending; // a positive figure
};

struct BalancePoint
{
    QDate date;
    Currency balance;  // the chosen account, or every bank account (cards left out)
    Currency netWorth; // every account, cards included (for every account only)
};

struct BudgetLine
{
    QString category;
    Currency monthly; // its monthly amount
    Currency spent;   // spent in the period
    bool card = false;
};

struct Figures
{
    QDate from, to;
    bool allAccounts = false;
    // The budget's categories first, largest first; the cards' own categories after them.
    std::vector<CategorySpending> spending;
    std::vector<MonthFlow> months; // every month the period touches
    std::vector<BalancePoint> balances;
    std::vector<BudgetLine> budget; // in the budget's order, the cards' categories after
    int accounts = 0;               // accounts read
    int entries = 0;                // entries with a valid date, any date
    int inPeriod = 0;               // entries dated in the period
    int badDates = 0;               // entries whose date is not a valid date: left out
    QStringList unreadable;         // accounts whose register could not be read
};

struct Request
{
    int bankNum = 0; // 0: every account
    QDate from, to;
    int maxPoints = 600; // the most points the balance line may have
};

Figures compute(const DataFiles &files, const std::vector<BankAcctRecord> &accounts,
                const std::vector<BudgetRecord> &categories, const Request &request);

// The days between two points of the balance line over `days` days: one, or
// whole weeks when a point a day would give more than maxPoints.
int sampleStep(qint64 days, int maxPoints);

// A plain sentence for a chart with nothing to draw; empty when it has something.
QString emptySentence(Chart chart, const Figures &figures);
// Says how many entries were left out for their dates; empty when none were.
QString badDatesSentence(const Figures &figures);

} // namespace ChartSeries
