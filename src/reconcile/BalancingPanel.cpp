#include "reconcile/BalancingPanel.h"

#include "calculator/AmountCalculator.h"
#include "ui/ColumnFit.h"
#include "ui/FlowLayout.h"
#include "ui/MoneyBox.h"

#include "core/Clock.h"
#include "core/EntryChecks.h"
#include "core/Interaction.h"
#include "reconcile/BalanceErrorForm.h"
#include "reconcile/StatementBook.h"
#include "reconcile/StatementModel.h"
#include "reconcile/TickPictures.h"
#include "records/RecordFile.h"
#include "ui/DateBox.h"
#include "ui/Named.h"

#include <QComboBox>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

namespace {

const QString HeadingStyle = QStringLiteral("font-weight: bold; font-size: 14px;");
const QString ErrorStyle = QStringLiteral("font-weight: bold; font-size: 14px; color: #c0392b;");

QLineEdit *figureBox(const char *name, bool readOnly, QWidget *parent)
{
    auto *box = named(new QLineEdit(parent), name);
    box->setReadOnly(readOnly);
    box->setAlignment(Qt::AlignRight);
    box->setMinimumWidth(box->fontMetrics().horizontalAdvance(QStringLiteral("-999999.99")) + 10);
    box->setMaximumWidth(130);
    return box;
}

} // namespace

BalancingPanel::BalancingPanel(Interaction &interaction, QWidget *parent)
    : QWidget(parent), m_interaction(interaction), m_files(QString(), false)
{
    setObjectName(QStringLiteral("fraBankStatement"));
    m_heading = named(new QLabel(StatementFigures::EnterInformation, this), "lblBSHeading");
    m_heading->setStyleSheet(HeadingStyle);
    m_errorButton = named(new QPushButton(tr("Back to the statement"), this), "cmdBkSterror");
    m_errorButton->hide();
    connect(m_errorButton, &QPushButton::clicked, this, &BalancingPanel::clearError);

    m_caption = named(new QLabel(this), "lblBSCaption");
    m_caption->setStyleSheet(QStringLiteral("font-weight: bold;"));
    // A long account name takes a second line rather than the statement list's room.
    m_caption->setWordWrap(true);
    m_statements = named(new QComboBox(this), "cmbBSDate");
    m_statements->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    connect(m_statements, &QComboBox::activated, this, &BalancingPanel::onStatementChosen);
    m_help = named(new QLabel(HelpText, this), "lblBSHelp");
    m_help->setWordWrap(true);

    m_model = new StatementModel(this);
    const TickPictures pictures;
    m_model->setPictures(pictures.ticked(), pictures.unticked());
    m_grid = named(new QTableView(this), "flxgdBSTrans");
    m_grid->setModel(m_model);
    m_grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grid->setSelectionMode(QAbstractItemView::SingleSelection);
    m_grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grid->verticalHeader()->hide();
    m_grid->verticalHeader()->setDefaultSectionSize(22);
    m_grid->setWordWrap(false);
    m_grid->setColumnHidden(StatementModel::RecNum, true);
    m_grid->horizontalHeader()->setMinimumSectionSize(20);
    using C = ColumnFit::Column;
    ColumnFit::install(m_grid, {C{ColumnFit::Content, 28}, C{ColumnFit::Share, 52, 130, 150},
                                C{ColumnFit::Content}, C{ColumnFit::Share, 64, 400, 130},
                                C{ColumnFit::Share, 40, 180}, C{ColumnFit::Share, 40, 300, 80},
                                C{ColumnFit::Content}, C{ColumnFit::Content}});
    connect(m_grid, &QTableView::clicked, this, &BalancingPanel::onCellClicked);
    m_grid->installEventFilter(this);

    m_ok = named(new QPushButton(tr("OK"), this), "cmdOKBankState");
    m_cancel = named(new QPushButton(tr("Cancel"), this), "cmdCancelBankState");
    m_ok->setToolTip(tr("Mark the ticked transactions cleared by this statement"));
    m_cancel->setToolTip(tr("Take away the ticks and the statement's figures"));
    connect(m_ok, &QPushButton::clicked, this, &BalancingPanel::onConfirm);
    connect(m_cancel, &QPushButton::clicked, this, &BalancingPanel::onCancel);

    auto *top = new QHBoxLayout;
    top->addWidget(m_heading, 1);
    top->addWidget(m_errorButton);
    auto *listRow = new QHBoxLayout;
    listRow->addWidget(m_caption, 1);
    listRow->addWidget(new QLabel(tr("Statement:"), this));
    listRow->addWidget(m_statements);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(top);
    layout->addWidget(buildFigures());
    layout->addLayout(listRow);
    layout->addWidget(m_help);
    layout->addWidget(m_grid, 1);
    layout->addWidget(buildTotals());
    m_model->reload();
}

