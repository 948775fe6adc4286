#pragma once

#include "DataFiles.h"
#include "TransRecord.h"

#include <QString>

// Adds a transaction at the end of an account's register and moves the
// account's balance by its amount, both in one unit of work.
namespace RegisterPosting {

struct Result
{
    bool ok = false;
    QString error;
    int recordNumber = 0;
};

Result append(const DataFiles &files, int bankNum, TransRecord record);

} // namespace RegisterPosting
