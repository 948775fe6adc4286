#include "charts/ChartTableModel.h"

ChartTableModel::ChartTableModel(QStringList headings, QObject *parent)
    : QAbstractTableModel(parent), m_headings(std::move(headings))
{
}

void ChartTableModel::setRows(std::vector<QStringList> rows)
{
    beginResetModel();
    m_rows = std::move(rows);
    endResetModel();
}

int ChartTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int ChartTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_headings.size());
}

QVariant ChartTableModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= int(m_rows.size()))
        return {};
    if (role == Qt::DisplayRole)
        return m_rows[std::size_t(index.row())].value(index.column());
    if (role == Qt::TextAlignmentRole && index.column() > 0)
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    return {};
}

QVariant ChartTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole)
        return m_headings.value(section);
    return QAbstractTableModel::headerData(section, orientation, role);
}
