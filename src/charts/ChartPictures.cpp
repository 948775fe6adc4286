#include "charts/ChartPictures.h"

#include "core/EntryChecks.h"

#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QChart>
#include <QDateTimeAxis>
#include <QHorizontalBarSeries>
#include <QHorizontalStackedBarSeries>
#include <QLegend>
#include <QLineSeries>
#include <QPalette>
#include <QValueAxis>

#include <algorithm>
#include <cmath>

using namespace ChartSeries;

namespace {

QString money(Currency c)
{
    return c.toCurrencyText();
}

// Chart positions are plain numbers: whole cents are plenty for a picture.
qreal plotted(Currency c)
{
    return qreal(c.roundedCents()) / 100.0;
}

QString monthText(const QDate &month)
{
    return month.toString(QStringLiteral("MMM yyyy"));
}

QColor mix(const QColor &a, const QColor &b, qreal share)
{
    return QColor::fromRgbF(float(a.redF() * (1 - share) + b.redF() * share),
                            float(a.greenF() * (1 - share) + b.greenF() * share),
                            float(a.blueF() * (1 - share) + b.blueF() * share));
}

QChart *newChart(const ChartPictures::Colours &colours)
{
    auto *chart = new QChart;
    chart->setBackgroundBrush(colours.base);
    chart->setBackgroundRoundness(0);
    chart->setTitleBrush(colours.text);
    chart->legend()->setLabelColor(colours.text);
    chart->legend()->setAlignment(Qt::AlignBottom);
    chart->setMargins(QMargins(4, 4, 4, 4));
    return chart;
}

void styleAxis(QAbstractAxis *axis, const ChartPictures::Colours &colours)
{
    axis->setLabelsColor(colours.text);
    axis->setGridLineColor(colours.grid);
    axis->setLinePenColor(colours.grid);
}

QValueAxis *moneyAxis(Currency largest, Currency smallest, const ChartPictures::Colours &colours)
{
    auto *axis = new QValueAxis;
    axis->setLabelFormat(QStringLiteral("$%.0f"));
    qreal low = std::min<qreal>(0, plotted(smallest)), high = std::max<qreal>(0, plotted(largest));
    if (high - low < 1)
        high = low + 1;
    axis->setRange(low, high);
    axis->applyNiceNumbers();
    axis->setTickCount(std::clamp(axis->tickCount(), 3, 6));
    styleAxis(axis, colours);
    return axis;
}

QBarSet *barSet(const QString &name, const QColor &colour)
{
    auto *set = new QBarSet(name);
    set->setColor(colour);
    set->setBorderColor(colour);
    return set;
}

// Horizontal bars list their first category at the bottom: the rows are
// given top first and put in reversed.
QChart *spendingChart(const Figures &f, const ChartPictures::Colours &colours)
{
    QChart *chart = newChart(colours);
    auto *series = new QHorizontalStackedBarSeries;
    QBarSet *budget = barSet(QStringLiteral("Budget categories"), colours.primary);
    QBarSet *cards = barSet(QStringLiteral("Credit card categories"), colours.card);
    QStringList labels, tips;
    QVariantList rows;
    bool anyCard = false;
    for (int i = int(f.spending.size()) - 1; i >= 0; --i) {
        const CategorySpending &s = f.spending[std::size_t(i)];
        const qreal v = plotted(s.amount);
        *budget << (s.card ? 0 : v);
        *cards << (s.card ? v : 0);
        anyCard = anyCard || s.card;
        labels << s.category + QStringLiteral("  ") + money(s.amount);
        tips << s.category + QStringLiteral(": ") + money(s.amount);
        rows << i;
    }
    for (QBarSet *set : {budget, cards}) {
        set->setProperty("tips", tips);
        set->setProperty("rows", rows);
    }
    series->append(budget);
    if (anyCard)
        series->append(cards);
    else
        delete cards;
    series->setBarWidth(0.7);
    chart->addSeries(series);
    auto *categories = new QBarCategoryAxis;
    categories->append(labels);
    styleAxis(categories, colours);
    chart->addAxis(categories, Qt::AlignLeft);
    series->attachAxis(categories);
    QValueAxis *amounts = moneyAxis(f.spending.empty() ? Currency() : f.spending.front().amount,
                                    Currency(), colours);
    for (const CategorySpending &s : f.spending)
        if (plotted(s.amount) > amounts->max())
            amounts->setMax(plotted(s.amount));
    chart->addAxis(amounts, Qt::AlignBottom);
    series->attachAxis(amounts);
    chart->legend()->setVisible(anyCard);
    return chart;
}

// Past three years, months would be thinner than a pixel: the bars add up each
// year instead (the table still lists the months).
constexpr std::size_t MostMonthBars = 36;

std::vector<MonthFlow> byYear(const std::vector<MonthFlow> &months)
{
    std::vector<MonthFlow> years;
    for (const MonthFlow &m : months) {
        if (years.empty() || years.back().month.year() != m.month.year())
            years.push_back({QDate(m.month.year(), 1, 1), {}, {}});
        years.back().income += m.income;
        years.back().spending += m.spending;
    }
    return years;
}

QChart *incomeSpendingChart(const Figures &f, const ChartPictures::Colours &colours)
{
    QChart *chart = newChart(colours);
    auto *series = new QBarSeries;
    QBarSet *income = barSet(QStringLiteral("Income"), colours.secondary);
    QBarSet *spending = barSet(QStringLiteral("Spending"), colours.primary);
    const bool years = f.months.size() > MostMonthBars;
    const std::vector<MonthFlow> bars = years ? byYear(f.months) : f.months;
    QStringList labels, incomeTips, spendingTips;
    Currency largest;
    for (const MonthFlow &m : bars) {
        *income << plotted(m.income);
        *spending << plotted(m.spending);
        largest = std::max({largest, m.income, m.spending});
        // Up to a year of months reads as month names, the years in the axis's title.
        const QString name = years ? QString::number(m.month.year()) : monthText(m.month);
        labels << (years              ? name
                   : bars.size() > 12 ? m.month.toString(QStringLiteral("MM/yy"))
                                      : m.month.toString(QStringLiteral("MMM")));
        incomeTips << name + QStringLiteral(" income: ") + money(m.income);
        spendingTips << name + QStringLiteral(" spending: ") + money(m.spending);
    }
    income->setProperty("tips", incomeTips);
    spending->setProperty("tips", spendingTips);
    series->append(income);
    series->append(spending);
    chart->addSeries(series);
    auto *axis = new QBarCategoryAxis;
    axis->append(labels);
    if (labels.size() > 12)
        axis->setLabelsAngle(-90);
    if (years)
        axis->setTitleText(QStringLiteral("By year"));
    else if (labels.size() <= 12)
        axis->setTitleText(bars.size() == 1 ? monthText(bars.front().month)
                                            : monthText(bars.front().month) + QStringLiteral(" to ")
                                                  + monthText(bars.back().month));
    axis->setTitleBrush(colours.text);
    styleAxis(axis, colours);
    chart->addAxis(axis, Qt::AlignBottom);
    series->attachAxis(axis);
    QValueAxis *amounts = moneyAxis(largest, Currency(), colours);
    chart->addAxis(amounts, Qt::AlignLeft);
    series->attachAxis(amounts);
    return chart;
}

QChart *balanceChart(const Figures &f, const ChartPictures::Colours &colours)
{
    QChart *chart = newChart(colours);
    auto *balance = new QLineSeries;
    balance->setName(f.allAccounts ? QStringLiteral("Bank accounts") : QStringLiteral("Balance"));
    auto *worth = new QLineSeries;
    worth->setName(QStringLiteral("Net worth"));
    QStringList balanceTips, worthTips;
    Currency low, high;
    for (const BalancePoint &p : f.balances) {
        const qreal x = qreal(p.date.startOfDay().toMSecsSinceEpoch());
        balance->append(x, plotted(p.balance));
        worth->append(x, plotted(p.netWorth));
        const QString day = EntryChecks::formatLongDate(p.date) + QStringLiteral(": ");
        balanceTips << day + money(p.balance);
        worthTips << day + money(p.netWorth) + QStringLiteral(" net worth");
        low = std::min({low, p.balance, p.netWorth});
        high = std::max({high, p.balance, p.netWorth});
    }
    balance->setProperty("tips", balanceTips);
    worth->setProperty("tips", worthTips);
    balance->setPen(QPen(colours.primary, 2));
    worth->setPen(QPen(colours.secondary, 2));
    const bool fewPoints = f.balances.size() <= 40;
    chart->addSeries(balance);
    if (f.allAccounts)
        chart->addSeries(worth);
    else
        delete worth;
    auto *dates = new QDateTimeAxis;
    dates->setFormat(QStringLiteral("MM/dd/yy"));
    dates->setTickCount(5);
    dates->setRange(f.from.addDays(f.from == f.to ? -1 : 0).startOfDay(),
                    f.to.addDays(f.from == f.to ? 1 : 0).startOfDay());
    styleAxis(dates, colours);
    chart->addAxis(dates, Qt::AlignBottom);
    QValueAxis *amounts = moneyAxis(high, low, colours);
    chart->addAxis(amounts, Qt::AlignLeft);
    for (QAbstractSeries *s : chart->series()) {
        static_cast<QLineSeries *>(s)->setPointsVisible(fewPoints);
        s->attachAxis(dates);
        s->attachAxis(amounts);
    }
    chart->legend()->setVisible(f.allAccounts);
    return chart;
}

QChart *budgetChart(const Figures &f, const ChartPictures::Colours &colours)
{
    QChart *chart = newChart(colours);
    auto *series = new QHorizontalBarSeries;
    QBarSet *monthly = barSet(QStringLiteral("Monthly"), colours.secondary);
    QBarSet *spent = barSet(QStringLiteral("Spent"), colours.primary);
    QStringList labels, monthlyTips, spentTips;
    Currency largest, smallest;
    for (auto it = f.budget.rbegin(); it != f.budget.rend(); ++it) {
        *monthly << plotted(it->monthly);
        *spent << plotted(it->spent);
        largest = std::max({largest, it->monthly, it->spent});
        smallest = std::min({smallest, it->monthly});
        const QString name = it->category + (it->card ? QStringLiteral(" (card)") : QString());
        labels << name;
        monthlyTips << name + QStringLiteral(" monthly: ") + money(it->monthly);
        spentTips << name + QStringLiteral(" spent: ") + money(it->spent);
    }
    monthly->setProperty("tips", monthlyTips);
    spent->setProperty("tips", spentTips);
    series->append(monthly);
    series->append(spent);
    chart->addSeries(series);
    auto *categories = new QBarCategoryAxis;
    categories->append(labels);
    styleAxis(categories, colours);
    chart->addAxis(categories, Qt::AlignLeft);
    series->attachAxis(categories);
    QValueAxis *amounts = moneyAxis(largest, smallest, colours);
    chart->addAxis(amounts, Qt::AlignBottom);
    series->attachAxis(amounts);
    return chart;
}

} // namespace

