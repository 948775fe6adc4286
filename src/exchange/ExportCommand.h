#pragma once

#include "exchange/RegisterExport.h"
#include "records/BankAcctRecord.h"
#include "records/DataFiles.h"
#include "reports/TransactionSearch.h"

#include <QPushButton>

#include <functional>

class Interaction;

// The "Export…" button (cmdExport on the register panel, cmdSrchExport on the
// search panel): asks for a file through the interaction seam, whose name's
// ending picks the format, asks the date form of a CSV file, writes the
// transactions and says how it went. A file in the data folder is refused.
class ExportCommand : public QPushButton
{
    Q_OBJECT
public:
    // What to export when the button is pressed; a title of "" means nothing
    // is there to export.
    struct Source
    {
        QString title; // names the transactions in the dialog's title
        QString dataDir;
        std::function<RegisterExport::Result(const QString &path, CsvExport::DateForm dates)> write;
    };
    ExportCommand(Interaction &interaction, std::function<Source()> source,
                  const QString &objectName = QStringLiteral("cmdExport"));

    // The current account's register, read when the export runs.
    static Source registerSource(const DataFiles &files, const BankAcctRecord &account);
    // The transactions a search found, each with its own account.
    static Source searchSource(const DataFiles &files,
                               const std::vector<TransactionSearch::Hit> &hits);

    static const QString DateWindow; // frmExportDates

private:
    void run();

    Interaction &m_interaction;
    std::function<Source()> m_source;
};
