#include "records/Cp1252.h"

#include <array>

namespace {

// Code points of bytes 0x80..0x9F; 0 marks the five bytes the code page leaves undefined.
constexpr std::array<char16_t, 32> High
    = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
       0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
       0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

char encodeOne(char16_t c)
{
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF))
        return static_cast<char>(c);
    for (int i = 0; i < 32; ++i)
        if (High[i] != 0 && High[i] == c)
            return static_cast<char>(0x80 + i);
    return '?';
}

} // namespace

namespace Cp1252 {

QByteArray encode(const QString &text)
{
    QByteArray out;
    out.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (c.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate())
            ++i; // one character outside the code page, one "?"
        out += c.isSurrogate() ? '?' : encodeOne(c.unicode());
    }
    return out;
}

bool holds(char32_t c)
{
    return c == U'?' || (c <= 0xFFFF && encodeOne(static_cast<char16_t>(c)) != '?');
}

QString decode(const char *bytes, int length)
{
    QString out(length, Qt::Uninitialized);
    QChar *dst = out.data();
    for (int i = 0; i < length; ++i) {
        const auto b = static_cast<unsigned char>(bytes[i]);
        char16_t c = b;
        if (b >= 0x80 && b < 0xA0)
            c = High[b - 0x80] ? High[b - 0x80] : b;
        dst[i] = QChar(c);
    }
    return out;
}

} // namespace Cp1252
