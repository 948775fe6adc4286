#pragma once

#include "records/Currency.h"
#include "records/FixedText.h"

#include <cstdint>

// One transaction of a register (and of an archived register).
struct TransRecord
{
    static constexpr int Size = 380;

    std::int16_t Tranno = 0;
    FixedText<4> Status;
    FixedText<20> Type;
    std::int16_t TypeNum = 0;
    FixedText<15> Date;
    FixedText<15> DateClear;
    FixedText<70> Description;
    FixedText<100> Memo;
    std::int16_t BudNum = 0;
    FixedText<20> BudName;
    FixedText<20> TransClass;
    FixedText<30> CCBankName;
    std::int16_t CCBankNum = 0;
    std::int16_t CCBudNum = 0;
    FixedText<30> PaidFromBankName;
    std::int16_t PaidFromBankNum = 0;
    std::int16_t PaidFromBankTransRecNum = 0;
    FixedText<30> PaidToBankName;
    std::int16_t PaidToBankNum = 0;
    std::int16_t PaidToBankTransRecNum = 0;
    Currency Amount;

    static TransRecord decode(const char *p);
    void encode(char *p) const;
};
