#include "records/UnitOfWork.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStorageInfo>

#include <algorithm>
#include <set>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace {

std::function<void(int)> &stepHook()
{
    static std::function<void(int)> hook;
    return hook;
}

std::function<bool(int)> &faultHook()
{
    static std::function<bool(int)> hook;
    return hook;
}

UnitOfWork::FailureReport &failureReport()
{
    static UnitOfWork::FailureReport report;
    return report;
}

// Makes a file's contents (or a folder's entries) durable.
void syncPath(const QString &path)
{
    const int fd = ::open(QFile::encodeName(path).constData(), O_RDONLY);
    if (fd >= 0) {
        ::fdatasync(fd);
        ::close(fd);
    }
}

// Deletes the files that units removed (renamed to their removed names) once
// nothing can need them any more: their units are done.
void deleteRemoved(const QString &dataDir)
{
    const QStringList names = QDir(dataDir).entryList(QDir::Files);
    bool any = false;
    for (const QString &name : names)
        if (Journal::isRemovedName(name) && Journal::recordLengthOf(name) != 0)
            any = QFile::remove(dataDir + QLatin1Char('/') + name) || any;
    if (any)
        syncPath(dataDir);
}

void step(int &done)
{
    ++done;
    if (stepHook())
        stepHook()(done);
}

// Every change a commit or a recovery makes to the data files, in one place so
// that each can fail (for real or through the fault hook) and say why.
class FileChanges
{
public:
    explicit FileChanges(QString dataDir) : m_dir(std::move(dataDir)) {}

    QString path(const QString &name) const { return m_dir + QLatin1Char('/') + name; }
    bool exists(const QString &name) const { return QFileInfo::exists(path(name)); }
    qint64 size(const QString &name) const { return QFileInfo(path(name)).size(); }

    bool rename(const QString &from, const QString &to)
    {
        if (faulted() || !QFile::rename(path(from), path(to)))
            return failed(from, QStringLiteral("it could not be renamed to \"%1\"").arg(to));
        m_touched.insert(path(to));
        m_namesChanged = true;
        return true;
    }
    bool write(const QString &name, qint64 offset, const QByteArray &bytes)
    {
        QFile f(path(name));
        m_namesChanged = m_namesChanged || !f.exists();
        const bool fault = faulted();
        if (!f.open(QIODevice::ReadWrite) || !f.seek(offset))
            return failed(name, f.errorString());
        if (fault) {
            f.write(bytes.left(bytes.size() / 2));
            return failed(name, QStringLiteral("No space left on device"));
        }
        if (f.write(bytes) != bytes.size() || !f.flush())
            return failed(name, f.errorString());
        m_touched.insert(path(name));
        return true;
    }
    bool resize(const QString &name, qint64 size)
    {
        if (faulted() || !QFile::resize(path(name), size))
            return failed(name, QStringLiteral("its length could not be put back"));
        m_touched.insert(path(name));
        return true;
    }
    bool remove(const QString &name)
    {
        if (faulted() || !QFile::remove(path(name)))
            return failed(name, QStringLiteral("it could not be removed"));
        m_namesChanged = true;
        return true;
    }

    // Makes every change so far durable, names included.
    void sync()
    {
        for (const QString &p : m_touched)
            syncPath(p);
        m_touched.clear();
        if (std::exchange(m_namesChanged, false))
            syncPath(m_dir);
    }

    // The first failure: which file, and why.
    const QString &failedFile() const { return m_failedFile; }
    const QString &reason() const { return m_reason; }

private:
    bool faulted()
    {
        ++m_changes;
        return faultHook() && faultHook()(m_changes);
    }
    bool failed(const QString &name, const QString &reason)
    {
        if (m_failedFile.isEmpty()) {
            m_failedFile = name;
            m_reason = reason;
        }
        return false;
    }

    QString m_dir;
    int m_changes = 0;
    std::set<QString> m_touched;
    bool m_namesChanged = false;
    QString m_failedFile;
    QString m_reason;
};

// Applies a journal. Every step can be repeated: a rename already done leaves
// only the new name, and a write puts the same bytes in the same place.
bool applyForward(FileChanges &files, const Journal &j)
{
    int done = 0;
    for (const Journal::Rename &r : j.renames) {
        if (files.exists(r.from) && !files.exists(r.to) && !files.rename(r.from, r.to))
            return false;
        step(done);
    }
    for (const Journal::Write &w : j.writes) {
        if (!files.write(w.file, w.offset, w.bytes))
            return false;
        step(done);
    }
    files.sync();
    return true;
}

