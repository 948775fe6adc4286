#include "accounts/AccountEditor.h"

#include "accounts/AccountBook.h"
#include "accounts/AccountService.h"
#include "core/Clock.h"
#include "core/Interaction.h"
#include "records/AccountKinds.h"
#include "ui/ErrorLabel.h"
#include "ui/EscapeKey.h"
#include "ui/MoneyBox.h"
#include "ui/ReturnKey.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace {

const QString LastStatementHint = QStringLiteral(
    "Select Last Statement for Balance Type and enter ending balance of last Bank Statement.");
const QString InitialDepositHint = QStringLiteral(
    "Select Initial Deposit as Balance Type and enter initial deposit as Starting Balance.");

} // namespace

AccountEditor::AccountEditor(Interaction &interaction, QWidget *parent)
    : QGroupBox(tr("Add an Account"), parent), m_interaction(interaction), m_files(QString(), false)
{
    buildEditor();
}

void AccountEditor::buildEditor()
{
    QWidget *box = this;
    box->setObjectName(QStringLiteral("fraNewAccount"));

    m_kind = new QComboBox(box);
    m_kind->setObjectName(QStringLiteral("cmbAcctType"));
    for (const QString &name : AccountKinds::TypeNames)
        m_kind->addItem(name);
    m_name = new QLineEdit(box);
    m_name->setObjectName(QStringLiteral("txtBankName"));
    m_name->setMaxLength(30);
    m_balanceType = new QComboBox(box);
    m_balanceType->setObjectName(QStringLiteral("cmbBalType"));
    m_balanceType->addItems({QStringLiteral("Last Statement"), QStringLiteral("Initial Deposit")});
    m_balanceHint = new QLabel(LastStatementHint, box);
    m_balanceHint->setObjectName(QStringLiteral("lblBalTypeHint"));
    m_balanceHint->setWordWrap(true);
    m_startBalance = new QLineEdit(box);
    m_startBalance->setObjectName(QStringLiteral("txtStartBal"));
    fitLargestAmount(m_startBalance);
    m_debit = new QRadioButton(tr("Debit"), box);
    m_debit->setObjectName(QStringLiteral("optStartDebit"));
    m_credit = new QRadioButton(tr("Credit"), box);
    m_credit->setObjectName(QStringLiteral("optStartCredit"));
    m_credit->setChecked(true);
    m_enter = new QPushButton(tr("Enter"), box);
    m_enter->setObjectName(QStringLiteral("cmdAcctEnter"));
    m_enter->setDefault(true);
    m_rename = new QPushButton(tr("Rename"), box);
    m_rename->setObjectName(QStringLiteral("cmdRenameAcct"));
    m_error = new QLabel(box);
    m_error->setObjectName(QStringLiteral("lblNewBkError"));
    m_error->setWordWrap(true);

    auto *sign = new QHBoxLayout;
    sign->addWidget(m_startBalance, 1);
    sign->addWidget(m_credit);
    sign->addWidget(m_debit);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_error, 1);
    buttons->addWidget(m_rename);
    buttons->addWidget(m_enter);

    auto *form = new QFormLayout(box);
    form->addRow(tr("Account Type"), m_kind);
    form->addRow(tr("Account Name"), m_name);
    form->addRow(tr("Balance Type"), m_balanceType);
    form->addRow(m_balanceHint);
    form->addRow(tr("Starting Balance"), sign);
    form->addRow(buttons);

    connect(m_kind, &QComboBox::currentIndexChanged, this, &AccountEditor::onKindChanged);
    connect(m_balanceType, &QComboBox::currentIndexChanged, this,
            &AccountEditor::onBalanceTypeChanged);
    connect(m_enter, &QPushButton::clicked, this, &AccountEditor::onEnter);
    connect(m_rename, &QPushButton::clicked, this, &AccountEditor::onRename);
    ReturnKey::install(box, {m_enter});
    EscapeKey::install(box, m_rename, [this] { return m_renameMode; });
}

void AccountEditor::setDataFiles(const DataFiles &files)
{
    m_files = files;
    setRenameMode(false);
    m_error->clear();
}

void AccountEditor::setCurrentAccount(int bankNum)
{
    m_current = bankNum;
}

void AccountEditor::onKindChanged(int index)
{
    // Money owed on a card is a debit; a bank account starts with a credit.
    const bool card = index == 3;
    m_debit->setChecked(card);
    m_credit->setChecked(!card);
}

void AccountEditor::onBalanceTypeChanged(int index)
{
    m_balanceHint->setText(index == 1 ? InitialDepositHint : LastStatementHint);
}

void AccountEditor::showError(const QString &text)
{
    ShowEntryError(m_error, text, m_interaction);
}

void AccountEditor::onEnter()
{
    AccountService service(m_files);
    if (m_renameMode) {
        if (m_current == 0) {
            showError(AccountService::SelectToRename);
            return;
        }
        const auto result = service.rename(m_current, m_name->text());
        if (!result.ok) {
            showError(result.error);
            return;
        }
        m_error->clear();
        setRenameMode(false);
        Q_EMIT accountRenamed(result.bankNum);
        return;
    }
    AccountService::NewAccount account;
    account.kind = m_kind->currentIndex();
    account.name = m_name->text();
    account.lastStatement = m_balanceType->currentIndex() != 1;
    account.startBalance = m_startBalance->text();
    account.debit = m_debit->isChecked();
    account.date = Clock::today();
    const auto result = service.add(account);
    if (!result.ok) {
        showError(result.error);
        return;
    }
    m_error->clear();
    m_name->clear();
    m_startBalance->clear();
    Q_EMIT accountAdded(result.bankNum);
}

void AccountEditor::onRename()
{
    if (m_renameMode) {
        setRenameMode(false);
        return;
    }
    if (m_current == 0) {
        showError(AccountService::SelectToRename);
        return;
    }
    m_error->clear();
    setRenameMode(true);
    m_name->setText(AccountBook(m_files).read(m_current).BankName.text());
    m_name->setFocus();
    m_name->selectAll();
}

void AccountEditor::setRenameMode(bool on)
{
    m_renameMode = on;
    m_enter->setText(on ? tr("Rename") : tr("Enter"));
    m_rename->setText(on ? tr("Cancel") : tr("Rename"));
    for (QWidget *w : {static_cast<QWidget *>(m_kind), static_cast<QWidget *>(m_balanceType),
                       static_cast<QWidget *>(m_startBalance), static_cast<QWidget *>(m_debit),
                       static_cast<QWidget *>(m_credit)})
        w->setEnabled(!on);
    if (!on)
        m_name->clear();
}
