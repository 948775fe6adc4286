#include "app/AppPaths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace AppPaths {

QString resolveAppPath(const QString &homeOption, const QString &executableDir)
{
    if (!homeOption.trimmed().isEmpty())
        return QDir(homeOption.trimmed()).absolutePath();
    if (QFileInfo(executableDir + QStringLiteral("/Data")).isDir())
        return QDir(executableDir).absolutePath();
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
}

QString dataDir(const QString &appPath)
{
    return appPath + QStringLiteral("/Data");
}

QString prepareDataDir(const QString &dataDir)
{
    const QString shown = QDir::toNativeSeparators(dataDir);
    if (!QDir().mkpath(dataDir))
        return QStringLiteral("The data folder \"%1\" could not be created.\n\n"
                              "Check that its parent folder exists and can be written to.")
            .arg(shown);
    QFileInfo info(dataDir);
    if (!info.isReadable() || !QDir(dataDir).exists() || !info.isExecutable())
        return QStringLiteral("The data folder \"%1\" cannot be read.\n\n"
                              "Check its permissions; nothing has been changed.")
            .arg(shown);
    QFile probe(dataDir + QStringLiteral("/.write-check"));
    if (!probe.open(QIODevice::WriteOnly))
        return QStringLiteral("The data folder \"%1\" is read-only.\n\n"
                              "Quillmere needs to write its data there; check its permissions. "
                              "Nothing has been changed.")
            .arg(shown);
    probe.close();
    probe.remove();
    return QString();
}

} // namespace AppPaths
