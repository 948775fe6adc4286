#include "register/RegisterModel.h"

#include "core/EntryChecks.h"
#include "register/ViewRange.h"

#include <QBrush>
#include <QColor>
#include <QFont>

namespace {

QString shortDate(const FixedText<15> &stored)
{
    const QString text = stored.text().trimmed();
    const auto date = EntryChecks::parseDate(text);
    return date ? EntryChecks::formatShortDate(*date) : text;
}

} // namespace

void RegisterModel::setRegister(std::vector<TransRecord> records, int firstShown, bool creditCard)
{
    beginResetModel();
    m_records = std::move(records);
    m_balances = ViewRange::runningBalances(m_records);
    m_firstShown = std::max(1, firstShown);
    m_creditCard = creditCard;
    endResetModel();
}

int RegisterModel::shownCount() const
{
    return std::max(0, int(m_records.size()) - (m_firstShown - 1));
}

int RegisterModel::recordNumberAt(int row) const
{
    return row >= 0 && row < shownCount() ? row + m_firstShown : 0;
}

int RegisterModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : std::max(shownCount(), MinRows);
}

int RegisterModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QString RegisterModel::cellText(int row, int column) const
{
    const int n = recordNumberAt(row);
    if (n == 0)
        return {};
    const TransRecord &r = m_records[n - 1];
    switch (column) {
    case Status: {
        const QString s = r.Status.text().trimmed();
        // Cleared and open entries each have their mark; anything else has none.
        if (s == QStringLiteral("CL"))
            return QStringLiteral("\u2714");
        return s == QStringLiteral("OP") ? QStringLiteral("\u25CB") : QString();
    }
    case Type:
        return r.Type.text().trimmed();
    case Date:
        return shortDate(r.Date);
    case Payee:
        return r.Description.text().trimmed();
    case Category: {
        const QString cat = r.BudName.text().trimmed();
        return cat.contains(QStringLiteral("none")) || cat == QStringLiteral("na") ? QString()
                                                                                   : cat;
    }
    case Memo:
        return r.Memo.text().trimmed();
    case Deposit:
        return r.Amount.isNegative() ? QString() : r.Amount.toCurrencyText();
    case Withdrawal:
        return r.Amount.isNegative() ? (-r.Amount).toCurrencyText() : QString();
    case Balance:
        return m_balances[n - 1].toCurrencyText();
    case DateCleared:
        return shortDate(r.DateClear);
    default:
        return {};
    }
}

QVariant RegisterModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return cellText(index.row(), index.column());
    case Qt::ToolTipRole:
        if (index.column() == Status && recordNumberAt(index.row()) != 0)
            return m_records[recordNumberAt(index.row()) - 1].Status.is(QStringLiteral("CL"))
                       ? tr("Cleared")
                       : tr("Open");
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
            return cellText(index.row(), Status) == QStringLiteral("\u2714")
                       ? QColor(0x1E, 0x7B, 0x34)
                       : QColor(0x90, 0x98, 0xA0);
        if (index.column() == Balance && recordNumberAt(index.row()) != 0
            && m_balances[recordNumberAt(index.row()) - 1].isNegative())
            return QColor(0xB0, 0x1E, 0x1E);
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
