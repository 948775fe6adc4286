#pragma once

#include "records/BankAcctRecord.h"
#include "records/DataFiles.h"
#include "records/TransRecord.h"
#include "transfers/TransferService.h"

#include <vector>

#include <QWidget>

class CheckNumberPrompt;
class DateBox;
class Interaction;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

// "Transfer Money between Bank Accounts": enters a transfer, or changes one
// picked in a register.
class TransferPanel : public QWidget
{
    Q_OBJECT
public:
    explicit TransferPanel(Interaction &interaction, QWidget *parent = nullptr);

    void setDataFiles(const DataFiles &files);
    // Refills the account lists; the current account is offered as the source.
    void reloadAccounts(int currentBankNum);
    // The same from an account list already read.
    void reloadAccounts(int currentBankNum, const std::vector<BankAcctRecord> &accounts);
    // Loads the transfer that record n of an account's register belongs to.
    // Returns the notice to show instead when it cannot be changed.
    QString loadForChange(int bankNum, int recordNumber);

Q_SIGNALS:
    // Balances of accounts changed.
    void transferred(int fromBankNum, int toBankNum);

private:
    void onFromChosen();
    void onTypeChosen(int index);
    void onEnter();
    void onClear();
    void rebuildDescription();
    void showError(const QString &text);
    void hideError();
    std::vector<TransRecord> fromRegister() const;
    TransferService::Request request() const;

    Interaction &m_interaction;
    DataFiles m_files;
    int m_changeBankNum = 0; // the transfer being changed: its from account
    int m_changeRecord = 0;  // and its from record
    Currency m_oldFromAmount;
    std::vector<BankAcctRecord> m_accounts; // as listed in the account boxes

    QLabel *m_title;
    QComboBox *m_from;
    QComboBox *m_to;
    QComboBox *m_type;
    QLineEdit *m_amount;
    DateBox *m_date;
    DateBox *m_date3;
    DateBox *m_toCleared;
    DateBox *m_fromCleared;
    QLabel *m_clearedLabel;
    QLineEdit *m_description;
    QLineEdit *m_memo;
    QLabel *m_memoLabel;
    QLabel *m_error;
    QPushButton *m_errorButton;
    QPushButton *m_enter;
    CheckNumberPrompt *m_checkNumbers;
};
