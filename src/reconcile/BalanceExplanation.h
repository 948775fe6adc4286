#pragma once

#include "records/Currency.h"

#include <QString>

// The words of the window that explains a starting balance the bank and the
// register disagree on. The difference is the statement's starting balance
// minus the register's; its sign picks the words, and the amounts are quoted
// without it.
namespace BalanceExplanation {

struct Words
{
    QString comparison;  // the register's balance is "greater"/"less" than the bank's
    QString transaction; // the correction is a "withdrawal"/"deposit"
    QString effect;      // it will "decrease"/"increase" the balance
};
Words words(Currency difference);

// The whole explanation, lines joined by "\r\n".
QString text(Currency registerStart, Currency difference);

} // namespace BalanceExplanation
