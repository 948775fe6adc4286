#include "FolderSnapshot.h"
#include "records/ArchiveRecord.h"
#include "records/BankAcctRecord.h"
#include "records/BudgetRecord.h"
#include "records/Journal.h"
#include "records/PayeeRecord.h"
#include "records/RecordFile.h"
#include "records/TransRecord.h"
#include "records/UnitOfWork.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

struct Killed
{
};

// Stops a commit after `at` data-file steps (0: right after the journal is
// made valid); always takes the hook away again.
struct KillAt
{
    explicit KillAt(int at)
    {
        UnitOfWork::setStepHook([at](int done) {
            if (done == at)
                throw Killed{};
        });
    }
    ~KillAt() { UnitOfWork::setStepHook({}); }
};

QString in(const QString &dir, const char *name)
{
    return dir + QLatin1Char('/') + QLatin1String(name);
}

BankAcctRecord account(int num, const char *name, qint64 cents)
{
    BankAcctRecord a;
    a.BankNum = std::int16_t(num);
    a.Type = QStringLiteral("CH");
    a.BankName = QString::fromLatin1(name);
    a.Balance = Currency::fromCents(cents);
    return a;
}

TransRecord entry(int n, const char *desc, qint64 cents)
{
    TransRecord t;
    t.Tranno = std::int16_t(n);
    t.Description = QString::fromLatin1(desc);
    t.Amount = Currency::fromCents(cents);
    return t;
}

