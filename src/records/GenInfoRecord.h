#pragma once

#include "records/FixedText.h"

#include <array>
#include <cstdint>

// Record 1 of "Geninfo.dat": settings shared by both data sets.
struct GenInfoRecord
{
    static constexpr int Size = 236;

    std::int16_t PeriodIndex = 0;
    std::int16_t SamplePeriodIndex = 0;
    FixedText<50> ThemeName;
    std::int16_t SampleMode = 0;
    std::int16_t HelpShown = 0;
    std::array<std::int16_t, 4> PanelState{};
    FixedText<150> Reserved1; // kept as read
    FixedText<20> Reserved2;  // kept as read

    static GenInfoRecord decode(const char *p);
    void encode(char *p) const;
};
