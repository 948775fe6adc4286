#include "records/Journal.h"

#include "records/ArchiveRecord.h"
#include "records/BankAcctRecord.h"
#include "records/BudgetRecord.h"
#include "records/BudgetTransRecord.h"
#include "records/GenInfoRecord.h"
#include "records/ImportedIdRecord.h"
#include "records/PayeeRecord.h"
#include "records/RawRecordFile.h"
#include "records/TransRecord.h"

#include <QDataStream>

namespace {

constexpr quint32 Magic = 0x514A524E; // "QJRN"
constexpr quint32 Version = 2;
// More entries than any operation writes; a count beyond it is damage.
constexpr quint32 MaxEntries = 1'000'000;

quint64 fnv1a(const QByteArray &bytes)
{
    quint64 h = 1469598103934665603ULL;
    for (char c : bytes) {
        h ^= static_cast<unsigned char>(c);
        h *= 1099511628211ULL;
    }
    return h;
}

QString quoted(const QString &name)
{
    QString shown;
    for (QChar c : name)
        shown += c.unicode() < 0x20 || c.unicode() == 0x7f
                     ? QStringLiteral("\\x%1").arg(c.unicode(), 2, 16, QLatin1Char('0'))
                     : QString(c);
    return QLatin1Char('"') + shown + QLatin1Char('"');
}

} // namespace

QString Journal::removedName(const QString &name)
{
    return QStringLiteral("Removed ") + name;
}

bool Journal::isRemovedName(const QString &name)
{
    return name.startsWith(QLatin1String("Removed "));
}

int Journal::recordLengthOf(const QString &name)
{
    if (isRemovedName(name))
        return recordLengthOf(name.mid(8));
    const QString sample = QStringLiteral("Sample ");
    const QString base = name.startsWith(sample) ? name.mid(sample.size()) : name;
    if (name == QLatin1String("Geninfo.dat"))
        return GenInfoRecord::Size;
    if (base == QLatin1String("BankAcctName.Dat"))
        return BankAcctRecord::Size;
    if (base == QLatin1String("Budget.Dat"))
        return BudgetRecord::Size;
    if (base == QLatin1String("trans Budget.Dat"))
        return BudgetTransRecord::Size;
    if (base == QLatin1String("Payee.Dat"))
        return PayeeRecord::Size;
    if (base == QLatin1String("Archive.Dat"))
        return ArchiveRecord::Size;
    if (name.startsWith(QLatin1String("Imported ")) && name.endsWith(QLatin1String(".ids")))
        return ImportedIdRecord::Size;
    const bool dat = name.endsWith(QLatin1String(".Dat"));
    if (dat
        && (name.startsWith(QLatin1String("trans ")) || name.startsWith(QLatin1String("Archive "))))
        return TransRecord::Size;
    return 0;
}

QString Journal::problemWithName(const QString &name)
{
    // Without separators a name stays inside the folder, unless it is the folder
    // itself or its parent.
    if (name.isEmpty() || name.contains(QLatin1Char('/')) || name.contains(QLatin1Char('\\'))
        || name == QLatin1String(".") || name == QLatin1String(".."))
        return quoted(name) + QStringLiteral(" is not a file of the data folder");
    for (QChar c : name)
        if (c.unicode() < 0x20 || c.unicode() == 0x7f)
            return quoted(name) + QStringLiteral(" holds a control character");
    if (recordLengthOf(name) == 0)
        return quoted(name) + QStringLiteral(" is not one of Quillmere's data files");
    return QString();
}

QByteArray Journal::serialize() const
{
    QByteArray body;
    QDataStream out(&body, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    out << Magic << Version << quint32(renames.size()) << quint32(before.size())
        << quint32(writes.size());
    for (const Rename &r : renames)
        out << r.from << r.to;
    for (const FileBefore &f : before)
        out << f.file << f.size;
    for (const Write &w : writes)
        out << w.file << w.offset << w.bytes << w.oldBytes;
    QByteArray all = body;
    QDataStream tail(&all, QIODevice::Append);
    tail.setByteOrder(QDataStream::LittleEndian);
    tail << fnv1a(body);
    return all;
}

Journal::Parsed Journal::parse(const QByteArray &all, Journal *out, QString *why)
{
    if (all.size() <= 8)
        return Parsed::Damaged;
    const QByteArray body = all.left(all.size() - 8);
    QDataStream tailIn(all.right(8));
    tailIn.setByteOrder(QDataStream::LittleEndian);
    quint64 sum = 0;
    tailIn >> sum;
    QDataStream in(body);
    in.setByteOrder(QDataStream::LittleEndian);
    quint32 magic = 0, version = 0, nRenames = 0, nBefore = 0, nWrites = 0;
    in >> magic >> version >> nRenames >> nBefore >> nWrites;
    if (sum != fnv1a(body) || magic != Magic || version != Version || nRenames > MaxEntries
        || nBefore > MaxEntries || nWrites > MaxEntries)
        return Parsed::Damaged;
    Journal j;
    for (quint32 i = 0; i < nRenames && in.status() == QDataStream::Ok; ++i) {
        Rename r;
        in >> r.from >> r.to;
        j.renames.push_back(r);
    }
    for (quint32 i = 0; i < nBefore && in.status() == QDataStream::Ok; ++i) {
        FileBefore f;
        in >> f.file >> f.size;
        j.before.push_back(f);
    }
    for (quint32 i = 0; i < nWrites && in.status() == QDataStream::Ok; ++i) {
        Write w;
        in >> w.file >> w.offset >> w.bytes >> w.oldBytes;
        j.writes.push_back(w);
    }
    if (in.status() != QDataStream::Ok || !in.atEnd())
        return Parsed::Damaged;

    // Every name and every write must be one the program itself could have made.
    auto refuse = [why](const QString &problem) {
        if (why)
            *why = problem;
        return Parsed::Refused;
    };
    for (const Rename &r : j.renames) {
        for (const QString &name : {r.from, r.to})
            if (const QString p = problemWithName(name); !p.isEmpty())
                return refuse(p);
        if (recordLengthOf(r.from) != recordLengthOf(r.to))
            return refuse(quoted(r.from) + QStringLiteral(" cannot become ") + quoted(r.to));
    }
    for (const FileBefore &f : j.before) {
        if (const QString p = problemWithName(f.file); !p.isEmpty())
            return refuse(p);
        if (f.size < -1)
            return refuse(quoted(f.file) + QStringLiteral(" has an impossible length"));
    }
    for (const Write &w : j.writes) {
        if (const QString p = problemWithName(w.file); !p.isEmpty())
            return refuse(p);
        const int length = recordLengthOf(w.file);
        if (w.bytes.size() != length || w.oldBytes.size() > length || w.offset < 0
            || w.offset % length != 0 || w.offset / length >= RawRecordFile::MaxRecords)
            return refuse(QStringLiteral("a write to ") + quoted(w.file)
                          + QStringLiteral(" is not a record of that file"));
    }
    if (out)
        *out = std::move(j);
    return Parsed::Valid;
}
