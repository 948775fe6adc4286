#pragma once

#include "core/DataChange.h"
#include "core/DataSnapshot.h"

#include <QWidget>

class Interaction;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

// The print panel: a register by its last transactions or between two dates,
// the bank-accounts list and the budget, each with its summary, sent to the
// default printer, to a preview first, or to a PDF file.
class PrintPanel : public QWidget
{
    Q_OBJECT
public:
    PrintPanel(Interaction &interaction, QWidget *parent = nullptr);

    void setData(const DataSnapshot &data);
    // Follows an operation of another view.
    void follow(const DataChange &change, const DataSnapshot &data);
    // The account the register choice starts at (the current account).
    void setCurrentAccount(int bankNum);

private:
    void printRegister(bool byDates);
    void printAccounts();
    void printBudget();
    // Sends a job where the user chose; true when it went to the printer
    // or to a file.
    bool deliver(const QString &job, const QStringList &lines);
    void showError(const QString &text);

    Interaction &m_interaction;
    DataSnapshot m_data;

    QComboBox *m_account;
    QLineEdit *m_count;
    QComboBox *m_from;
    QComboBox *m_to;
    QPushButton *m_printLast;
    QPushButton *m_printDates;
    QLabel *m_error;
    QRadioButton *m_accounts;
    QRadioButton *m_budget;
    QRadioButton *m_toPrinter;
    QRadioButton *m_toPreview;
    QRadioButton *m_toPdf;
};
