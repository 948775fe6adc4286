#include "charts/ChartsPanel.h"

#include "charts/ChartPeriod.h"
#include "charts/ChartRules.h"
#include "charts/ChartTableModel.h"
#include "core/Clock.h"
#include "core/EntryChecks.h"
#include "records/TransactionTemplate.h"
#include "reports/FollowedData.h"
#include "ui/DateBox.h"
#include "ui/Named.h"

#include <QAbstractBarSeries>
#include <QBarSet>
#include <QChart>
#include <QChartView>
#include <QComboBox>
#include <QCursor>
#include <QDir>
#include <QGraphicsScene>
#include <QGridLayout>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QSplitter>
#include <QTabWidget>
#include <QTableView>
#include <QToolTip>
#include <QVBoxLayout>
#include <QXYSeries>

#include <algorithm>

using ChartSeries::Chart;

namespace {

constexpr std::array<Chart, 4> Charts
    = {Chart::Spending, Chart::IncomeSpending, Chart::Balance, Chart::Budget};
constexpr std::array<const char *, 4> TableNames
    = {"flxgdSpending", "flxgdIncomeSpending", "flxgdBalanceOverTime", "flxgdBudgetActual"};
constexpr std::array<const char *, 4> ViewNames
    = {"chtSpending", "chtIncomeSpending", "chtBalanceOverTime", "chtBudgetActual"};
// Short enough for the four tabs to fit side by side at 800 x 600.
constexpr std::array<const char *, 4> TabCaptions = {"Spending", "Income", "Balance", "Budget"};
// The balance line never has more points than a chart at 800 x 600 has pixels across.
constexpr int MaxPoints = 400;
const QSize PrintedSize(1200, 800);

void showTip(const QString &text)
{
    if (text.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(QCursor::pos(), text);
}

} // namespace

ChartsPanel::ChartsPanel(Interaction &interaction, QWidget *parent)
    : QWidget(parent), m_interaction(interaction),
      m_period(named(new QComboBox(this), "cmbChartPeriod")),
      m_dateFrom(named(new DateBox(this), "cmbDate(20)")),
      m_dateTo(named(new DateBox(this), "cmbDate(21)")),
      m_account(named(new QComboBox(this), "cmbChartAcct")),
      m_print(named(new QPushButton(tr("Print…"), this), "cmdChartPrint")),
      m_png(named(new QPushButton(tr("Save as PNG…"), this), "cmdChartPng")),
      m_pdf(named(new QPushButton(tr("Save as PDF…"), this), "cmdChartPdf")),
      m_note(named(new QLabel(this), "lblChartNote")),
      m_tabs(named(new QTabWidget(this), "tabCharts"))
{
    m_period->addItems(ChartPeriod::names());
    // A whole year shows something even early in a month.
    m_period->setCurrentIndex(int(ChartPeriod::Choice::Last12Months));
    m_note->setWordWrap(true);

    auto *choices = new QGridLayout;
    choices->setHorizontalSpacing(6);
    choices->setVerticalSpacing(3);
    choices->addWidget(new QLabel(tr("Period"), this), 0, 0);
    choices->addWidget(m_period, 0, 1);
    choices->addWidget(new QLabel(tr("From"), this), 0, 2);
    choices->addWidget(m_dateFrom, 0, 3);
    choices->addWidget(new QLabel(tr("To"), this), 0, 4);
    choices->addWidget(m_dateTo, 0, 5);
    choices->addWidget(new QLabel(tr("Account"), this), 1, 0);
    choices->addWidget(m_account, 1, 1);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_print);
    buttons->addWidget(m_png);
    buttons->addWidget(m_pdf);
    buttons->addStretch();
    choices->addLayout(buttons, 1, 2, 1, 4);
    for (int c : {1, 3, 5})
        choices->setColumnStretch(c, 1);

    for (int i = 0; i < ChartCount; ++i) {
        auto *split = new QSplitter(Qt::Vertical, m_tabs);
        m_views[i] = named(new QChartView(new QChart, split), ViewNames[i]);
        m_views[i]->setRenderHint(QPainter::Antialiasing);
        m_views[i]->setMinimumHeight(160);
        m_models[i] = new ChartTableModel(ChartPictures::headings(Charts[i]), this);
        m_tables[i] = named(new QTableView(split), TableNames[i]);
        QTableView *table = m_tables[i];
        table->setModel(m_models[i]);
        table->setEditTriggers(QAbstractItemView::NoEditTriggers);
        table->setSelectionBehavior(QAbstractItemView::SelectRows);
        table->setSelectionMode(QAbstractItemView::SingleSelection);
        table->verticalHeader()->hide();
        table->verticalHeader()->setDefaultSectionSize(20);
        table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
        table->setMinimumHeight(64);
        split->addWidget(m_views[i]);
        split->addWidget(table);
        split->setStretchFactor(0, 3);
        split->setStretchFactor(1, 1);
        split->setChildrenCollapsible(false);
        m_tabs->addTab(split, tr(TabCaptions[i]));
        m_tabs->setTabToolTip(i, ChartPictures::title(Charts[i]));
    }

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addLayout(choices);
    layout->addWidget(m_note);
    layout->addWidget(m_tabs, 1);

