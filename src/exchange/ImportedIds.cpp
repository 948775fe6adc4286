#include "exchange/ImportedIds.h"

#include "records/Cp1252.h"
#include "records/ImportedIdRecord.h"
#include "records/RawRecordFile.h"
#include "records/UnitOfWork.h"

#include <QCryptographicHash>
#include <QFileInfo>

#include <algorithm>

ImportedIds ImportedIds::read(const DataFiles &files, const QString &accountName)
{
    ImportedIds ids;
    ids.m_path = files.importedIds(accountName);
    if (!QFileInfo::exists(ids.m_path))
        return ids;
    RawRecordFile file(ids.m_path, ImportedIdRecord::Size);
    if (!file.open())
        return ids;
    const QByteArray all = file.readAll();
    ids.m_records = int(all.size() / ImportedIdRecord::Size);
    for (int n = 0; n < ids.m_records; ++n) {
        const QString id
            = ImportedIdRecord::decode(all.constData() + qsizetype(n) * ImportedIdRecord::Size)
                  .Id.text()
                  .trimmed();
        if (n == 0)
            ids.m_accountId = id;
        else if (!id.isEmpty())
            ids.m_ids.insert(id);
    }
    return ids;
}

QString ImportedIds::key(const QString &fitId)
{
    const QString id = fitId.trimmed();
    const QByteArray bytes = Cp1252::encode(id);
    if (bytes.size() <= ImportedIdRecord::Size
        && Cp1252::decode(bytes.constData(), int(bytes.size())) == id)
        return id;
    return QStringLiteral("#")
           + QString::fromLatin1(
               QCryptographicHash::hash(id.toUtf8(), QCryptographicHash::Sha1).toHex());
}

void ImportedIds::add(UnitOfWork &unit, const QString &accountId, const QStringList &fitIds)
{
    if (accountId.isEmpty() && fitIds.isEmpty())
        return;
    ImportedIdRecord head;
    head.Id = accountId.isEmpty() ? m_accountId : key(accountId);
    unit.write(m_path, 1, head);
    int n = std::max(m_records, 1);
    for (const QString &id : fitIds) {
        const QString k = key(id);
        if (k.isEmpty() || m_ids.contains(k) || n >= RawRecordFile::MaxRecords)
            continue;
        ImportedIdRecord r;
        r.Id = k;
        unit.write(m_path, ++n, r);
        m_ids.insert(k);
    }
    m_records = n;
    if (!accountId.isEmpty())
        m_accountId = key(accountId);
}
