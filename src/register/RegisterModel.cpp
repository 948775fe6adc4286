#include "register/RegisterModel.h"

#include <QHeaderView>
#include <QTableView>

#include "core/TransactionText.h"
#include "register/ViewRange.h"
#include "ui/ColumnFit.h"
#include "ui/ThemeStyle.h"

#include <QColor>

namespace {

using Field = TransactionText::Field;

// The register's columns after the status mark, as fields of a transaction.
constexpr Field ColumnField[] = {Field::Status,     Field::Type,       Field::Date,
                                 Field::Payee,      Field::Category,   Field::Memo,
                                 Field::Deposit,    Field::Withdrawal, Field::Status /* balance */,
                                 Field::DateCleared};

} // namespace

void RegisterModel::setRegister(std::vector<TransRecord> records, int firstShown, bool creditCard)
{
    beginResetModel();
    m_records = std::move(records);
    m_balances = ViewRange::runningBalances(m_records);
    m_balances.reserve(m_records.capacity());
    m_firstShown = std::max(1, firstShown);
    m_creditCard = creditCard;
    endResetModel();
}

void RegisterModel::appendRecord(const TransRecord &record)
{
    const int row = shownCount();
    beginInsertRows({}, row, row);
    m_balances.push_back((m_balances.empty() ? Currency() : m_balances.back()) + record.Amount);
    m_records.push_back(record);
    m_firstShown = std::min(m_firstShown, int(m_records.size()));
    endInsertRows();
}

void RegisterModel::replaceRecord(int n, const TransRecord &record)
{
    if (n < 1 || n > int(m_records.size()))
        return;
    const Currency by = record.Amount - m_records[n - 1].Amount;
    m_records[n - 1] = record;
    if (!by.isZero())
        for (std::size_t i = std::size_t(n - 1); i < m_balances.size(); ++i)
            m_balances[i] += by;
    // Rows before the first listed one are not shown, but the balances of every
    // listed row after them move.
    const int from = std::max(0, n - m_firstShown);
    const int to = by.isZero() ? rowOfRecord(n) : shownCount() - 1;
    if (to >= from)
        Q_EMIT dataChanged(index(from, 0), index(to, ColumnCount - 1));
}

int RegisterModel::shownCount() const
{
    return std::max(0, int(m_records.size()) - (m_firstShown - 1));
}

int RegisterModel::recordNumberAt(int row) const
{
    return row >= 0 && row < shownCount() ? row + m_firstShown : 0;
}

int RegisterModel::rowOfRecord(int n) const
{
    return n >= m_firstShown && n <= int(m_records.size()) ? n - m_firstShown : -1;
}

int RegisterModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : shownCount();
}

int RegisterModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QString RegisterModel::cellText(int row, int column) const
{
    const int n = recordNumberAt(row);
    if (n == 0 || column < 0 || column >= ColumnCount)
        return {};
    if (column == Balance)
        return TransactionText::money(m_balances[n - 1]);
    return TransactionText::field(m_records[n - 1], ColumnField[column]);
}

QVariant RegisterModel::rawValue(int row, int column) const
{
    const TransRecord &r = m_records[recordNumberAt(row) - 1];
    switch (column) {
    case Status:
        return r.Status.text().trimmed();
    case Type:
        return r.Type.text().trimmed();
    case Date:
        return TransactionText::date(r.Date);
    case Payee:
        return r.Description.text().trimmed();
    case Category:
        return r.BudName.text().trimmed();
    case Memo:
        return r.Memo.text().trimmed();
    case Deposit:
        return r.Amount.isNegative() ? QVariant() : QVariant(qint64(r.Amount.raw()));
    case Withdrawal:
        return r.Amount.isNegative() ? QVariant(qint64(-r.Amount.raw())) : QVariant();
    case Balance:
        return qint64(m_balances[recordNumberAt(row) - 1].raw());
    case DateCleared:
        return TransactionText::date(r.DateClear);
    default:
        return {};
    }
}

