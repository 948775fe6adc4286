#pragma once

#include "core/DataChange.h"
#include "core/DataSnapshot.h"
#include "reports/TransactionSearch.h"

#include <QWidget>

class Interaction;
class QComboBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QStandardItemModel;
class QTableView;
class SearchResultModel;

// The search panel: criteria, the transactions found (flxgdSrchTrans) and
// their summary (flxgdSrchSum). A click on a transaction found asks for it to
// be shown in its account's register.
class SearchPanel : public QWidget
{
    Q_OBJECT
public:
    SearchPanel(Interaction &interaction, QWidget *parent = nullptr);

    // The accounts and categories offered; the criteria typed are kept.
    void setData(const DataSnapshot &data);
    // Follows an operation of another view.
    void follow(const DataChange &change, const DataSnapshot &data);
    // Puts a command of a higher layer (export) beside Copy.
    void addCommand(QWidget *button);
    const std::vector<TransactionSearch::Hit> &hits() const;
    // Clears the criteria, sets an account (0: all), a category and two dates,
    // and searches.
    void searchCategory(int bankNum, const QString &category, const QString &from,
                        const QString &to);

Q_SIGNALS:
    void transactionChosen(int bankNum, int recordNumber);

private:
    void onSearch();
    void onClear();
    void onAccountChosen();
    void onResultClicked(const QModelIndex &index);
    void onCopy();
    void showError(const QString &text);
    void hideError();
    void showSummary();
    static void resetTo(QComboBox *box, const QStringList &entries, const QString &keep);

    Interaction &m_interaction;
    DataFiles m_files{QString(), false};
    std::vector<BankAcctRecord> m_accounts;
    std::vector<BudgetRecord> m_categories;

    QComboBox *m_account;
    QComboBox *m_type;
    QComboBox *m_dateFrom;
    QComboBox *m_dateTo;
    QLineEdit *m_description;
    QLineEdit *m_amountFrom;
    QLineEdit *m_amountTo;
    QComboBox *m_category;
    QComboBox *m_class;
    QComboBox *m_paidTo;
    QLabel *m_memoLabel;
    QLineEdit *m_memo;
    QComboBox *m_cleared;
    QComboBox *m_statement;
    QPushButton *m_search;
    QPushButton *m_clear;
    QPushButton *m_copy;
    QHBoxLayout *m_buttons = nullptr;
    QLabel *m_error;
    QPushButton *m_errorButton;
    QLabel *m_title;
    SearchResultModel *m_results;
    QTableView *m_grid;
    QStandardItemModel *m_summary;
    QTableView *m_summaryGrid;
};
