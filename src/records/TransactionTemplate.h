#pragma once

#include "records/TransRecord.h"

// Record texts shared by everything that writes transactions.
namespace TransactionTemplate {

inline const QString Open = QStringLiteral("OP");
inline const QString Cleared = QStringLiteral("CL");
inline const QString NoCategory = QStringLiteral("na");
inline const QString StartingBalance = QStringLiteral("Starting Balance");
inline const QString NewAccountPayee = QStringLiteral("New Account");

// The blank record every new entry starts from: amount 0, "OP", "Void",
// every other text empty and every number 0.
inline TransRecord blank()
{
    TransRecord r;
    r.Status = Open;
    r.Description = QStringLiteral("Void");
    return r;
}

} // namespace TransactionTemplate
