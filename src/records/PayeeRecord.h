#pragma once

#include "records/FixedText.h"

#include <cstdint>

// One saved payee text, remembered with the account it was added under.
struct PayeeRecord
{
    static constexpr int Size = 164;

    std::int16_t PayeeNum = 0;
    std::int16_t BankNum = 0;
    FixedText<60> BankName;
    FixedText<100> Payee;

    bool isEmpty() const { return Payee.isBlank(); }

    static PayeeRecord decode(const char *p);
    void encode(char *p) const;
};
