#pragma once

#include "records/Currency.h"
#include "records/FixedText.h"
#include "records/RemovedMark.h"

#include <cstdint>

// One transfer of money between budget categories (or disposable cash, number 0).
struct BudgetTransRecord
{
    static constexpr int Size = 227;

    FixedText<15> Date;
    FixedText<150> Description;
    FixedText<50> Memo;
    std::int16_t FromBudNum = 0;
    std::int16_t ToBudNum = 0;
    Currency Amount;

    bool isDeleted() const { return Description.is(RemovedMark::Text); }

    static BudgetTransRecord decode(const char *p);
    void encode(char *p) const;
};