namespace ChartPictures {

Colours Colours::from(const QPalette &palette)
{
    Colours c;
    c.base = palette.color(QPalette::Base);
    c.text = palette.color(QPalette::Text);
    c.grid = mix(c.text, c.base, 0.8);
    // The selection colour, unless it is too pale against the chart's
    // background to draw bars with (a light theme's soft selection): then the
    // theme's strong accent.
    const auto lightness = [](const QColor &colour) { return colour.lightnessF(); };
    c.primary = palette.color(QPalette::Highlight);
    if (std::abs(lightness(c.primary) - lightness(c.base)) < 0.25)
        c.primary = palette.color(QPalette::Link);
    c.secondary = mix(c.text, c.base, 0.55);
    c.card = mix(c.primary, c.text, 0.5);
    return c;
}

QString title(Chart chart)
{
    switch (chart) {
    case Chart::Spending:
        return QStringLiteral("Spending by Category");
    case Chart::IncomeSpending:
        return QStringLiteral("Income and Spending");
    case Chart::Balance:
        return QStringLiteral("Balance over Time");
    case Chart::Budget:
        return QStringLiteral("Budget and Spending");
    }
    return QString();
}

QStringList headings(Chart chart)
{
    switch (chart) {
    case Chart::Spending:
        return {QStringLiteral("Category"), QStringLiteral("Amount")};
    case Chart::IncomeSpending:
        return {QStringLiteral("Month"), QStringLiteral("Income"), QStringLiteral("Spending")};
    case Chart::Balance:
        return {QStringLiteral("Date"), QStringLiteral("Balance"), QStringLiteral("Net Worth")};
    case Chart::Budget:
        return {QStringLiteral("Category"), QStringLiteral("Monthly"), QStringLiteral("Spent")};
    }
    return {};
}

std::vector<QStringList> rows(Chart chart, const Figures &f)
{
    std::vector<QStringList> out;
    switch (chart) {
    case Chart::Spending:
        for (const CategorySpending &s : f.spending)
            out.push_back(
                {s.category + (s.card ? QStringLiteral(" (card)") : QString()), money(s.amount)});
        break;
    case Chart::IncomeSpending:
        for (const MonthFlow &m : f.months)
            out.push_back({monthText(m.month), money(m.income), money(m.spending)});
        break;
    case Chart::Balance:
        for (const BalancePoint &p : f.balances)
            out.push_back({EntryChecks::formatLongDate(p.date), money(p.balance),
                           f.allAccounts ? money(p.netWorth) : QString()});
        break;
    case Chart::Budget:
        for (const BudgetLine &l : f.budget)
            out.push_back({l.category + (l.card ? QStringLiteral(" (card)") : QString()),
                           money(l.monthly), money(l.spent)});
        break;
    }
    return out;
}

QChart *build(Chart chart, const Figures &figures, const Colours &colours)
{
    const QString sentence = emptySentence(chart, figures);
    if (!sentence.isEmpty()) {
        QChart *empty = newChart(colours);
        empty->setTitle(sentence);
        empty->legend()->hide();
        return empty;
    }
    switch (chart) {
    case Chart::Spending:
        return spendingChart(figures, colours);
    case Chart::IncomeSpending:
        return incomeSpendingChart(figures, colours);
    case Chart::Balance:
        return balanceChart(figures, colours);
    case Chart::Budget:
        return budgetChart(figures, colours);
    }
    return newChart(colours);
}

} // namespace ChartPictures
