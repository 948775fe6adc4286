#pragma once

#include <QString>

// The class a transaction record carries in its TransClass field: what kind
// of entry it is and, for linked entries, which side of the pair.
namespace TransactionClasses {

// An ordinary entry of a bank account.
inline const QString NormTrans = QStringLiteral("Norm Trans");
// An ordinary entry of a credit card (charge, credit, fee).
inline const QString CCTrans = QStringLiteral("CC Trans");
// The two sides of a transfer between accounts.
inline const QString TransferFrom = QStringLiteral("Transfer From");
inline const QString TransferTo = QStringLiteral("Transfer To");
// The two sides of a payment from a bank account to a card.
inline const QString PayBank = QStringLiteral("PayCC BankLedger");
inline const QString PayCard = QStringLiteral("PayCC CCLedger");

} // namespace TransactionClasses
