#include "reconcile/BalanceExplanation.h"

#include <QStringList>

namespace BalanceExplanation {

Words words(Currency difference)
{
    if (difference < Currency())
        return {QStringLiteral("greater"), QStringLiteral("withdrawal"),
                QStringLiteral("decrease")};
    return {QStringLiteral("less"), QStringLiteral("deposit"), QStringLiteral("increase")};
}

QString text(Currency registerStart, Currency difference)
{
    const Words w = words(difference);
    const QString amount = difference.abs().toCurrencyText();
    const QString blank;
    const QStringList lines = {
        QString(56, QLatin1Char(' ')) + QStringLiteral("Quillmere does not agree with your Bank."),
        blank,
        QStringLiteral("     Quillmere's starting bank balance is ")
            + registerStart.toCurrencyText() + QStringLiteral(" which is ") + w.comparison
            + QStringLiteral(" than the Bank Statement by ") + amount,
        blank,
        QString(94, QLatin1Char(' ')) + QStringLiteral("OPTIONS"),
        blank,
        QStringLiteral("    Use Bank Statement"),
        QStringLiteral("         The entered Bank Statement amount will be used as the starting "
                       "balance. The error in your account Register "),
        QStringLiteral("         will remain. After balancing your statement you can find the "
                       "cause for the difference and correct the register."),
        blank,
        QStringLiteral("    Correct Register"),
        QStringLiteral("         Clicking Correct Register will enter a ") + w.transaction
            + QStringLiteral(" transaction of ") + amount + QStringLiteral(" to make Quillmere"),
        QStringLiteral("         equal your Bank Statement starting balance. This will also ")
            + w.effect + QStringLiteral(" your current balance  by ") + amount
            + QStringLiteral("."),
        QStringLiteral(
            "         The transaction will be highlighted. Mark the transaction as cleared. "),
        blank,
        QStringLiteral("    Cancel "),
        QStringLiteral("         Select cancel if you entered an incorrect number."),
        blank,
        QString(37, QLatin1Char(' '))
            + QStringLiteral(
                "For more information see the User Manual, Quillmere Buttons/Balance Accounts"),
    };
    return lines.join(QStringLiteral("\r\n"));
}

} // namespace BalanceExplanation
