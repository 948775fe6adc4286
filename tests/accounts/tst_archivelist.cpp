#include "accounts/ArchiveList.h"
#include "records/ArchiveRecord.h"
#include "records/RecordFile.h"
#include "records/UnitOfWork.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

void writeEntries(const DataFiles &files, const QStringList &names)
{
    UnitOfWork unit(files.dataDir());
    for (int i = 0; i < names.size(); ++i) {
        ArchiveRecord r;
        r.ArchNum = static_cast<std::int16_t>(i + 1);
        r.Type = QStringLiteral("CH");
        r.BankName = names[i];
        unit.write(files.archiveList(), i + 1, r);
    }
    QVERIFY(unit.commit());
}

} // namespace

class TestArchiveList : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    // Entries added in one unit of work see each other: the first takes the
    // freed slot, the second goes after the last one. (What an archived
    // account's entry holds, and the sample set's own list, are the account
    // archive's test.)
    void entriesOfOneUnitSeeEachOther()
    {
        QTemporaryDir dir;
        const DataFiles files(dir.path(), false);
        writeEntries(files, {QStringLiteral("Old Checking"), QStringLiteral("Deleted"),
                             QStringLiteral("Old Savings")});
        UnitOfWork unit(files.dataDir());
        QCOMPARE(
            ArchiveList::addEntry(unit, files, QStringLiteral("SV"), QStringLiteral("Vacation")),
            2);
        QCOMPARE(
            ArchiveList::addEntry(unit, files, QStringLiteral("CC"), QStringLiteral("Old Visa")),
            4);
        QVERIFY(unit.commit());
        QCOMPARE(RecordFile<ArchiveRecord>(files.archiveList()).count(), 4);
    }
};

QTEST_GUILESS_MAIN(TestArchiveList)
#include "tst_archivelist.moc"
