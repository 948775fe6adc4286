#pragma once

#include "DataFiles.h"

#include <QWidget>

class AccountListModel;
class Interaction;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTableView;

// The accounts panel: the account list with its totals, and the small form
// that adds an account or renames the current one.
class AccountsPanel : public QWidget
{
    Q_OBJECT
public:
    AccountsPanel(Interaction &interaction, QWidget *parent = nullptr);

    void setDataFiles(const DataFiles &files);
    // Rebuilds the grid and the three totals from the account file.
    void ShowAcctsForm();
    // Marks the current account's row (0: none).
    void setCurrentAccount(int bankNum);
    QTableView *grid() const { return m_grid; }

Q_SIGNALS:
    // A row of an account was clicked.
    void accountClicked(int bankNum);
    // An account was added or renamed; the data behind other panels changed.
    void accountAdded(int bankNum);
    void accountRenamed(int bankNum);

private:
    QWidget *buildEditor();
    void onKindChanged(int index);
    void onBalanceTypeChanged(int index);
    void onEnter();
    void onRename();
    void setRenameMode(bool on);
    void showError(const QString &text);

    Interaction &m_interaction;
    DataFiles m_files;
    int m_current = 0;
    bool m_renameMode = false;

    AccountListModel *m_model;
    QTableView *m_grid;
    QLabel *m_bankTotal;
    QLabel *m_ccTotal;
    QLabel *m_ccCaption;
    QLabel *m_netTotal;

    QComboBox *m_kind = nullptr;
    QLineEdit *m_name = nullptr;
    QComboBox *m_balanceType = nullptr;
    QLabel *m_balanceHint = nullptr;
    QLineEdit *m_startBalance = nullptr;
    QRadioButton *m_debit = nullptr;
    QRadioButton *m_credit = nullptr;
    QPushButton *m_enter = nullptr;
    QPushButton *m_rename = nullptr;
    QLabel *m_error = nullptr;
};