// The files as they are before the operation.
void makeOld(const QString &dir)
{
    writeBytes(in(dir, "BankAcctName.Dat"), UnitOfWork::encoded(account(1, "Everyday", 100'00))
                                                + UnitOfWork::encoded(account(2, "Old", 5'00)));
    writeBytes(in(dir, "Payee.Dat"),
               UnitOfWork::encoded(
                   PayeeRecord{1, 2, QStringLiteral("Old"), QStringLiteral("Corner Store")}));
    writeBytes(in(dir, "trans Old.Dat"), UnitOfWork::encoded(entry(1, "Opening", 10'00))
                                             + UnitOfWork::encoded(entry(2, "Lunch", -5'00)));
}

// One operation touching four files, one of them renamed and one created.
UnitOfWork operation(const QString &dir)
{
    UnitOfWork unit(dir);
    unit.rename(in(dir, "trans Old.Dat"), in(dir, "trans New.Dat"));
    unit.write(in(dir, "BankAcctName.Dat"), 2, account(2, "New", 25'00));
    PayeeRecord p = unit.read<PayeeRecord>(in(dir, "Payee.Dat"), 1);
    p.BankName = QStringLiteral("New");
    unit.write(in(dir, "Payee.Dat"), 1, p);
    unit.write(in(dir, "trans New.Dat"), 2, entry(2, "Lunch corrected", -6'00));
    BudgetRecord cat;
    cat.BudNum = 1;
    cat.BudName = QStringLiteral("Food");
    unit.append(in(dir, "Budget.Dat"), cat);
    unit.append(in(dir, "trans New.Dat"), entry(3, "Refund", 26'00));
    return unit;
}

// Archiving one account and deleting another: a rename, record writes, and
// two removals, one of a file that is not there.
UnitOfWork archiveAndDelete(const QString &dir)
{
    UnitOfWork unit(dir);
    unit.write(in(dir, "BankAcctName.Dat"), 1, account(1, "Deleted", 100'00));
    unit.write(in(dir, "BankAcctName.Dat"), 2, account(2, "Deleted", 5'00));
    unit.rename(in(dir, "trans Old.Dat"), in(dir, "Archive Old.Dat"));
    unit.append(in(dir, "Archive.Dat"),
                ArchiveRecord{1, QStringLiteral("CH"), QStringLiteral("Old")});
    unit.remove(in(dir, "trans Everyday.Dat"));
    unit.remove(in(dir, "trans Nowhere.Dat"));
    return unit;
}

void makeOldWithEveryday(const QString &dir)
{
    makeOld(dir);
    writeBytes(in(dir, "trans Everyday.Dat"), UnitOfWork::encoded(entry(1, "Opening", 1)));
}

// A journal as a tampered one would be: checking out, but naming what it likes.
QByteArray journalNaming(const QString &file, int length = BankAcctRecord::Size, qint64 offset = 0,
                         const QString &renameTo = {})
{
    Journal j;
    if (!renameTo.isEmpty())
        j.renames.push_back({QStringLiteral("Payee.Dat"), renameTo});
    j.writes.push_back({file, offset, QByteArray(length, 'x'), {}});
    return j.serialize();
}

} // namespace

class UnitOfWorkTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pendingReadsSeePendingWrites()
    {
        QTemporaryDir dir;
        makeOld(dir.path());
        UnitOfWork unit(dir.path());
        const QString renamed = in(dir.path(), "trans New.Dat");
        unit.rename(in(dir.path(), "trans Old.Dat"), renamed);
        // Before any write the renamed file reads as the old one does.
        QCOMPARE(unit.count(renamed, TransRecord::Size), 2);
        QCOMPARE(unit.read<TransRecord>(renamed, 2).Description.text(), QStringLiteral("Lunch"));
        unit.write(renamed, 2, entry(2, "Changed", 1));
        QCOMPARE(unit.read<TransRecord>(renamed, 2).Description.text(), QStringLiteral("Changed"));
        QCOMPARE(unit.append(renamed, entry(3, "Third", 3)), 3);
        QCOMPARE(unit.append(renamed, entry(4, "Fourth", 4)), 4);
        unit.write(renamed, 3, entry(3, "Third again", 3)); // the later write wins
        QCOMPARE(unit.read<TransRecord>(renamed, 3).Description.text(),
                 QStringLiteral("Third again"));
        // A record skipped over reads as zeros; nothing reaches the disk before commit.
        const QString fresh = in(dir.path(), "Archive.Dat");
        unit.write(fresh, 3, ArchiveRecord{3, QStringLiteral("SV"), QStringLiteral("Third")});
        QCOMPARE(unit.count(fresh, ArchiveRecord::Size), 3);
        QCOMPARE(unit.read(fresh, ArchiveRecord::Size, 2), QByteArray(ArchiveRecord::Size, '\0'));
        QVERIFY(!QFileInfo::exists(fresh) && QFileInfo::exists(in(dir.path(), "trans Old.Dat")));

        QVERIFY(unit.commit());
        QVERIFY(!QFileInfo::exists(in(dir.path(), "trans Old.Dat")));
        QVERIFY(!QFileInfo::exists(UnitOfWork::journalPath(dir.path())));
        QCOMPARE(QFileInfo(fresh).size(), qint64(3 * ArchiveRecord::Size));
        QCOMPARE(QFileInfo(renamed).size(), qint64(4 * TransRecord::Size));
        QCOMPARE(RecordFile<TransRecord>(renamed).read(3).Description.text(),
                 QStringLiteral("Third again"));
    }

    void appendStopsAtTheRecordLimit()
    {
        QTemporaryDir dir;
        const QString path = in(dir.path(), "Archive.Dat");
        QFile f(path);
        QVERIFY(f.open(QIODevice::WriteOnly) && f.resize(qint64(32766) * ArchiveRecord::Size));
        f.close();
        UnitOfWork unit(dir.path());
        QCOMPARE(unit.append(path, ArchiveRecord{}), 32767);
        QVERIFY(unit.error().isEmpty());
        QCOMPARE(unit.append(path, ArchiveRecord{}), 0);
        QVERIFY(unit.error().contains(QStringLiteral("32,767")));
        QVERIFY(unit.error().contains(QStringLiteral("Archive.Dat")));
    }

    // Whichever step the program dies at after the journal is valid, the next
    // start finishes the operation: every file ends up all new.
    void interruptedCommitIsFinishedOnRecovery()
    {
        QTemporaryDir ref;
        makeOld(ref.path());
        const auto allOld = folderSnapshot(ref.path());
        int lastStep = 0;
        UnitOfWork::setStepHook([&lastStep](int done) { lastStep = std::max(lastStep, done); });
        const bool committed = operation(ref.path()).commit();
        UnitOfWork::setStepHook({});
        QVERIFY(committed);
        QCOMPARE(lastStep, 6); // one rename, five record writes
        const auto allNew = folderSnapshot(ref.path());
        QVERIFY(allNew != allOld);
        QVERIFY(allNew.contains(QStringLiteral("trans New.Dat"))
                && allNew.contains(QStringLiteral("Budget.Dat")));

        for (int k = 0; k <= lastStep; ++k) {
            QTemporaryDir dir;
            makeOld(dir.path());
            UnitOfWork unit = operation(dir.path());
            bool killed = false;
            {
                KillAt kill(k);
                try {
                    unit.commit();
                } catch (const Killed &) {
                    killed = true;
                }
            }
            QVERIFY2(killed, qPrintable(QStringLiteral("step %1").arg(k)));
            QVERIFY(QFileInfo::exists(UnitOfWork::journalPath(dir.path())));
            QVERIFY(UnitOfWork::recover(dir.path()));
            QVERIFY2(folderSnapshot(dir.path()) == allNew,
                     qPrintable(QStringLiteral("step %1").arg(k)));
            // A second recovery has nothing left to do.
            QVERIFY(UnitOfWork::recover(dir.path()));
            QVERIFY(folderSnapshot(dir.path()) == allNew);
        }
    }

    // A journal that does not check out was never committed: recovery leaves
    // every data file as it was and drops the journal.
    void brokenJournalLeavesAllOld_data()
    {
        QTest::addColumn<QString>("damage");
        for (const char *d : {"byte flipped", "last byte cut", "half", "empty"})
            QTest::newRow(d) << QString::fromLatin1(d);
    }
    void brokenJournalLeavesAllOld()
    {
        QFETCH(QString, damage);
        QTemporaryDir dir;
        makeOld(dir.path());
        const auto allOld = folderSnapshot(dir.path());
        UnitOfWork unit = operation(dir.path());
        {
            KillAt kill(0);
            QVERIFY_THROWS_EXCEPTION(Killed, unit.commit());
        }
        const QString journal = UnitOfWork::journalPath(dir.path());
        QByteArray bytes = folderSnapshot(dir.path()).value(QFileInfo(journal).fileName());
        QVERIFY(bytes.size() > 100);
        if (damage == QLatin1String("byte flipped"))
            bytes[bytes.size() / 2] = char(bytes[bytes.size() / 2] ^ 0x01);
        else
            bytes.truncate(damage == QLatin1String("half")    ? bytes.size() / 2
                           : damage == QLatin1String("empty") ? 0
                                                              : bytes.size() - 1);
        writeBytes(journal, bytes);
        QVERIFY(UnitOfWork::recover(dir.path()));
        QVERIFY(!QFileInfo::exists(journal));
        QVERIFY(folderSnapshot(dir.path()) == allOld);
    }

    // Writes failing part way, once or from then on (a full disk), during the
    // commit or while putting things back: the files end all old, or the
    // journal stays and recovery makes them all new.
    void failedWriteNeverLeavesHalf()
    {
        QTemporaryDir ref;
        makeOld(ref.path());
        const auto allOld = folderSnapshot(ref.path());
        QVERIFY(operation(ref.path()).commit());
        const auto allNew = folderSnapshot(ref.path());

        int reports = 0;
        UnitOfWork::setFailureReport([&reports](const QString &, const QString &) { ++reports; });
        // One rename and five writes forward; up to eleven changes putting back.
        for (int n = 1; n <= 17; ++n) {
            for (int m = n + 1; m <= 18; ++m) {
                const QString at = QStringLiteral("changes %1 and %2").arg(n).arg(m);
                QTemporaryDir dir;
                makeOld(dir.path());
                UnitOfWork unit = operation(dir.path());
                UnitOfWork::setFaultHook([n, m](int k) { return k == n || k == m; });
                reports = 0;
                const bool committed = unit.commit();
                UnitOfWork::setFaultHook({});
                if (n > 6) {
                    // Nothing failed on the way forward.
                    QVERIFY2(committed && reports == 0, qPrintable(at));
                    QVERIFY(folderSnapshot(dir.path()) == allNew);
                    continue;
                }
                QVERIFY2(!committed && reports == 1, qPrintable(at));
                QVERIFY(unit.error().startsWith(QStringLiteral("Not ")));
                if (!QFileInfo::exists(UnitOfWork::journalPath(dir.path()))) {
                    QVERIFY2(folderSnapshot(dir.path()) == allOld, qPrintable(at));
                    continue;
                }
                QVERIFY(UnitOfWork::recover(dir.path()));
                QVERIFY2(folderSnapshot(dir.path()) == allNew, qPrintable(at));
            }
        }
        UnitOfWork::setFailureReport({});
    }

    // A journal whose forward writes fail at the next start is undone there
    // instead, and the user told.
    void recoveryUndoesWhatItCannotFinish()
    {
        QTemporaryDir dir;
        makeOld(dir.path());
        const auto allOld = folderSnapshot(dir.path());
        UnitOfWork unit = operation(dir.path());
        UnitOfWork::setFaultHook([](int k) { return k >= 3; });
        QVERIFY(!unit.commit());
        UnitOfWork::setFaultHook([](int k) { return k == 4; });
        QString error;
        QString notice;
        const bool recovered = UnitOfWork::recover(dir.path(), &error, &notice);
        UnitOfWork::setFaultHook({});
        QVERIFY(recovered);
        QVERIFY(notice.contains(QStringLiteral("undone")));
        QVERIFY(folderSnapshot(dir.path()) == allOld);
    }

    // A removed file is renamed within the unit and deleted once the unit is
    // done. Killed at any step after the journal is valid, the next start ends
    // with the file gone and every other change made; with a write failing,
    // nothing is gone.
    void removalIsPartOfTheUnit()
    {
        QTemporaryDir ref;
        makeOldWithEveryday(ref.path());
        const auto allOld = folderSnapshot(ref.path());
        int lastStep = 0;
        UnitOfWork::setStepHook([&lastStep](int done) { lastStep = std::max(lastStep, done); });
        QVERIFY(archiveAndDelete(ref.path()).commit());
        UnitOfWork::setStepHook({});
        QCOMPARE(lastStep, 5); // two renames, three writes
        const auto allNew = folderSnapshot(ref.path());
        QCOMPARE(allNew.keys(),
                 (QStringList{"Archive Old.Dat", "Archive.Dat", "BankAcctName.Dat", "Payee.Dat"}));

        for (int k = 0; k <= lastStep; ++k) {
            QTemporaryDir dir;
            makeOldWithEveryday(dir.path());
            UnitOfWork unit = archiveAndDelete(dir.path());
            {
                KillAt kill(k);
                QVERIFY_THROWS_EXCEPTION(Killed, unit.commit());
            }
            QVERIFY(UnitOfWork::recover(dir.path()));
            QVERIFY2(folderSnapshot(dir.path()) == allNew,
                     qPrintable(QStringLiteral("step %1").arg(k)));
        }
        // Done, but stopped before the removed file was deleted: the next start
        // deletes it.
        QTemporaryDir done;
        makeOldWithEveryday(done.path());
        QVERIFY(archiveAndDelete(done.path()).commit());
        writeBytes(in(done.path(), "Removed trans Everyday.Dat"), "left over");
        QVERIFY(UnitOfWork::recover(done.path()));
        QVERIFY(folderSnapshot(done.path()) == allNew);

        // A write failing removes nothing.
        QTemporaryDir failing;
        makeOldWithEveryday(failing.path());
        UnitOfWork::setFaultHook([](int k) { return k == 4; });
        const bool committed = archiveAndDelete(failing.path()).commit();
        UnitOfWork::setFaultHook({});
        QVERIFY(!committed);
        QVERIFY(folderSnapshot(failing.path()) == allOld);
    }

    // Replay writes only the data files of the data folder, by plain names and
    // in whole records of their own length; any other journal is refused whole,
    // kept aside and reported, and nothing is written anywhere.
    void journalNamingOtherFilesIsRefused_data()
    {
        QTest::addColumn<QByteArray>("journal");
        QTest::addColumn<QString>("named");
        // The named file is shown in the notice as it is in the journal.
        auto row = [](const char *name, const QString &file, int length = BankAcctRecord::Size,
                      qint64 offset = 0, const QString &renameTo = {}) {
            QTest::newRow(name) << journalNaming(file, length, offset, renameTo)
                                << (renameTo.isEmpty() ? file : renameTo);
        };
        row("parent folder", QStringLiteral("../escaped.Dat"));
        row("two folders up", QStringLiteral("../../escaped2.Dat"));
        row("renamed out", QStringLiteral("BankAcctName.Dat"), BankAcctRecord::Size, 0,
            QStringLiteral("../taken.Dat"));
        row("absolute", QStringLiteral("/tmp/quill-escaped.Dat"));
        row("back slash", QStringLiteral("..\\escaped.Dat"));
        row("parent itself", QStringLiteral(".."));
        row("not a data file", QStringLiteral("notes.txt"));
        row("wrong record length", QStringLiteral("BankAcctName.Dat"), BankAcctRecord::Size + 1);
        row("between records", QStringLiteral("Payee.Dat"), PayeeRecord::Size, 7);
        QTest::newRow("control character")
            << journalNaming(QStringLiteral("trans a\nb.Dat"), TransRecord::Size)
            << QStringLiteral("trans a\\x0ab.Dat");
    }
    void journalNamingOtherFilesIsRefused()
    {
        QFETCH(QByteArray, journal);
        QFETCH(QString, named);
        QTemporaryDir home;
        const QString dir = home.filePath(QStringLiteral("inner/Data"));
        QVERIFY(QDir().mkpath(dir));
        makeOld(dir);
        const auto before = folderSnapshot(dir);
        writeBytes(UnitOfWork::journalPath(dir), journal);
        writeBytes(in(dir, "Quillmere.journal-refused-1"), "an earlier one");

        QString error;
        QString notice;
        QVERIFY(UnitOfWork::recover(dir, &error, &notice));
        QVERIFY2(notice.contains(named), qPrintable(notice));
        QVERIFY(notice.contains(QStringLiteral("\"Quillmere.journal-refused-2\"")));
        auto after = folderSnapshot(dir);
        QCOMPARE(after.take(QStringLiteral("Quillmere.journal-refused-2")), journal);
        QCOMPARE(after.take(QStringLiteral("Quillmere.journal-refused-1")),
                 QByteArray("an earlier one"));
        QVERIFY(after == before);
        QCOMPARE(QDir(home.filePath(QStringLiteral("inner"))).entryList(QDir::Files), {});
        QCOMPARE(QDir(home.path()).entryList(QDir::Files), {});
        QVERIFY(!QFileInfo::exists(QStringLiteral("/tmp/quill-escaped.Dat")));
        // The next start has nothing to do.
        QVERIFY(UnitOfWork::recover(dir, &error, &notice));
    }

    void leftoverJournalTempFilesAreRemoved()
    {
        QTemporaryDir dir;
        makeOld(dir.path());
        const auto allOld = folderSnapshot(dir.path());
        writeBytes(in(dir.path(), "Quillmere.journal.aB3xYz"), "half a journal");
        writeBytes(in(dir.path(), "Quillmere.journal.Q1w2e3"), QByteArray());
        QVERIFY(UnitOfWork::recover(dir.path()));
        QVERIFY(folderSnapshot(dir.path()) == allOld);
    }
};

QTEST_GUILESS_MAIN(UnitOfWorkTest)
#include "tst_unitofwork.moc"
