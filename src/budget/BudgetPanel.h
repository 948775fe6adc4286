#pragma once

#include "core/DataSnapshot.h"
#include "records/DataFiles.h"

#include <QWidget>

class BudgetItemDelegate;
class BudgetItemModel;
class BudgetListModel;
class Interaction;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;

// The budget: the list of categories with their balances, the editor that
// creates, changes, renames and removes them, and the monthly budget, total
// budget balance and disposable cash.
class BudgetPanel : public QWidget
{
    Q_OBJECT
public:
    explicit BudgetPanel(Interaction &interaction, QWidget *parent = nullptr);

    // A data set was opened: the editor starts empty and its categories are shown.
    void setDataFiles(const DataSnapshot &data);
    // Re-reads every category and refills the grid, the category list and the totals.
    void refreshBudgetList();
    // The same from categories and accounts already read.
    void showBudget(const DataSnapshot &data);
    // Categories and accounts an operation changed, as stored now: their rows
    // and the totals follow in place, nothing is read.
    void updateFigures(const std::vector<BudgetRecord> &categories,
                       const std::vector<BankAcctRecord> &accounts);
    // While set (by a panel that owns the entry row), saving beeps and does nothing.
    void setEditLock(bool locked) { m_editLock = locked; }

    QTableView *grid() const { return m_grid; }

Q_SIGNALS:
    // Categories were added, renamed or removed.
    void categoriesChanged();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *buildEditor();
    void onCategoryChosen(int index);
    void onSave();
    void onRename();
    void onRemove();
    void onClearList();
    void onGridClicked(const QModelIndex &index);
    void onItemCellClicked(const QModelIndex &index);
    void onCopy();
    void showMessage(const QString &text);
    void showTotals();

    Interaction &m_interaction;
    DataFiles m_files;
    bool m_editLock = false;
    int m_loaded = 0;     // the category picked for the editor
    DataSnapshot m_shown; // the categories and accounts as last shown

    BudgetListModel *m_model;
    QTableView *m_grid;
    BudgetItemModel *m_items;
    QTableView *m_itemGrid = nullptr;
    BudgetItemDelegate *m_itemEditor = nullptr;
    QComboBox *m_category = nullptr;
    QLineEdit *m_amount = nullptr;
    QLabel *m_itemize = nullptr;
    QLabel *m_message = nullptr;
    QLabel *m_monthly;
    QLabel *m_balance;
    QLabel *m_disposable;
};
