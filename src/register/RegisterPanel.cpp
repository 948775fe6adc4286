#include "register/RegisterPanel.h"
#include "register/ViewFromRow.h"

#include "accounts/AccountBook.h"
#include "budget/BudgetBook.h"
#include "budget/BudgetPosting.h"
#include "calculator/AmountCalculator.h"
#include "core/Clock.h"
#include "core/EntryChecks.h"
#include "core/Interaction.h"
#include "records/AccountKinds.h"
#include "records/BudgetRecord.h"
#include "records/TransactionClasses.h"
#include "records/TransactionTemplate.h"
#include "records/TransactionTypes.h"
#include "register/CheckNumberPrompt.h"
#include "register/CheckNumbers.h"
#include "register/CopyRows.h"
#include "register/EntryRow.h"
#include "register/LinkedRecords.h"
#include "register/LinkedVoid.h"
#include "register/PayeeCombo.h"
#include "register/RegisterEntry.h"
#include "register/RegisterModel.h"
#include "register/RegisterRefusals.h"
#include "register/RegisterService.h"
#include "register/ViewRange.h"
#include "ui/DateBox.h"
#include "ui/ErrorLabel.h"
#include "ui/PaddedRowsProxy.h"
#include "ui/ReturnKey.h"

#include <QAction>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QShortcut>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>

namespace {

const QString Check = QStringLiteral("\u2714");

// With the header, the grid has at least 11 rows; empty ones fill it up.
constexpr int GridRows = 10;

// An amount as the entry row shows it: cents, or all four decimals when it has them.
QString amountText(Currency c)
{
    const Currency size = c.abs();
    return size.raw() % 100 == 0 ? size.toFixedText() : size.toPlainText();
}

bool isCard(const BankAcctRecord &account)
{
    return AccountKinds::isCard(account.Type.text());
}

} // namespace

const QString RegisterPanel::DiscardText
    = QStringLiteral("Discard the changes to this transaction?");

RegisterPanel::RegisterPanel(Interaction &interaction, QWidget *parent)
    : QWidget(parent), m_interaction(interaction), m_files(QString(), false),
      m_model(new RegisterModel(this)), m_grid(new QTableView(this)),
      m_entry(new EntryRow(interaction, this)), m_noticeTimer(new QTimer(this))
{
    setObjectName(QStringLiteral("picRegister"));
    m_noticeTimer->setObjectName(QStringLiteral("Timer1"));
    m_noticeTimer->setSingleShot(true);
    m_noticeTimer->setInterval(4000);
    connect(m_noticeTimer, &QTimer::timeout, m_entry->notice, &QLabel::clear);

    m_grid->setObjectName(QStringLiteral("flxgdtrans"));
    auto *padded = new PaddedRowsProxy(GridRows, this);
    padded->setSourceModel(m_model);
    m_grid->setModel(padded);
    m_grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grid->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    // One Tab stop: the arrow keys move between rows.
    m_grid->setTabKeyNavigation(false);
    RegisterModel::layOutColumns(m_grid);
    connect(m_grid->horizontalHeader(), &QHeaderView::sectionClicked, this, [this] {
        if (m_entry->checkNumbers->pending())
            m_interaction.beep();
        else if (mayLeave())
            onClear();
    });
    // A click or the keyboard moves the highlight, and the entry row follows.
    connect(m_grid->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &RegisterPanel::onSelectionChanged);

    auto *copy = new QAction(tr("Copy Selected Transactions to Clipboard"), m_grid);
    copy->setObjectName(QStringLiteral("mnuCopyTrans"));
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    connect(copy, &QAction::triggered, this, &RegisterPanel::onCopy);
    m_grid->addAction(copy);
    m_grid->setContextMenuPolicy(Qt::ActionsContextMenu);

    EntryRow *e = m_entry;
    connect(e->type, &QComboBox::activated, this, &RegisterPanel::onTypeChosen);
    e->checkNumbers->setIsTaken(
        [this](std::int64_t n) { return CheckNumbers::isDuplicate(m_model->records(), n); });
    connect(e->enter, &QPushButton::clicked, this, &RegisterPanel::onEnter);
    connect(e->quick, &QPushButton::clicked, this, &RegisterPanel::onQuickEntry);
    connect(e->clear, &QPushButton::clicked, this, &RegisterPanel::onClear);
    connect(e->voidButton, &QPushButton::clicked, this, &RegisterPanel::onVoid);
    connect(e->addPayee, &QPushButton::clicked, this, &RegisterPanel::onAddPayee);
    connect(e->deletePayee, &QPushButton::clicked, this, &RegisterPanel::onDeletePayee);
    AmountCalculator::attach(e->amount, m_interaction);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addWidget(buildViewRow());
    layout->addWidget(m_grid, 1);
    layout->addWidget(m_entry);

    // Return anywhere in the entry row enters it; the check-number prompt
    // and the view date have their own OK.
    ReturnKey::install(m_entry, {e->enter}, {e->checkNumbers->box()});
    auto *escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    escape->setContext(Qt::WidgetWithChildrenShortcut);
    connect(escape, &QShortcut::activated, this, &RegisterPanel::onEscape);
}