    connect(m_period, &QComboBox::activated, this, [this] { onPeriodChosen(); });
    connect(m_account, &QComboBox::activated, this, [this] { recompute(); });
    for (QComboBox *date : {m_dateFrom, m_dateTo})
        connect(date, &QComboBox::currentTextChanged, this, [this] {
            if (m_period->currentIndex() == int(ChartPeriod::Choice::Dates))
                recompute();
        });
    connect(m_tables[0], &QTableView::clicked, this,
            [this](const QModelIndex &index) { chooseCategory(index.row()); });
    connect(m_print, &QPushButton::clicked, this,
            [this] { print(Interaction::PrintTarget::Preview); });
    connect(m_pdf, &QPushButton::clicked, this, [this] { print(Interaction::PrintTarget::Pdf); });
    connect(m_png, &QPushButton::clicked, this, [this] { savePng(); });
    connect(m_tabs, &QTabWidget::currentChanged, this, [this] { showNote(); });
    onPeriodChosen();
}

void ChartsPanel::setData(const DataSnapshot &data)
{
    m_data = data;
    const int chosen = m_account->currentData().toInt();
    m_account->clear();
    m_account->addItem(tr("All Accounts"), 0);
    for (const BankAcctRecord &a : m_data.accountList())
        if (!a.isDeleted() && !a.BankName.isBlank())
            m_account->addItem(a.BankName.text().trimmed(), int(a.BankNum));
    const int at = m_account->findData(chosen);
    m_account->setCurrentIndex(at >= 0 ? at : 0);
    m_stale = true;
    if (isVisible())
        recompute();
}

void ChartsPanel::follow(const DataChange &change, const DataSnapshot &data)
{
    DataSnapshot kept = m_data;
    FollowedData::follow(kept, change, data);
    setData(kept);
}

void ChartsPanel::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (m_stale)
        recompute();
}

void ChartsPanel::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    // The charts take their colours from the theme.
    if ((event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange)
        && m_views[0])
        redraw();
}

void ChartsPanel::onPeriodChosen()
{
    const auto choice = ChartPeriod::Choice(m_period->currentIndex());
    const bool typed = choice == ChartPeriod::Choice::Dates;
    m_dateFrom->setEnabled(typed);
    m_dateTo->setEnabled(typed);
    if (!typed) {
        const auto period = ChartPeriod::of(choice, Clock::today());
        const QSignalBlocker blockFrom(m_dateFrom), blockTo(m_dateTo);
        m_dateFrom->setEditText(EntryChecks::formatLongDate(period->from));
        m_dateTo->setEditText(EntryChecks::formatLongDate(period->to));
    }
    recompute();
}

void ChartsPanel::recompute()
{
    if (!isVisible()) {
        m_stale = true;
        return;
    }
    m_stale = false;
    const auto choice = ChartPeriod::Choice(m_period->currentIndex());
    QStringList notes;
    ChartSeries::Request request;
    request.bankNum = m_account->currentData().toInt();
    request.maxPoints = MaxPoints;
    if (choice == ChartPeriod::Choice::Dates) {
        const auto typed = ChartPeriod::typed(m_dateFrom->currentText(), m_dateTo->currentText());
        if (typed.period) {
            request.from = typed.period->from;
            request.to = typed.period->to;
        } else {
            notes << typed.problem;
        }
    } else if (const auto period = ChartPeriod::of(choice, Clock::today())) {
        request.from = period->from;
        request.to = period->to;
    }
    m_figures = ChartSeries::compute(m_data.files, m_data.accountList(), m_data.budget, request);
    notes << ChartSeries::badDatesSentence(m_figures);
    if (!m_figures.unreadable.isEmpty())
        notes << tr("The register could not be read: %1.")
                     .arg(m_figures.unreadable.join(QStringLiteral(", ")));
    m_notes = notes;
    showNote();
    for (int i = 0; i < ChartCount; ++i)
        m_models[i]->setRows(ChartPictures::rows(Charts[i], m_figures));
    m_tables[2]->setColumnHidden(2, !m_figures.allAccounts);
    redraw();
}

