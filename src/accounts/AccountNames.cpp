#include "accounts/AccountNames.h"

#include "records/Cp1252.h"

#include <QStringList>

namespace AccountNames {

namespace {

// How a character is named in a message: itself when it can be seen,
// otherwise its code ("U+0081").
QString shown(char32_t c)
{
    const QString text = QString::fromUcs4(&c, 1);
    if (QChar::isPrint(c) && c != U' ')
        return text;
    return QStringLiteral("U+%1").arg(uint(c), 4, 16, QLatin1Char('0')).toUpper();
}

} // namespace

QString stored(const QString &typed)
{
    QString name = typed.left(MaxLength);
    while (name.endsWith(QLatin1Char(' ')))
        name.chop(1);
    return name;
}

std::optional<QString> problem(const QString &name)
{
    if (name.trimmed().isEmpty())
        return QStringLiteral("Enter a name for the account");
    for (char32_t c : name.toUcs4()) {
        if (c < 32 || c == 127)
            return QStringLiteral("An account name cannot contain control characters");
        static const QString forbidden = QStringLiteral("/\\:*?\"<>|");
        if (c < 128 && forbidden.contains(QChar(c)))
            return QStringLiteral("An account name cannot contain the character %1").arg(QChar(c));
        if (!Cp1252::holds(c))
            return QStringLiteral("An account name cannot contain the character %1").arg(shown(c));
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

std::optional<QString> damagedNotice(const QString &storedName)
{
    const auto why = problem(storedName);
    if (!why)
        return std::nullopt;
    // The name is shown with what cannot be seen replaced, so the notice stays readable.
    QString seen;
    for (char32_t c : storedName.toUcs4())
        seen += (c < 32 || c == 127) ? QStringLiteral("?") : QString::fromUcs4(&c, 1);
    return QStringLiteral("The account list holds the name \"%1\", which cannot be a file "
                          "name.\n%2.\n\nIts register is not opened; rename the account on the "
                          "Accounts panel to use it again.")
        .arg(seen, *why);
}

} // namespace AccountNames
