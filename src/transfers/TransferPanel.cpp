#include "transfers/TransferPanel.h"

#include "accounts/AccountBook.h"
#include "calculator/AmountCalculator.h"
#include "core/Clock.h"
#include "core/EntryChecks.h"
#include "core/Interaction.h"
#include "records/AccountKinds.h"
#include "records/RecordFile.h"
#include "records/TransactionTypes.h"
#include "register/CheckNumberPrompt.h"
#include "register/CheckNumbers.h"
#include "register/LinkedRecords.h"
#include "ui/DateBox.h"
#include "ui/EscapeKey.h"
#include "ui/MoneyBox.h"
#include "ui/Named.h"
#include "ui/ReturnKey.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const QString NewTitle = QStringLiteral("Transfer Money between Bank Accounts");
const QString ChangeTitle = QStringLiteral("Change Transfer");

} // namespace

TransferPanel::TransferPanel(Interaction &interaction, QWidget *parent)
    : QWidget(parent), m_interaction(interaction), m_files(QString(), false),
      m_title(named(new QLabel(NewTitle, this), "lblTransferTitle")),
      m_from(named(new QComboBox(this), "cmbAcctFrom")),
      m_to(named(new QComboBox(this), "cmbAcctTo")),
      m_type(named(new QComboBox(this), "cmbTransType")),
      m_amount(named(new QLineEdit(this), "cmbamt(2)")),
      m_date(named(new DateBox(this), "cmbDate(2)")),
      m_date3(named(new DateBox(this), "cmbDate(3)")),
      m_toCleared(named(new DateBox(this), "cmbDate(13)")),
      m_fromCleared(named(new DateBox(this), "cmbDate(14)")),
      m_clearedLabel(new QLabel(tr("Cleared (from / to)"), this)),
      m_description(named(new QLineEdit(this), "txtDescTransfer")),
      m_memo(named(new QLineEdit(this), "txtMemoTransfer")),
      m_memoLabel(named(new QLabel(tr("Memo"), this), "lblTrsMonyMemo")),
      m_error(named(new QLabel(this), "lblErrorTrans")),
      m_errorButton(named(new QPushButton(tr("OK"), this), "cmderror")),
      m_enter(named(new QPushButton(tr("Enter"), this), "cmdAcctTransfer")),
      m_checkNumbers(new CheckNumberPrompt(
          interaction, m_type, {"lblstartcknotrans", "txtChknoTrans", "cmdchknoenter"}, this))
{
    setObjectName(QStringLiteral("picTransfer"));
    QFont bold = m_title->font();
    bold.setBold(true);
    bold.setPointSize(bold.pointSize() + 2);
    m_title->setFont(bold);
    m_type->setEditable(true);
    m_type->setInsertPolicy(QComboBox::NoInsert);
    m_error->setStyleSheet(QStringLiteral("color: #c0392b;"));
    m_date3->hide(); // kept in step with the date; checked with it
    m_checkNumbers->setIsTaken(
        [this](std::int64_t n) { return CheckNumbers::isDuplicate(fromRegister(), n); });
    fitLargestAmount(m_amount);
    auto *clear = named(new QPushButton(tr("Clear"), this), "cmdClearTransfer");

    connect(m_from, &QComboBox::activated, this, &TransferPanel::onFromChosen);
    connect(m_to, &QComboBox::activated, this, &TransferPanel::rebuildDescription);
    connect(m_amount, &QLineEdit::textEdited, this, &TransferPanel::rebuildDescription);
    AmountCalculator::attach(m_amount, m_interaction);
    connect(m_type, &QComboBox::activated, this, &TransferPanel::onTypeChosen);
    connect(m_enter, &QPushButton::clicked, this, &TransferPanel::onEnter);
    connect(clear, &QPushButton::clicked, this, &TransferPanel::onClear);
    connect(m_errorButton, &QPushButton::clicked, this, &TransferPanel::hideError);
    connect(m_date, &QComboBox::editTextChanged, m_date3, &QComboBox::setEditText);

    auto *form = new QGridLayout;
    form->addWidget(new QLabel(tr("From"), this), 0, 0);
    form->addWidget(m_from, 0, 1);
    form->addWidget(new QLabel(tr("To"), this), 0, 2);
    form->addWidget(m_to, 0, 3);
    form->addWidget(new QLabel(tr("Paid by"), this), 1, 0);
    form->addWidget(m_type, 1, 1);
    form->addWidget(new QLabel(tr("Amount"), this), 1, 2);
    form->addWidget(m_amount, 1, 3);
    form->addWidget(new QLabel(tr("Date"), this), 2, 0);
    form->addWidget(m_date, 2, 1);
    form->addWidget(m_clearedLabel, 2, 2);
    auto *cleared = new QHBoxLayout;
    cleared->addWidget(m_fromCleared);
    cleared->addWidget(m_toCleared);
    form->addLayout(cleared, 2, 3);
    form->addWidget(new QLabel(tr("Description"), this), 3, 0);
    form->addWidget(m_description, 3, 1, 1, 3);
    form->addWidget(m_memoLabel, 4, 0);
    form->addWidget(m_memo, 4, 1, 1, 3);
    form->setColumnStretch(1, 1);
    form->setColumnStretch(3, 1);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_error, 1);
    buttons->addWidget(m_errorButton);
    buttons->addWidget(clear);
    buttons->addWidget(m_enter);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_title);
    layout->addLayout(form);
    layout->addWidget(m_checkNumbers);
    layout->addLayout(buttons);
    layout->addStretch();
    ReturnKey::install(this, {m_enter}, {m_checkNumbers->box()});
    EscapeKey::install(this, clear);
    onClear();
}

