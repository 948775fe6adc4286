#include "records/GenInfoRecord.h"

#include "records/LittleEndian.h"

using namespace LittleEndian;

GenInfoRecord GenInfoRecord::decode(const char *p)
{
    GenInfoRecord r;
    r.PeriodIndex = getInt16(p + 0);
    r.SamplePeriodIndex = getInt16(p + 2);
    r.ThemeName.load(p + 4);
    r.SampleMode = getInt16(p + 54);
    r.HelpShown = getInt16(p + 56);
    for (int i = 0; i < 4; ++i)
        r.PanelState[i] = getInt16(p + 58 + 2 * i);
    r.Reserved1.load(p + 66);
    r.Reserved2.load(p + 216);
    return r;
}

void GenInfoRecord::encode(char *p) const
{
    putInt16(p + 0, PeriodIndex);
    putInt16(p + 2, SamplePeriodIndex);
    ThemeName.store(p + 4);
    putInt16(p + 54, SampleMode);
    putInt16(p + 56, HelpShown);
    for (int i = 0; i < 4; ++i)
        putInt16(p + 58 + 2 * i, PanelState[i]);
    Reserved1.store(p + 66);
    Reserved2.store(p + 216);
}
