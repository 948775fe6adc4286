#include "records/Currency.h"

#include <QStringList>

#include <limits>

namespace {

constexpr std::int64_t MaxRaw = std::numeric_limits<std::int64_t>::max();

QString groupThousands(const QString &digits)
{
    QString out;
    const int n = digits.size();
    for (int i = 0; i < n; ++i) {
        if (i > 0 && (n - i) % 3 == 0)
            out += QLatin1Char(',');
        out += digits[i];
    }
    return out;
}

} // namespace

std::optional<Currency> Currency::parse(const QString &input)
{
    QString s = input.trimmed();
    bool negative = false;
    if (s.startsWith(QLatin1Char('(')) && s.endsWith(QLatin1Char(')'))) {
        negative = true;
        s = s.mid(1, s.size() - 2).trimmed();
    }
    if (s.startsWith(QLatin1Char('-')) || s.startsWith(QLatin1Char('+'))) {
        if (negative)
            return std::nullopt;
        negative = s.startsWith(QLatin1Char('-'));
        s = s.mid(1).trimmed();
    }
    if (s.startsWith(QLatin1Char('$')))
        s = s.mid(1).trimmed();
    if (s.isEmpty())
        return std::nullopt;

    // Whole part: digits, with "," allowed only as thousands grouping.
    const int point = s.indexOf(QLatin1Char('.'));
    const QString whole = point < 0 ? s : s.left(point);
    const QString frac = point < 0 ? QString() : s.mid(point + 1);
    if (whole.isEmpty() && frac.isEmpty())
        return std::nullopt;
    if (whole.contains(QLatin1Char(','))) {
        const QStringList groups = whole.split(QLatin1Char(','));
        if (groups.first().isEmpty() || groups.first().size() > 3)
            return std::nullopt;
        for (qsizetype i = 1; i < groups.size(); ++i)
            if (groups[i].size() != 3)
                return std::nullopt;
    }
    std::int64_t units = 0;
    for (QChar c : whole) {
        if (c == QLatin1Char(','))
            continue;
        if (!c.isDigit() || c.unicode() > '9')
            return std::nullopt;
        if (units > (MaxRaw / Scale - 9) / 10)
            return std::nullopt;
        units = units * 10 + (c.unicode() - '0');
    }
    // Fraction: keep four digits, round the rest half to even.
    std::int64_t fracRaw = 0;
    int kept = 0;
    int firstDropped = -1;
    bool restNonZero = false;
    for (QChar c : frac) {
        if (!c.isDigit() || c.unicode() > '9')
            return std::nullopt;
        const int d = c.unicode() - '0';
        if (kept < 4) {
            fracRaw = fracRaw * 10 + d;
            ++kept;
        } else if (firstDropped < 0) {
            firstDropped = d;
        } else if (d != 0) {
            restNonZero = true;
        }
    }
    for (; kept < 4; ++kept)
        fracRaw *= 10;
    std::int64_t raw = units * Scale + fracRaw;
    if (firstDropped > 5 || (firstDropped == 5 && (restNonZero || (raw % 2) != 0)))
        ++raw;
    return Currency(negative ? -raw : raw);
}

std::int64_t Currency::roundedCents() const
{
    const std::int64_t mag = m_raw < 0 ? -m_raw : m_raw;
    const std::int64_t cents = (mag + 50) / 100;
    return m_raw < 0 ? -cents : cents;
}

QString Currency::toCurrencyText() const
{
    const std::int64_t cents = roundedCents();
    const std::int64_t mag = cents < 0 ? -cents : cents;
    const QString body = QLatin1Char('$') + groupThousands(QString::number(mag / 100))
                         + QLatin1Char('.')
                         + QStringLiteral("%1").arg(mag % 100, 2, 10, QLatin1Char('0'));
    return cents < 0 ? QLatin1Char('(') + body + QLatin1Char(')') : body;
}

QString Currency::toFixedText() const
{
    const std::int64_t cents = roundedCents();
    const std::int64_t mag = cents < 0 ? -cents : cents;
    const QString body = QString::number(mag / 100) + QLatin1Char('.')
                         + QStringLiteral("%1").arg(mag % 100, 2, 10, QLatin1Char('0'));
    return cents < 0 ? QLatin1Char('-') + body : body;
}

QString Currency::toPlainText() const
{
    const std::int64_t mag = m_raw < 0 ? -m_raw : m_raw;
    QString text = QString::number(mag / Scale);
    std::int64_t frac = mag % Scale;
    if (frac != 0) {
        QString digits = QStringLiteral("%1").arg(frac, 4, 10, QLatin1Char('0'));
        while (digits.endsWith(QLatin1Char('0')))
            digits.chop(1);
        text += QLatin1Char('.') + digits;
    }
    return m_raw < 0 ? QLatin1Char('-') + text : text;
}
