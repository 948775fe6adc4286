#pragma once

#include "core/DataChange.h"
#include "core/DataSnapshot.h"
#include "records/BankAcctRecord.h"
#include "records/DataFiles.h"
#include "records/TransRecord.h"
#include "register/EntryRules.h"
#include "register/RegisterEntry.h"

#include <QWidget>

class ViewFromRow;
class DateBox;
class EntryRow;
class Interaction;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QTableView;
class QTimer;
class RegisterModel;

// The register of the current account with its entry row: listing, entering,
// changing, quick entry, voiding, check numbers, payees and the view range.
class RegisterPanel : public QWidget
{
    Q_OBJECT
public:
    explicit RegisterPanel(Interaction &interaction, QWidget *parent = nullptr);

    void setDataFiles(const DataFiles &files);
    // Makes an account current (BankNum 0: none) and lists its register.
    void setAccount(const BankAcctRecord &account);
    // The same with the account list and categories already read.
    void setAccount(const BankAcctRecord &account, const DataSnapshot &data);
    const BankAcctRecord &account() const { return m_account; }

    // Rebuilds the grid from the register file.
    void FillRegisterGrid();
    // Makes the newest entry current and scrolls it into view.
    void showLastRow();
    // Selects record n of the account shown and scrolls to it. A record listed
    // before the view's start widens the view to begin at its date.
    void showRecord(int recordNumber);
    // Refills the category list of the entry row, keeping the choice.
    void reloadCategories();
    void reloadCategories(const std::vector<BudgetRecord> &budget);
    // A short notice under the entry row that goes away by itself.
    void showNotice(const QString &text);
    // Loads record n into the entry row for change, as a click on its row
    // does; false when the register does not hold it.
    bool pickForChange(int recordNumber);
    // Opens the calculator over the entry row's amount box, as its arrow does.
    bool openAmountCalculator();

    // Puts a command of a higher layer (import, export) beside the
    // register's title, shown while an account is current.
    void addCommand(QWidget *button);

    QTableView *grid() const { return m_grid; }
    RegisterModel *model() const { return m_model; }

    // True when the entry row holds something not yet entered: a loaded
    // transaction with edited fields, or a new one with any field typed.
    bool hasUnsavedChange() const;
    // Before the entry row is left (another account, panel or row): asks
    // whether an unsaved change may go. Yes clears the row; No keeps it.
    bool mayLeave();
    static const QString DiscardText;

Q_SIGNALS:
    // An entry or a void was written: the accounts, categories and registers
    // it changed, for the other views.
    void dataChanged(const DataChange &change);
    // A transfer's row was picked: it is changed on the transfer panel.
    void transferChangeRequested(int bankNum, int recordNumber);
    // The entry row wrote record n of this account's register (entered,
    // changed or voided); `record` is how it is stored now.
    void entryWritten(int bankNum, int recordNumber, const TransRecord &record);

private:
    QWidget *buildViewRow();
    void reloadLists(const DataSnapshot &data);
    void reloadPayees();

    void onTypeChosen(int index);
    void onEnter();
    void onQuickEntry();
    void onClear();
    void onEscape();
    void onVoid();
    void onSelectionChanged();
    // A row was picked by mouse or keyboard: it is loaded for change.
    void pickRow(const QModelIndex &index);
    void onView();
    void onViewDate(const QString &typed);
    void onAddPayee();
    void onDeletePayee();
    void onCopy();

    // Enter after the check-number and account checks: the entry goes to
    // RegisterEntry and the panel shows what came of it.
    void enterTransaction();
    void loadForChange(int recordNumber);
    // Empties the entry row for a new transaction, leaving the grid alone.
    void clearEntry();
    // The highlight follows the entry row: the loaded row, or none.
    void selectLoadedRow();
    void markClean();
    void showError(const QString &text);
    void suggestMemo();
    void endChangeMode();
    // Brings the grid in step with an entry just written, without reading the
    // register again; false when the register has to be listed again instead.
    bool refreshEntered(const RegisterEntry::Outcome &outcome, const TransRecord &before);

    Interaction &m_interaction;
    DataFiles m_files;
    BankAcctRecord m_account;

    // Working state of the entry row.
    int m_mode = 0;         // 0 new, 1 change
    int m_recordNumber = 0; // the record loaded for change
    TransRecord m_loaded;
    Currency m_oldAmount; // OldTransAmount
    int m_oldBudNum = 0;  // OldBudNum
    // OldAmountApplies: left at 0, so that a change is tested against its own
    // category with the old amount credited back, and against a new category
    // at its full balance.
    int m_oldAmountApplies = 0;
    QStringList m_cleanState; // the entry row as loaded or cleared
    bool m_syncingSelection = false;
    bool m_pickQueued = false;

    RegisterModel *m_model;
    QTableView *m_grid;
    EntryRow *m_entry;
    QLabel *m_registerTitle = nullptr;
    QHBoxLayout *m_commands = nullptr;
    ViewFromRow *m_viewRow = nullptr;
    QTimer *m_noticeTimer;
};