QWidget *RegisterPanel::buildViewRow()
{
    auto *row = new QWidget(this);
    m_viewRow = new ViewFromRow(row);
    connect(m_viewRow, &ViewFromRow::viewRequested, this, &RegisterPanel::onView);
    connect(m_viewRow, &ViewFromRow::dateChosen, this, &RegisterPanel::onViewDate);
    m_registerTitle = new QLabel(row);
    m_registerTitle->setObjectName(QStringLiteral("lblRegisterTitle"));
    QFont bold = m_registerTitle->font();
    bold.setBold(true);
    bold.setPointSize(bold.pointSize() + 2);
    m_registerTitle->setFont(bold);
    m_registerTitle->setMinimumWidth(80);
    auto *line = new QHBoxLayout;
    line->addWidget(m_registerTitle);
    line->addLayout(m_commands = new QHBoxLayout);
    line->addStretch();
    line->addWidget(m_viewRow->button());
    auto *layout = new QVBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(line);
    layout->addWidget(m_viewRow);
    return row;
}

void RegisterPanel::addCommand(QWidget *button)
{
    button->setParent(m_commands->parentWidget());
    m_commands->addWidget(button);
}

void RegisterPanel::setDataFiles(const DataFiles &files)
{
    m_files = files;
}

void RegisterPanel::setAccount(const BankAcctRecord &account)
{
    DataSnapshot data;
    data.files = m_files;
    data.accounts = AccountBook(m_files).readAll();
    data.budget = BudgetBook(m_files).readAll();
    setAccount(account, data);
}

void RegisterPanel::setAccount(const BankAcctRecord &account, const DataSnapshot &data)
{
    m_account = account;
    m_registerTitle->setText(account.BankNum == 0
                                 ? tr("No account yet: add one on the Accounts panel")
                                 : account.BankName.text());
    // The commands beside the title need an account to work on.
    for (int i = 0; i < m_commands->count(); ++i)
        if (QWidget *command = m_commands->itemAt(i)->widget())
            command->setVisible(account.BankNum != 0);
    m_viewRow->close();
    reloadLists(data);
    FillRegisterGrid();
    onClear();
}

void RegisterPanel::reloadLists(const DataSnapshot &data)
{
    EntryRow *e = m_entry;
    e->type->clear();
    e->type->addItems(EntryRules::typesFor(m_account.Type.text()));

    reloadCategories(data.budget);

    e->card->clear();
    e->card->addItem(EntryRules::NoneEntry, 0);
    for (const BankAcctRecord &a : data.accountList())
        if (!a.isDeleted() && AccountKinds::isCard(a.Type.text()))
            e->card->addItem(a.BankName.text(), int(a.BankNum));
    // A card's own register records its charges and credits; paying a card is
    // done from a bank account.
    e->card->setEnabled(!isCard(m_account));
    reloadPayees();
}

