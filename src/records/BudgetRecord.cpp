#include "records/BudgetRecord.h"

#include "records/LittleEndian.h"

using namespace LittleEndian;

BudgetRecord BudgetRecord::decode(const char *p)
{
    BudgetRecord r;
    r.BudNum = getInt16(p + 0);
    r.BudName.load(p + 2);
    r.CCBankName.load(p + 22);
    r.CCBankRecnum = getInt16(p + 52);
    r.AmountText.load(p + 54);
    r.Balance = getCurrency(p + 69);
    r.ItemCount = getInt16(p + 77);
    for (int i = 0; i < MaxItems; ++i)
        r.ItemNames[i].load(p + 79 + 20 * i);
    r.Flag = getInt16(p + 379);
    for (int i = 0; i < MaxItems; ++i)
        r.ItemAmounts[i].load(p + 381 + 15 * i);
    return r;
}

void BudgetRecord::encode(char *p) const
{
    putInt16(p + 0, BudNum);
    BudName.store(p + 2);
    CCBankName.store(p + 22);
    putInt16(p + 52, CCBankRecnum);
    AmountText.store(p + 54);
    putCurrency(p + 69, Balance);
    putInt16(p + 77, ItemCount);
    for (int i = 0; i < MaxItems; ++i)
        ItemNames[i].store(p + 79 + 20 * i);
    putInt16(p + 379, Flag);
    for (int i = 0; i < MaxItems; ++i)
        ItemAmounts[i].store(p + 381 + 15 * i);
}
