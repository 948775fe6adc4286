#pragma once

#include "records/Cp1252.h"

#include <QString>

#include <array>
#include <cstring>

// A fixed-width text field exactly as it lies on disk: N single-byte
// characters, blank padded. Decoding a record copies the bytes; conversion to
// QString happens only when a field is looked at.
template<int N> class FixedText
{
public:
    FixedText() { m_bytes.fill(' '); }
    // Not explicit on purpose: a record's text fields are filled from text, in
    // assignments and in aggregate initialisers alike.
    FixedText(const QString &text) { set(text); } // NOLINT(google-explicit-constructor)

    // Cut to N characters or padded with blanks.
    void set(const QString &text)
    {
        const QByteArray enc = Cp1252::encode(text);
        const int n = enc.size() < N ? int(enc.size()) : N;
        std::memcpy(m_bytes.data(), enc.constData(), n);
        std::memset(m_bytes.data() + n, ' ', N - n);
    }
    FixedText &operator=(const QString &text)
    {
        set(text);
        return *this;
    }

    // The text with trailing blanks (and the NULs of a never-written field) trimmed.
    QString text() const { return Cp1252::decode(m_bytes.data(), trimmedLength()); }
    bool isBlank() const { return trimmedLength() == 0; }
    // Compares the trimmed text, as every reader of the files does.
    bool is(const QString &other) const { return text().trimmed() == other.trimmed(); }

    void load(const char *src) { std::memcpy(m_bytes.data(), src, N); }
    void store(char *dst) const { std::memcpy(dst, m_bytes.data(), N); }
    const char *bytes() const { return m_bytes.data(); }
    static constexpr int width() { return N; }

    bool operator==(const FixedText &) const = default;

private:
    int trimmedLength() const
    {
        int n = N;
        while (n > 0 && (m_bytes[n - 1] == ' ' || m_bytes[n - 1] == '\0'))
            --n;
        return n;
    }
    std::array<char, N> m_bytes;
};
