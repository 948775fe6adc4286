#pragma once

#include "records/Currency.h"
#include "records/FixedText.h"
#include "records/RemovedMark.h"

#include <cstdint>

// One account of the account list; BankNum is its record number.
struct BankAcctRecord
{
    static constexpr int Size = 63;

    std::int16_t BankNum = 0;
    FixedText<2> Type;
    FixedText<30> BankName;
    Currency Balance;
    std::int32_t NextCheckNum = 0;
    FixedText<15> ViewFromDate;
    std::int16_t ViewOption = 0;

    bool isDeleted() const { return BankName.is(RemovedMark::Text); }

    static BankAcctRecord decode(const char *p);
    void encode(char *p) const;
};
