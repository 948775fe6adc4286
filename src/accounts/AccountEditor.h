#pragma once

#include "records/DataFiles.h"

#include <QGroupBox>

class Interaction;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

// The form that adds an account, or renames the current one.
class AccountEditor : public QGroupBox
{
    Q_OBJECT
public:
    explicit AccountEditor(Interaction &interaction, QWidget *parent = nullptr);

    void setDataFiles(const DataFiles &files);
    // The account that Rename works on (0: none).
    void setCurrentAccount(int bankNum);

Q_SIGNALS:
    void accountAdded(int bankNum);
    void accountRenamed(int bankNum);

private:
    void buildEditor();
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