// Puts every file back as it was before the journal's unit, whatever part of
// it was applied. Goes on past a failure so that as little as possible stays
// changed; returns false when anything could not be put back.
bool applyBackward(FileChanges &files, const Journal &j)
{
    bool ok = true;
    for (auto w = j.writes.rbegin(); w != j.writes.rend(); ++w)
        if (!w->oldBytes.isEmpty() && files.exists(w->file))
            ok = files.write(w->file, w->offset, w->oldBytes) && ok;
    for (const Journal::FileBefore &f : j.before) {
        if (!files.exists(f.file))
            continue;
        if (f.size < 0)
            ok = files.remove(f.file) && ok;
        else if (files.size(f.file) != f.size)
            ok = files.resize(f.file, f.size) && ok;
    }
    for (auto r = j.renames.rbegin(); r != j.renames.rend(); ++r)
        if (files.exists(r->to) && !files.exists(r->from))
            ok = files.rename(r->to, r->from) && ok;
    files.sync();
    return ok;
}

QString failureLine(const FileChanges &files)
{
    return QStringLiteral("\"%1\" could not be written (%2)")
        .arg(files.failedFile(), files.reason());
}

} // namespace

UnitOfWork::UnitOfWork(QString dataDir) : m_dataDir(std::move(dataDir)) {}

QString UnitOfWork::journalPath(const QString &dataDir)
{
    return dataDir + QStringLiteral("/Quillmere.journal");
}

void UnitOfWork::setStepHook(std::function<void(int)> hook)
{
    stepHook() = std::move(hook);
}

void UnitOfWork::setFaultHook(std::function<bool(int)> hook)
{
    faultHook() = std::move(hook);
}

void UnitOfWork::setFailureReport(FailureReport report)
{
    failureReport() = std::move(report);
}

QString UnitOfWork::fileName(const QString &path) const
{
    return QFileInfo(path).fileName();
}

void UnitOfWork::write(const QString &path, int recordLength, int n, const QByteArray &record)
{
    Q_ASSERT(record.size() == recordLength && n >= 1);
    const QString name = fileName(path);
    const qint64 offset = qint64(n - 1) * recordLength;
    const auto [at, added] = m_writeAt.try_emplace({name, offset}, m_writes.size());
    if (!added) {
        m_writes[at->second].bytes = record;
        return;
    }
    m_writes.push_back({name, offset, record});
    qint64 &end = m_writeEnd[name];
    end = std::max(end, offset + recordLength);
}

int UnitOfWork::count(const QString &path, int recordLength) const
{
    const QString name = fileName(path);
    int diskCount = RawRecordFile::countFor(QFileInfo(m_dataDir + QLatin1Char('/') + name).size(),
                                            recordLength);
    // A file renamed in this unit counts under its new name.
    for (const Rename &r : m_renames)
        if (r.to == name)
            diskCount = RawRecordFile::countFor(
                QFileInfo(m_dataDir + QLatin1Char('/') + r.from).size(), recordLength);
    const auto end = m_writeEnd.find(name);
    if (end == m_writeEnd.end())
        return diskCount;
    return std::max<qint64>(diskCount, (end->second + recordLength - 1) / recordLength);
}

int UnitOfWork::append(const QString &path, int recordLength, const QByteArray &record)
{
    const int n = count(path, recordLength) + 1;
    if (n > RawRecordFile::MaxRecords) {
        m_error = QStringLiteral("The file \"%1\" is full: it can hold at most 32,767 records.")
                      .arg(fileName(path));
        return 0;
    }
    write(path, recordLength, n, record);
    return n;
}

void UnitOfWork::rename(const QString &from, const QString &to)
{
    m_renames.push_back({fileName(from), fileName(to)});
}

void UnitOfWork::remove(const QString &path)
{
    const QString name = fileName(path);
    if (QFileInfo::exists(m_dataDir + QLatin1Char('/') + name))
        m_renames.push_back({name, Journal::removedName(name)});
}

