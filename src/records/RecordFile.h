#pragma once

#include "RawRecordFile.h"

#include <vector>

// A file of records of one type R (R::Size bytes, R::decode / R::encode).
template<typename R>
class RecordFile
{
public:
    explicit RecordFile(const QString &path) : m_raw(path, R::Size) {}

    bool open() { return m_raw.open(); }
    void close() { m_raw.close(); }
    int count() const { return m_raw.count(); }
    const QString &path() const { return m_raw.path(); }
    QString errorString() const { return m_raw.errorString(); }

    // Record n; past the end of the file a record of blanks and zeros.
    R read(int n)
    {
        if (n < 1 || n > count())
            return R{};
        return R::decode(m_raw.read(n).constData());
    }

    std::vector<R> readAll()
    {
        const QByteArray bytes = m_raw.readAll();
        const int n = int(bytes.size() / R::Size);
        std::vector<R> out;
        out.reserve(n);
        for (int i = 0; i < n; ++i)
            out.push_back(R::decode(bytes.constData() + qsizetype(i) * R::Size));
        return out;
    }

private:
    RawRecordFile m_raw;
};
