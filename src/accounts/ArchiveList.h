#pragma once

#include "records/DataFiles.h"

class UnitOfWork;

// The list of archived accounts of a data set.
namespace ArchiveList {

// Adds an entry for an archived account inside a unit of work: it takes the
// first "Deleted" entry, or goes after the last one when none is free. Returns
// its record number (ArchNum), or 0 when the list is full.
int addEntry(UnitOfWork &unit, const DataFiles &files, const QString &typeCode,
             const QString &name);

} // namespace ArchiveList
