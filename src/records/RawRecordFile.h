#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include <functional>

// Random access to a file of fixed-length records numbered from 1. Reads only:
// every write goes through a UnitOfWork so that it is all-or-nothing.
class RawRecordFile
{
public:
    // Files hold at most this many records: counts are 16-bit.
    static constexpr int MaxRecords = 32767;

    RawRecordFile(QString path, int recordLength);

    // Opens the file for reading, creating it empty when it is missing.
    bool open();
    void close();
    bool isOpen() const { return m_file.isOpen(); }

    // Length / record length, rounded (half to even) to a 16-bit count.
    int count() const;
    // Record n; past the last full record the missing bytes read as zeros.
    QByteArray read(int n);
    // Every full or partial record, as one buffer of count() records.
    QByteArray readAll();
    // The same records handed over a batch of whole records at a time (n of
    // them at p), so that a caller decoding them never holds the whole file.
    void readBatches(const std::function<void(const char *p, int n)> &take);

    const QString &path() const { return m_path; }
    int recordLength() const { return m_recordLength; }
    QString errorString() const { return m_file.errorString(); }

    static int countFor(qint64 bytes, int recordLength);

private:
    bool ensureOpen();

    QString m_path;
    int m_recordLength;
    QFile m_file;
};
