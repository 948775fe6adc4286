#include "ui/ColumnFit.h"

#include <QAbstractItemModel>
#include <QEvent>
#include <QHeaderView>
#include <QScrollBar>
#include <QSettings>
#include <QStyle>
#include <QTableView>
#include <QTimer>

#include <algorithm>
#include <numeric>

namespace {

// The rows looked at for a column's widest text: all of a short list, the
// first and last ones of a long one (a register holds up to 32,767).
constexpr int SampleRows = 50;

QSettings userSettings()
{
    return QSettings(QStringLiteral("quillmere"));
}

QString settingsKey(const QTableView *grid)
{
    return QStringLiteral("Columns/") + grid->objectName();
}

} // namespace

ColumnFit *ColumnFit::install(QTableView *grid, QList<Column> columns)
{
    return new ColumnFit(grid, std::move(columns));
}

ColumnFit::ColumnFit(QTableView *grid, QList<Column> columns)
    : QObject(grid), m_grid(grid), m_columns(std::move(columns))
{
    m_chosen = QList<int>(m_columns.size(), 0);
    const QStringList saved = userSettings().value(settingsKey(grid)).toStringList();
    for (qsizetype c = 0; c < saved.size() && c < m_chosen.size(); ++c)
        m_chosen[c] = std::max(0, saved[c].toInt());

    QHeaderView *header = grid->horizontalHeader();
    header->setStretchLastSection(false);
    header->setSectionResizeMode(QHeaderView::Interactive);
    grid->setTextElideMode(Qt::ElideRight);
    grid->installEventFilter(this);
    header->viewport()->installEventFilter(this);
    // A double click on a column's edge fits it to its text again.
    connect(header, &QHeaderView::sectionHandleDoubleClicked, this, [this](int column) {
        m_beforeDrag.clear();
        if (column < m_chosen.size()) {
            m_chosen[column] = 0;
            saveChosen();
            scheduleFit();
        }
    });
    if (QAbstractItemModel *model = grid->model()) {
        // The texts are measured again only when they change; a resize
        // shares out the room by the widths measured last.
        auto changed = [this] {
            m_measured = false;
            scheduleFit();
        };
        connect(model, &QAbstractItemModel::modelReset, this, changed);
        connect(model, &QAbstractItemModel::layoutChanged, this, changed);
        connect(model, &QAbstractItemModel::rowsInserted, this, changed);
        connect(model, &QAbstractItemModel::dataChanged, this, changed);
        connect(model, &QAbstractItemModel::headerDataChanged, this, changed);
    }
    connect(grid->verticalScrollBar(), &QScrollBar::rangeChanged, this, [this](int, int maximum) {
        if ((maximum > 0) != m_scrolling) {
            m_scrolling = maximum > 0;
            scheduleFit();
        }
    });
    fit();
}

QList<int> ColumnFit::widths(const QList<Column> &columns, const QList<int> &wanted,
                             const QList<int> &chosen, int room)
{
    const qsizetype n = columns.size();
    QList<int> result(n, 0);
    int fixed = 0;
    int overflow = 0;
    int shareMinimum = 0;
    int shareWanted = 0;
    for (qsizetype c = 0; c < n; ++c) {
        if (chosen.value(c) > 0 || columns[c].kind == Content) {
            result[c] = chosen.value(c) > 0 ? chosen[c] : wanted[c];
            fixed += result[c];
        } else if (columns[c].kind == Overflow) {
            result[c] = wanted[c];
            overflow += result[c];
        } else {
            result[c] = std::clamp(wanted[c], columns[c].minimum, columns[c].maximum);
            shareMinimum += columns[c].minimum;
            shareWanted += result[c];
        }
    }
    // The overflow columns come inside only when the others keep their minimums.
    int left = room - fixed;
    if (left - overflow >= shareMinimum)
        left -= overflow;
    if (shareWanted == 0)
        return result;
    if (shareWanted <= left) {
        // Room to spare: each share column grows by its part of it.
        const int spare = left - shareWanted;
        int given = 0;
        qsizetype last = -1;
        for (qsizetype c = 0; c < n; ++c)
            if (columns[c].kind == Share && chosen.value(c) <= 0) {
                const int extra = int(qint64(spare) * result[c] / shareWanted);
                result[c] += extra;
                given += extra;
                last = c;
            }
        result[last] += spare - given;
        return result;
    }
    // Short of room: the widest texts give way first. Every share column is
    // held to one cap (none under its minimum), the largest cap that fits, so
    // a short type or category stays whole while a long payee is cut.
    auto capped = [&](int cap) {
        int sum = 0;
        for (qsizetype c = 0; c < n; ++c)
            if (columns[c].kind == Share && chosen.value(c) <= 0)
                sum += std::max(columns[c].minimum,
                                std::min(result[c], cap * columns[c].weight / 100));
        return sum;
    };
    int low = 0;
    int high = 100 * *std::max_element(result.begin(), result.end());
    while (low < high) {
        const int mid = (low + high + 1) / 2;
        if (capped(mid) <= left)
            low = mid;
        else
            high = mid - 1;
    }
    for (qsizetype c = 0; c < n; ++c)
        if (columns[c].kind == Share && chosen.value(c) <= 0)
            result[c]
                = std::max(columns[c].minimum, std::min(result[c], low * columns[c].weight / 100));
    return result;
}

