#include "charts/ChartSeries.h"

#include "budget/BudgetBook.h"
#include "charts/ChartRules.h"
#include "core/EntryChecks.h"
#include "records/AccountKinds.h"
#include "records/LittleEndian.h"
#include "records/RawRecordFile.h"
#include "records/TransRecord.h"
#include "records/TransactionTemplate.h"
#include "reports/SearchCriteria.h"

#include <QFileInfo>
#include <QHash>

#include <algorithm>
#include <array>
#include <cstring>
#include <map>

namespace {

using namespace ChartSeries;

// Offsets of the fields read, in a stored register record.
constexpr int TypeNumAt = 26;
constexpr int DateAt = 28;
constexpr int DateWidth = 15;
constexpr int BudNumAt = 228;
constexpr int BudNameAt = 230;
constexpr int ClassAt = 250;
constexpr int AmountAt = 372;

// Running sums of one pass.
struct Pass
{
    qint64 fromDay = 0, toDay = 0;
    std::vector<int> monthOfDay;      // the index in `months` of each day of the period
    std::vector<Currency> bankDays;   // what each day moved the balance line
    std::vector<Currency> allDays;    // ... and net worth
    Currency bankBefore, allBefore;   // the balances on the day before the period
    std::vector<Currency> byCategory; // spent, by category number
    std::vector<char> live;           // by category number: the budget holds it
    // Spent under a category the budget does not hold, by the name as stored.
    std::map<std::array<char, 20>, Currency> byBytes;
};

QString categoryName(const std::vector<BudgetRecord> &categories, int budNum)
{
    if (budNum < 1 || budNum > int(categories.size()))
        return QString();
    const BudgetRecord &c = categories[std::size_t(budNum - 1)];
    return c.isDeleted() || c.BudName.isBlank() ? QString() : c.BudName.text().trimmed();
}

bool isCardCategory(const std::vector<BudgetRecord> &categories, int budNum)
{
    return budNum >= 1 && budNum <= int(categories.size())
           && categories[std::size_t(budNum - 1)].CCBankRecnum != 0;
}

void readRegister(const char *p, bool card, bool all, Pass &pass, Figures &out)
{
    const qint64 day = SearchDates::day(p + DateAt, DateWidth);
    if (day == 0) {
        ++out.badDates;
        return;
    }
    ++out.entries;
    if (day > pass.toDay)
        return;
    const Currency amount = LittleEndian::getCurrency(p + AmountAt);
    const bool onLine = !all || !card;
    if (day < pass.fromDay) {
        if (onLine)
            pass.bankBefore += amount;
        pass.allBefore += amount;
        return;
    }
    ++out.inPeriod;
    const auto at = std::size_t(day - pass.fromDay);
    if (onLine)
        pass.bankDays[at] += amount;
    pass.allDays[at] += amount;

    const ChartRules::Flow flow
        = ChartRules::flow(p + ClassAt, LittleEndian::getInt16(p + TypeNumAt), amount);
    if (flow == ChartRules::Flow::Neither)
        return;
    MonthFlow &month = out.months[std::size_t(pass.monthOfDay[at])];
    if (flow == ChartRules::Flow::Income) {
        month.income += amount;
        return;
    }
    month.spending -= amount;
    const int budNum = LittleEndian::getInt16(p + BudNumAt);
    if (budNum > 0 && budNum < int(pass.live.size()) && pass.live[std::size_t(budNum)]) {
        pass.byCategory[std::size_t(budNum)] -= amount;
        return;
    }
    // A category since removed keeps the name the entry was given.
    std::array<char, 20> raw;
    std::memcpy(raw.data(), p + BudNameAt, raw.size());
    pass.byBytes[raw] -= amount;
}

void startPass(Pass &pass, Figures &out, const std::vector<BudgetRecord> &categories)
{
    pass.fromDay = out.from.toJulianDay();
    pass.toDay = out.to.toJulianDay();
    const auto days = std::size_t(pass.toDay - pass.fromDay + 1);
    pass.bankDays.assign(days, Currency());
    pass.allDays.assign(days, Currency());
    pass.monthOfDay.resize(days);
    QDate month(out.from.year(), out.from.month(), 1);
    out.months.push_back({month, {}, {}});
    for (std::size_t i = 0; i < days; ++i) {
        const QDate d = out.from.addDays(qint64(i));
        if (d.month() != month.month() || d.year() != month.year()) {
            month = QDate(d.year(), d.month(), 1);
            out.months.push_back({month, {}, {}});
        }
        pass.monthOfDay[i] = int(out.months.size() - 1);
    }
    pass.byCategory.assign(categories.size() + 1, Currency());
    pass.live.assign(categories.size() + 1, 0);
    for (int n = 1; n <= int(categories.size()); ++n)
        pass.live[std::size_t(n)] = !categoryName(categories, n).isEmpty();
}

void finishPass(const Pass &pass, Figures &out, const std::vector<BudgetRecord> &categories,
                int maxPoints)
{
    const auto days = qint64(pass.bankDays.size());
    const int step = sampleStep(days, maxPoints);
    Currency bank = pass.bankBefore, all = pass.allBefore;
    for (qint64 i = 0; i < days; ++i) {
        bank += pass.bankDays[std::size_t(i)];
        all += pass.allDays[std::size_t(i)];
        if (i % step == 0 || i == days - 1)
            out.balances.push_back({out.from.addDays(i), bank, out.allAccounts ? all : bank});
    }

    std::vector<CategorySpending> cards;
    for (int n = 1; n < int(pass.byCategory.size()); ++n) {
        const QString name = categoryName(categories, n);
        if (name.isEmpty())
            continue;
        const bool card = isCardCategory(categories, n);
        const Currency spent = pass.byCategory[std::size_t(n)];
        const BudgetRecord &c = categories[std::size_t(n - 1)];
        out.budget.push_back({name, BudgetBook::amountValue(c.AmountText.text()), spent, card});
        if (!spent.isZero())
            (card ? cards : out.spending).push_back({name, spent, card});
    }
    QHash<QString, Currency> byName;
    for (const auto &[raw, spent] : pass.byBytes) {
        QString name = Cp1252::decode(raw.data(), int(raw.size())).trimmed();
        if (name.isEmpty() || name == TransactionTemplate::NoCategory)
            name = ChartRules::Uncategorised;
        byName[name] += spent;
    }
    for (auto it = byName.begin(); it != byName.end(); ++it)
        out.spending.push_back({it.key(), it.value(), false});
    const auto largestFirst = [](const CategorySpending &a, const CategorySpending &b) {
        return a.amount != b.amount ? a.amount > b.amount : a.category < b.category;
    };
    std::sort(out.spending.begin(), out.spending.end(), largestFirst);
    std::sort(cards.begin(), cards.end(), largestFirst);
    out.spending.insert(out.spending.end(), cards.begin(), cards.end());
    std::stable_partition(out.budget.begin(), out.budget.end(),
                          [](const BudgetLine &l) { return !l.card; });
}

QString dayText(const QDate &d)
{
    return EntryChecks::formatLongDate(d);
}

} // namespace