void ChartsPanel::showNote()
{
    // A chart with nothing to draw says why here too, where a screen reader finds it.
    QStringList notes = m_notes;
    if (m_figures.from.isValid())
        notes.insert(0, ChartSeries::emptySentence(shownChart(), m_figures));
    notes.removeAll(QString());
    notes.removeDuplicates();
    m_note->setText(notes.join(QLatin1Char(' ')));
    m_note->setVisible(!notes.isEmpty());
}

void ChartsPanel::redraw()
{
    const auto colours = ChartPictures::Colours::from(palette());
    for (int i = 0; i < ChartCount; ++i) {
        QChart *old = m_views[i]->chart();
        m_views[i]->setChart(ChartPictures::build(Charts[i], m_figures, colours));
        delete old;
        m_views[i]->setBackgroundBrush(colours.base);
        connectTips(m_views[i], Charts[i] == Chart::Spending);
    }
}

void ChartsPanel::connectTips(QChartView *view, bool spending)
{
    for (QAbstractSeries *series : view->chart()->series()) {
        if (auto *bars = qobject_cast<QAbstractBarSeries *>(series)) {
            for (QBarSet *set : bars->barSets()) {
                connect(set, &QBarSet::hovered, this, [set](bool on, int index) {
                    showTip(on ? set->property("tips").toStringList().value(index) : QString());
                });
                if (spending)
                    connect(set, &QBarSet::clicked, this, [this, set](int index) {
                        chooseCategory(set->property("rows").toList().value(index, -1).toInt());
                    });
            }
        } else if (auto *line = qobject_cast<QXYSeries *>(series)) {
            connect(line, &QXYSeries::hovered, this, [line](const QPointF &point, bool on) {
                const QList<QPointF> points = line->points();
                const auto near
                    = std::lower_bound(points.begin(), points.end(), point.x(),
                                       [](const QPointF &p, qreal x) { return p.x() < x; });
                qsizetype at = near - points.begin();
                if (at > 0
                    && (at == points.size()
                        || point.x() - points[at - 1].x() < near->x() - point.x()))
                    --at;
                showTip(on ? line->property("tips").toStringList().value(at) : QString());
            });
        }
    }
}

void ChartsPanel::chooseCategory(int row)
{
    if (row < 0 || row >= int(m_figures.spending.size()))
        return;
    QToolTip::hideText();
    const QString category = m_figures.spending[std::size_t(row)].category;
    Q_EMIT categoryChosen(
        m_account->currentData().toInt(),
        category == ChartRules::Uncategorised ? TransactionTemplate::NoCategory : category,
        EntryChecks::formatLongDate(m_figures.from), EntryChecks::formatLongDate(m_figures.to));
}

Chart ChartsPanel::shownChart() const
{
    return Charts[std::size_t(std::clamp(m_tabs->currentIndex(), 0, ChartCount - 1))];
}

QImage ChartsPanel::picture() const
{
    const auto colours = ChartPictures::Colours::from(palette());
    QChart *chart = ChartPictures::build(shownChart(), m_figures, colours);
    if (chart->title().isEmpty())
        chart->setTitle(ChartPictures::title(shownChart()) + QStringLiteral(", ")
                        + m_account->currentText() + QStringLiteral(", ")
                        + EntryChecks::formatLongDate(m_figures.from) + QStringLiteral(" to ")
                        + EntryChecks::formatLongDate(m_figures.to));
    QGraphicsScene scene;
    scene.addItem(chart);
    chart->resize(PrintedSize);
    chart->setPos(0, 0);
    QImage image(PrintedSize, QImage::Format_RGB32);
    image.fill(colours.base);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    scene.render(&painter, QRectF(QPointF(0, 0), PrintedSize), QRectF(QPointF(0, 0), PrintedSize));
    return image;
}

QString ChartsPanel::saveFolder() const
{
    return QDir(m_data.files.dataDir()).absoluteFilePath(QStringLiteral(".."));
}

void ChartsPanel::print(Interaction::PrintTarget target)
{
    const QString job = ChartPictures::title(shownChart());
    QString path;
    if (target == Interaction::PrintTarget::Pdf) {
        path = m_interaction.fileDialog(Interaction::FileDialog::Save, tr("Save as PDF"),
                                        saveFolder(), QStringLiteral("PDF files (*.pdf)"));
        if (path.isEmpty())
            return;
    }
    m_interaction.printImage(job, picture(), target, path);
}

void ChartsPanel::savePng()
{
    const QString path
        = m_interaction.fileDialog(Interaction::FileDialog::Save, tr("Save as PNG"), saveFolder(),
                                   QStringLiteral("PNG images (*.png)"));
    if (path.isEmpty())
        return;
    if (!picture().save(path, "PNG"))
        m_interaction.message(QStringLiteral("The chart could not be saved as ") + path,
                              tr("Save as PNG"), Interaction::Icon::Exclamation);
}
