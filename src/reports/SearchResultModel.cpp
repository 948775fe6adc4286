#include "reports/SearchResultModel.h"

#include "core/TransactionText.h"

#include <QStringList>

namespace {
// The heading texts of the grid's format string, with their blanks.
const QStringList Headings
    = {QStringLiteral("Account"), QStringLiteral("Cleared"),     QStringLiteral("Type"),
       QStringLiteral("Date"),    QStringLiteral("Description"), QStringLiteral("Category "),
       QStringLiteral("Memo"),    QStringLiteral("Deposit"),     QStringLiteral(" Withdrawal")};
} // namespace

void SearchResultModel::setHits(std::vector<TransactionSearch::Hit> hits)
{
    beginResetModel();
    m_hits = std::move(hits);
    endResetModel();
}

int SearchResultModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_hits.size());
}

int SearchResultModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QString SearchResultModel::cellText(int row, int column) const
{
    using TransactionText::Field;
    const TransactionSearch::Hit &h = m_hits[std::size_t(row)];
    switch (column) {
    case Account:
        return h.accountName;
    case Cleared:
        return TransactionText::field(h.record, Field::Status);
    case Type:
        return TransactionText::field(h.record, Field::Type);
    case Date:
        return TransactionText::field(h.record, Field::Date);
    case Description:
        return TransactionText::field(h.record, Field::Payee);
    case Category:
        return TransactionText::field(h.record, Field::Category);
    case Memo:
        return TransactionText::field(h.record, Field::Memo);
    case Deposit:
        return TransactionText::field(h.record, Field::Deposit);
    case Withdrawal:
        return TransactionText::field(h.record, Field::Withdrawal);
    }
    return QString();
}

QVariant SearchResultModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const TransactionSearch::Hit &h = m_hits[std::size_t(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        return cellText(index.row(), index.column());
    case Qt::TextAlignmentRole:
        return index.column() >= Deposit ? int(Qt::AlignCenter)
                                         : int(Qt::AlignLeft | Qt::AlignVCenter);
    case BankNumRole:
        return h.bankNum;
    case RecordNumberRole:
        return h.recordNumber;
    default:
        return {};
    }
}

QVariant SearchResultModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= ColumnCount)
        return {};
    if (role == Qt::DisplayRole)
        return Headings[section];
    if (role == Qt::TextAlignmentRole)
        return section >= Deposit ? int(Qt::AlignCenter) : int(Qt::AlignLeft | Qt::AlignVCenter);
    return {};
}

QString SearchResultModel::tabSeparated() const
{
    QStringList lines{Headings.join(QLatin1Char('\t'))};
    for (int row = 0; row < rowCount(); ++row) {
        QStringList cells;
        for (int c = 0; c < ColumnCount; ++c)
            cells << cellText(row, c);
        lines << cells.join(QLatin1Char('\t'));
    }
    return lines.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n");
}
