#pragma once

#include "records/DataFiles.h"

#include <QSet>
#include <QString>
#include <QStringList>

class UnitOfWork;

// The bank's ids of the transactions already imported into one account, and
// the bank's id of the account imported from last ("Imported <account>.ids").
class ImportedIds
{
public:
    static ImportedIds read(const DataFiles &files, const QString &accountName);

    const QString &accountId() const { return m_accountId; }
    bool contains(const QString &fitId) const { return m_ids.contains(key(fitId)); }
    int size() const { return int(m_ids.size()); }

    // Writes the account's id and the new transaction ids in the unit.
    void add(UnitOfWork &unit, const QString &accountId, const QStringList &fitIds);

    // How an id is kept: as written when it fits the record, otherwise a
    // digest of it that does.
    static QString key(const QString &fitId);

private:
    QString m_path;
    QString m_accountId;
    QSet<QString> m_ids;
    int m_records = 0;
};
