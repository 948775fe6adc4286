#pragma once

#include "register/EntryRules.h"

#include <QStringList>
#include <QWidget>

class CheckNumberPrompt;
class DateBox;
class Interaction;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

// The controls of the register's entry row, laid out; RegisterPanel gives
// them their behaviour.
class EntryRow : public QWidget
{
    Q_OBJECT
public:
    explicit EntryRow(Interaction &interaction, QWidget *parent = nullptr);

    QLabel *title;
    QComboBox *type;                 // cmbType
    DateBox *date;                   // cmbDate
    QComboBox *payee;                // cmbDesc
    QPushButton *addPayee;           // cmdAddDesc
    QPushButton *deletePayee;        // cmdDelDesc
    QLineEdit *amount;               // cmbamt
    QRadioButton *debit;             // optdebitchng
    QRadioButton *credit;            // optcreditchng
    QComboBox *category;             // cmbBudItems
    QComboBox *card;                 // cmbCreditCards
    QLineEdit *memo;                 // txtBoxMemo
    QLabel *cleared;                 // lblCheck
    CheckNumberPrompt *checkNumbers; // Label(2), txtchkno, cmdchkno
    QLabel *error;                   // lblTranserror
    QLabel *notice;                  // lblNotice
    QPushButton *enter;              // cmdEnterTrans
    QPushButton *quick;              // cmdNew
    QPushButton *clear;              // cmdClear
    QPushButton *voidButton;         // cmdVoid

    // The sign options matter only for an account's starting balance.
    void showSignOptions(bool shown);
    // What the row holds, as Enter reads it.
    EntryRules::Input input() const;
    // What the row shows, to tell whether anything was typed since it was
    // loaded or cleared. A new entry's type alone is a choice, not typing; a
    // loaded transaction's type is part of it.
    QStringList state(bool loaded) const;
};
