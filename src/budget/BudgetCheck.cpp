#include "budget/BudgetCheck.h"

#include "budget/BudgetBook.h"

#include <QStringList>

namespace BudgetCheck {

bool isIncoming(const QString &typeText)
{
    static const QStringList incoming = {
        QStringLiteral("Deposit"), QStringLiteral("ATM Deposit"), QStringLiteral("Direct Deposit"),
        QStringLiteral("Interest Received"), QStringLiteral("Credit")};
    return incoming.contains(typeText.trimmed());
}

Result budgetcheck(const DataFiles &files, const Input &in)
{
    Request r;
    r.amount = BudgetBook::amountValue(in.amountText);
    r.incoming = isIncoming(in.typeText);
    r.category = in.budgetIndex > 0 && !in.typeText.isEmpty();
    r.budNum = in.budNum;
    r.budName = in.budName;
    r.card = in.cardIndex >= 1;
    r.cardBudNum = in.cardBudNum;
    r.cardName = in.cardName;
    r.mode = in.mode;
    r.tranno = in.tranno;
    r.oldTransAmount = in.oldTransAmount;
    r.oldBudNum = in.oldBudNum;
    r.oldAmountApplies = in.oldAmountApplies;
    return budgetcheck(files, r);
}

Result budgetcheck(const DataFiles &files, const Request &in)
{
    Result result;
    // A change of the record marked 1 in its leading field is exempt.
    if (in.tranno == 1 && in.mode == 1)
        return result;

    // Money coming in raises the category; everything else lowers it.
    const Currency amount = in.incoming ? -in.amount : in.amount;

    QString name;
    if (in.category && !amount.isZero()) {
        result.curBudNum = in.budNum;
        name = in.budName;
    } else if (!amount.isZero() && in.card) {
        result.curBudNum = in.cardBudNum;
        name = in.cardName;
    } else {
        return result;
    }

    const Currency balance = BudgetBook(files).read(result.curBudNum).Balance;
    Currency remainder;
    Currency quoted;
    if (in.mode == 0) {
        remainder = balance - amount;
        quoted = balance;
    } else if (in.mode == 1
               && (in.oldAmountApplies == -1
                   || (in.oldAmountApplies == 0 && result.curBudNum == in.oldBudNum))) {
        remainder = balance - amount - in.oldTransAmount;
        quoted = balance - in.oldTransAmount;
    } else if (in.mode == 1 && in.oldAmountApplies == 0) {
        // Moved to another category: tested against its full balance.
        remainder = balance - amount;
        quoted = balance;
    } else {
        return result;
    }
    if (remainder >= Currency())
        return result;
    result.warning = QStringLiteral("The new transaction amount of ") + amount.toCurrencyText()
                     + QStringLiteral(" exceeds the ") + name
                     + QStringLiteral(" budget balance of ") + quoted.toCurrencyText()
                     + QStringLiteral(". \n\n") + (-remainder).toCurrencyText()
                     + QStringLiteral(" will be taken from disposable cash.");
    return result;
}

} // namespace BudgetCheck
