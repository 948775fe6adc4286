#pragma once

#include <QSize>
#include <QString>

// The checks the start window makes before the main window opens.
namespace StartupChecks {

bool screenLargeEnough(const QSize &pixels);

inline const QString SmallScreenText
    = QStringLiteral("Please make your screen resolution 800x600 or higher.");
inline const QString SmallScreenTitle = QStringLiteral("Screen Resolution too small");
inline const QString AlreadyRunningText = QStringLiteral("Quillmere is already running");

// The manifest beside the program: AppPath + "/" + base name + ".exe.Manifest".
QString manifestPath(const QString &appPath, const QString &exeBaseName);
// The 22 lines, each ended by CR LF.
QByteArray manifestText();
enum class ManifestResult { Existed, Created, Failed };
ManifestResult ensureManifest(const QString &path);

inline const QString ManifestCreatedText
    = QStringLiteral("Did not find a Manifest file, so one has been created for you.\n"
                     "XP styles will be applied next time you run this application");
inline const QString ManifestCreatedTitle = QStringLiteral("Application manifest file missing");

} // namespace StartupChecks
