#pragma once

#include "budget/BudgetTransfers.h"
#include "core/DataSnapshot.h"
#include "records/DataFiles.h"

#include <QWidget>

class BudgetTransferModel;
class DateBox;
class Interaction;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTableView;

// Moving money into budget categories: the periodic transfer (and its
// removal), single transfers, and the list of transfers made.
class BudgetTransferPanel : public QWidget
{
    Q_OBJECT
public:
    explicit BudgetTransferPanel(Interaction &interaction, QWidget *parent = nullptr);

    // A data set was opened: a new single transfer starts on its categories.
    void setDataFiles(const DataSnapshot &data);
    // The name of the budget period ("Monthly", "Bi-Monthly", "Weekly").
    void setPeriodName(const QString &period);
    void setEditLock(bool locked) { m_editLock = locked; }
    // Refills the category lists (after categories changed).
    void reloadCategories();
    void reloadCategories(const std::vector<BudgetRecord> &budget);
    void refreshBudgetTransferList();

Q_SIGNALS:
    // Category balances changed.
    void budgetChanged();

private:
    enum class Kind { Single, Periodic, Removal };
    void onKindChosen(Kind kind);
    void onTransfer();
    void onChange();
    void onClear();
    void clearEntry(const std::vector<BudgetRecord> &budget);
    void onRowClicked(const QModelIndex &index);
    void onRemoveSelected();
    void fillPeriodic();
    void fillPeriodic(const std::vector<BudgetRecord> &budget);
    void showError(const QString &text);
    void finish();
    BudgetTransfers::Request request() const;
    // Finishes a successful transfer, or shows why it was refused.
    void report(const BudgetTransfers::Result &result);

    Interaction &m_interaction;
    DataFiles m_files;
    QString m_period = QStringLiteral("Monthly");
    Kind m_kind = Kind::Single;
    bool m_editLock = false;
    int m_changing = 0; // record number of the transfer loaded for change

    BudgetTransferModel *m_model;
    QTableView *m_list;
    QLabel *m_title;
    QRadioButton *m_single;
    QRadioButton *m_periodic;
    QRadioButton *m_removal;
    QComboBox *m_from;
    QComboBox *m_to;
    QLineEdit *m_amount;
    DateBox *m_date;
    QLineEdit *m_description;
    QLineEdit *m_memo;
    QLabel *m_error;
    QPushButton *m_transfer;
    QPushButton *m_change;
};
