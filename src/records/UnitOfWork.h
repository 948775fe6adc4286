#pragma once

#include "records/Journal.h"
#include "records/RawRecordFile.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <map>
#include <utility>
#include <vector>

// Collects every write of one user operation and makes them reach the disk
// all together or not at all.
//
// Commit first writes the whole intent (every record image and rename) to a
// journal file in the data folder, flushes it, and makes it valid with one
// atomic rename. Only then are the data files touched. A process killed before
// that rename leaves the data files untouched and the half-written journal is
// discarded at the next start; a process killed after it has its journal
// replayed at the next start (every step can be repeated safely).
//
// A data file that refuses a write (made read-only, the disk full) never
// leaves half an operation either: every file is checked before the journal is
// written, and when a write fails after that, what was applied is put back
// from the old bytes the journal keeps. Only when putting back fails too does
// the journal stay, for the next commit or start to finish. Every such failure
// is reported through the failure report.
//
// All files of a unit live in the data folder. Renames are applied before the
// writes, so writes name files by the names they have after the renames.
// A file is removed in two steps: within the unit it is renamed to a name of
// its own ("Removed " + name), which a failed unit puts back like any rename;
// once the unit is done the renamed file is deleted. A start finds such files
// left over only after their unit was done, and deletes them.
class UnitOfWork
{
public:
    explicit UnitOfWork(QString dataDir);

    // Writes record n (from 1) of a file of fixed-length records.
    void write(const QString &path, int recordLength, int n, const QByteArray &record);
    template<typename R> void write(const QString &path, int n, const R &r)
    {
        write(path, R::Size, n, encoded(r));
    }

    // Appends after the last record, counting appends already in this unit.
    // Returns the new record number, or 0 (and sets error()) when the file is full.
    int append(const QString &path, int recordLength, const QByteArray &record);
    template<typename R> int append(const QString &path, const R &r)
    {
        return append(path, R::Size, encoded(r));
    }

    // Renames a file (both in the data folder).
    void rename(const QString &from, const QString &to);
    // Removes a file of the data folder; a file that is not there is no error.
    void remove(const QString &path);

    // Record count as it will be after this unit.
    int count(const QString &path, int recordLength) const;
    // Record n as it will be after this unit (pending writes win over the disk).
    QByteArray read(const QString &path, int recordLength, int n) const;
    template<typename R> R read(const QString &path, int n) const
    {
        return R::decode(read(path, R::Size, n).constData());
    }

    bool isEmpty() const { return m_writes.empty() && m_renames.empty(); }
    // Makes everything durable. Returns false with error() set (one line, for
    // the panel) when the data files are as they were before, or in the rare
    // case that they could not be put back, with the journal kept to finish
    // them. The failure report has the whole story.
    bool commit();
    const QString &error() const { return m_error; }

    // Finishes, undoes or discards what an interrupted or failed commit left
    // behind. Run once at start-up before any data file is read. Returns false
    // (with *error) when a journal exists and can be neither finished nor
    // undone. *notice is set when the user should hear of what was done: a
    // journal refused and kept aside, or a change undone.
    static bool recover(const QString &dataDir, QString *error = nullptr,
                        QString *notice = nullptr);
    static QString journalPath(const QString &dataDir);

    // Called with the text (and title) of a message box for the user whenever
    // a commit fails; the program shows it through its interaction seam.
    using FailureReport = std::function<void(const QString &text, const QString &title)>;
    static void setFailureReport(FailureReport report);
    static inline const QString FailureTitle = QStringLiteral("Not Saved");

    // Called after each data-file step of a commit with the number of steps
    // done; tests use it to stop a commit half way.
    static void setStepHook(std::function<void(int)> hook);
    // Called before each change to a data file made by a commit or a recovery
    // (rename, record write, size change, removal), numbered from 1; when it
    // returns true that change fails the way a full disk makes it fail (a
    // write leaves half its bytes). Tests use it to fail the n-th write.
    static void setFaultHook(std::function<bool(int)> hook);

    template<typename R> static QByteArray encoded(const R &r)
    {
        QByteArray b(R::Size, '\0');
        r.encode(b.data());
        return b;
    }

private:
    struct Write
    {
        QString file; // name inside the data folder
        qint64 offset;
        QByteArray bytes;
    };
    struct Rename
    {
        QString from;
        QString to;
    };

    QString fileName(const QString &path) const;
    QString onDisk(const QString &name) const;
    QString checkWritable() const;
    void fail(const QString &line, const QString &story);

    QString m_dataDir;
    std::vector<Write> m_writes;
    // Where each pending record lies in m_writes, and how far each file reaches:
    // a record written again replaces its pending image, so an operation that
    // moves the same balance thousands of times stays linear.
    std::map<std::pair<QString, qint64>, std::size_t> m_writeAt;
    std::map<QString, qint64> m_writeEnd;
    std::vector<Rename> m_renames;
    QString m_error;
};