void RegisterPanel::reloadCategories()
{
    reloadCategories(BudgetBook(m_files).readAll());
}

void RegisterPanel::reloadCategories(const std::vector<BudgetRecord> &budget)
{
    QComboBox *category = m_entry->category;
    const int keep = category->currentIndex() > 0 ? category->currentData().toInt() : 0;
    category->clear();
    category->addItem(EntryRules::NoneEntry, 0);
    // A card's own category moves with the card's charges and payments only.
    for (const BudgetRecord &c : budget)
        if (!c.isDeleted() && !c.BudName.isBlank() && c.CCBankRecnum == 0)
            category->addItem(c.BudName.text().trimmed(), int(c.BudNum));
    category->setCurrentIndex(keep > 0 ? std::max(0, category->findData(keep)) : 0);
}

void RegisterPanel::reloadPayees()
{
    PayeeCombo::fill(m_entry->payee, m_files, m_account.BankNum);
}

void RegisterPanel::FillRegisterGrid()
{
    // The register shown so far is let go before the next is read, so that
    // two full registers are never held at once.
    m_model->setRegister({}, 0, isCard(m_account));
    RegisterService::Loaded loaded = RegisterService(m_files).load(m_account);
    if (!loaded.error.isEmpty())
        m_interaction.message(loaded.error, loaded.title, Interaction::Icon::Critical);
    else if (loaded.recreated)
        m_interaction.message(RegisterRefusals::recreated(m_account.BankName.text()),
                              RegisterRefusals::MissingTitle, Interaction::Icon::Exclamation);
    const int first = ViewRange::firstShown(loaded.records, m_account.ViewFromDate.text());
    // Handed over, not copied: a full register is some 13 MB of records.
    m_model->setRegister(std::move(loaded.records), first, isCard(m_account));
    showLastRow();
}

void RegisterPanel::showLastRow()
{
    const int last = m_model->lastRow();
    if (last >= 0) {
        const QModelIndex index = m_grid->model()->index(last, RegisterModel::Type);
        m_grid->selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
        m_grid->scrollTo(index, QAbstractItemView::PositionAtTop);
    }
}

void RegisterPanel::showRecord(int recordNumber)
{
    if (m_account.BankNum == 0 || recordNumber < 1 || recordNumber > int(m_model->records().size()))
        return;
    if (recordNumber < m_model->firstShown()) {
        const auto date
            = EntryChecks::parseDate(m_model->records()[recordNumber - 1].Date.text().trimmed());
        const RegisterService::Result result = RegisterService(m_files).setViewFrom(
            m_account.BankNum, date ? EntryChecks::formatLongDate(*date) : ViewRange::All);
        if (!result.ok) {
            showError(result.error);
            return;
        }
        m_account = result.account;
        FillRegisterGrid();
    }
    const int row = m_model->rowOfRecord(recordNumber);
    if (row < 0)
        return;
    const QModelIndex index = m_grid->model()->index(row, RegisterModel::Type);
    m_grid->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect
                                                         | QItemSelectionModel::Rows);
    m_grid->scrollTo(index, QAbstractItemView::PositionAtCenter);
}

bool RegisterPanel::refreshEntered(const RegisterEntry::Outcome &outcome, const TransRecord &before)
{
    const std::vector<TransRecord> &records = m_model->records();
    const int n = outcome.recordNumber;
    const auto from = EntryChecks::parseDate(m_account.ViewFromDate.text());
    if (outcome.appended) {
        // Anything else written to this register since it was listed means
        // listing it again.
        if (n != int(records.size()) + 1)
            return false;
        // With a date range that lists nothing yet, the entry's date decides.
        if (from && m_model->shownCount() == 0) {
            const auto date = EntryChecks::parseDate(outcome.record.Date.text());
            if (!date || *date < *from)
                return false;
        }
        m_model->appendRecord(outcome.record);
    } else {
        if (n < 1 || n > int(records.size()))
            return false;
        // A new date can move the start of a date range.
        if (from && !before.Date.is(outcome.record.Date.text()))
            return false;
        m_model->replaceRecord(n, outcome.record);
    }
    // As after listing the register: nothing selected, the newest entry in view.
    m_grid->selectionModel()->clear();
    showLastRow();
    return true;
}