QByteArray UnitOfWork::read(const QString &path, int recordLength, int n) const
{
    const QString name = fileName(path);
    const qint64 offset = qint64(n - 1) * recordLength;
    if (const auto at = m_writeAt.find({name, offset}); at != m_writeAt.end())
        return m_writes[at->second].bytes;
    RawRecordFile file(m_dataDir + QLatin1Char('/') + onDisk(name), recordLength);
    return file.read(n);
}

QString UnitOfWork::onDisk(const QString &name) const
{
    for (const Rename &r : m_renames)
        if (r.to == name)
            return r.from;
    return name;
}

void UnitOfWork::fail(const QString &line, const QString &story)
{
    m_error = line;
    if (failureReport())
        failureReport()(line + QStringLiteral("\n\n") + story, FailureTitle);
}

// Why this unit cannot be written (empty when it can): a file the program may
// not touch, a file that refuses to be opened for writing, or too little room.
QString UnitOfWork::checkWritable() const
{
    std::set<QString> names;
    for (const Rename &r : m_renames)
        names.insert(r.from), names.insert(r.to);
    for (const Write &w : m_writes)
        names.insert(w.file);
    qint64 growth = 0;
    for (const QString &name : names) {
        if (const QString problem = Journal::problemWithName(name); !problem.isEmpty())
            return problem;
        const QString path = m_dataDir + QLatin1Char('/') + onDisk(name);
        if (!QFileInfo::exists(path))
            continue;
        QFile f(path);
        if (!f.open(QIODevice::ReadWrite))
            return QStringLiteral("\"%1\" cannot be written (%2)")
                .arg(onDisk(name), f.errorString());
    }
    for (const Write &w : m_writes)
        growth += 3 * w.bytes.size(); // the journal's new and old bytes, and the file's
    const QStorageInfo disk(m_dataDir);
    if (disk.isValid() && disk.bytesAvailable() >= 0 && disk.bytesAvailable() < growth + 65536)
        return QStringLiteral("the disk that holds the data folder is full");
    return QString();
}

bool UnitOfWork::commit()
{
    if (isEmpty())
        return true;
    const QString journal = journalPath(m_dataDir);
    const QString unchanged = QStringLiteral("Your data is as it was before this change. Check "
                                             "that the data folder and its files can be written "
                                             "and that the disk has room, then try again.");
    // An earlier unit that could not be finished nor undone comes first: its
    // journal must not be overwritten.
    if (QFileInfo::exists(journal)) {
        QString error;
        QString notice;
        if (!recover(m_dataDir, &error, &notice)) {
            fail(QStringLiteral("Not saved: an earlier change is still unfinished."),
                 error + QStringLiteral("\n\n") + unchanged);
            return false;
        }
        if (!notice.isEmpty() && failureReport())
            failureReport()(notice, FailureTitle);
    }
    // With no journal left, a file under a removed name is what an earlier unit
    // removed: it goes now, before it could stand in the way of this unit's.
    for (const Rename &r : m_renames)
        if (Journal::isRemovedName(r.to)
            && QFileInfo::exists(m_dataDir + QLatin1Char('/') + r.to)) {
            deleteRemoved(m_dataDir);
            break;
        }
    if (const QString problem = checkWritable(); !problem.isEmpty()) {
        fail(QStringLiteral("Not saved: %1.").arg(problem), unchanged);
        return false;
    }

    Journal j;
    j.renames.reserve(m_renames.size());
    for (const Rename &r : m_renames)
        j.renames.push_back({r.from, r.to});
    std::set<QString> files;
    for (const Write &w : m_writes)
        if (files.insert(w.file).second) {
            const QFileInfo info(m_dataDir + QLatin1Char('/') + onDisk(w.file));
            j.before.push_back({w.file, info.exists() ? info.size() : -1});
        }
    for (const Write &w : m_writes) {
        QByteArray old;
        QFile f(m_dataDir + QLatin1Char('/') + onDisk(w.file));
        if (f.open(QIODevice::ReadOnly) && f.seek(w.offset))
            old = f.read(w.bytes.size());
        j.writes.push_back({w.file, w.offset, w.bytes, old});
    }
    {
        // QSaveFile writes a temporary file and renames it over the journal only
        // once everything is flushed: that rename is the moment of commit.
        QSaveFile save(journal);
        if (!save.open(QIODevice::WriteOnly) || save.write(j.serialize()) < 0 || !save.commit()) {
            fail(QStringLiteral("Not saved: the data folder could not be written (%1).")
                     .arg(save.errorString()),
                 unchanged);
            return false;
        }
    }
    // QSaveFile synced the journal before renaming it; the rename itself is
    // made durable with the folder.
    syncPath(m_dataDir);
    if (stepHook())
        stepHook()(0);
    FileChanges changes(m_dataDir);
    if (!applyForward(changes, j)) {
        const QString line = failureLine(changes);
        if (!applyBackward(changes, j)) {
            // The journal stays: the next commit or start finishes or undoes it.
            fail(QStringLiteral("Not finished: %1.").arg(line),
                 QStringLiteral("Putting back what had been written failed too. Quillmere "
                                "keeps the change in its journal and finishes it (or puts "
                                "everything back) before it saves anything else, and at its "
                                "next start. Check that the data folder and its files can be "
                                "written and that the disk has room."));
            return false;
        }
        QFile::remove(journal);
        syncPath(m_dataDir);
        fail(QStringLiteral("Not saved: %1.").arg(line),
             QStringLiteral("What had been written was put back. ") + unchanged);
        return false;
    }
    QFile::remove(journal);
    const bool removes = std::any_of(m_renames.begin(), m_renames.end(),
                                     [](const Rename &r) { return Journal::isRemovedName(r.to); });
    if (removes) {
        // The journal must be gone for good before what it could put back is.
        syncPath(m_dataDir);
        deleteRemoved(m_dataDir);
    }
    m_writes.clear();
    m_writeAt.clear();
    m_writeEnd.clear();
    m_renames.clear();
    return true;
}

