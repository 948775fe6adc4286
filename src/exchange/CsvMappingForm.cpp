#include "exchange/CsvMappingForm.h"

#include "core/Interaction.h"
#include "register/EntryRules.h"
#include "ui/Named.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const QStringList ColumnLabels = {QStringLiteral("Date"),
                                  QStringLiteral("Payee"),
                                  QStringLiteral("Memo"),
                                  QStringLiteral("Amount"),
                                  QStringLiteral("Debit (money out)"),
                                  QStringLiteral("Credit (money in)"),
                                  QStringLiteral("Check number")};
const char *const ColumnNames[] = {"cmbCsvDate",  "cmbCsvPayee",  "cmbCsvMemo",  "cmbCsvAmount",
                                   "cmbCsvDebit", "cmbCsvCredit", "cmbCsvNumber"};
const QList<QChar> Delimiters = {QLatin1Char(','), QLatin1Char(';'), QLatin1Char('\t')};
const QStringList DelimiterNames
    = {QStringLiteral("Comma"), QStringLiteral("Semicolon"), QStringLiteral("Tab")};

std::array<int, 7> columnsOf(const CsvReader::Mapping &m)
{
    return {m.date, m.payee, m.memo, m.amount, m.debit, m.credit, m.number};
}

} // namespace

QString CsvMappingForm::describe(const CsvReader::Mapping &m, const QStringList &titles)
{
    QStringList parts;
    const auto cols = columnsOf(m);
    for (int i = 0; i < 7; ++i)
        if (cols[std::size_t(i)] >= 0)
            parts << QStringLiteral("%1: %2").arg(
                ColumnLabels[i],
                titles.value(cols[std::size_t(i)],
                             QStringLiteral("Column %1").arg(cols[std::size_t(i)] + 1)));
    parts << QStringLiteral("delimiter: %1")
                 .arg(DelimiterNames.value(int(Delimiters.indexOf(m.delimiter)),
                                           QStringLiteral("Comma")));
    parts << QStringLiteral("heading line: %1")
                 .arg(m.header ? QStringLiteral("yes") : QStringLiteral("no"));
    parts << QStringLiteral("dates: %1").arg(ImportDates::orderName(m.dateOrder));
    if (m.decimalComma)
        parts << QStringLiteral("decimal comma");
    return parts.join(QStringLiteral("; "));
}

std::optional<CsvReader::Mapping> CsvMappingForm::ask(Interaction &interaction,
                                                      const QStringList &lines,
                                                      const CsvReader::Mapping &start,
                                                      QWidget *parent)
{
    const QString ok = QStringLiteral("OK");
    if (const auto answer
        = interaction.answerFor(Name, describe(start, CsvReader::columnTitles(lines, start)),
                                {ok, QStringLiteral("Cancel")}))
        return answer->compare(ok, Qt::CaseInsensitive) == 0 ? std::optional(start) : std::nullopt;
    CsvMappingForm form(lines, start, parent);
    if (form.exec() != QDialog::Accepted)
        return std::nullopt;
    return form.mapping();
}

CsvMappingForm::CsvMappingForm(const QStringList &lines, const CsvReader::Mapping &start,
                               QWidget *parent)
    : QDialog(parent), m_lines(lines), m_start(start)
{
    setObjectName(Name);
    setWindowTitle(tr("CSV Columns"));
    auto *form = new QFormLayout;
    m_delimiter = named(new QComboBox(this), "cmbCsvDelimiter");
    m_delimiter->addItems(DelimiterNames);
    m_delimiter->setCurrentIndex(std::max<int>(0, int(Delimiters.indexOf(start.delimiter))));
    m_header = named(new QCheckBox(tr("The first line holds headings"), this), "chkCsvHeader");
    m_header->setChecked(start.header);
    m_dateOrder = named(new QComboBox(this), "cmbCsvDateOrder");
    m_dateOrder->addItems({tr("Month first (mm/dd/yyyy)"), tr("Day first (dd/mm/yyyy)")});
    m_dateOrder->setCurrentIndex(start.dateOrder == ImportDates::Order::DayFirst ? 1 : 0);
    m_decimalComma
        = named(new QCheckBox(tr("Amounts have a decimal comma"), this), "chkCsvDecimalComma");
    m_decimalComma->setChecked(start.decimalComma);
    form->addRow(tr("Delimiter"), m_delimiter);
    form->addRow(QString(), m_header);
    for (int i = 0; i < 7; ++i) {
        auto *c = named(new QComboBox(this), ColumnNames[i]);
        m_columns << c;
        form->addRow(ColumnLabels[i], c);
    }
    form->addRow(tr("Dates"), m_dateOrder);
    form->addRow(QString(), m_decimalComma);
    fillColumns();
    connect(m_delimiter, &QComboBox::currentIndexChanged, this, [this] { fillColumns(); });
    connect(m_header, &QCheckBox::toggled, this, [this] { fillColumns(); });

    auto *buttons = new QDialogButtonBox(this);
    auto *okButton = named(buttons->addButton(QDialogButtonBox::Ok), "cmdCsvOK");
    named(buttons->addButton(QDialogButtonBox::Cancel), "cmdCsvCancel");
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto refresh = [this, okButton] { okButton->setEnabled(mapping().usable()); };
    for (QComboBox *c : m_columns)
        connect(c, &QComboBox::currentIndexChanged, this, refresh);
    refresh();

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buttons);
}

void CsvMappingForm::fillColumns()
{
    CsvReader::Mapping m = m_start;
    m.delimiter = Delimiters.value(m_delimiter->currentIndex(), QLatin1Char(','));
    m.header = m_header->isChecked();
    const QStringList titles = CsvReader::columnTitles(m_lines, m);
    const auto chosen = columnsOf(m_columns.first()->count() > 0 ? mapping() : m_start);
    for (int i = 0; i < 7; ++i) {
        QComboBox *c = m_columns[i];
        const QSignalBlocker block(c);
        c->clear();
        c->addItem(EntryRules::NoneEntry, -1);
        for (int k = 0; k < titles.size(); ++k)
            c->addItem(titles[k], k);
        c->setCurrentIndex(std::max(0, c->findData(chosen[std::size_t(i)])));
    }
}

CsvReader::Mapping CsvMappingForm::mapping() const
{
    CsvReader::Mapping m;
    m.delimiter = Delimiters.value(m_delimiter->currentIndex(), QLatin1Char(','));
    m.header = m_header->isChecked();
    m.decimalComma = m_decimalComma->isChecked();
    m.dateOrder = m_dateOrder->currentIndex() == 1 ? ImportDates::Order::DayFirst
                                                   : ImportDates::Order::MonthFirst;
    int *targets[] = {&m.date, &m.payee, &m.memo, &m.amount, &m.debit, &m.credit, &m.number};
    for (int i = 0; i < 7; ++i)
        *targets[i] = m_columns[i]->currentData().toInt();
    return m;
}
