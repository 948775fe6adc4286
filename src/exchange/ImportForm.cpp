#include "exchange/ImportForm.h"

#include "core/Interaction.h"
#include "exchange/CsvMappingForm.h"
#include "exchange/ImportEntry.h"
#include "exchange/ImportModel.h"
#include "exchange/OfxReader.h"
#include "exchange/QifReader.h"
#include "exchange/TextDecoding.h"
#include "ui/Named.h"
#include "ui/WindowReport.h"

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSettings>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

namespace {

const QString Filter = QStringLiteral("Bank downloads (*.ofx *.qfx *.qif *.csv);;OFX or QFX "
                                      "(*.ofx *.qfx);;QIF (*.qif);;CSV (*.csv);;All files (*)");
const QString DateOrderWindow = QStringLiteral("frmDateOrder");

enum class Format { Ofx, Qif, Csv };

// The name's ending says the format; a file without a known one is looked at.
Format formatOf(const QString &path, const QByteArray &head)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("ofx") || suffix == QLatin1String("qfx"))
        return Format::Ofx;
    if (suffix == QLatin1String("qif"))
        return Format::Qif;
    if (suffix == QLatin1String("csv") || suffix == QLatin1String("txt"))
        return Format::Csv;
    const QByteArray h = head.trimmed().left(200).toUpper();
    if (h.contains("OFXHEADER") || h.contains("<OFX") || h.startsWith("<?XML"))
        return Format::Ofx;
    return h.startsWith('!') ? Format::Qif : Format::Csv;
}

QString settingsKey(const BankAcctRecord &account)
{
    return QStringLiteral("CsvMapping/") + account.BankName.text().trimmed();
}

// The category column is chosen from the budget's categories.
class CategoryDelegate : public QStyledItemDelegate
{
public:
    CategoryDelegate(const ImportPlan &plan, QObject *parent)
        : QStyledItemDelegate(parent), m_plan(plan)
    {
    }
    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &,
                          const QModelIndex &) const override
    {
        auto *box = named(new QComboBox(parent), "cmbImportCategory");
        box->addItem(QStringLiteral("(none)"), 0);
        for (const auto &[num, name] : m_plan.categories())
            box->addItem(name, num);
        return box;
    }
    void setEditorData(QWidget *editor, const QModelIndex &index) const override
    {
        auto *box = static_cast<QComboBox *>(editor);
        box->setCurrentIndex(std::max(0, box->findData(index.data(ImportModel::BudNumRole))));
    }
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override
    {
        model->setData(index, static_cast<QComboBox *>(editor)->currentData(),
                       ImportModel::BudNumRole);
    }

private:
    const ImportPlan &m_plan;
};

} // namespace

ImportFile ImportForm::readFile(Interaction &interaction, const QString &path,
                                const BankAcctRecord &account, QWidget *parent, bool *cancelled)
{
    *cancelled = false;
    ImportFile file;
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) {
        file.error = QStringLiteral("The file cannot be read (%1).").arg(f.errorString());
        return file;
    }
    const QByteArray bytes = f.readAll();
    f.close();
    switch (formatOf(path, bytes.left(400))) {
    case Format::Ofx:
        return OfxReader::read(path);
    case Format::Qif: {
        QifReader::Result r = QifReader::read(bytes);
        if (r.dateOrderUnknown) {
            const QString month = QStringLiteral("Month first");
            const QString answer = interaction.ask(
                DateOrderWindow,
                QStringLiteral("Every date in this file reads both ways. Are the dates written "
                               "month first (mm/dd/yyyy) or day first (dd/mm/yyyy)?"),
                {month, QStringLiteral("Day first")}, Title);
            if (answer.isEmpty()) {
                *cancelled = true;
                return file;
            }
            r = QifReader::read(bytes, answer.compare(month, Qt::CaseInsensitive) == 0
                                           ? ImportDates::Order::MonthFirst
                                           : ImportDates::Order::DayFirst);
        }
        return r.file;
    }
    case Format::Csv:
        break;
    }
    const TextDecoding::Lines text = TextDecoding::decode(bytes);
    if (!text.error.isEmpty()) {
        file.format = QStringLiteral("CSV");
        file.error = text.error;
        return file;
    }
    QSettings settings(QStringLiteral("quillmere"));
    bool saved = false;
    const CsvReader::Mapping start
        = CsvReader::Mapping::fromText(settings.value(settingsKey(account)).toString(), &saved);
    // A mapping saved for the account that reads this file is taken as it is.
    if (saved
        && CsvReader::columnTitles(text.lines, start).size()
               > std::max({start.date, start.payee, start.memo, start.amount, start.debit,
                           start.credit, start.number})) {
        file = CsvReader::read(text.lines, start);
        if (file.ok())
            return file;
    }
    const auto mapping = CsvMappingForm::ask(interaction, text.lines,
                                             saved ? start : CsvReader::guess(text.lines), parent);
    if (!mapping) {
        *cancelled = true;
        return file;
    }
    file = CsvReader::read(text.lines, *mapping);
    if (file.ok())
        settings.setValue(settingsKey(account), mapping->toText());
    return file;
}

