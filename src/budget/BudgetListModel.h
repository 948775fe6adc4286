#pragma once

#include "records/BudgetRecord.h"

#include <QAbstractTableModel>
#include <QSet>

#include <vector>

// flxgdAcctBudget: "^|<Category|>Monthly|>Balance|BudNum|CCBankRecnum|Pic Up/Down| #Items".
// An expanded category shows its sub-categories as rows beneath it.
class BudgetListModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    using QAbstractTableModel::QAbstractTableModel;

    enum Column { Fixed, Category, Monthly, Balance, BudNum, CCBankRecnum, Picture, Items };
    static constexpr int ColumnCount = 8;

    void setCategories(std::vector<BudgetRecord> categories);
    // Categories whose figures changed, as stored now: their rows follow in place.
    void updateCategories(const std::vector<BudgetRecord> &changed);
    // Shows or hides the sub-categories of the category on a row.
    void toggle(int row);
    // The category number of a row (category rows and their item rows), 0 for none.
    int budNumAt(int row) const;
    bool isCategoryRow(int row) const;

    // The table as tab-separated text, heading first, lines ended by CR LF.
    QString tabSeparated() const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Row
    {
        int category = 0; // index into m_categories
        int item = -1;    // -1 for the category row itself
    };
    void rebuildRows();
    QString text(const Row &row, int column) const;

    std::vector<BudgetRecord> m_categories;
    std::vector<Row> m_rows;
    QSet<int> m_expanded; // BudNum of expanded categories
};
