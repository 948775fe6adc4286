#pragma once

#include "records/RawRecordFile.h"

#include <QByteArray>
#include <QString>

#include <functional>
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
// All files of a unit live in the data folder. Renames are applied before the
// writes, so writes name files by the names they have after the renames.
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

    // Record count as it will be after this unit.
    int count(const QString &path, int recordLength) const;
    // Record n as it will be after this unit (pending writes win over the disk).
    QByteArray read(const QString &path, int recordLength, int n) const;
    template<typename R> R read(const QString &path, int n) const
    {
        return R::decode(read(path, R::Size, n).constData());
    }

    bool isEmpty() const { return m_writes.empty() && m_renames.empty(); }
    // Makes everything durable. Returns false with error() set when nothing was
    // changed (the journal could not be written).
    bool commit();
    const QString &error() const { return m_error; }

    // Finishes or discards what an interrupted commit left behind. Run once at
    // start-up before any data file is read. Returns false when a journal
    // exists but cannot be applied (the folder is read-only, for instance).
    static bool recover(const QString &dataDir, QString *error = nullptr);
    static QString journalPath(const QString &dataDir);

    // Called after each data-file step of a commit with the number of steps
    // done; tests use it to stop a commit half way.
    static void setStepHook(std::function<void(int)> hook);

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
    static QByteArray serialize(const std::vector<Rename> &renames,
                                const std::vector<Write> &writes);
    static bool apply(const QString &dataDir, const std::vector<Rename> &renames,
                      const std::vector<Write> &writes, QString *error);

    QString m_dataDir;
    std::vector<Write> m_writes;
    std::vector<Rename> m_renames;
    QString m_error;
};
