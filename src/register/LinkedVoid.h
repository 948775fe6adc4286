#pragma once

#include "records/DataFiles.h"

#include <QString>

// Voids both records of a transfer or a card payment, from either side: each
// stays in place as a void entry, both balances lose what the pair had moved,
// and a payment gives the card's category back its amount.
namespace LinkedVoid {

struct Result
{
    bool ok = false;
    QString error;
};

Result voidLinked(const DataFiles &files, int bankNum, int recordNumber);

} // namespace LinkedVoid
