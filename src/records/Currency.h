#pragma once

#include <QString>

#include <compare>
#include <cstdint>
#include <optional>

// An amount of money: a signed 64-bit count of ten-thousandths (four implied
// decimals), exactly as it is stored on disk. Never converted to floating point.
class Currency
{
public:
    static constexpr std::int64_t Scale = 10000;

    constexpr Currency() = default;
    static constexpr Currency fromRaw(std::int64_t raw) { return Currency(raw); }
    static constexpr Currency fromCents(std::int64_t cents) { return Currency(cents * 100); }
    static constexpr Currency fromUnits(std::int64_t units) { return Currency(units * Scale); }

    // Parses typed text: optional blanks, sign or parentheses, "$", digits with
    // optional "," grouping, optional decimals. Extra decimals round half to even.
    // Returns nothing for text that is not a number or does not fit.
    static std::optional<Currency> parse(const QString &text);

    constexpr std::int64_t raw() const { return m_raw; }
    // Whole cents, rounded half away from zero (how amounts are shown).
    std::int64_t roundedCents() const;

    // "$1,234.56", negatives "($1,234.56)".
    QString toCurrencyText() const;
    // "#0.00": "1234.56", negatives "-1234.56".
    QString toFixedText() const;
    // Plain text that parse() reads back exactly (no grouping, up to four decimals).
    QString toPlainText() const;

    constexpr bool isZero() const { return m_raw == 0; }
    constexpr bool isNegative() const { return m_raw < 0; }
    constexpr Currency abs() const { return Currency(m_raw < 0 ? -m_raw : m_raw); }

    constexpr Currency operator-() const { return Currency(-m_raw); }
    constexpr Currency operator+(Currency o) const { return Currency(m_raw + o.m_raw); }
    constexpr Currency operator-(Currency o) const { return Currency(m_raw - o.m_raw); }
    constexpr Currency &operator+=(Currency o)
    {
        m_raw += o.m_raw;
        return *this;
    }
    constexpr Currency &operator-=(Currency o)
    {
        m_raw -= o.m_raw;
        return *this;
    }
    constexpr auto operator<=>(const Currency &) const = default;

private:
    constexpr explicit Currency(std::int64_t raw) : m_raw(raw) {}
    std::int64_t m_raw = 0;
};

// Amounts whose size reaches this are refused everywhere an amount is typed.
inline constexpr Currency MaxAmount = Currency::fromUnits(90'000'000'000LL);
inline bool exceedsMaxAmount(Currency c)
{
    return c.abs() >= MaxAmount;
}
