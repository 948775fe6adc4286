#include "app/PanelStates.h"

#include "app/GeneralSettings.h"

PanelStates::Values PanelStates::sanitised(Values values)
{
    for (auto &value : values)
        if (value < 0 || value > GeneralSettings::MaxPanelState)
            value = 0;
    return values;
}

int PanelStates::restore(const Values &values, const QList<Code> &codes)
{
    // A panel shown over the work panels wins over the one beneath.
    for (int place = 1; place < int(values.size()); ++place) {
        if (values[std::size_t(place)] == 0)
            continue;
        for (int i = 0; i < codes.size(); ++i)
            if (codes[i].place == place && codes[i].value == values[std::size_t(place)])
                return i;
    }
    for (int i = 0; i < codes.size(); ++i)
        if (codes[i].place == 0 && codes[i].value == values[0])
            return i;
    return -1;
}

PanelStates::Values PanelStates::store(Values values, Code shown, const QList<Code> &codes)
{
    if (!shown.remembered())
        return values;
    // Only the places some panel uses are cleared; the others keep what the file held.
    for (const Code &code : codes)
        if (code.place > 0)
            values[std::size_t(code.place)] = 0;
    values[std::size_t(shown.place)] = shown.value;
    return values;
}
