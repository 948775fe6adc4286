#pragma once

#include "app/PanelStates.h"
#include "core/DataChange.h"
#include "core/DataSnapshot.h"
#include "records/BankAcctRecord.h"
#include "records/DataFiles.h"
#include "records/GenInfoRecord.h"

#include <QWidget>

#include <QList>

#include <functional>

class AboutForm;
class FlowLayout;
class HelpPanel;
class AccountEditor;
class AccountsPanel;
class ArchivePanel;
class BalancingPanel;
class BudgetPanel;
class BudgetTransferPanel;
class ChartsPanel;
class PrintPanel;
class RegisterPanel;
class SearchPanel;
class TransferPanel;
class Interaction;
class PictureButton;
class QComboBox;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QStackedWidget;

// The main window: holds the working state of the run (the open data set, the
// current account) and shows the panels.
class MainForm : public QWidget
{
    Q_OBJECT
public:
    // One panel of the work area. Its registration builds its button, its page
    // in the stack, its name for scripts and its place in the saved state, and
    // says how it follows the data.
    struct Panel
    {
        QString id;         // stable: the saved state and scripts' "panel" command use it
        QString caption;    // its button's caption
        QString buttonName; // its button's object name
        QWidget *widget = nullptr;
        PanelStates::Code savedAs; // how PanelState remembers it
        // A data set was opened.
        std::function<void(const DataSnapshot &)> open;
        // Another view finished an operation (never called for the panel that did it).
        std::function<void(const DataChange &, const DataSnapshot &)> refresh;
        // An account became current (BankNum 0: none).
        std::function<void(const BankAcctRecord &, const DataSnapshot &)> follow;
    };

    MainForm(Interaction &interaction, const QString &dataDir, QWidget *parent = nullptr);

    // Restores the settings record and opens the account list of the open set.
    void load();
    // cmdSampleMode: the other data set.
    void switchDataSet();
    // Shows a panel as its button would; false for a panel that does not exist.
    bool showPanel(const QString &id);
    // The panel shown, by its id.
    QString shownPanel() const;
    // Every panel's id, in button order.
    QStringList panelIds() const;

    void setCurrentAccount(int bankNum);
    // The user picked an account: false when the register's unsaved change
    // was kept instead.
    bool pickAccount(int bankNum);
    // Set while a bank statement is being balanced (figures typed or a row
    // ticked): budget saves and budget-transfer changes wait until it is
    // confirmed or cancelled.
    void setEditLock(bool locked);
    bool editLock() const { return m_editLock; }

    // cmbTheme: dresses the window in a colour scheme and keeps the choice.
    void setTheme(const QString &name);

Q_SIGNALS:
    // An operation was committed; every view but the one that did it follows.
    void dataChanged(const DataChange &change);

protected:
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    QWidget *buildTitleBar();
    QWidget *buildHelpPanel();
    QWidget *buildWorkArea();
    void addPanel(Panel panel);
    // A panel that reports its own operations with a dataChanged signal is
    // followed without more wiring.
    template<class P> void addPanel(Panel panel, P *widget)
    {
        panel.widget = widget;
        if constexpr (requires { &P::dataChanged; })
            connect(widget, &P::dataChanged, this, &MainForm::dataChanged);
        addPanel(std::move(panel));
    }
    void reportChanges();
    void showWorkPage(int page);
    QList<PanelStates::Code> savedCodes() const;
    void applyChange(const DataChange &change);
    DataSnapshot readSnapshot() const;
    void setCurrentAccount(int bankNum, const DataSnapshot &data);
    void saveSettings();
    void openDataSet();
    void setHelpShown(bool shown);
    // cmdAbout: the about box (frmAbout).
    void showAbout();
    void toggleMaximised();
    void fitTitleBar();

    Interaction &m_interaction;
    QString m_dataDir;
    GenInfoRecord m_settings;
    bool m_sample = false;
    DataFiles m_files;
    BankAcctRecord m_current;

    QList<Panel> m_panels;
    QList<QPushButton *> m_panelButtons;
    AccountsPanel *m_accounts = nullptr;
    AccountEditor *m_editor = nullptr;
    RegisterPanel *m_register = nullptr;
    BudgetPanel *m_budget = nullptr;
    BudgetTransferPanel *m_budgetTransfers = nullptr;
    TransferPanel *m_transfers = nullptr;
    ArchivePanel *m_archive = nullptr;
    BalancingPanel *m_balancing = nullptr;
    bool m_editLock = false;
    SearchPanel *m_search = nullptr;
    PrintPanel *m_print = nullptr;
    ChartsPanel *m_charts = nullptr;
    FlowLayout *m_buttonRow = nullptr;
    QStackedWidget *m_work = nullptr;
    QPushButton *m_sampleButton = nullptr;
    QPushButton *m_helpButton = nullptr;
    QComboBox *m_period = nullptr;
    HelpPanel *m_help = nullptr;
    AboutForm *m_about = nullptr;
    QLabel *m_title = nullptr;
    QWidget *m_titleBar = nullptr;
    QLabel *m_periodLabel = nullptr;
    QComboBox *m_theme = nullptr;
    PictureButton *m_maximise = nullptr;
    QPoint m_pressedAt; // of a left-button press that may become a move
};
