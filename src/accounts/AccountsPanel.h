#pragma once

#include "core/DataSnapshot.h"
#include "records/DataFiles.h"

#include <QWidget>

class AccountListModel;
class Interaction;
class QLabel;
class QLayout;
class QTableView;

// The account list with its totals.
class AccountsPanel : public QWidget
{
    Q_OBJECT
public:
    explicit AccountsPanel(Interaction &interaction, QWidget *parent = nullptr);

    // A data set was opened: its accounts are shown.
    void setDataFiles(const DataSnapshot &data);
    // Rebuilds the grid and the three totals from the account file.
    void ShowAcctsForm();
    // The same from an account list already read.
    void showAccounts(const std::optional<std::vector<BankAcctRecord>> &accounts);
    // Accounts an operation changed, as stored now: their rows and the totals
    // follow in place, nothing is read.
    void updateAccounts(const std::vector<BankAcctRecord> &changed);
    // Marks the current account's row (0: none).
    void setCurrentAccount(int bankNum);
    QTableView *grid() const { return m_grid; }

Q_SIGNALS:
    // A row of an account was clicked, or reached with the arrow keys.
    void accountClicked(int bankNum);
    // Enter on an account's row: its register is wanted.
    void accountOpened(int bankNum);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void showTotals();

    // Keeps every figure whole: the totals and the list's balance column.
    void fitFigures();
    // The next account's row from the highlighted one, in a direction (-1 up,
    // 1 down), or the first / last one; -1 when there is none.
    int accountRow(int from, int step) const;

    Interaction &m_interaction;
    DataFiles m_files;
    int m_current = 0;
    std::vector<BankAcctRecord> m_shown; // the account list as last shown

    AccountListModel *m_model;
    QTableView *m_grid;
    QLabel *m_bankTotal;
    QLabel *m_ccTotal;
    QLabel *m_ccCaption;
    QLabel *m_netTotal;
    QLayout *m_totals = nullptr;

    static constexpr int MinimumWidth = 230;
    static constexpr int MaximumWidth = 280;
    static constexpr int NameRoom = 100; // the least an account name gets
};
