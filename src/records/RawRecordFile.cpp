#include "records/RawRecordFile.h"

#include <QFileInfo>

#include <algorithm>
#include <cstring>
#include <utility>

RawRecordFile::RawRecordFile(QString path, int recordLength)
    : m_path(std::move(path)), m_recordLength(recordLength), m_file(m_path)
{
}

bool RawRecordFile::open()
{
    if (m_file.isOpen())
        return true;
    if (!QFileInfo::exists(m_path)) {
        QFile create(m_path);
        if (!create.open(QIODevice::WriteOnly))
            return false;
    }
    return m_file.open(QIODevice::ReadOnly);
}

void RawRecordFile::close()
{
    m_file.close();
}

int RawRecordFile::countFor(qint64 bytes, int recordLength)
{
    const qint64 whole = bytes / recordLength;
    const qint64 rest2 = 2 * (bytes % recordLength);
    qint64 n = whole;
    if (rest2 > recordLength || (rest2 == recordLength && (whole % 2) != 0))
        ++n;
    return n > MaxRecords ? MaxRecords : int(n);
}

int RawRecordFile::count() const
{
    return countFor(QFileInfo(m_path).size(), m_recordLength);
}

bool RawRecordFile::ensureOpen()
{
    return m_file.isOpen() || m_file.open(QIODevice::ReadOnly);
}

QByteArray RawRecordFile::read(int n)
{
    QByteArray buf(m_recordLength, '\0');
    if (n < 1 || !ensureOpen())
        return buf;
    if (m_file.seek(qint64(n - 1) * m_recordLength))
        m_file.read(buf.data(), m_recordLength);
    return buf;
}

QByteArray RawRecordFile::readAll()
{
    const int n = count();
    QByteArray buf(qint64(n) * m_recordLength, '\0');
    if (n == 0 || !ensureOpen() || !m_file.seek(0))
        return buf;
    m_file.read(buf.data(), buf.size());
    return buf;
}

void RawRecordFile::readBatches(const std::function<void(const char *, int)> &take)
{
    // Large enough that the reads themselves cost little (smaller batches were
    // measurably slower on a full register), small enough to stay in cache
    // between the read and the decode.
    constexpr int BatchBytes = 1024 * 1024;
    const int n = count();
    if (n == 0)
        return;
    const int perBatch = std::max(1, BatchBytes / m_recordLength);
    QByteArray buf(qint64(std::min(n, perBatch)) * m_recordLength, '\0');
    // As with readAll: once the file gives out, the rest reads as zeros.
    bool more = ensureOpen() && m_file.seek(0);
    for (int done = 0; done < n;) {
        const int k = std::min(perBatch, n - done);
        const qint64 want = qint64(k) * m_recordLength;
        qint64 got = more ? m_file.read(buf.data(), want) : 0;
        if (got < want) {
            got = std::max<qint64>(got, 0);
            std::memset(buf.data() + got, 0, size_t(want - got));
            more = false;
        }
        take(buf.constData(), k);
        done += k;
    }
}