void RegisterPanel::showError(const QString &text)
{
    ShowEntryError(m_entry->error, text, m_interaction);
}

bool RegisterPanel::openAmountCalculator()
{
    return AmountCalculator::open(m_entry->amount) != nullptr;
}

void RegisterPanel::showNotice(const QString &text)
{
    m_entry->notice->setText(text);
    m_noticeTimer->start();
}

void RegisterPanel::suggestMemo()
{
    const EntryRow *e = m_entry;
    if (e->card->currentIndex() > 0)
        e->memo->setText(e->type->currentText().trimmed() + QStringLiteral(" payment from ")
                         + m_account.BankName.text() + QStringLiteral(" to ")
                         + e->card->currentText().trimmed());
    else
        e->memo->clear();
}

void RegisterPanel::onTypeChosen(int index)
{
    EntryRow *e = m_entry;
    if (m_mode == 1 && m_loaded.TypeNum == TransactionTypes::TypeNum::StartingBalance) {
        // The opening entry keeps its type.
        m_interaction.beep();
        e->type->setCurrentIndex(-1);
        e->type->setEditText(TransactionTemplate::StartingBalance);
        return;
    }
    const QString text = e->type->itemText(index);
    if (!e->checkNumbers->typeChosen(text, m_account.NextCheckNum))
        return;
    e->showSignOptions(m_mode == 1 && text == TransactionTemplate::StartingBalance);
    suggestMemo();
}

void RegisterPanel::onEnter()
{
    if (m_entry->checkNumbers->pending()) {
        m_interaction.beep();
        return;
    }
    if (m_account.BankNum == 0) {
        m_interaction.message(EntryRules::NoAccountsText, EntryRules::NoAccountsTitle,
                              Interaction::Icon::Information);
        return;
    }
    enterTransaction();
}

void RegisterPanel::enterTransaction()
{
    EntryRequest request;
    request.entry = m_entry->input();
    if (request.entry.cardIndex > 0) {
        request.cardBankNum = m_entry->card->currentData().toInt();
        request.cardName = m_entry->card->currentText();
    }
    if (m_mode == 1) {
        request.recordNumber = m_recordNumber;
        request.loaded = m_loaded;
        request.oldAmount = m_oldAmount;
        request.oldBudNum = m_oldBudNum;
        request.oldAmountApplies = m_oldAmountApplies;
    }
    // The row's texts are read here once; the checks and the write take the values.
    const RegisterEntry entry(m_files, m_account);
    const RegisterEntry::Parsed parsed = entry.parse(request);
    Confirmations confirmations(m_interaction, [this](const QString &text) { showError(text); });
    const RegisterEntry::Outcome outcome
        = parsed.refused ? *parsed.refused : entry.enter(parsed.request, confirmations);
    switch (outcome.result) {
    case RegisterEntry::Outcome::Result::Cancelled:
        return;
    case RegisterEntry::Outcome::Result::Refused:
        if (!outcome.messageBox) {
            showError(outcome.text);
            return;
        }
        m_interaction.message(outcome.text, outcome.title, outcome.icon);
        if (outcome.registerMissing) {
            endChangeMode();
            m_model->setRegister({}, 1, isCard(m_account));
        }
        return;
    case RegisterEntry::Outcome::Result::Written:
        break;
    }
    m_account = outcome.account;
    DataChange change{DataChange::Accounts | DataChange::Budget | DataChange::Registers,
                      {m_account.BankNum},
                      0,
                      this};
    change.inPlace = true;
    change.accounts.push_back(outcome.account);
    if (outcome.otherBankNum != 0) {
        change.registers << outcome.otherBankNum;
        change.accounts.push_back(outcome.otherAccount);
    }
    change.categories = outcome.categories;
    Q_EMIT dataChanged(change);
    // Only the entry's row (and the balances after it) changes: the register
    // is read again only when that cannot be done safely.
    if (!refreshEntered(outcome, request.loaded))
        FillRegisterGrid();
    // A statement being balanced lists the new entry, or shows the change.
    Q_EMIT entryWritten(m_account.BankNum, outcome.recordNumber, outcome.record);

    // Ready for the next entry: the date stays, the rest starts afresh.
    const QString date = m_entry->date->currentText();
    onClear();
    m_entry->date->setEditText(date);
    markClean();
    // Only this entry's own notice stays: an older error or notice is gone.
    if (outcome.paymentNotice)
        m_entry->error->setText(EntryRules::IncorrectPaymentType);
}

