#pragma once

#include <QAbstractTableModel>
#include <QStringList>

#include <vector>

// The figures of one chart as a table: the chart's accessible form, and what
// a script dumps. Column 0 names the row; the other columns are amounts.
class ChartTableModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    ChartTableModel(QStringList headings, QObject *parent = nullptr);

    void setRows(std::vector<QStringList> rows);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

private:
    QStringList m_headings;
    std::vector<QStringList> m_rows;
};
