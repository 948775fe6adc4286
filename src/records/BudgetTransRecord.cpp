#include "records/BudgetTransRecord.h"

#include "records/LittleEndian.h"

using namespace LittleEndian;

BudgetTransRecord BudgetTransRecord::decode(const char *p)
{
    BudgetTransRecord r;
    r.Date.load(p + 0);
    r.Description.load(p + 15);
    r.Memo.load(p + 165);
    r.FromBudNum = getInt16(p + 215);
    r.ToBudNum = getInt16(p + 217);
    r.Amount = getCurrency(p + 219);
    return r;
}

void BudgetTransRecord::encode(char *p) const
{
    Date.store(p + 0);
    Description.store(p + 15);
    Memo.store(p + 165);
    putInt16(p + 215, FromBudNum);
    putInt16(p + 217, ToBudNum);
    putCurrency(p + 219, Amount);
}