void RegisterPanel::onQuickEntry()
{
    const QString type = m_entry->type->currentText();
    if (type.contains(CheckNumbers::CheckPrefix)) {
        const auto number = CheckNumbers::numberOfTypeText(type);
        if (number && CheckNumbers::isDuplicate(m_model->records(), *number)) {
            showNotice(CheckNumbers::Duplicate);
            m_interaction.beep();
            return;
        }
    }
    m_mode = 0;
    m_recordNumber = 0;
    m_entry->enter->setText(tr("Enter"));
    onEnter();
}

void RegisterPanel::onClear()
{
    clearEntry();
    selectLoadedRow();
}

void RegisterPanel::onEscape()
{
    if (m_mode == 1 && mayLeave())
        onClear();
}

bool RegisterPanel::hasUnsavedChange() const
{
    // Without an account nothing can be entered, so nothing is lost.
    return m_account.BankNum != 0 && m_entry->state(m_mode == 1) != m_cleanState;
}

bool RegisterPanel::mayLeave()
{
    if (!hasUnsavedChange())
        return true;
    const auto answer
        = m_interaction.messageBox(DiscardText, QStringLiteral("Quillmere"),
                                   Interaction::Icon::Question, Interaction::Buttons::YesNo);
    if (answer != Interaction::Answer::Yes)
        return false;
    onClear();
    return true;
}

void RegisterPanel::markClean()
{
    m_cleanState = m_entry->state(m_mode == 1);
}

void RegisterPanel::selectLoadedRow()
{
    const QScopedValueRollback<bool> syncing(m_syncingSelection, true);
    QItemSelectionModel *selection = m_grid->selectionModel();
    const int row = m_mode == 1 ? m_model->rowOfRecord(m_recordNumber) : -1;
    if (row < 0) {
        selection->clearSelection();
        return;
    }
    selection->setCurrentIndex(m_grid->model()->index(row, RegisterModel::Type),
                               QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void RegisterPanel::clearEntry()
{
    EntryRow *e = m_entry;
    endChangeMode();
    e->checkNumbers->reset();
    const QString def = EntryRules::defaultType(m_account.Type.text());
    e->type->setCurrentIndex(e->type->findText(def));
    e->date->setEditText(EntryChecks::formatLongDate(Clock::today()));
    e->payee->setCurrentIndex(-1);
    e->payee->setEditText(QString());
    e->amount->clear();
    e->memo->clear();
    e->category->setCurrentIndex(0);
    e->card->setCurrentIndex(0);
    e->cleared->clear();
    e->error->clear();
    e->error->setStyleSheet(QStringLiteral("color: #c0392b;"));
    e->showSignOptions(false);
    markClean();
}

void RegisterPanel::endChangeMode()
{
    m_mode = 0;
    m_recordNumber = 0;
    m_loaded = TransRecord();
    m_oldAmount = Currency();
    m_oldBudNum = 0;
    m_entry->enter->setText(tr("Enter"));
    m_entry->voidButton->setEnabled(false);
    m_entry->title->setText(m_account.BankNum == 0
                                ? tr("No account yet")
                                : tr("New Transaction in %1").arg(m_account.BankName.text()));
}

void RegisterPanel::onSelectionChanged()
{
    if (m_syncingSelection || m_pickQueued)
        return;
    // The view finishes moving the highlight (a key or click may select more
    // than once) before the row it ends on is picked, once.
    m_pickQueued = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_pickQueued = false;
            const QModelIndexList rows = m_grid->selectionModel()->selectedRows();
            // Several rows are highlighted to be copied (nothing loads); one
            // row is the row to change.
            if (rows.size() == 1)
                pickRow(rows.first());
        },
        Qt::QueuedConnection);
}

