#pragma once

#include "exchange/CsvExport.h"
#include "exchange/ExportSet.h"
#include "records/BankAcctRecord.h"
#include "records/DataFiles.h"

#include <QString>

#include <optional>

// Writes a register, or any set of transactions, to a file whose name's
// ending chooses the format: ".csv", ".qif" or ".journal". The file is
// written beside its final name and renamed over it when complete, so a
// failed export leaves what was there before.
namespace RegisterExport {

enum class Format { Csv, Qif, Journal };

inline const QString Title = QStringLiteral("Export");
inline const QString UnknownEnding
    = QStringLiteral("Choose a file name ending in .csv, .qif or .journal");

inline const QString InDataFolder = QStringLiteral(
    "Choose a folder outside the data folder: the files there are Quillmere's own");

std::optional<Format> formatOf(const QString &path);
// Whether the path names a file in the data folder (or below it), where an
// export could take the place of one of the program's own files.
bool inDataFolder(const QString &path, const QString &dataDir);

struct Result
{
    bool ok = false;
    QString error;
    int written = 0; // transactions written
    int skipped = 0; // entries left out because their date could not be read
    int paired = 0;  // sides of transfers written once with their other side
};

// The set in the format of the path's ending, written to the path.
Result write(const ExportSet &set, const QString &path,
             CsvExport::DateForm dates = CsvExport::DateForm::Iso);
// The register of `account` as it is stored.
Result exportRegister(const DataFiles &files, const BankAcctRecord &account, const QString &path,
                      CsvExport::DateForm dates = CsvExport::DateForm::Iso);

// What to tell the user after an export.
QString doneText(const Result &result, const QString &path);

} // namespace RegisterExport
