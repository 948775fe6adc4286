#pragma once

#include <QString>

// The names of every data file of one data set (the user's own or the sample
// set) in the data folder. The settings file is shared by both sets.
class DataFiles
{
public:
    DataFiles(QString dataDir, bool sample);

    const QString &dataDir() const { return m_dataDir; }
    bool isSample() const { return m_sample; }
    DataFiles other() const { return DataFiles(m_dataDir, !m_sample); }

    QString genInfo() const;
    QString accountList() const;
    QString budget() const;
    QString budgetTransfers() const;
    QString payees() const;
    QString archiveList() const;
    QString periodBase() const;
    // "trans " + name + ".Dat"; the name is trimmed of trailing blanks.
    QString registerFile(const QString &accountName) const;
    QString archivedRegisterFile(const QString &accountName) const;
    // "Imported " + name + ".ids": what bank downloads brought into the account.
    QString importedIds(const QString &accountName) const;

private:
    QString inData(const QString &fileName) const;
    QString prefixed(const QString &base) const;

    QString m_dataDir;
    bool m_sample;
};
