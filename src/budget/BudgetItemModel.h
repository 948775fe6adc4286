#pragma once

#include "budget/BudgetCategories.h"

#include <QAbstractTableModel>

// flxgdBuditem: "<|<Sub-Category|<Amount", fifteen rows of sub-categories.
class BudgetItemModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    using QAbstractTableModel::QAbstractTableModel;

    enum Column { Fixed, Name, Amount };

    void setRows(const BudgetCategories::ItemRows &rows);
    const BudgetCategories::ItemRows &rows() const { return m_rows; }
    QString cell(int row, int column) const;
    void setCell(int row, int column, const QString &text);
    // Empties every row and restores the headings.
    void clear();

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    BudgetCategories::ItemRows m_rows;
};
