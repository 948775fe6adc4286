#include "records/DataFiles.h"

#include <utility>

namespace {
QString trimEnd(const QString &s)
{
    qsizetype n = s.size();
    while (n > 0 && s[n - 1] == QLatin1Char(' '))
        --n;
    return s.left(n);
}
} // namespace

DataFiles::DataFiles(QString dataDir, bool sample) : m_dataDir(std::move(dataDir)), m_sample(sample)
{
}

QString DataFiles::inData(const QString &fileName) const
{
    return m_dataDir + QLatin1Char('/') + fileName;
}

QString DataFiles::prefixed(const QString &base) const
{
    return m_sample ? QStringLiteral("Sample ") + base : base;
}

QString DataFiles::genInfo() const
{
    return inData(QStringLiteral("Geninfo.dat"));
}
QString DataFiles::accountList() const
{
    return inData(prefixed(QStringLiteral("BankAcctName")) + QStringLiteral(".Dat"));
}
QString DataFiles::budget() const
{
    return inData(prefixed(QStringLiteral("Budget")) + QStringLiteral(".Dat"));
}
QString DataFiles::budgetTransfers() const
{
    return inData(prefixed(QStringLiteral("trans Budget")) + QStringLiteral(".Dat"));
}
QString DataFiles::payees() const
{
    return inData(prefixed(QStringLiteral("Payee")) + QStringLiteral(".Dat"));
}
QString DataFiles::archiveList() const
{
    return inData(prefixed(QStringLiteral("Archive.Dat")));
}
QString DataFiles::periodBase() const
{
    return prefixed(QStringLiteral("Period"));
}

QString DataFiles::registerFile(const QString &accountName) const
{
    return inData(QStringLiteral("trans ") + trimEnd(accountName) + QStringLiteral(".Dat"));
}

QString DataFiles::archivedRegisterFile(const QString &accountName) const
{
    return inData(QStringLiteral("Archive ") + trimEnd(accountName) + QStringLiteral(".Dat"));
}

QString DataFiles::importedIds(const QString &accountName) const
{
    return inData(QStringLiteral("Imported ") + trimEnd(accountName) + QStringLiteral(".ids"));
}
