#include "app/GeneralSettings.h"

#include "records/RecordFile.h"
#include "records/UnitOfWork.h"

#include <utility>

GeneralSettings::GeneralSettings(QString dataDir)
    : m_dataDir(std::move(dataDir)), m_path(DataFiles(m_dataDir, false).genInfo())
{
}

GenInfoRecord GeneralSettings::load() const
{
    RecordFile<GenInfoRecord> file(m_path);
    if (file.count() < 1)
        return GenInfoRecord::decode(QByteArray(GenInfoRecord::Size, '\0').constData());
    return file.read(1);
}

QString GeneralSettings::save(const GenInfoRecord &record) const
{
    UnitOfWork unit(m_dataDir);
    unit.write(m_path, 1, record);
    return unit.commit() ? QString() : unit.error();
}