void TransferPanel::setDataFiles(const DataFiles &files)
{
    m_files = files;
    onClear();
}

void TransferPanel::reloadAccounts(int currentBankNum)
{
    reloadAccounts(currentBankNum,
                   AccountBook(m_files).readAll().value_or(std::vector<BankAcctRecord>{}));
}

void TransferPanel::reloadAccounts(int currentBankNum, const std::vector<BankAcctRecord> &accounts)
{
    m_accounts = accounts;
    const int to = m_to->currentIndex() >= 0 ? m_to->currentData().toInt() : 0;
    for (QComboBox *list : {m_from, m_to}) {
        list->clear();
        for (const BankAcctRecord &a : accounts)
            if (!a.isDeleted())
                list->addItem(a.BankName.text(), int(a.BankNum));
    }
    m_from->setCurrentIndex(m_from->findData(currentBankNum));
    m_to->setCurrentIndex(to > 0 ? m_to->findData(to) : -1);
    onFromChosen();
}

std::vector<TransRecord> TransferPanel::fromRegister() const
{
    const BankAcctRecord from = AccountBook(m_files).read(m_from->currentData().toInt());
    return RecordFile<TransRecord>(m_files.registerFile(from.BankName.text())).readAll();
}

void TransferPanel::onFromChosen()
{
    // Only the kind is looked at, and an account keeps its kind.
    const int bankNum = m_from->currentData().toInt();
    const BankAcctRecord from = bankNum >= 1 && bankNum <= int(m_accounts.size())
                                    ? m_accounts[std::size_t(bankNum - 1)]
                                    : BankAcctRecord{};
    m_type->clear();
    if (m_from->currentIndex() >= 0)
        m_type->addItems(TransferService::typesFor(from.Type.text()));
    m_type->setCurrentIndex(m_type->findText(AccountKinds::isCard(from.Type.text())
                                                 ? QStringLiteral("Charge")
                                                 : QStringLiteral("Withdrawal")));
    m_checkNumbers->reset();
    rebuildDescription();
}

void TransferPanel::rebuildDescription()
{
    if (m_from->currentIndex() < 0 || m_to->currentIndex() < 0)
        return;
    m_description->setText(
        TransferService::description(m_amount->text(), m_from->currentText(), m_to->currentText()));
}

void TransferPanel::onTypeChosen(int index)
{
    const QString text = m_type->itemText(index);
    const BankAcctRecord from = AccountBook(m_files).read(m_from->currentData().toInt());
    m_checkNumbers->typeChosen(text, from.NextCheckNum);
}

TransferService::Request TransferPanel::request() const
{
    TransferService::Request r;
    r.fromBankNum = m_from->currentIndex() >= 0 ? m_from->currentData().toInt() : 0;
    r.toBankNum = m_to->currentIndex() >= 0 ? m_to->currentData().toInt() : 0;
    r.typeText = m_type->currentText();
    r.amountText = m_amount->text();
    r.date = m_date->currentText();
    r.date3 = m_date3->currentText();
    r.fromCleared = m_fromCleared->currentText();
    r.toCleared = m_toCleared->currentText();
    r.description = m_description->text();
    r.memo = m_memo->text();
    return r;
}