QVariant RegisterModel::data(const QModelIndex &index, int role) const
{
    const int n = index.isValid() ? recordNumberAt(index.row()) : 0;
    if (n == 0)
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return cellText(index.row(), index.column());
    case RecordNumberRole:
        return n;
    case RawValueRole:
        return rawValue(index.row(), index.column());
    case AmountRole:
        return qint64(m_records[n - 1].Amount.raw());
    case DateRole:
        return TransactionText::date(m_records[n - 1].Date);
    case Qt::ToolTipRole:
        if (index.column() == Status)
            return m_records[n - 1].Status.is(QStringLiteral("CL")) ? tr("Cleared") : tr("Open");
        return {};
    case Qt::TextAlignmentRole:
        if (index.column() >= Deposit && index.column() <= Balance)
            return QVariant(Qt::AlignRight | Qt::AlignVCenter);
        if (index.column() == Status)
            return QVariant(Qt::AlignCenter);
        return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
    case Qt::BackgroundRole:
        if (index.row() == lastRow())
            return QColor(HighlightColour & 0xFF, (HighlightColour >> 8) & 0xFF,
                          (HighlightColour >> 16) & 0xFF);
        return {};
    case Qt::ForegroundRole:
        if (index.column() == Status)
            return cellText(index.row(), Status) == TransactionText::ClearedMark
                       ? QColor(0x1E, 0x7B, 0x34)
                       : QColor(0x90, 0x98, 0xA0);
        if (index.column() == Balance && m_balances[n - 1].isNegative())
            return ThemeStyle::negative();
        return {};
    default:
        return {};
    }
}

QVariant RegisterModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case Status:
        return QString();
    case Type:
        return QStringLiteral("Type");
    case Date:
        return QStringLiteral("Date");
    case Payee:
        return QStringLiteral("Payee");
    case Category:
        return QStringLiteral("Category");
    case Memo:
        return QStringLiteral("Memo");
    case Deposit:
        return m_creditCard ? QStringLiteral("Credit") : QStringLiteral("Deposit");
    case Withdrawal:
        return m_creditCard ? QStringLiteral("Charge") : QStringLiteral("Withdrawal");
    case Balance:
        return QStringLiteral("Balance");
    case DateCleared:
        return QStringLiteral("Date Cleared");
    default:
        return {};
    }
}

QString RegisterModel::tabSeparated(const QList<int> &rows) const
{
    QStringList lines;
    QStringList header;
    for (int c = Type; c < ColumnCount; ++c)
        header << headerData(c, Qt::Horizontal, Qt::DisplayRole).toString();
    lines << header.join(QLatin1Char('\t'));
    for (int row : rows) {
        if (recordNumberAt(row) == 0)
            continue;
        QStringList cells;
        for (int c = Type; c < ColumnCount; ++c)
            cells << cellText(row, c);
        lines << cells.join(QLatin1Char('\t'));
    }
    return lines.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n");
}

void RegisterModel::layOutColumns(QTableView *grid)
{
    grid->verticalHeader()->hide();
    grid->verticalHeader()->setDefaultSectionSize(21);
    grid->setWordWrap(false);
    QHeaderView *header = grid->horizontalHeader();
    header->setMinimumSectionSize(18);
    using C = ColumnFit::Column;
    // The cleared date is the one column that may lie past the right edge
    // when the grid is narrow: the amounts and the balance come first.
    ColumnFit::install(grid, {C{ColumnFit::Content, 18}, C{ColumnFit::Share, 52, 130, 150},
                              C{ColumnFit::Content}, C{ColumnFit::Share, 64, 400, 130},
                              C{ColumnFit::Share, 40, 180}, C{ColumnFit::Share, 40, 300, 80},
                              C{ColumnFit::Content}, C{ColumnFit::Content}, C{ColumnFit::Content},
                              C{ColumnFit::Overflow}});
}
