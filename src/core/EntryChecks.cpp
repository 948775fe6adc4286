#include "core/EntryChecks.h"

#include <QStringList>

namespace {

std::optional<int> number(const QString &part, int minDigits, int maxDigits)
{
    if (part.size() < minDigits || part.size() > maxDigits)
        return std::nullopt;
    int v = 0;
    for (QChar c : part) {
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return std::nullopt;
        v = v * 10 + (c.unicode() - '0');
    }
    return v;
}

} // namespace

namespace EntryChecks {

std::optional<QDate> parseDate(const QString &text)
{
    const QStringList parts = text.trimmed().split(QLatin1Char('/'));
    if (parts.size() != 3)
        return std::nullopt;
    const auto month = number(parts[0], 1, 2);
    const auto day = number(parts[1], 1, 2);
    if (!month || !day || (parts[2].size() != 2 && parts[2].size() != 4))
        return std::nullopt;
    auto year = number(parts[2], 2, 4);
    if (!year)
        return std::nullopt;
    if (parts[2].size() == 2)
        *year += *year < 50 ? 2000 : 1900;
    if (*year < 1753)
        return std::nullopt;
    const QDate date(*year, *month, *day);
    if (!date.isValid())
        return std::nullopt;
    return date;
}

bool ValidateEntryDate(const QString &text)
{
    return parseDate(text).has_value();
}

QString formatLongDate(const QDate &date)
{
    return date.toString(QStringLiteral("MM/dd/yyyy"));
}

QString formatShortDate(const QDate &date)
{
    return date.toString(QStringLiteral("MM/dd/yy"));
}

bool hasSign(const QString &amountText)
{
    const QString t = amountText.trimmed();
    return t.startsWith(QLatin1Char('+')) || t.startsWith(QLatin1Char('-'))
           || t.startsWith(QLatin1Char('('));
}

namespace {

QString balanceText(const QString &noun, const BalanceShortfall &s, const QString &lineBreak)
{
    return QStringLiteral("The ") + noun + QStringLiteral(" amount of ")
           + s.amount.abs().toCurrencyText() + QStringLiteral(" exceeds the ") + s.accountName
           + QStringLiteral(" balance of ") + s.balance.toCurrencyText() + QStringLiteral(" by ")
           + s.after.abs().toCurrencyText() + QLatin1Char('.') + lineBreak + lineBreak
           + QStringLiteral("     ---- The Account will go negative. ----");
}

} // namespace

QString registerBalanceText(const BalanceShortfall &s)
{
    return balanceText(QStringLiteral("transaction"), s, QStringLiteral("\n"));
}

QString transferBalanceText(const BalanceShortfall &s)
{
    return balanceText(QStringLiteral("transfer"), s, QStringLiteral("\r\n"));
}

} // namespace EntryChecks
