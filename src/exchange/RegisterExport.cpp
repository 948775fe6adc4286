#include "exchange/RegisterExport.h"

#include "accounts/AccountBook.h"
#include "exchange/JournalExport.h"
#include "exchange/QifExport.h"
#include "records/RecordFile.h"
#include "register/RegisterRefusals.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

namespace RegisterExport {

namespace {

Result failed(const QString &error)
{
    Result r;
    r.error = error;
    return r;
}

} // namespace

std::optional<Format> formatOf(const QString &path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QStringLiteral("csv"))
        return Format::Csv;
    if (suffix == QStringLiteral("qif"))
        return Format::Qif;
    if (suffix == QStringLiteral("journal"))
        return Format::Journal;
    return std::nullopt;
}

bool inDataFolder(const QString &path, const QString &dataDir)
{
    auto canonical = [](const QString &dir) {
        const QString c = QFileInfo(dir).canonicalFilePath();
        return QDir::cleanPath(c.isEmpty() ? QFileInfo(dir).absoluteFilePath() : c);
    };
    const QString folder = canonical(dataDir);
    QString at = canonical(QFileInfo(path).absolutePath());
    return at == folder || at.startsWith(folder + QLatin1Char('/'));
}

Result write(const ExportSet &set, const QString &path, CsvExport::DateForm dates)
{
    const auto format = formatOf(path);
    if (!format)
        return failed(UnknownEnding);
    Result result;
    QByteArray bytes;
    switch (*format) {
    case Format::Csv:
        bytes = CsvExport::write(set, dates);
        result.written = int(set.rows().size());
        break;
    case Format::Qif: {
        const QifExport::Output out = QifExport::write(set);
        bytes = out.bytes;
        result.written = out.written;
        result.skipped = out.skipped;
        break;
    }
    case Format::Journal: {
        const JournalExport::Output out = JournalExport::write(set);
        bytes = out.bytes;
        result.written = out.written;
        result.skipped = out.skipped;
        result.paired = out.paired;
        break;
    }
    }
    QSaveFile file(path);
    const bool ok
        = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
    if (!ok)
        return failed(QStringLiteral("Could not write %1: %2")
                          .arg(QFileInfo(path).fileName(), file.errorString()));
    result.ok = true;
    return result;
}

Result exportRegister(const DataFiles &files, const BankAcctRecord &account, const QString &path,
                      CsvExport::DateForm dates)
{
    const QString name = account.BankName.text();
    const QString registerPath = files.registerFile(name);
    // Opening a missing register would create it; an export only reads.
    if (!QFileInfo::exists(registerPath))
        return failed(RegisterRefusals::missing(name));
    RecordFile<TransRecord> file(registerPath);
    const std::vector<TransRecord> records = file.readAll();
    const std::vector<BankAcctRecord> accounts
        = AccountBook(files).readAll().value_or(std::vector<BankAcctRecord>{});
    return write(ExportSet::ofRegister(account, records, accounts), path, dates);
}

QString doneText(const Result &result, const QString &path)
{
    QString text
        = QStringLiteral("%1 written to %2.")
              .arg(result.written == 1 ? QStringLiteral("1 transaction")
                                       : QStringLiteral("%1 transactions").arg(result.written),
                   QFileInfo(path).fileName());
    if (result.skipped > 0)
        text += QStringLiteral(" %1 left out: the date could not be read.").arg(result.skipped);
    if (result.paired > 0)
        text += QStringLiteral(" Transfers and payments between two of the accounts are written "
                               "once.");
    return text;
}

} // namespace RegisterExport
