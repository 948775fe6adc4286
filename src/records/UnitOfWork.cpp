#include "records/UnitOfWork.h"

#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <set>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr quint32 Magic = 0x514A524E; // "QJRN"
constexpr quint32 Version = 1;

std::function<void(int)> &stepHook()
{
    static std::function<void(int)> hook;
    return hook;
}

quint64 fnv1a(const QByteArray &bytes)
{
    quint64 h = 1469598103934665603ULL;
    for (char c : bytes) {
        h ^= static_cast<unsigned char>(c);
        h *= 1099511628211ULL;
    }
    return h;
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

void step(int &done)
{
    ++done;
    if (stepHook())
        stepHook()(done);
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

QString UnitOfWork::fileName(const QString &path) const
{
    return QFileInfo(path).fileName();
}

void UnitOfWork::write(const QString &path, int recordLength, int n, const QByteArray &record)
{
    Q_ASSERT(record.size() == recordLength && n >= 1);
    m_writes.push_back({fileName(path), qint64(n - 1) * recordLength, record});
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
    int highest = diskCount;
    for (const Write &w : m_writes)
        if (w.file == name)
            highest = std::max<qint64>(highest, w.offset / recordLength + 1);
    return highest;
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

QByteArray UnitOfWork::read(const QString &path, int recordLength, int n) const
{
    const QString name = fileName(path);
    const qint64 offset = qint64(n - 1) * recordLength;
    for (auto it = m_writes.rbegin(); it != m_writes.rend(); ++it)
        if (it->file == name && it->offset == offset)
            return it->bytes;
    QString onDisk = name;
    for (const Rename &r : m_renames)
        if (r.to == name)
            onDisk = r.from;
    RawRecordFile file(m_dataDir + QLatin1Char('/') + onDisk, recordLength);
    return file.read(n);
}

QByteArray UnitOfWork::serialize(const std::vector<Rename> &renames,
                                 const std::vector<Write> &writes)
{
    QByteArray body;
    QDataStream out(&body, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    out << Magic << Version << quint32(renames.size()) << quint32(writes.size());
    for (const Rename &r : renames)
        out << r.from << r.to;
    for (const Write &w : writes)
        out << w.file << w.offset << w.bytes;
    QByteArray all = body;
    QDataStream tail(&all, QIODevice::Append);
    tail.setByteOrder(QDataStream::LittleEndian);
    tail << fnv1a(body);
    return all;
}

bool UnitOfWork::apply(const QString &dataDir, const std::vector<Rename> &renames,
                       const std::vector<Write> &writes, QString *error)
{
    int done = 0;
    for (const Rename &r : renames) {
        const QString from = dataDir + QLatin1Char('/') + r.from;
        const QString to = dataDir + QLatin1Char('/') + r.to;
        // Repeatable: a rename already done leaves only the new name.
        if (QFileInfo::exists(from) && !QFileInfo::exists(to)) {
            if (!QFile::rename(from, to)) {
                if (error)
                    *error = QStringLiteral("Could not rename \"%1\" to \"%2\".").arg(r.from, r.to);
                return false;
            }
        }
        step(done);
    }
    if (!renames.empty())
        syncPath(dataDir);

    std::set<QString> touched;
    bool created = false;
    for (const Write &w : writes) {
        const QString path = dataDir + QLatin1Char('/') + w.file;
        created = created || !QFileInfo::exists(path);
        QFile f(path);
        if (!f.open(QIODevice::ReadWrite) || !f.seek(w.offset)
            || f.write(w.bytes) != w.bytes.size()) {
            if (error)
                *error = QStringLiteral("Could not write \"%1\": %2").arg(w.file, f.errorString());
            return false;
        }
        f.flush();
        f.close();
        touched.insert(path);
        step(done);
    }
    for (const QString &path : touched)
        syncPath(path);
    // A new file's name must be as durable as its contents.
    if (created)
        syncPath(dataDir);
    return true;
}

bool UnitOfWork::commit()
{
    if (isEmpty())
        return true;
    const QString journal = journalPath(m_dataDir);
    {
        // QSaveFile writes a temporary file and renames it over the journal only
        // once everything is flushed: that rename is the moment of commit.
        QSaveFile save(journal);
        if (!save.open(QIODevice::WriteOnly)) {
            m_error
                = QStringLiteral("Could not write to the data folder: %1").arg(save.errorString());
            return false;
        }
        save.write(serialize(m_renames, m_writes));
        if (!save.commit()) {
            m_error
                = QStringLiteral("Could not write to the data folder: %1").arg(save.errorString());
            return false;
        }
    }
    // QSaveFile synced the journal before renaming it; the rename itself is
    // made durable with the folder.
    syncPath(m_dataDir);
    if (stepHook())
        stepHook()(0);
    if (!apply(m_dataDir, m_renames, m_writes, &m_error))
        return false; // the journal stays; the next start finishes the job
    QFile::remove(journal);
    m_writes.clear();
    m_renames.clear();
    return true;
}

bool UnitOfWork::recover(const QString &dataDir, QString *error)
{
    const QString journal = journalPath(dataDir);
    // Left-overs of a journal that was being written when the program stopped.
    const QStringList partial
        = QDir(dataDir).entryList({QStringLiteral("Quillmere.journal.*")}, QDir::Files);
    for (const QString &name : partial)
        QFile::remove(dataDir + QLatin1Char('/') + name);
    QFile f(journal);
    if (!f.exists())
        return true;
    if (!f.open(QIODevice::ReadOnly)) {
        if (error)
            *error = QStringLiteral("Could not read \"%1\".").arg(journal);
        return false;
    }
    const QByteArray all = f.readAll();
    f.close();
    bool valid = all.size() > 8;
    std::vector<Rename> renames;
    std::vector<Write> writes;
    if (valid) {
        const QByteArray body = all.left(all.size() - 8);
        QDataStream tailIn(all.right(8));
        tailIn.setByteOrder(QDataStream::LittleEndian);
        quint64 sum = 0;
        tailIn >> sum;
        QDataStream in(body);
        in.setByteOrder(QDataStream::LittleEndian);
        quint32 magic = 0, version = 0, nRenames = 0, nWrites = 0;
        in >> magic >> version >> nRenames >> nWrites;
        valid = sum == fnv1a(body) && magic == Magic && version == Version;
        for (quint32 i = 0; valid && i < nRenames; ++i) {
            Rename r;
            in >> r.from >> r.to;
            renames.push_back(r);
        }
        for (quint32 i = 0; valid && i < nWrites; ++i) {
            Write w;
            in >> w.file >> w.offset >> w.bytes;
            writes.push_back(w);
        }
        valid = valid && in.status() == QDataStream::Ok;
    }
    // A journal that does not check out was never committed: the data files
    // were not touched, so it is simply dropped.
    if (valid && !apply(dataDir, renames, writes, error))
        return false;
    return QFile::remove(journal);
}
