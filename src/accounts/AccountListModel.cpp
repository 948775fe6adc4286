#include "accounts/AccountListModel.h"

#include "ui/ThemeStyle.h"

#include <QColor>
#include <QFont>

void AccountListModel::setSummary(AccountSummary summary)
{
    beginResetModel();
    m_summary = std::move(summary);
    endResetModel();
}

void AccountListModel::updateSummary(AccountSummary summary)
{
    const auto &was = m_summary.rows;
    const auto &now = summary.rows;
    const bool sameRows
        = summary.gridRows == m_summary.gridRows && now.size() == was.size()
          && std::equal(now.begin(), now.end(), was.begin(),
                        [](const AccountSummary::Row &a, const AccountSummary::Row &b) {
                            return a.bankNum == b.bankNum && a.heading == b.heading;
                        });
    if (!sameRows || now.empty()) {
        setSummary(std::move(summary));
        return;
    }
    m_summary = std::move(summary);
    Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

int AccountListModel::bankNumAt(int row) const
{
    return row >= 0 && row < int(m_summary.rows.size()) ? m_summary.rows[row].bankNum : 0;
}

int AccountListModel::rowOf(int bankNum) const
{
    for (int i = 0; i < int(m_summary.rows.size()); ++i)
        if (bankNum != 0 && m_summary.rows[i].bankNum == bankNum)
            return i;
    return -1;
}

int AccountListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_summary.gridRows - 1; // the header is the view's
}

int AccountListModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : 2;
}

QVariant AccountListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= int(m_summary.rows.size()))
        return {};
    const AccountSummary::Row &row = m_summary.rows[index.row()];
    switch (role) {
    case Qt::DisplayRole:
        return index.column() == 0 ? row.name : row.balance;
    case Qt::TextAlignmentRole:
        return index.column() == 0 ? QVariant(Qt::AlignLeft | Qt::AlignVCenter)
                                   : QVariant(Qt::AlignCenter);
    case Qt::ForegroundRole:
        // Colour value 255 is pure red (the value is blue-green-red).
        if (row.heading)
            return QColor(HeadingColour & 0xFF, (HeadingColour >> 8) & 0xFF,
                          (HeadingColour >> 16) & 0xFF);
        if (index.column() == 1 && row.balance.startsWith(QLatin1Char('(')))
            return ThemeStyle::negative();
        return {};
    case Qt::FontRole:
        if (row.heading) {
            // Style value 4: the heading is set in bold.
            QFont f;
            f.setBold(true);
            return f;
        }
        return {};
    default:
        return {};
    }
}

QVariant AccountListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return {};
    if (role == Qt::DisplayRole)
        return section == 0 ? QStringLiteral("Bank Account") : QStringLiteral("Balance");
    if (role == Qt::TextAlignmentRole)
        return section == 0 ? QVariant(Qt::AlignLeft | Qt::AlignVCenter)
                            : QVariant(Qt::AlignCenter);
    return {};
}

Qt::ItemFlags AccountListModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    return bankNumAt(index.row()) != 0 ? Qt::ItemIsEnabled | Qt::ItemIsSelectable
                                       : Qt::ItemIsEnabled;
}
