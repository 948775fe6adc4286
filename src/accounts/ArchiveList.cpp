#include "accounts/ArchiveList.h"

#include "records/ArchiveRecord.h"
#include "records/UnitOfWork.h"

namespace ArchiveList {

int addEntry(UnitOfWork &unit, const DataFiles &files, const QString &typeCode, const QString &name)
{
    const QString path = files.archiveList();
    const int n = unit.count(path, ArchiveRecord::Size);
    int slot = 0;
    for (int i = 1; i <= n && slot == 0; ++i)
        if (unit.read<ArchiveRecord>(path, i).isDeleted())
            slot = i;
    if (slot == 0)
        slot = n + 1;
    if (slot > RawRecordFile::MaxRecords)
        return 0;
    ArchiveRecord entry;
    entry.ArchNum = static_cast<std::int16_t>(slot);
    entry.Type = typeCode;
    entry.BankName = name;
    unit.write(path, slot, entry);
    return slot;
}

} // namespace ArchiveList