namespace ChartSeries {

int sampleStep(qint64 days, int maxPoints)
{
    if (maxPoints < 1 || days <= maxPoints)
        return 1;
    const qint64 weeks = (days + qint64(maxPoints) * 7 - 1) / (qint64(maxPoints) * 7);
    return int(std::min<qint64>(weeks * 7, days));
}

Figures compute(const DataFiles &files, const std::vector<BankAcctRecord> &accounts,
                const std::vector<BudgetRecord> &categories, const Request &request)
{
    Figures out;
    out.from = request.from;
    out.to = request.to;
    out.allAccounts = request.bankNum == 0;
    if (!out.from.isValid() || !out.to.isValid() || out.from > out.to)
        return out;
    Pass pass;
    startPass(pass, out, categories);
    for (const BankAcctRecord &account : accounts) {
        if (account.isDeleted() || account.BankName.isBlank())
            continue;
        if (request.bankNum != 0 && account.BankNum != request.bankNum)
            continue;
        const QString name = account.BankName.text().trimmed();
        const QString path = files.registerFile(name);
        RawRecordFile file(path, TransRecord::Size);
        if (!QFileInfo::exists(path) || !file.open()) {
            out.unreadable << name;
            continue;
        }
        ++out.accounts;
        const bool card = AccountKinds::isCard(account.Type.text());
        file.readBatches([&](const char *p, int n) {
            for (int i = 0; i < n; ++i)
                readRegister(p + qsizetype(i) * TransRecord::Size, card, out.allAccounts, pass,
                             out);
        });
    }
    finishPass(pass, out, categories, request.maxPoints);
    return out;
}

QString emptySentence(Chart chart, const Figures &f)
{
    if (!f.from.isValid() || !f.to.isValid() || f.from > f.to)
        return QStringLiteral("Choose a period to chart.");
    if (f.accounts == 0)
        return QStringLiteral("There is no account to chart.");
    const QString between
        = QStringLiteral(" between %1 and %2.").arg(dayText(f.from), dayText(f.to));
    if (f.entries == 0 && chart != Chart::Budget)
        return QStringLiteral("There are no transactions to chart.");
    switch (chart) {
    case Chart::Spending:
        return f.spending.empty() ? QStringLiteral("Nothing was spent") + between : QString();
    case Chart::IncomeSpending:
        for (const MonthFlow &m : f.months)
            if (!m.income.isZero() || !m.spending.isZero())
                return QString();
        return QStringLiteral("No money came in or went out") + between;
    case Chart::Balance:
        return QString();
    case Chart::Budget:
        return f.budget.empty() ? QStringLiteral("The budget has no categories.") : QString();
    }
    return QString();
}

QString badDatesSentence(const Figures &f)
{
    if (f.badDates == 0)
        return QString();
    if (f.badDates == 1)
        return QStringLiteral("1 entry has a date that is not a valid date and was left out.");
    return QStringLiteral("%1 entries have dates that are not valid dates and were left out.")
        .arg(f.badDates);
}

} // namespace ChartSeries