namespace {

// Keeps a refused journal under a name of its own, the first one free.
QString setAside(const QString &dataDir, const QString &journal)
{
    for (int n = 1; n < 1000; ++n) {
        const QString name = QStringLiteral("Quillmere.journal-refused-%1").arg(n);
        if (QFileInfo::exists(dataDir + QLatin1Char('/') + name))
            continue;
        return QFile::rename(journal, dataDir + QLatin1Char('/') + name) ? name : QString();
    }
    return QString();
}

} // namespace

bool UnitOfWork::recover(const QString &dataDir, QString *error, QString *notice)
{
    const QString journal = journalPath(dataDir);
    // Left-overs of a journal that was being written when the program stopped.
    const QStringList partial
        = QDir(dataDir).entryList({QStringLiteral("Quillmere.journal.*")}, QDir::Files);
    for (const QString &name : partial)
        QFile::remove(dataDir + QLatin1Char('/') + name);
    QFile f(journal);
    if (!f.exists()) {
        deleteRemoved(dataDir);
        return true;
    }
    if (!f.open(QIODevice::ReadOnly)) {
        if (error)
            *error = QStringLiteral("Could not read \"%1\".").arg(journal);
        return false;
    }
    const QByteArray all = f.readAll();
    f.close();
    Journal j;
    QString why;
    switch (Journal::parse(all, &j, &why)) {
    case Journal::Parsed::Damaged:
        // A journal that does not check out was never committed: the data
        // files were not touched, so it is simply dropped.
        return QFile::remove(journal);
    case Journal::Parsed::Refused: {
        const QString kept = setAside(dataDir, journal);
        if (kept.isEmpty()) {
            if (error)
                *error = QStringLiteral("The journal names a file outside the data files (%1) "
                                        "and could not be set aside.")
                             .arg(why);
            return false;
        }
        syncPath(dataDir);
        if (notice)
            *notice = QStringLiteral("The journal of an unfinished change was not applied: %1. "
                                     "No file was changed; the journal has been kept as \"%2\".")
                          .arg(why, kept);
        return true;
    }
    case Journal::Parsed::Valid:
        break;
    }
    FileChanges changes(dataDir);
    if (applyForward(changes, j)) {
        if (!QFile::remove(journal))
            return false;
        syncPath(dataDir);
        deleteRemoved(dataDir);
        return true;
    }
    const QString line = failureLine(changes);
    if (!applyBackward(changes, j)) {
        if (error)
            *error = QStringLiteral("An unfinished change could not be finished nor undone: %1.")
                         .arg(line);
        return false;
    }
    QFile::remove(journal);
    syncPath(dataDir);
    deleteRemoved(dataDir);
    if (notice)
        *notice = QStringLiteral("An unfinished change could not be finished: %1. It has been "
                                 "undone; your data is as it was before it.")
                      .arg(line);
    return true;
}
