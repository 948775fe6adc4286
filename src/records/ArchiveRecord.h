#pragma once

#include "records/FixedText.h"
#include "records/RemovedMark.h"

#include <cstdint>

// One archived account; ArchNum is its record number.
struct ArchiveRecord
{
    static constexpr int Size = 34;

    std::int16_t ArchNum = 0;
    FixedText<2> Type;
    FixedText<30> BankName;

    bool isDeleted() const { return BankName.is(RemovedMark::Text); }

    static ArchiveRecord decode(const char *p);
    void encode(char *p) const;
};