QWidget *BalancingPanel::buildFigures()
{
    auto *box = new QWidget(this);
    m_date = named(new DateBox(box), "cmbDate(6)");
    m_date->setMinimumWidth(110);
    m_start = figureBox("cmbamt(6)", false, box);
    m_ending = figureBox("cmbamt(7)", false, box);
    // A statement's balances may be below zero (an overdrawn account, a card).
    for (QLineEdit *figure : {m_start, m_ending}) {
        fitLargestAmount(figure);
        AmountCalculator::attach(figure, m_interaction, AmountCalculator::Sign::Signed);
    }
    // Each caption stays with its box; the pairs wrap onto a second row when
    // the panel is too narrow for all three (800 x 600).
    auto *layout = new FlowLayout(box, 12);
    auto pair = [box, layout](const QString &caption, QWidget *field) {
        auto *both = new QWidget(box);
        auto *row = new QHBoxLayout(both);
        row->setContentsMargins(0, 0, 0, 0);
        row->addWidget(new QLabel(caption, both));
        field->setParent(both);
        row->addWidget(field);
        layout->addWidget(both);
    };
    pair(tr("Date"), m_date);
    pair(tr("Starts at"), m_start);
    pair(tr("Ends at"), m_ending);

    connect(m_date, &QComboBox::editTextChanged, this, [this] { updateLock(); });
    connect(m_start, &QLineEdit::textChanged, this, [this] {
        // A new figure from the bank is compared with the register again.
        m_skipStartTest = false;
        m_listStart = m_expectedStart;
        recompute();
        updateLock();
    });
    connect(m_ending, &QLineEdit::textChanged, this, [this] {
        recompute();
        updateLock();
    });
    return box;
}

QWidget *BalancingPanel::buildTotals()
{
    auto *box = new QWidget(this);
    m_listStartBox = figureBox("txtat(0)", true, box);
    m_cleared = figureBox("txtat(1)", true, box);
    m_difference = figureBox("txtat(2)", true, box);
    m_differenceCaption = named(new QLabel(box), "lblBSDifference");
    m_differenceCaption->hide();
    m_balanced = named(new QLabel(tr("Balanced"), box), "lblBSBalanced");
    m_balanced->setStyleSheet(QStringLiteral("color: #1e8449; font-weight: bold;"));
    m_balanced->hide();
    m_priorTotals = named(new QLabel(box), "lblBSTotals");
    m_priorTotals->hide();

    auto *grid = new QGridLayout(box);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(new QLabel(tr("Starting balance"), box), 0, 0);
    grid->addWidget(m_listStartBox, 0, 1);
    grid->addWidget(new QLabel(tr("Cleared balance"), box), 1, 0);
    grid->addWidget(m_cleared, 1, 1);
    auto *difference = new QHBoxLayout;
    difference->addWidget(m_differenceCaption);
    difference->addWidget(m_balanced);
    grid->addLayout(difference, 2, 0);
    grid->addWidget(m_difference, 2, 1);
    grid->addWidget(m_priorTotals, 0, 2, 1, 2);
    grid->setColumnStretch(2, 1);
    grid->addWidget(m_ok, 2, 3);
    grid->addWidget(m_cancel, 2, 4);
    return box;
}

void BalancingPanel::setDataFiles(const DataFiles &files)
{
    m_files = files;
    m_account = BankAcctRecord{};
    m_listed = false;
}

