#include "records/BankAcctRecord.h"

#include "records/LittleEndian.h"

using namespace LittleEndian;

BankAcctRecord BankAcctRecord::decode(const char *p)
{
    BankAcctRecord r;
    r.BankNum = getInt16(p + 0);
    r.Type.load(p + 2);
    r.BankName.load(p + 4);
    r.Balance = getCurrency(p + 34);
    r.NextCheckNum = getInt32(p + 42);
    r.ViewFromDate.load(p + 46);
    r.ViewOption = getInt16(p + 61);
    return r;
}

void BankAcctRecord::encode(char *p) const
{
    putInt16(p + 0, BankNum);
    Type.store(p + 2);
    BankName.store(p + 4);
    putCurrency(p + 34, Balance);
    putInt32(p + 42, NextCheckNum);
    ViewFromDate.store(p + 46);
    putInt16(p + 61, ViewOption);
}