void RegisterPanel::pickRow(const QModelIndex &index)
{
    const int n = index.data(RegisterModel::RecordNumberRole).toInt();
    if (m_mode == 1 && n == m_recordNumber)
        return;
    if (m_entry->checkNumbers->pending()) {
        m_interaction.beep();
        selectLoadedRow();
        return;
    }
    if (!mayLeave()) {
        selectLoadedRow();
        return;
    }
    if (n == 0) {
        onClear();
        return;
    }
    loadForChange(n);
}

void RegisterPanel::loadForChange(int n)
{
    const TransRecord &r = m_model->records()[n - 1];
    // Whatever was loaded before is let go first, so Void never acts on it.
    clearEntry();
    if (LinkedRecords::isLinked(r)) {
        const auto found = LinkedRecords::find(m_files, r);
        if (!found.records) {
            selectLoadedRow();
            showNotice(found.problem);
            // With the other account removed this side can still be voided.
            if (!LinkedRecords::otherAccountRemoved(m_files, m_account.BankNum, r))
                return;
        }
    }
    EntryRow *e = m_entry;
    m_loaded = r;
    m_recordNumber = n;
    m_oldAmount = r.Amount;
    m_oldBudNum = r.BudNum;
    m_mode = 1;

    const bool check = r.TypeNum == TransactionTypes::TypeNum::Check
                       && CheckNumbers::numericValue(r.Type.text()).has_value();
    e->type->setCurrentIndex(-1);
    e->type->setEditText(check ? CheckNumbers::CheckPrefix + r.Type.text()
                               : r.Type.text().trimmed());
    const auto date = EntryChecks::parseDate(r.Date.text());
    e->date->setEditText(date ? EntryChecks::formatShortDate(*date) : r.Date.text().trimmed());
    e->payee->setCurrentIndex(-1);
    e->payee->setEditText(r.Description.text().trimmed());
    e->memo->setText(r.Memo.text().trimmed());
    e->amount->setText(amountText(r.Amount));
    e->debit->setChecked(r.Amount.isNegative());
    e->credit->setChecked(!r.Amount.isNegative());
    e->showSignOptions(r.TypeNum == TransactionTypes::TypeNum::StartingBalance);
    e->category->setCurrentIndex(0);
    if (r.TransClass.is(TransactionClasses::PayBank)) {
        // A payment shows its card; the check tests the card's category.
        e->card->setCurrentIndex(std::max(0, e->card->findData(int(r.PaidToBankNum))));
        m_oldBudNum = r.CCBudNum;
    }
    if (r.BudNum > 0) {
        const int at = e->category->findData(int(r.BudNum));
        e->category->setCurrentIndex(at);
        if (at < 0)
            showNotice(QStringLiteral("Budget Category \"%1\" has been deleted")
                           .arg(r.BudName.text().trimmed()));
    }
    e->cleared->setText(r.Status.is(TransactionTemplate::Cleared) ? Check : QString());
    e->title->setText(tr("Change Transaction in %1").arg(m_account.BankName.text()));
    e->enter->setText(tr("Change"));
    e->voidButton->setEnabled(true);
    markClean();
    selectLoadedRow();
    // A transfer is changed on the transfer panel; here it can still be voided.
    if (LinkedRecords::isTransfer(r))
        Q_EMIT transferChangeRequested(m_account.BankNum, n);
}

