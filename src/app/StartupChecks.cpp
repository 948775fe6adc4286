#include "app/StartupChecks.h"

#include <QFile>
#include <QFileInfo>
#include <QStringList>

namespace StartupChecks {

bool screenLargeEnough(const QSize &pixels)
{
    return pixels.width() >= 800 && pixels.height() >= 600;
}

QString manifestPath(const QString &appPath, const QString &exeBaseName)
{
    return appPath + QLatin1Char('/') + exeBaseName + QStringLiteral(".exe.Manifest");
}

QByteArray manifestText()
{
    const QStringList lines = {
        QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>"),
        QStringLiteral(
            "<assembly xmlns=\"urn:schemas-microsoft-com:asm.v1\" manifestVersion=\"1.0\">"),
        QStringLiteral("<assemblyIdentity"),
        QStringLiteral("version=\"1.0.0.0\""),
        QStringLiteral("processorArchitecture=\"X86\""),
        QStringLiteral("name=\"Company Name.Application Name.Application Title\""),
        QStringLiteral("type=\"win32\""),
        QStringLiteral("/>"),
        QStringLiteral("<description>You Application Name Here</description>"),
        QStringLiteral("<dependency>"),
        QStringLiteral("<dependentAssembly>"),
        QStringLiteral("<assemblyIdentity"),
        QStringLiteral("type=\"win32\""),
        QStringLiteral("name=\"Microsoft.Windows.Common-Controls\""),
        QStringLiteral("version=\"6.0.0.0\""),
        QStringLiteral("processorArchitecture=\"X86\""),
        QStringLiteral("publicKeyToken=\"6595b64144ccf1df\""),
        QStringLiteral("language=\"*\""),
        QStringLiteral("/>"),
        QStringLiteral("</dependentAssembly>"),
        QStringLiteral("</dependency>"),
        QStringLiteral("</assembly>"),
    };
    QByteArray out;
    for (const QString &line : lines)
        out += line.toLatin1() + "\r\n";
    return out;
}

ManifestResult ensureManifest(const QString &path)
{
    if (QFileInfo::exists(path))
        return ManifestResult::Existed;
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly))
        return ManifestResult::Failed;
    const QByteArray text = manifestText();
    if (f.write(text) != text.size()) {
        f.close();
        f.remove();
        return ManifestResult::Failed;
    }
    return f.flush() ? ManifestResult::Created : ManifestResult::Failed;
}

} // namespace StartupChecks
