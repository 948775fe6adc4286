#include "records/TransRecord.h"

#include "records/LittleEndian.h"

using namespace LittleEndian;

TransRecord TransRecord::decode(const char *p)
{
    TransRecord r;
    r.Tranno = getInt16(p + 0);
    r.Status.load(p + 2);
    r.Type.load(p + 6);
    r.TypeNum = getInt16(p + 26);
    r.Date.load(p + 28);
    r.DateClear.load(p + 43);
    r.Description.load(p + 58);
    r.Memo.load(p + 128);
    r.BudNum = getInt16(p + 228);
    r.BudName.load(p + 230);
    r.TransClass.load(p + 250);
    r.CCBankName.load(p + 270);
    r.CCBankNum = getInt16(p + 300);
    r.CCBudNum = getInt16(p + 302);
    r.PaidFromBankName.load(p + 304);
    r.PaidFromBankNum = getInt16(p + 334);
    r.PaidFromBankTransRecNum = getInt16(p + 336);
    r.PaidToBankName.load(p + 338);
    r.PaidToBankNum = getInt16(p + 368);
    r.PaidToBankTransRecNum = getInt16(p + 370);
    r.Amount = getCurrency(p + 372);
    return r;
}

void TransRecord::encode(char *p) const
{
    putInt16(p + 0, Tranno);
    Status.store(p + 2);
    Type.store(p + 6);
    putInt16(p + 26, TypeNum);
    Date.store(p + 28);
    DateClear.store(p + 43);
    Description.store(p + 58);
    Memo.store(p + 128);
    putInt16(p + 228, BudNum);
    BudName.store(p + 230);
    TransClass.store(p + 250);
    CCBankName.store(p + 270);
    putInt16(p + 300, CCBankNum);
    putInt16(p + 302, CCBudNum);
    PaidFromBankName.store(p + 304);
    putInt16(p + 334, PaidFromBankNum);
    putInt16(p + 336, PaidFromBankTransRecNum);
    PaidToBankName.store(p + 338);
    putInt16(p + 368, PaidToBankNum);
    putInt16(p + 370, PaidToBankTransRecNum);
    putCurrency(p + 372, Amount);
}
