#pragma once

#include <QString>

// Where the program keeps its data. AppPath is the folder that holds the
// "Data" folder and the manifest:
//   1. the folder given with --home, when given;
//   2. else the executable's folder, when a "Data" folder stands beside it
//      (a portable install);
//   3. else the per-user application data folder.
namespace AppPaths {

QString resolveAppPath(const QString &homeOption, const QString &executableDir);
QString dataDir(const QString &appPath);

// Creates the data folder when missing and checks that it can be read and
// written. Returns an empty string when all is well, else a message for the user.
QString prepareDataDir(const QString &dataDir);

} // namespace AppPaths
