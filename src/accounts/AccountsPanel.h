#pragma once

#include "core/DataSnapshot.h"
#include "records/DataFiles.h"

#include <QWidget>

class AccountListModel;
class Interaction;
class QLabel;
class QTableView;

// The account list with its totals.
class AccountsPanel : public QWidget
{
    Q_OBJECT
public:
    AccountsPanel(Interaction &interaction, QWidget *parent = nullptr);

    // A data set was opened: its accounts are shown.
    void setDataFiles(const DataSnapshot &data);
    // Rebuilds the grid and the three totals from the account file.
    void ShowAcctsForm();
    // The same from an account list already read.
    void showAccounts(const std::optional<std::vector<BankAcctRecord>> &accounts);
    // Marks the current account's row (0: none).
    void setCurrentAccount(int bankNum);
    QTableView *grid() const { return m_grid; }

Q_SIGNALS:
    // A row of an account was clicked.
    void accountClicked(int bankNum);

private:
    Interaction &m_interaction;
    DataFiles m_files;
    int m_current = 0;

    AccountListModel *m_model;
    QTableView *m_grid;
    QLabel *m_bankTotal;
    QLabel *m_ccTotal;
    QLabel *m_ccCaption;
    QLabel *m_netTotal;
};
