#include "records/PayeeRecord.h"

#include "records/LittleEndian.h"

using namespace LittleEndian;

PayeeRecord PayeeRecord::decode(const char *p)
{
    PayeeRecord r;
    r.PayeeNum = getInt16(p + 0);
    r.BankNum = getInt16(p + 2);
    r.BankName.load(p + 4);
    r.Payee.load(p + 64);
    return r;
}

void PayeeRecord::encode(char *p) const
{
    putInt16(p + 0, PayeeNum);
    putInt16(p + 2, BankNum);
    BankName.store(p + 4);
    Payee.store(p + 64);
}
