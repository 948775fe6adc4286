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
    // A new entry takes the first freed slot, then goes after the last one;
    // entries added in one unit of work see each other.
    void freedSlotIsReusedBeforeAppending()
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

        RecordFile<ArchiveRecord> list(files.archiveList());
        QCOMPARE(list.count(), 4);
        const ArchiveRecord reused = list.read(2);
        QCOMPARE(reused.ArchNum, 2);
        QCOMPARE(reused.Type.text(), QStringLiteral("SV"));
        QCOMPARE(reused.BankName.text(), QStringLiteral("Vacation"));
        QCOMPARE(list.read(4).ArchNum, 4);
        QCOMPARE(list.read(1).BankName.text(), QStringLiteral("Old Checking"));
    }

    // The sample set keeps its own list.
    void sampleSetHasItsOwnList()
    {
        QTemporaryDir dir;
        const DataFiles own(dir.path(), false);
        writeEntries(own, {QStringLiteral("Deleted")});
        UnitOfWork unit(dir.path());
        QCOMPARE(
            ArchiveList::addEntry(unit, own.other(), QStringLiteral("CH"), QStringLiteral("Demo")),
            1);
        QVERIFY(unit.commit());
        QVERIFY(RecordFile<ArchiveRecord>(own.archiveList()).read(1).isDeleted());
        QCOMPARE(RecordFile<ArchiveRecord>(own.other().archiveList()).read(1).BankName.text(),
                 QStringLiteral("Demo"));
    }
};

QTEST_GUILESS_MAIN(TestArchiveList)
#include "tst_archivelist.moc"