void RegisterPanel::onVoid()
{
    if (m_mode != 1) {
        showError(tr("Pick the transaction to void in the register first"));
        return;
    }
    const TransRecord &r = m_loaded;
    const QString what = r.Date.text().trimmed() + QStringLiteral("  ")
                         + r.Description.text().trimmed() + QStringLiteral("  ")
                         + r.Amount.toCurrencyText();
    const auto answer = m_interaction.messageBox(
        tr("Void this transaction?\n\n%1\n\nIts amount comes off the balance and the entry stays "
           "in the "
           "register as \"Void\".")
            .arg(what),
        tr("Void Transaction"), Interaction::Icon::Question, Interaction::Buttons::YesNo);
    if (answer != Interaction::Answer::Yes)
        return;
    QString error;
    const bool linked = LinkedRecords::isLinked(m_loaded);
    if (linked)
        error = LinkedVoid::voidLinked(m_files, m_account.BankNum, m_recordNumber).error;
    else
        error = RegisterService(m_files).voidRecord(m_account.BankNum, m_recordNumber).error;
    if (!error.isEmpty()) {
        showError(error);
        return;
    }
    const int voided = m_recordNumber;
    m_account = AccountBook(m_files).read(m_account.BankNum);
    DataChange change{DataChange::Accounts | DataChange::Budget | DataChange::Registers,
                      {m_account.BankNum},
                      0,
                      this};
    // A void of one record moves its own account and categories only; a
    // linked one has another side, and the views read everything again.
    change.inPlace = !linked;
    if (change.inPlace) {
        change.accounts.push_back(m_account);
        const BudgetBook budget(m_files);
        for (const int n : BudgetPosting::categories(&m_loaded, nullptr))
            change.categories.push_back(budget.read(n));
    }
    Q_EMIT dataChanged(change);
    FillRegisterGrid();
    onClear();
    if (voided >= 1 && voided <= int(m_model->records().size()))
        Q_EMIT entryWritten(m_account.BankNum, voided, m_model->records()[voided - 1]);
}

bool RegisterPanel::pickForChange(int recordNumber)
{
    if (recordNumber < 1 || recordNumber > int(m_model->records().size()))
        return false;
    loadForChange(recordNumber);
    const QAbstractItemModel *shown = m_grid->model();
    for (int row = 0; row < shown->rowCount(); ++row) {
        const QModelIndex index = shown->index(row, RegisterModel::Type);
        if (index.data(RegisterModel::RecordNumberRole).toInt() == recordNumber) {
            m_grid->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect
                                                                 | QItemSelectionModel::Rows);
            m_grid->scrollTo(index);
            break;
        }
    }
    return true;
}

void RegisterPanel::onView()
{
    if (m_account.BankNum == 0)
        return;
    const auto date = EntryChecks::parseDate(m_account.ViewFromDate.text().trimmed());
    m_viewRow->open(QStringLiteral("View transactions from date or enter All for ")
                        + m_account.BankName.text().left(25),
                    date ? EntryChecks::formatLongDate(*date) : ViewRange::All);
}

void RegisterPanel::onViewDate(const QString &typed)
{
    if (!ViewRange::isValid(typed)) {
        m_interaction.message(EntryChecks::BadDateText, EntryChecks::BadDateTitle);
        return;
    }
    const RegisterService::Result result
        = RegisterService(m_files).setViewFrom(m_account.BankNum, ViewRange::storedForm(typed));
    if (!result.ok) {
        showError(result.error);
        return;
    }
    m_account = result.account;
    m_viewRow->close();
    FillRegisterGrid();
}

void RegisterPanel::onAddPayee()
{
    if (m_entry->payee->currentText().trimmed().isEmpty() || m_account.BankNum == 0) {
        m_interaction.beep();
        return;
    }
    const QString error = PayeeCombo::addTyped(m_entry->payee, m_files, m_account);
    if (!error.isEmpty())
        showError(error);
}

void RegisterPanel::onDeletePayee()
{
    QComboBox *payee = m_entry->payee;
    const int index = payee->currentIndex();
    if (index < 0 || payee->itemText(index) != payee->currentText()) {
        m_interaction.beep();
        return;
    }
    const QString error = PayeeCombo::removeChosen(payee, m_files);
    if (!error.isEmpty())
        showError(error);
}

void RegisterPanel::onCopy()
{
    copySelectedTransactions(m_interaction, *m_grid, *m_model);
}
