#pragma once

#include "records/Currency.h"

#include <QString>

#include <cstdint>

// Transaction types: their codes and the sign they give a typed amount.
namespace TransactionTypes {

// The codes kept in a record's TypeNum field.
namespace TypeNum {
inline constexpr std::int16_t None = 0; // "Payment", "Transfer", "Void"
inline constexpr std::int16_t Deposit = 1;
inline constexpr std::int16_t AtmDeposit = 2;
inline constexpr std::int16_t DirectDeposit = 3;
inline constexpr std::int16_t InterestReceived = 4;
inline constexpr std::int16_t Credit = 5;
inline constexpr std::int16_t Check = 6;
inline constexpr std::int16_t Withdrawal = 7;
inline constexpr std::int16_t DebitCard = 8;
inline constexpr std::int16_t AtmWithdrawal = 9;
inline constexpr std::int16_t AutoPayment = 10; // "Auto Charge" too
inline constexpr std::int16_t BankFee = 11;
inline constexpr std::int16_t InterestCharge = 13;
inline constexpr std::int16_t Charge = 14;
inline constexpr std::int16_t StartingBalance = 15;
} // namespace TypeNum

enum class Sign { Deposit, Withdrawal, AsTyped, None };

// The code of a type text (TypeNum): 1..15, 0 for a text outside the table
// ("Payment", "Transfer", "Void"). Any text starting with "Check" is 6.
int typeNum(const QString &typeText);
Sign sign(int typeNum);
// The typed (positive) amount with the sign its type gives it.
Currency signedAmount(int typeNum, Currency typed);

} // namespace TransactionTypes
