#include "exchange/ExportCommand.h"

#include "accounts/AccountBook.h"
#include "core/Interaction.h"

#include <QDir>
#include <QStandardPaths>

const QString ExportCommand::DateWindow = QStringLiteral("frmExportDates");

namespace {

const QString IsoDates = QStringLiteral("yyyy-mm-dd");
const QString UsDates = QStringLiteral("mm/dd/yyyy");

} // namespace

ExportCommand::ExportCommand(Interaction &interaction, std::function<Source()> source,
                             const QString &objectName)
    : QPushButton(tr("Export…")), m_interaction(interaction), m_source(std::move(source))
{
    setObjectName(objectName);
    setShortcut(QKeySequence(Qt::CTRL | Qt::Key_E));
    setToolTip(tr("Write these transactions to a CSV, QIF or journal file (Ctrl+E)"));
    connect(this, &QPushButton::clicked, this, [this] { run(); });
}

ExportCommand::Source ExportCommand::registerSource(const DataFiles &files,
                                                    const BankAcctRecord &account)
{
    if (account.BankNum < 1)
        return {};
    return {account.BankName.text().trimmed(), files.dataDir(),
            [files, account](const QString &path, auto dates) {
                return RegisterExport::exportRegister(files, account, path, dates);
            }};
}

ExportCommand::Source ExportCommand::searchSource(const DataFiles &files,
                                                  const std::vector<TransactionSearch::Hit> &hits)
{
    if (hits.empty())
        return {};
    ExportSet set;
    for (const BankAcctRecord &a :
         AccountBook(files).readAll().value_or(std::vector<BankAcctRecord>{}))
        if (!a.isDeleted())
            set.addAccount(a);
    for (const TransactionSearch::Hit &hit : hits)
        set.addRow(hit.accountName, hit.recordNumber, hit.record);
    return {tr("Search Results"), files.dataDir(), [set](const QString &path, auto dates) {
                return RegisterExport::write(set, path, dates);
            }};
}

void ExportCommand::run()
{
    const Source source = m_source();
    if (source.title.isEmpty() || !source.write) {
        m_interaction.message(tr("There are no transactions to export"), RegisterExport::Title,
                              Interaction::Icon::Exclamation);
        return;
    }
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    const QString path = m_interaction.fileDialog(
        Interaction::FileDialog::Save, tr("Export %1").arg(source.title),
        QDir(folder).filePath(source.title + QStringLiteral(".csv")),
        tr("CSV for a spreadsheet (*.csv);;QIF for a finance program (*.qif);;"
           "Plain-text journal (*.journal)"));
    if (path.isEmpty())
        return;
    const auto format = RegisterExport::formatOf(path);
    if (!format || RegisterExport::inDataFolder(path, source.dataDir)) {
        m_interaction.message(format ? RegisterExport::InDataFolder : RegisterExport::UnknownEnding,
                              RegisterExport::Title, Interaction::Icon::Exclamation);
        return;
    }
    auto dates = CsvExport::DateForm::Iso;
    if (*format == RegisterExport::Format::Csv) {
        const QString chosen
            = m_interaction.ask(DateWindow, tr("Write the dates of the CSV file as"),
                                {IsoDates, UsDates}, RegisterExport::Title);
        if (chosen.isEmpty())
            return;
        if (chosen == UsDates)
            dates = CsvExport::DateForm::MonthDayYear;
    }
    const RegisterExport::Result result = source.write(path, dates);
    if (!result.ok)
        m_interaction.message(result.error, RegisterExport::Title, Interaction::Icon::Critical);
    else
        m_interaction.message(RegisterExport::doneText(result, path), RegisterExport::Title,
                              Interaction::Icon::Information);
}
