#pragma once

#include "records/Currency.h"

#include <QString>

// Transaction types: their codes and the sign they give a typed amount.
namespace TransactionTypes {

enum class Sign { Deposit, Withdrawal, AsTyped, None };

// The code of a type text (TypeNum): 1..15, 0 for a text outside the table
// ("Payment", "Transfer", "Void"). Any text starting with "Check" is 6.
int typeNum(const QString &typeText);
Sign sign(int typeNum);
// The typed (positive) amount with the sign its type gives it.
Currency signedAmount(int typeNum, Currency typed);

} // namespace TransactionTypes
