#pragma once

#include "records/BankAcctRecord.h"
#include "records/DataFiles.h"
#include "records/GenInfoRecord.h"

#include <QWidget>

#include <QList>

#include <array>

class AccountEditor;
class AccountsPanel;
class BudgetPanel;
class BudgetTransferPanel;
class RegisterPanel;
class TransferPanel;
class Interaction;
class QComboBox;
class QLabel;
class QPushButton;
class QStackedWidget;

// The main window: holds the working state of the run (the open data set, the
// current account) and shows the panels.
class MainForm : public QWidget
{
    Q_OBJECT
public:
    MainForm(Interaction &interaction, const QString &dataDir, QWidget *parent = nullptr);

    // Restores the settings record and opens the account list of the open set.
    void load();
    // cmdSampleMode: the other data set.
    void switchDataSet();
    // Shows a panel as its button would; false for a panel that does not exist.
    bool showPanel(const QString &name);

    void setCurrentAccount(int bankNum);

protected:
    void mousePressEvent(QMouseEvent *event) override;

private:
    QWidget *buildTitleBar();
    QWidget *buildHelpPanel();
    QWidget *buildWorkArea();
    void showWorkPage(int page);
    void saveSettings();
    void openDataSet();
    void setHelpShown(bool shown);

    Interaction &m_interaction;
    QString m_dataDir;
    GenInfoRecord m_settings;
    bool m_sample = false;
    DataFiles m_files;
    BankAcctRecord m_current;

    AccountsPanel *m_accounts = nullptr;
    AccountEditor *m_editor = nullptr;
    RegisterPanel *m_register = nullptr;
    BudgetPanel *m_budget = nullptr;
    BudgetTransferPanel *m_budgetTransfers = nullptr;
    TransferPanel *m_transfers = nullptr;
    QList<QPushButton *> m_panelButtons;
    QStackedWidget *m_work = nullptr;
    QPushButton *m_sampleButton = nullptr;
    QPushButton *m_helpButton = nullptr;
    QComboBox *m_period = nullptr;
    QWidget *m_help = nullptr;
    QLabel *m_title = nullptr;
};
