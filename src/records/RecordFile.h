#pragma once

#include "records/RawRecordFile.h"

#include <algorithm>
#include <vector>

// A file of records of one type R (R::Size bytes, R::decode / R::encode).
template<typename R> class RecordFile
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

    // Every record. The file is read a batch at a time and each record is
    // decoded straight into its place in the vector: a full register is 12 MB,
    // and a second copy of it (or of every record) would cost more than the
    // decoding itself. `room`: records the vector can take on afterwards
    // without being moved.
    std::vector<R> readAll(int room = 0)
    {
        std::vector<R> out;
        out.reserve(std::size_t(count()) + std::size_t(std::max(0, room)));
        m_raw.readBatches([&out](const char *p, int n) {
            for (int i = 0; i < n; ++i)
                out.emplace_back(Decoded{p + qsizetype(i) * R::Size});
        });
        return out;
    }

private:
    // Converts to a record by decoding it, so that emplace_back builds the
    // record where it will stay.
    struct Decoded
    {
        const char *p;
        operator R() const { return R::decode(p); }
    };

    RawRecordFile m_raw;
};
