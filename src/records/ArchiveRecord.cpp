#include "records/ArchiveRecord.h"

#include "records/LittleEndian.h"

using namespace LittleEndian;

ArchiveRecord ArchiveRecord::decode(const char *p)
{
    ArchiveRecord r;
    r.ArchNum = getInt16(p + 0);
    r.Type.load(p + 2);
    r.BankName.load(p + 4);
    return r;
}

void ArchiveRecord::encode(char *p) const
{
    putInt16(p + 0, ArchNum);
    Type.store(p + 2);
    BankName.store(p + 4);
}
