#pragma once

#include <QWidget>

class DateBox;
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
    explicit EntryRow(QWidget *parent = nullptr);

    QLabel *title;
    QComboBox *type;          // cmbType
    DateBox *date;            // cmbDate
    QComboBox *payee;         // cmbDesc
    QPushButton *addPayee;    // cmdAddDesc
    QPushButton *deletePayee; // cmdDelDesc
    QLineEdit *amount;        // cmbamt
    QRadioButton *debit;      // optdebitchng
    QRadioButton *credit;     // optcreditchng
    QComboBox *category;      // cmbBudItems
    QComboBox *card;          // cmbCreditCards
    QLineEdit *memo;          // txtBoxMemo
    QLabel *cleared;          // lblCheck
    QLabel *checkPrompt;      // Label(2)
    QLineEdit *checkNumber;   // txtchkno
    QPushButton *checkOk;     // cmdchkno
    QLabel *error;            // lblTranserror
    QLabel *notice;           // lblNotice
    QPushButton *enter;       // cmdEnterTrans
    QPushButton *quick;       // cmdNew
    QPushButton *clear;       // cmdClear
    QPushButton *voidButton;  // cmdVoid

    // Shows or hides the check-number prompt with its box and button.
    void showCheckPrompt(const QString &caption);
    void hideCheckPrompt();
    // The sign options matter only for an account's starting balance.
    void showSignOptions(bool shown);
};
