#pragma once

#include "budget/BudgetCategories.h"

#include <QAbstractTableModel>

// flxgdBuditem: "<|<Sub-Category|<Amount", fifteen rows of sub-categories.
// Names and amounts are edited in their cells; an amount of 90,000,000,000 or
// more, of either sign, is refused (text that is no number counts as 0).
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

    // Whether a cell may hold this text.
    static bool accepts(const QString &text);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    // Takes the text of a name or amount cell; false when it is refused.
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    BudgetCategories::ItemRows m_rows;
};
