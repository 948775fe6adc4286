#pragma once

#include "records/Currency.h"

#include <cstdint>

// Explicit little-endian field access at byte offsets of a record buffer.
namespace LittleEndian {

inline std::uint64_t getUnsigned(const char *p, int width)
{
    std::uint64_t v = 0;
    for (int i = width - 1; i >= 0; --i)
        v = (v << 8) | static_cast<unsigned char>(p[i]);
    return v;
}

inline void putUnsigned(char *p, std::uint64_t v, int width)
{
    for (int i = 0; i < width; ++i) {
        p[i] = static_cast<char>(v & 0xFF);
        v >>= 8;
    }
}

inline std::int16_t getInt16(const char *p)
{
    return static_cast<std::int16_t>(getUnsigned(p, 2));
}
inline std::int32_t getInt32(const char *p)
{
    return static_cast<std::int32_t>(getUnsigned(p, 4));
}
inline Currency getCurrency(const char *p)
{
    return Currency::fromRaw(static_cast<std::int64_t>(getUnsigned(p, 8)));
}

inline void putInt16(char *p, std::int16_t v)
{
    putUnsigned(p, static_cast<std::uint16_t>(v), 2);
}
inline void putInt32(char *p, std::int32_t v)
{
    putUnsigned(p, static_cast<std::uint32_t>(v), 4);
}
inline void putCurrency(char *p, Currency v)
{
    putUnsigned(p, static_cast<std::uint64_t>(v.raw()), 8);
}

} // namespace LittleEndian
