#include "accounts/AccountNames.h"

#include <QStringList>

namespace AccountNames {

QString stored(const QString &typed)
{
    return typed.left(MaxLength);
}

std::optional<QString> problem(const QString &name)
{
    if (name.trimmed().isEmpty())
        return QStringLiteral("Enter a name for the account");
    for (QChar c : name) {
        if (c.unicode() < 32 || c.unicode() == 127)
            return QStringLiteral("An account name cannot contain control characters");
        static const QString forbidden = QStringLiteral("/\\:*?\"<>|");
        if (forbidden.contains(c))
            return QStringLiteral("An account name cannot contain the character %1").arg(c);
    }
    if (name.endsWith(QLatin1Char(' ')))
        return QStringLiteral("An account name cannot end with a blank");
    if (name.endsWith(QLatin1Char('.')))
        return QStringLiteral("An account name cannot end with a dot");
    if (name.startsWith(QLatin1Char(' ')))
        return QStringLiteral("An account name cannot begin with a blank");
    // Windows reserves these device names, also before an extension.
    static const QStringList devices
        = {QStringLiteral("CON"),  QStringLiteral("PRN"),  QStringLiteral("AUX"),
           QStringLiteral("NUL"),  QStringLiteral("COM1"), QStringLiteral("COM2"),
           QStringLiteral("COM3"), QStringLiteral("COM4"), QStringLiteral("COM5"),
           QStringLiteral("COM6"), QStringLiteral("COM7"), QStringLiteral("COM8"),
           QStringLiteral("COM9"), QStringLiteral("LPT1"), QStringLiteral("LPT2"),
           QStringLiteral("LPT3"), QStringLiteral("LPT4"), QStringLiteral("LPT5"),
           QStringLiteral("LPT6"), QStringLiteral("LPT7"), QStringLiteral("LPT8"),
           QStringLiteral("LPT9")};
    const QString stem = name.section(QLatin1Char('.'), 0, 0).trimmed().toUpper();
    if (devices.contains(stem))
        return QStringLiteral("An account name cannot be the word %1").arg(stem);
    return std::nullopt;
}

bool same(const QString &a, const QString &b)
{
    return a.trimmed().compare(b.trimmed(), Qt::CaseInsensitive) == 0;
}

} // namespace AccountNames
