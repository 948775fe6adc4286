#pragma once

#include <QAbstractProxyModel>

// A flat table shown with empty rows below its last one, so that a grid is
// never shorter than a given number of rows. The empty rows can be clicked
// and selected and have no data; every other row is the source's own.
class PaddedRowsProxy : public QAbstractProxyModel
{
    Q_OBJECT
public:
    explicit PaddedRowsProxy(int minimumRows, QObject *parent = nullptr);

    void setSourceModel(QAbstractItemModel *source) override;

    int minimumRows() const { return m_minimumRows; }
    // Whether a row of this model is one of the empty rows.
    bool isPadding(int row) const;

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    QModelIndex sibling(int row, int column, const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    bool hasChildren(const QModelIndex &parent = {}) const override;
    QModelIndex mapToSource(const QModelIndex &proxyIndex) const override;
    QModelIndex mapFromSource(const QModelIndex &sourceIndex) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

private:
    int sourceRows() const;
    // Adds or removes empty rows at the end until the table is tall enough.
    void settlePadding();

    int m_minimumRows;
    int m_padding = 0;
    QList<QMetaObject::Connection> m_connections;
};
