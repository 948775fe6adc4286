#pragma once

#include "exchange/ImportPlan.h"

#include <QAbstractTableModel>

// The preview of an import: one row per downloaded transaction, its tick in
// column 0 ("[x]" / "[ ]") and its status in the last column. The category
// column is edited through the model.
class ImportModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Tick, Date, Type, Number, Payee, Category, Memo, Amount, Status, ColumnCount };
    // The category's number for the editor (Qt::EditRole gives the name).
    static constexpr int BudNumRole = Qt::UserRole + 1;

    ImportModel(ImportPlan &plan, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

    // Ticks an unticked row and unticks a ticked one; false for a refused row.
    bool toggle(int row);

Q_SIGNALS:
    void ticksChanged();

private:
    ImportPlan &m_plan;
};
