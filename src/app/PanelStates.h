#pragma once

#include <QList>

#include <array>
#include <cstdint>

// How the four PanelState values of the settings record remember the panel
// that was shown. Each value stays within 0..3, so a panel is remembered by a
// code: a value in one of the four places. Place 0 names one of the work
// panels; a non-zero value in place 1, 2 or 3 names a panel shown over them,
// and place 0 keeps the work panel beneath. A panel with no code is not
// remembered: showing it leaves the saved state as it was.
class PanelStates
{
public:
    using Values = std::array<std::int16_t, 4>;

    struct Code
    {
        int place = -1;         // 0..3; -1: not remembered
        std::int16_t value = 0; // 0..3; in places 1..3 never 0
        bool remembered() const { return place >= 0; }
    };

    // The panel (an index into codes) the values name; -1 when none does.
    static int restore(const Values &values, const QList<Code> &codes);
    // The values after the panel with this code was shown.
    static Values store(Values values, Code shown, const QList<Code> &codes);
    // Values outside 0..3 read as 0.
    static Values sanitised(Values values);
};
