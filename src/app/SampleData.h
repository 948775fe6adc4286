#pragma once

#include <QString>

// The sample data set: written the first time the program starts without it,
// always the same, and built through the program's own operations so that
// every balance agrees with its register.
namespace SampleData {

// Writes the sample set when its account list is missing, all of it or (when
// stopped or failing) none of it. Returns an empty string on success (or when
// there was nothing to do), else what went wrong.
QString ensure(const QString &dataDir);

// The folder inside the data folder where the set is written before it is
// moved in; it is only there while the set is being written.
inline const QString BuildingFolder = QStringLiteral("Sample set being written");

} // namespace SampleData
