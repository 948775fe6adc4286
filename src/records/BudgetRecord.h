#pragma once

#include "records/Currency.h"
#include "records/FixedText.h"
#include "records/RemovedMark.h"

#include <array>
#include <cstdint>

// One budget category with up to 15 sub-categories; BudNum is its record number.
struct BudgetRecord
{
    static constexpr int Size = 606;
    static constexpr int MaxItems = 15;

    std::int16_t BudNum = 0;
    FixedText<20> BudName;
    FixedText<30> CCBankName;
    std::int16_t CCBankRecnum = 0;
    FixedText<15> AmountText;
    Currency Balance;
    std::int16_t ItemCount = 0;
    std::array<FixedText<20>, MaxItems> ItemNames;
    std::int16_t Flag = 0;
    std::array<FixedText<15>, MaxItems> ItemAmounts;

    bool isDeleted() const { return BudName.is(RemovedMark::Text); }

    static BudgetRecord decode(const char *p);
    void encode(char *p) const;
};
