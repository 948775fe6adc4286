#pragma once

#include "core/DataChange.h"
#include "reconcile/StatementFigures.h"
#include "records/BankAcctRecord.h"
#include "records/DataFiles.h"
#include "records/TransRecord.h"

#include <QWidget>

#include <vector>

class DateBox;
class Interaction;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;
class StatementModel;

// Balancing the current account against a bank statement: the statement's
// date and balances, the open transactions to tick, the cleared balance and
// the difference after every tick, and the confirm that clears the ticked
// transactions. A prior statement is looked at again by its date.
class BalancingPanel : public QWidget
{
    Q_OBJECT
public:
    explicit BalancingPanel(Interaction &interaction, QWidget *parent = nullptr);

    void setDataFiles(const DataFiles &files);
    // The account to balance; another account drops the statement in progress.
    void setAccount(const BankAcctRecord &account);
    // The register was written by another view: list it again, ticks kept.
    void registerChanged(int bankNum);
    // The register's entry row wrote a transaction of this account (a new one,
    // a change or a void): its row in the list follows.
    void entryWritten(int bankNum, int recordNumber, const TransRecord &record);

    // Lists the open transactions of the account (when they are not listed yet).
    void fill();
    // A statement is in progress: figures typed or a row ticked.
    bool inProgress() const;
    // The user's choice in the BalanceErrorForm (1: correct the register,
    // 2: use the bank statement's figure, 3: back to the figures).
    void BankstateErr(int choice);

    StatementModel *model() const { return m_model; }

    inline static const QString HelpText
        = QStringLiteral("To see a prior Bank Statement select the Bank and the Bank Statement "
                         "date.");
    inline static const QString CaptionPrefix = QStringLiteral("All Open Transactions for ");
    inline static const QString OpenListEntry = QStringLiteral("Open transactions");

Q_SIGNALS:
    void dataChanged(const DataChange &change);
    // A row was picked for change: the register loads it into its entry row.
    void changeRequested(int bankNum, int recordNumber);
    // The starting balance was corrected by this record of the account.
    void correctionEntered(int bankNum, int recordNumber);
    // A statement began or ended; budget saves wait while one is in progress.
    void editLockChanged(bool locked);

protected:
    void showEvent(QShowEvent *event) override;
    // Space on the list ticks the current row.
    bool eventFilter(QObject *watched, QEvent *event) override;
    // The columns share the list's width; money columns keep room for a figure.

private:
    QWidget *buildFigures();
    QWidget *buildTotals();
    void onCellClicked(const QModelIndex &index);
    void toggleRow(int row);
    void recompute();
    void onConfirm();
    void onCancel();
    void showError(const QString &heading);
    void clearError();
    void emptyFigures();
    void updateLock();
    void reloadRegister();
    void showList();
    void fillDates();
    void onStatementChosen(int index);
    void showPrior(const QString &date);
    void unclearRow(int row);
    bool showingPrior() const;
    void tell(const QString &text, const QString &title);

    Interaction &m_interaction;
    DataFiles m_files;
    BankAcctRecord m_account;
    std::vector<TransRecord> m_records;
    bool m_listed = false;
    Currency m_expectedStart; // the register's starting balance for this statement
    Currency m_listStart;     // txtat(0): the one the list counts from
    bool m_skipStartTest = false;
    bool m_locked = false;
    Currency m_startDifference;
    QString m_statementDate;

    QLabel *m_heading;
    QPushButton *m_errorButton;
    DateBox *m_date;
    QLineEdit *m_start;
    QLineEdit *m_ending;
    QLabel *m_caption;
    QComboBox *m_statements;
    QLabel *m_help;
    StatementModel *m_model;
    QTableView *m_grid;
    QLineEdit *m_listStartBox;
    QLineEdit *m_cleared;
    QLineEdit *m_difference;
    QLabel *m_differenceCaption;
    QLabel *m_balanced;
    QLabel *m_priorTotals;
    QPushButton *m_ok;
    QPushButton *m_cancel;
};
