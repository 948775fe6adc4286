#include "core/UserManual.h"

#include "core/Interaction.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

namespace UserManual {

QString path(const QString &programFolder)
{
    const QString folder
        = programFolder.isEmpty() ? QCoreApplication::applicationDirPath() : programFolder;
    return QDir(folder).filePath(RelativePath);
}

bool open(Interaction &interaction, const QString &section, const QString &programFolder)
{
    const QString file = path(programFolder);
    if (!QFileInfo(file).isFile()) {
        interaction.message(QCoreApplication::translate(
                                "UserManual", "The user manual was not found at\n%1\n\nIt is "
                                              "installed with the program; installing Quillmere "
                                              "again puts it back.")
                                .arg(QDir::toNativeSeparators(file)),
                            QCoreApplication::translate("UserManual", "User Manual"),
                            Interaction::Icon::Exclamation);
        return false;
    }
    QUrl url = QUrl::fromLocalFile(QFileInfo(file).absoluteFilePath());
    if (!section.isEmpty())
        url.setFragment(section);
    interaction.openUrl(url.toString());
    return true;
}

} // namespace UserManual