void TransferPanel::showError(const QString &text)
{
    m_error->setText(text);
    m_memo->hide();
    m_memoLabel->hide();
    m_errorButton->show();
    m_interaction.beep();
}

void TransferPanel::hideError()
{
    m_error->clear();
    m_errorButton->hide();
    m_memo->show();
    m_memoLabel->show();
}

void TransferPanel::onEnter()
{
    if (m_checkNumbers->pending()) {
        m_interaction.beep();
        return;
    }
    if (m_changeRecord) {
        // The transfer may have been voided in a register since it was loaded.
        const BankAcctRecord owner = AccountBook(m_files).read(m_changeBankNum);
        const TransRecord stored
            = RecordFile<TransRecord>(m_files.registerFile(owner.BankName.text()))
                  .read(m_changeRecord);
        if (!LinkedRecords::isTransfer(stored)) {
            onClear();
            showError(tr("This transfer has been voided"));
            return;
        }
    }
    const TransferService::Request r = request();
    TransferService service(m_files);
    if (const auto refusal = service.validate(r)) {
        if (!refusal->title.isEmpty())
            m_interaction.message(refusal->error, refusal->title);
        else
            showError(refusal->error);
        return;
    }
    if (const auto warning
        = service.balanceWarning(r, m_changeRecord ? m_oldFromAmount : Currency())) {
        if (m_interaction.fund(TransferService::WarningTitle, *warning) == 1)
            return;
    }
    const TransferService::Result result
        = m_changeRecord ? service.change(m_changeBankNum, m_changeRecord, r) : service.enter(r);
    if (!result.ok) {
        if (!result.title.isEmpty())
            m_interaction.message(result.error, result.title);
        else
            showError(result.error);
        return;
    }
    const int current = r.fromBankNum;
    onClear();
    reloadAccounts(current);
    Q_EMIT transferred(r.fromBankNum, r.toBankNum);
}

void TransferPanel::onClear()
{
    m_changeBankNum = 0;
    m_changeRecord = 0;
    m_oldFromAmount = Currency();
    m_title->setText(NewTitle);
    m_enter->setText(tr("Enter"));
    m_from->setEnabled(true);
    m_to->setEnabled(true);
    m_amount->clear();
    m_memo->clear();
    m_description->clear();
    m_date->setEditText(EntryChecks::formatLongDate(Clock::today()));
    m_fromCleared->setEditText(QString());
    m_toCleared->setEditText(QString());
    m_clearedLabel->hide();
    m_fromCleared->hide();
    m_toCleared->hide();
    hideError();
    m_to->setCurrentIndex(-1);
    onFromChosen();
}

QString TransferPanel::loadForChange(int bankNum, int recordNumber)
{
    const BankAcctRecord owner = AccountBook(m_files).read(bankNum);
    const TransRecord record
        = RecordFile<TransRecord>(m_files.registerFile(owner.BankName.text())).read(recordNumber);
    const auto found = LinkedRecords::find(m_files, record);
    if (!found.records)
        return found.problem;
    const LinkedRecords &l = *found.records;
    reloadAccounts(l.fromAccount.BankNum);
    m_to->setCurrentIndex(m_to->findData(int(l.toAccount.BankNum)));
    onFromChosen();
    m_changeBankNum = l.fromAccount.BankNum;
    m_changeRecord = l.fromRecord;
    m_oldFromAmount = l.from.Amount;
    m_title->setText(ChangeTitle);
    m_enter->setText(tr("Change"));
    m_from->setEnabled(false);
    m_to->setEnabled(false);
    const bool check = l.from.TypeNum == TransactionTypes::TypeNum::Check
                       && CheckNumbers::numericValue(l.from.Type.text()).has_value();
    m_type->setCurrentIndex(-1);
    m_type->setEditText(check ? CheckNumbers::CheckPrefix + l.from.Type.text()
                              : l.from.Type.text().trimmed());
    m_amount->setText((-l.from.Amount).toFixedText());
    m_date->setEditText(l.from.Date.text().trimmed());
    m_description->setText(l.from.Description.text().trimmed());
    m_memo->setText(l.from.Memo.text().trimmed());
    m_fromCleared->setEditText(l.from.DateClear.text().trimmed());
    m_toCleared->setEditText(l.to.DateClear.text().trimmed());
    m_clearedLabel->show();
    m_fromCleared->show();
    m_toCleared->show();
    return QString();
}