QList<int> ColumnFit::wantedWidths() const
{
    QList<int> wanted(m_columns.size(), 0);
    const QAbstractItemModel *model = m_grid->model();
    if (!model)
        return wanted;
    const QFontMetrics cells = m_grid->fontMetrics();
    const QHeaderView *header = m_grid->horizontalHeader();
    const QFontMetrics headings = header->fontMetrics();
    const int cellMargin
        = 2 * (m_grid->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, m_grid) + 1) + 4;
    const int headingMargin
        = 2 * m_grid->style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, header) + 6;
    const int rows = model->rowCount();
    QList<int> sample;
    for (int r = 0; r < rows && r < SampleRows; ++r)
        sample << r;
    for (int r = std::max(SampleRows, rows - SampleRows); r < rows; ++r)
        sample << r;
    for (qsizetype c = 0; c < m_columns.size() && c < model->columnCount(); ++c) {
        if (header->isSectionHidden(int(c)))
            continue;
        int widest
            = headings.horizontalAdvance(model->headerData(int(c), Qt::Horizontal).toString())
              + headingMargin;
        for (int r : sample) {
            const QString text = model->index(r, int(c)).data().toString();
            if (!text.isEmpty())
                widest = std::max(widest, cells.horizontalAdvance(text) + cellMargin);
        }
        wanted[c] = std::max(widest, m_columns[c].minimum);
        if (m_columns[c].kind == Content)
            wanted[c] = std::min(wanted[c], m_columns[c].maximum);
    }
    return wanted;
}

void ColumnFit::scheduleFit()
{
    if (m_scheduled)
        return;
    m_scheduled = true;
    QTimer::singleShot(0, this, [this] {
        m_scheduled = false;
        fit();
    });
}

void ColumnFit::fit()
{
    if (m_fitting || !m_grid->model())
        return;
    m_fitting = true;
    // The room a grid has is its width less its frame and the vertical scroll
    // bar, which is counted while the rows need it (a change of that refits).
    int room = m_grid->width() - 2 * m_grid->frameWidth();
    if (m_grid->verticalHeader()->isVisible())
        room -= m_grid->verticalHeader()->width();
    if (m_grid->verticalScrollBarPolicy() == Qt::ScrollBarAlwaysOn
        || (m_grid->verticalScrollBarPolicy() == Qt::ScrollBarAsNeeded
            && m_grid->verticalScrollBar()->maximum() > 0))
        room -= m_grid->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr,
                                             m_grid->verticalScrollBar());
    if (!m_measured) {
        m_wanted = wantedWidths();
        m_measured = true;
    }
    const QList<int> w = widths(m_columns, m_wanted, m_chosen, room);
    QHeaderView *header = m_grid->horizontalHeader();
    for (qsizetype c = 0; c < w.size() && c < header->count(); ++c)
        if (!header->isSectionHidden(int(c)) && header->sectionSize(int(c)) != w[c])
            header->resizeSection(int(c), w[c]);
    m_fitting = false;
}

void ColumnFit::saveChosen()
{
    QStringList values;
    for (int w : m_chosen)
        values << QString::number(w);
    QSettings settings = userSettings();
    if (std::all_of(m_chosen.begin(), m_chosen.end(), [](int w) { return w == 0; }))
        settings.remove(settingsKey(m_grid));
    else
        settings.setValue(settingsKey(m_grid), values);
}

bool ColumnFit::eventFilter(QObject *watched, QEvent *event)
{
    QHeaderView *header = m_grid->horizontalHeader();
    if (watched == m_grid && (event->type() == QEvent::Resize || event->type() == QEvent::Show))
        scheduleFit();
    else if (watched == m_grid
             && (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)) {
        m_measured = false;
        scheduleFit();
    } else if (watched == header->viewport() && event->type() == QEvent::MouseButtonPress) {
        m_beforeDrag.clear();
        for (int c = 0; c < header->count(); ++c)
            m_beforeDrag << header->sectionSize(c);
    } else if (watched == header->viewport() && event->type() == QEvent::MouseButtonRelease
               && !m_beforeDrag.isEmpty()) {
        // The columns the user dragged keep their new widths from now on.
        bool changed = false;
        for (qsizetype c = 0; c < m_beforeDrag.size() && c < m_chosen.size(); ++c)
            if (header->sectionSize(int(c)) != m_beforeDrag[c]) {
                m_chosen[c] = header->sectionSize(int(c));
                changed = true;
            }
        m_beforeDrag.clear();
        if (changed) {
            saveChosen();
            scheduleFit();
        }
    }
    return QObject::eventFilter(watched, event);
}
