#pragma once

#include "records/Currency.h"

#include <QDialog>

class Interaction;

// Explains a starting balance the bank and the register disagree on and
// offers the ways on: correct the register, use the bank's figure, or go back
// to the figures.
class BalanceErrorForm : public QDialog
{
    Q_OBJECT
public:
    // The choices as BankstateErr takes them.
    enum Choice { CorrectRegister = 1, UseBankStatement = 2, Cancel = 3 };

    // Asks through the interaction seam (scripts answer "cmdbserr", "Use" or
    // "Cancel"), or shows the window when the seam leaves it to the user.
    static Choice ask(Interaction &interaction, Currency registerStart, Currency difference,
                      QWidget *parent = nullptr);

    inline static const QString Name = QStringLiteral("BalanceErrorForm");
    inline static const QString CorrectAnswer = QStringLiteral("cmdbserr");
    inline static const QString UseAnswer = QStringLiteral("Use");
    inline static const QString CancelAnswer = QStringLiteral("Cancel");

private:
    BalanceErrorForm(Interaction &interaction, const QString &text, QWidget *parent);
    // Command1: the manual, at the section on balancing.
    void openManual();

    Interaction &m_interaction;
    Choice m_choice = Cancel;
};
