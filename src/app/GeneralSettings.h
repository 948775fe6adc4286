#pragma once

#include "records/DataFiles.h"
#include "records/GenInfoRecord.h"

// Record 1 of "Geninfo.dat", shared by both data sets.
class GeneralSettings
{
public:
    explicit GeneralSettings(QString dataDir);

    // A new, empty file reads as zeros and blanks.
    GenInfoRecord load() const;
    // Returns an empty string on success, else what went wrong.
    QString save(const GenInfoRecord &record) const;

    static constexpr int MaxPanelState = 3;

private:
    QString m_dataDir;
    QString m_path;
};
