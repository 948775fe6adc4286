#pragma once

#include "records/Currency.h"
#include "records/TransRecord.h"

#include <QString>

#include <cstdint>

// What a register entry counts as in the charts. Money moved between the
// user's own accounts (transfers, card payments) is neither spending nor
// income; neither are voided entries (amount 0) nor opening entries
// ("Starting Balance").
namespace ChartRules {

enum class Flow { Spending, Income, Neither };

// Spending: the withdrawal-like entries of a bank account ("Norm Trans") and
// of a card ("CC Trans": a charge counts when it is made, its payment never).
// Income: the deposit-like entries of a bank account. A card's credits are
// neither.
Flow flow(const TransRecord &entry);
// The same read from the fields as stored: the class's bytes (its 20 of them),
// the type code and the signed amount. A pass over every register uses this.
Flow flow(const char *classBytes, std::int16_t typeNum, Currency amount);

// The name under which an entry with no category is shown.
inline const QString Uncategorised = QStringLiteral("Uncategorised");

} // namespace ChartRules
