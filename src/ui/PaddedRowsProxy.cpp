#include "ui/PaddedRowsProxy.h"

PaddedRowsProxy::PaddedRowsProxy(int minimumRows, QObject *parent)
    : QAbstractProxyModel(parent), m_minimumRows(minimumRows)
{
}

int PaddedRowsProxy::sourceRows() const
{
    return sourceModel() ? sourceModel()->rowCount() : 0;
}

bool PaddedRowsProxy::isPadding(int row) const
{
    return row >= sourceRows() && row < rowCount();
}

void PaddedRowsProxy::setSourceModel(QAbstractItemModel *source)
{
    beginResetModel();
    for (const QMetaObject::Connection &c : m_connections)
        disconnect(c);
    m_connections.clear();
    QAbstractProxyModel::setSourceModel(source);
    if (source) {
        using M = QAbstractItemModel;
        // The source's rows keep their positions, so its changes pass through
        // as they are; the empty rows then grow or shrink to fill up.
        m_connections = {
            connect(source, &M::modelAboutToBeReset, this, [this] { beginResetModel(); }),
            connect(source, &M::modelReset, this,
                    [this] {
                        m_padding = std::max(0, m_minimumRows - sourceRows());
                        endResetModel();
                    }),
            connect(source, &M::rowsAboutToBeInserted, this,
                    [this](const QModelIndex &, int first, int last) {
                        beginInsertRows({}, first, last);
                    }),
            connect(source, &M::rowsInserted, this,
                    [this] {
                        endInsertRows();
                        settlePadding();
                    }),
            connect(source, &M::rowsAboutToBeRemoved, this,
                    [this](const QModelIndex &, int first, int last) {
                        beginRemoveRows({}, first, last);
                    }),
            connect(source, &M::rowsRemoved, this,
                    [this] {
                        endRemoveRows();
                        settlePadding();
                    }),
            connect(
                source, &M::dataChanged, this,
                [this](const QModelIndex &from, const QModelIndex &to, const QList<int> &roles) {
                    Q_EMIT dataChanged(mapFromSource(from), mapFromSource(to), roles);
                }),
            connect(source, &M::headerDataChanged, this,
                    [this](Qt::Orientation o, int first, int last) {
                        Q_EMIT headerDataChanged(o, first, last);
                    }),
            // Anything else that moves the source's rows or columns starts afresh.
            connect(source, &M::layoutAboutToBeChanged, this, [this] { beginResetModel(); }),
            connect(source, &M::layoutChanged, this,
                    [this] {
                        m_padding = std::max(0, m_minimumRows - sourceRows());
                        endResetModel();
                    }),
            connect(source, &M::rowsMoved, this,
                    [this] {
                        beginResetModel();
                        endResetModel();
                    }),
            connect(source, &M::columnsAboutToBeInserted, this, [this] { beginResetModel(); }),
            connect(source, &M::columnsInserted, this, [this] { endResetModel(); }),
            connect(source, &M::columnsAboutToBeRemoved, this, [this] { beginResetModel(); }),
            connect(source, &M::columnsRemoved, this, [this] { endResetModel(); }),
        };
    }
    m_padding = std::max(0, m_minimumRows - sourceRows());
    endResetModel();
}

void PaddedRowsProxy::settlePadding()
{
    const int rows = sourceRows();
    const int wanted = std::max(0, m_minimumRows - rows);
    if (wanted < m_padding) {
        beginRemoveRows({}, rows + wanted, rows + m_padding - 1);
        m_padding = wanted;
        endRemoveRows();
    } else if (wanted > m_padding) {
        beginInsertRows({}, rows + m_padding, rows + wanted - 1);
        m_padding = wanted;
        endInsertRows();
    }
}

QModelIndex PaddedRowsProxy::index(int row, int column, const QModelIndex &parent) const
{
    if (parent.isValid() || row < 0 || column < 0 || row >= rowCount() || column >= columnCount())
        return {};
    return createIndex(row, column);
}

QModelIndex PaddedRowsProxy::parent(const QModelIndex &) const
{
    return {};
}

QModelIndex PaddedRowsProxy::sibling(int row, int column, const QModelIndex &) const
{
    return index(row, column);
}

int PaddedRowsProxy::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : sourceRows() + m_padding;
}

int PaddedRowsProxy::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() || !sourceModel() ? 0 : sourceModel()->columnCount();
}

bool PaddedRowsProxy::hasChildren(const QModelIndex &parent) const
{
    return !parent.isValid() && rowCount() > 0;
}

QModelIndex PaddedRowsProxy::mapToSource(const QModelIndex &proxyIndex) const
{
    if (!sourceModel() || !proxyIndex.isValid() || proxyIndex.row() >= sourceRows())
        return {};
    return sourceModel()->index(proxyIndex.row(), proxyIndex.column());
}

QModelIndex PaddedRowsProxy::mapFromSource(const QModelIndex &sourceIndex) const
{
    if (!sourceIndex.isValid())
        return {};
    return index(sourceIndex.row(), sourceIndex.column());
}

QVariant PaddedRowsProxy::data(const QModelIndex &index, int role) const
{
    const QModelIndex source = mapToSource(index);
    return source.isValid() ? source.data(role) : QVariant();
}

Qt::ItemFlags PaddedRowsProxy::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    const QModelIndex source = mapToSource(index);
    return source.isValid() ? sourceModel()->flags(source)
                            : Qt::ItemIsEnabled | Qt::ItemIsSelectable;
}

QVariant PaddedRowsProxy::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (!sourceModel() || (orientation == Qt::Vertical && section >= sourceRows()))
        return {};
    return sourceModel()->headerData(section, orientation, role);
}