void BalancingPanel::setAccount(const BankAcctRecord &account)
{
    const bool same = account.BankNum == m_account.BankNum
                      && account.BankName.text() == m_account.BankName.text();
    m_account = account;
    if (same && m_listed)
        return;
    m_listed = false;
    m_records.clear();
    m_model->list().reset();
    m_model->showPrior(false);
    m_skipStartTest = false;
    emptyFigures();
    clearError();
    updateLock();
    m_caption->setText(account.BankNum == 0 ? tr("No account yet")
                                            : CaptionPrefix + account.BankName.text().trimmed());
    if (isVisible())
        fill();
    else
        m_model->reload();
}

void BalancingPanel::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    fill();
}

bool BalancingPanel::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_grid && event->type() == QEvent::KeyPress
        && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Space) {
        const QModelIndex current = m_grid->currentIndex();
        if (current.isValid() && !m_model->showsPrior())
            toggleRow(current.row());
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void BalancingPanel::fill()
{
    if (m_listed || m_account.BankNum == 0)
        return;
    m_listed = true;
    reloadRegister();
    fillDates();
    recompute();
}

void BalancingPanel::reloadRegister()
{
    const QString path = m_files.registerFile(m_account.BankName.text());
    if (!QFileInfo::exists(path)) {
        tell(tr("The register of \"%1\" (%2) is missing. Your ticks are kept; nothing has been "
                "written.")
                 .arg(m_account.BankName.text().trimmed(), QFileInfo(path).fileName()),
             tr("Register Missing"));
        return;
    }
    m_records = RecordFile<TransRecord>(path).readAll();
    m_expectedStart = StatementBook::expectedStart(m_records);
    if (!m_skipStartTest)
        m_listStart = m_expectedStart;
    m_model->list().fill(m_records);
    showList();
}

// Shows the open list again (unless a prior statement is shown), with each
// heading row spanning the transaction columns.
void BalancingPanel::showList()
{
    if (!m_model->showsPrior())
        m_model->reload();
    m_grid->clearSpans();
    const StatementList &shown = m_model->shown();
    for (int r = 0; r < shown.size(); ++r)
        if (shown.row(r).isHeading())
            m_grid->setSpan(r, StatementModel::Type, 1, StatementModel::RecNum - 1);
}

void BalancingPanel::registerChanged(int bankNum)
{
    if (!m_listed || bankNum != m_account.BankNum)
        return;
    reloadRegister();
    fillDates();
    recompute();
}

void BalancingPanel::entryWritten(int bankNum, int recordNumber, const TransRecord &record)
{
    if (!m_listed || bankNum != m_account.BankNum || recordNumber < 1)
        return;
    if (std::size_t(recordNumber) > m_records.size())
        m_records.resize(std::size_t(recordNumber));
    m_records[std::size_t(recordNumber - 1)] = record;
    m_expectedStart = StatementBook::expectedStart(m_records);
    if (!m_skipStartTest)
        m_listStart = m_expectedStart;
    m_model->list().enter(recordNumber, record);
    showList();
    recompute();
    updateLock();
}

bool BalancingPanel::inProgress() const
{
    return !m_date->currentText().trimmed().isEmpty() || !m_start->text().trimmed().isEmpty()
           || !m_ending->text().trimmed().isEmpty() || m_model->list().tickedCount() > 0;
}

void BalancingPanel::updateLock()
{
    const bool locked = inProgress();
    if (locked == m_locked)
        return;
    m_locked = locked;
    Q_EMIT editLockChanged(locked);
}

void BalancingPanel::onCellClicked(const QModelIndex &index)
{
    if (!index.isValid())
        return;
    const StatementList::Row &row = m_model->shown().row(index.row());
    if (row.isHeading())
        return;
    if (m_model->showsPrior()) {
        if (index.column() == StatementModel::Tick)
            unclearRow(index.row());
        return;
    }
    if (index.column() == StatementModel::Tick)
        toggleRow(index.row());
    else
        Q_EMIT changeRequested(m_account.BankNum, row.recordNumber);
}

void BalancingPanel::toggleRow(int row)
{
    if (!m_model->list().toggle(row))
        return;
    m_model->rowChanged(row);
    recompute();
    updateLock();
}

void BalancingPanel::recompute()
{
    if (m_model->showsPrior())
        return;
    const auto sums
        = StatementFigures::sums(m_listStart, m_model->list().clearedSum(), m_ending->text());
    m_listStartBox->setText(m_listStart.toFixedText());
    m_cleared->setText(sums.cleared.toFixedText());
    m_difference->setText(sums.difference.toFixedText());
    m_differenceCaption->setText(sums.caption);
    m_differenceCaption->setVisible(!sums.balanced());
    m_balanced->setVisible(sums.balanced());
}

void BalancingPanel::onConfirm()
{
    if (m_model->showsPrior() || m_account.BankNum == 0)
        return;
    const StatementFigures::Typed typed{m_date->currentText(), m_start->text(), m_ending->text()};
    const auto check = StatementFigures::check(typed, m_expectedStart, m_listStart,
                                               m_model->list().clearedSum(), m_skipStartTest);
    using Stop = StatementFigures::Stop;
    switch (check.stop) {
    case Stop::BadDate:
    case Stop::BadAmount:
        m_interaction.message(check.text, check.title, check.icon);
        return;
    case Stop::Missing:
    case Stop::NotBalanced:
        showError(check.text);
        return;
    case Stop::StartDiffers: {
        m_startDifference = check.startDifference;
        m_statementDate = EntryChecks::formatLongDate(check.date);
        const auto choice
            = BalanceErrorForm::ask(m_interaction, m_expectedStart, m_startDifference, this);
        BankstateErr(choice);
        if (choice == BalanceErrorForm::UseBankStatement)
            onConfirm();
        return;
    }
    case Stop::None:
        break;
    }
    const auto result = StatementBook(m_files).clear(m_account.BankNum, m_account.BankName.text(),
                                                     check.date, m_model->list().tickedRecords());
    if (!result.ok) {
        tell(result.error, result.title);
        if (result.relist)
            registerChanged(m_account.BankNum);
        return;
    }
    m_account = result.account;
    m_model->list().reset();
    m_skipStartTest = false;
    reloadRegister();
    fillDates();
    emptyFigures();
    updateLock();
    Q_EMIT dataChanged({DataChange::Registers, {m_account.BankNum}, 0, this});
}

void BalancingPanel::BankstateErr(int choice)
{
    switch (choice) {
    case BalanceErrorForm::CorrectRegister: {
        const auto date = EntryChecks::parseDate(m_statementDate);
        const auto result = StatementBook(m_files).correct(
            m_account.BankNum, m_account.BankName.text(), m_startDifference,
            date.value_or(Clock::today()), Clock::today());
        if (!result.ok) {
            tell(result.error, result.title);
            return;
        }
        m_account = result.account;
        // The user ticks the correction with the rest; the bank's figure stands.
        m_skipStartTest = true;
        entryWritten(m_account.BankNum, result.recordNumber, result.record);
        const int row = m_model->list().rowOf(result.recordNumber);
        if (row >= 0)
            m_grid->scrollTo(m_model->index(row, 0));
        Q_EMIT dataChanged(
            {DataChange::Accounts | DataChange::Registers, {m_account.BankNum}, 0, this});
        Q_EMIT correctionEntered(m_account.BankNum, result.recordNumber);
        return;
    }
    case BalanceErrorForm::UseBankStatement:
        if (const auto start = StatementFigures::amount(m_start->text()))
            m_listStart = *start;
        m_skipStartTest = true;
        recompute();
        return;
    default:
        return;
    }
}

void BalancingPanel::onCancel()
{
    m_model->list().reset();
    m_skipStartTest = false;
    emptyFigures();
    clearError();
    if (m_listed) {
        reloadRegister();
        recompute();
    }
    updateLock();
}

void BalancingPanel::showError(const QString &heading)
{
    m_heading->setText(heading);
    m_heading->setStyleSheet(ErrorStyle);
    m_ok->hide();
    m_cancel->hide();
    m_errorButton->show();
}

void BalancingPanel::clearError()
{
    m_heading->setText(StatementFigures::EnterInformation);
    m_heading->setStyleSheet(HeadingStyle);
    m_errorButton->hide();
    m_ok->show();
    m_cancel->show();
}

void BalancingPanel::emptyFigures()
{
    const QSignalBlocker b1(m_start);
    const QSignalBlocker b2(m_ending);
    const QSignalBlocker b3(m_date);
    m_start->clear();
    m_ending->clear();
    m_date->setEditText(QString());
    m_listStartBox->clear();
    m_cleared->clear();
    m_difference->clear();
    m_differenceCaption->hide();
    m_balanced->hide();
}

void BalancingPanel::fillDates()
{
    const QString chosen = m_statements->currentText();
    m_statements->clear();
    m_statements->addItem(OpenListEntry);
    m_statements->addItems(StatementBook::statementDates(m_records));
    const int at = m_statements->findText(chosen);
    m_statements->setCurrentIndex(at < 0 ? 0 : at);
}

bool BalancingPanel::showingPrior() const
{
    return m_model->showsPrior();
}

void BalancingPanel::onStatementChosen(int index)
{
    if (index <= 0) {
        m_model->showPrior(false);
        m_caption->setText(CaptionPrefix + m_account.BankName.text().trimmed());
        m_priorTotals->hide();
        m_ok->setEnabled(true);
        m_cancel->setEnabled(true);
        for (QWidget *w : {static_cast<QWidget *>(m_date), static_cast<QWidget *>(m_start),
                           static_cast<QWidget *>(m_ending)})
            w->setEnabled(true);
        reloadRegister();
        if (inProgress())
            recompute();
        else
            emptyFigures();
        return;
    }
    showPrior(m_statements->itemText(index));
}

void BalancingPanel::showPrior(const QString &date)
{
    const auto prior = StatementBook::prior(m_records, date);
    if (prior.recordNumbers.empty()) {
        fillDates();
        onStatementChosen(m_statements->currentIndex());
        return;
    }
    m_model->prior().fillCleared(m_records, prior.recordNumbers);
    m_model->showPrior(true);
    m_grid->clearSpans();
    for (int r = 0; r < m_model->prior().size(); ++r)
        if (m_model->prior().row(r).isHeading())
            m_grid->setSpan(r, StatementModel::Type, 1, StatementModel::RecNum - 1);
    m_caption->setText(
        tr("Statement dated %1 for %2").arg(date, m_account.BankName.text().trimmed()));
    m_listStartBox->setText(prior.start.toFixedText());
    m_cleared->setText(prior.ending.toFixedText());
    m_difference->setText(Currency().toFixedText());
    m_differenceCaption->hide();
    m_balanced->hide();
    m_priorTotals->setText(tr("Deposits %1   Withdrawals %2   Ending balance %3")
                               .arg(prior.deposits.toCurrencyText(),
                                    prior.withdrawals.toCurrencyText(),
                                    prior.ending.toCurrencyText()));
    m_priorTotals->show();
    m_ok->setEnabled(false);
    m_cancel->setEnabled(false);
    for (QWidget *w : {static_cast<QWidget *>(m_date), static_cast<QWidget *>(m_start),
                       static_cast<QWidget *>(m_ending)})
        w->setEnabled(false);
}

void BalancingPanel::unclearRow(int row)
{
    const StatementList::Row r = m_model->prior().row(row);
    const QString date = m_statements->currentText();
    const auto answer = m_interaction.messageBox(
        tr("Take this transaction off the statement dated %1?\n\n%2  %3  %4\n\nIt becomes open "
           "again and is listed for the next statement.")
            .arg(date, r.record.Date.text().trimmed(), r.record.Description.text().trimmed(),
                 r.record.Amount.toCurrencyText()),
        tr("Unclear Transaction"), Interaction::Icon::Question, Interaction::Buttons::YesNo);
    if (answer != Interaction::Answer::Yes)
        return;
    const auto result = StatementBook(m_files).unclear(m_account.BankNum, m_account.BankName.text(),
                                                       r.recordNumber);
    if (!result.ok) {
        tell(result.error, result.title);
        if (result.relist)
            registerChanged(m_account.BankNum);
        return;
    }
    reloadRegister();
    fillDates();
    Q_EMIT dataChanged({DataChange::Registers, {m_account.BankNum}, 0, this});
    if (m_statements->currentText() == date)
        showPrior(date);
    else
        onStatementChosen(m_statements->currentIndex());
}

void BalancingPanel::tell(const QString &text, const QString &title)
{
    m_interaction.message(text, title, Interaction::Icon::Exclamation);
}