ImportForm *ImportForm::start(Interaction &interaction, const DataFiles &files,
                              const BankAcctRecord &account, QWidget *parent)
{
    const QString path = interaction.fileDialog(
        Interaction::FileDialog::Open,
        QStringLiteral("Import into %1").arg(account.BankName.text().trimmed()), QString(), Filter);
    if (path.isEmpty())
        return nullptr;
    // One import at a time: a preview still open (or closed and not yet
    // gone) gives way to the new one.
    if (parent)
        for (ImportForm *old :
             parent->findChildren<ImportForm *>(Name, Qt::FindDirectChildrenOnly)) {
            old->close();
            delete old;
        }
    bool cancelled = false;
    const ImportFile file = readFile(interaction, path, account, parent, &cancelled);
    if (cancelled)
        return nullptr;
    if (!file.ok()) {
        interaction.message(QStringLiteral("%1 cannot be imported.\n\n%2")
                                .arg(QFileInfo(path).fileName(), file.error),
                            Title, Interaction::Icon::Exclamation);
        return nullptr;
    }
    auto plan = std::make_unique<ImportPlan>(files, account);
    plan->build(file);
    auto *form = new ImportForm(interaction, std::move(plan), path, parent);
    form->show();
    return form;
}

ImportForm::ImportForm(Interaction &interaction, std::unique_ptr<ImportPlan> plan,
                       const QString &path, QWidget *parent)
    : QWidget(parent, Qt::Window), m_interaction(interaction), m_plan(std::move(plan))
{
    setObjectName(Name);
    setAttribute(Qt::WA_DeleteOnClose);
    const ImportFile &file = m_plan->file();
    const QString account = m_plan->account().BankName.text().trimmed();
    setWindowTitle(tr("Import into %1").arg(account));

    QString from = tr("%1: %2, %3 transaction(s)")
                       .arg(QFileInfo(path).fileName(), file.format)
                       .arg(file.rows.size());
    if (!file.accountId.isEmpty())
        from += tr(", bank account %1").arg(file.accountId);
    auto *source = named(new QLabel(from, this), "lblImportFile");
    source->setWordWrap(true);
    QStringList warnings = file.warnings;
    if (const QString other = m_plan->otherAccountWarning(); !other.isEmpty())
        warnings.prepend(other);
    auto *warning = named(new QLabel(warnings.join(QLatin1Char('\n')), this), "lblImportWarning");
    warning->setWordWrap(true);
    warning->setStyleSheet(QStringLiteral("color: #a00000"));
    warning->setVisible(!warnings.isEmpty());

    m_model = new ImportModel(*m_plan, this);
    m_grid = named(new QTableView(this), "flxgdImport");
    m_grid->setModel(m_model);
    m_grid->setItemDelegateForColumn(ImportModel::Category, new CategoryDelegate(*m_plan, m_grid));
    m_grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grid->setSelectionMode(QAbstractItemView::SingleSelection);
    m_grid->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::SelectedClicked);
    m_grid->verticalHeader()->hide();
    m_grid->horizontalHeader()->setStretchLastSection(true);
    m_grid->resizeColumnsToContents();
    // Long payees and memos give way (their whole text is the cell's tip), so
    // that the amount and the status stay in sight.
    for (const int column : {ImportModel::Payee, ImportModel::Memo})
        m_grid->setColumnWidth(column, std::min(m_grid->columnWidth(column), 170));
    connect(m_grid, &QTableView::clicked, this, [this](const QModelIndex &index) {
        if (index.column() == ImportModel::Tick && !m_model->toggle(index.row()))
            m_interaction.beep();
    });
    connect(m_model, &ImportModel::ticksChanged, this, &ImportForm::showSummary);

    m_summary = named(new QLabel(this), "lblImportSummary");
    m_summary->setWordWrap(true);
    m_progress = named(new QProgressBar(this), "prgImport");
    m_progress->hide();
    m_ok = named(new QPushButton(tr("OK"), this), "cmdImportOK");
    auto *cancel = named(new QPushButton(tr("Cancel"), this), "cmdImportCancel");
    connect(m_ok, &QPushButton::clicked, this, &ImportForm::enter);
    connect(cancel, &QPushButton::clicked, this, &QWidget::close);

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_progress, 1);
    buttons->addStretch();
    buttons->addWidget(m_ok);
    buttons->addWidget(cancel);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(source);
    layout->addWidget(warning);
    layout->addWidget(m_grid, 1);
    layout->addWidget(m_summary);
    layout->addLayout(buttons);
    resize(760, 420);
    showSummary();
    WindowReport::watch(this, m_interaction);
}

void ImportForm::showSummary()
{
    const ImportPlan::Summary s = m_plan->summary();
    m_summary->setText(s.refusal.isEmpty() ? s.text : s.text + QLatin1Char('\n') + s.refusal);
    m_summary->setStyleSheet(s.belowZero || !s.refusal.isEmpty() ? QStringLiteral("color: #a00000")
                                                                 : QString());
}

void ImportForm::enter()
{
    const ImportPlan::Summary s = m_plan->summary();
    if (!s.refusal.isEmpty()) {
        m_interaction.message(s.refusal, Title, Interaction::Icon::Exclamation);
        return;
    }
    if (const QString other = m_plan->otherAccountWarning();
        !other.isEmpty() && s.count > 0
        && m_interaction.messageBox(other + QStringLiteral("\n\nEnter the transactions anyway?"),
                                    Title, Interaction::Icon::Question, Interaction::Buttons::YesNo)
               != Interaction::Answer::Yes)
        return;
    const bool showProgress = s.count > 2000;
    if (showProgress) {
        m_progress->setRange(0, s.count);
        m_progress->show();
    }
    const ImportEntry::Outcome out
        = ImportEntry::enter(*m_plan, [this, showProgress](int done, int) {
              if (showProgress) {
                  m_progress->setValue(done);
                  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
              }
          });
    m_progress->hide();
    if (!out.ok) {
        m_interaction.message(out.error, out.title, Interaction::Icon::Exclamation);
        return;
    }
    DataChange change;
    change.parts = DataChange::Accounts | DataChange::Budget | DataChange::Registers;
    change.registers = {int(m_plan->account().BankNum)};
    change.source = this;
    close();
    Q_EMIT dataChanged(change);
}
