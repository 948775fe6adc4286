#include "reports/PrintPanel.h"

#include "core/Clock.h"
#include "core/EntryChecks.h"
#include "core/Interaction.h"
#include "reports/FollowedData.h"
#include "reports/PrintedReports.h"
#include "ui/DateBox.h"
#include "ui/Named.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QDir>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

PrintPanel::PrintPanel(Interaction &interaction, QWidget *parent)
    : QWidget(parent), m_interaction(interaction),
      m_account(named(new QComboBox(this), "cmbPrintSel")),
      m_count(named(new QLineEdit(this), "txtprintnum")),
      m_from(named(new DateBox(this), "cmbDate(7)")), m_to(named(new DateBox(this), "cmbDate(8)")),
      m_printLast(named(new QPushButton(tr("Print Last"), this), "cmdPrint")),
      m_printDates(named(new QPushButton(tr("Print Dates"), this), "cmdOkPrint")),
      m_error(named(new QLabel(this), "lblPrintError")),
      m_accounts(
          named(new QRadioButton(tr("Bank Accounts and Accounts Summary"), this), "optprintAccts")),
      m_budget(named(new QRadioButton(tr("Budget and Budget Summary"), this), "optPrintBud")),
      m_toPrinter(named(new QRadioButton(tr("Printer"), this), "optPrintToPrinter")),
      m_toPreview(named(new QRadioButton(tr("Preview first"), this), "optPrintToPreview")),
      m_toPdf(named(new QRadioButton(tr("Save as PDF…"), this), "optPrintToPdf"))
{
    m_count->setMaxLength(5);
    m_count->setFixedWidth(70);
    for (QComboBox *date : {m_from, m_to})
        date->setMinimumWidth(130);
    m_error->setStyleSheet(QStringLiteral("color: #c0392b;"));
    m_toPrinter->setChecked(true);
    // The two lists print when picked, like buttons; they stay unchecked.
    for (QRadioButton *list : {m_accounts, m_budget})
        list->setAutoExclusive(false);
    auto *destinations = new QButtonGroup(this);
    for (QRadioButton *to : {m_toPrinter, m_toPreview, m_toPdf})
        destinations->addButton(to);

    auto *reg = new QGroupBox(tr("Print a Register"), this);
    auto *regGrid = new QGridLayout(reg);
    regGrid->addWidget(new QLabel(tr("Account"), reg), 0, 0);
    regGrid->addWidget(m_account, 0, 1, 1, 3);
    regGrid->addWidget(new QLabel(tr("Last transactions"), reg), 1, 0);
    regGrid->addWidget(m_count, 1, 1);
    regGrid->addWidget(m_printLast, 1, 2);
    regGrid->addWidget(new QLabel(tr("From Date"), reg), 2, 0);
    regGrid->addWidget(m_from, 2, 1);
    regGrid->addWidget(new QLabel(tr("To Date"), reg), 2, 2);
    regGrid->addWidget(m_to, 2, 3);
    regGrid->addWidget(m_printDates, 3, 3);
    regGrid->setColumnStretch(1, 1);
    regGrid->setColumnStretch(3, 1);

    auto *lists = new QGroupBox(tr("Print a List"), this);
    auto *listLayout = new QVBoxLayout(lists);
    listLayout->addWidget(m_accounts);
    listLayout->addWidget(m_budget);

    auto *to = new QGroupBox(tr("Send To"), this);
    auto *toLayout = new QHBoxLayout(to);
    toLayout->addWidget(m_toPrinter);
    toLayout->addWidget(m_toPreview);
    toLayout->addWidget(m_toPdf);
    toLayout->addStretch();

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(to);
    layout->addWidget(reg);
    layout->addWidget(m_error);
    layout->addWidget(lists);
    layout->addStretch();
    setMaximumWidth(640);

    connect(m_printLast, &QPushButton::clicked, this, [this] { printRegister(false); });
    connect(m_printDates, &QPushButton::clicked, this, [this] { printRegister(true); });
    connect(m_accounts, &QRadioButton::clicked, this, [this] { printAccounts(); });
    connect(m_budget, &QRadioButton::clicked, this, [this] { printBudget(); });
}

void PrintPanel::setData(const DataSnapshot &data)
{
    m_data = data;
    const int chosen = m_account->currentData().toInt();
    m_account->clear();
    for (const BankAcctRecord &a : data.accountList())
        if (!a.isDeleted() && !a.BankName.isBlank())
            m_account->addItem(a.BankName.text().trimmed(), int(a.BankNum));
    m_account->setCurrentIndex(m_account->findData(chosen));
}

void PrintPanel::follow(const DataChange &change, const DataSnapshot &data)
{
    DataSnapshot kept = m_data;
    FollowedData::follow(kept, change, data);
    setData(kept);
}

void PrintPanel::setCurrentAccount(int bankNum)
{
    m_account->setCurrentIndex(m_account->findData(bankNum));
}

void PrintPanel::showError(const QString &text)
{
    m_error->setText(text);
}

bool PrintPanel::deliver(const QString &job, const QStringList &lines)
{
    if (m_toPreview->isChecked()) {
        m_interaction.printPreview(job, lines);
        return false;
    }
    if (m_toPdf->isChecked()) {
        const QString path = m_interaction.fileDialog(
            Interaction::FileDialog::Save, tr("Save as PDF"),
            QDir(m_data.files.dataDir()).absoluteFilePath(QStringLiteral("..")),
            QStringLiteral("PDF files (*.pdf)"));
        if (path.isEmpty())
            return false;
        m_interaction.printToPdf(job, lines, path);
        return true;
    }
    if (!m_interaction.printerInstalled()) {
        m_interaction.message(PrintedReports::NoPrinter, QString(), Interaction::Icon::Exclamation);
        return false;
    }
    m_interaction.print(job, lines);
    return true;
}

void PrintPanel::printRegister(bool byDates)
{
    showError(QString());
    PrintedReports::RegisterChoice choice;
    choice.bankNum = m_account->currentIndex() >= 0 ? m_account->currentData().toInt() : 0;
    choice.byDates = byDates;
    choice.count = m_count->text();
    choice.from = m_from->currentText();
    choice.to = m_to->currentText();
    const PrintedReports::RegisterReport report = PrintedReports::registerReport(
        m_data.files, m_data.accountList(), choice, Clock::today());
    if (report.badDate) {
        m_interaction.message(EntryChecks::BadDateText, EntryChecks::BadDateTitle);
        return;
    }
    if (!report.error.isEmpty()) {
        showError(report.error);
        return;
    }
    if (deliver(report.accountName, report.lines) && !m_toPdf->isChecked())
        m_interaction.message(PrintedReports::RegisterSent, QString(),
                              Interaction::Icon::Information);
}

void PrintPanel::printAccounts()
{
    m_accounts->setChecked(false);
    showError(QString());
    const QStringList lines = PrintedReports::accountsReport(m_data.accountList(), Clock::today());
    if (deliver(PrintedReports::AccountsTitle.trimmed(), lines) && !m_toPdf->isChecked())
        m_interaction.message(PrintedReports::AccountsSent, PrintedReports::SentTitle,
                              Interaction::Icon::Information);
}

void PrintPanel::printBudget()
{
    m_budget->setChecked(false);
    showError(QString());
    const QStringList lines
        = PrintedReports::budgetReport(m_data.budget, m_data.accountList(), Clock::today());
    if (deliver(PrintedReports::BudgetTitle.trimmed(), lines) && !m_toPdf->isChecked())
        m_interaction.message(PrintedReports::BudgetSent, PrintedReports::SentTitle,
                              Interaction::Icon::Information);
}
