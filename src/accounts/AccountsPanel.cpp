#include "AccountsPanel.h"

#include "AccountBook.h"
#include "AccountKinds.h"
#include "AccountListModel.h"
#include "AccountService.h"
#include "Clock.h"
#include "ErrorLabel.h"
#include "Interaction.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QVBoxLayout>

namespace {

const QString LastStatementHint = QStringLiteral(
    "Select Last Statement for Balance Type and enter ending balance of last Bank Statement.");
const QString InitialDepositHint = QStringLiteral(
    "Select Initial Deposit as Balance Type and enter initial deposit as Starting Balance.");

QLabel *totalLabel(const QString &name, QWidget *parent)
{
    auto *l = new QLabel(parent);
    l->setObjectName(name);
    l->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    l->setMinimumWidth(120);
    QFont f = l->font();
    f.setBold(true);
    l->setFont(f);
    return l;
}

} // namespace

AccountsPanel::AccountsPanel(Interaction &interaction, QWidget *parent)
    : QWidget(parent), m_interaction(interaction), m_files(QString(), false),
      m_model(new AccountListModel(this)), m_grid(new QTableView(this)),
      m_bankTotal(totalLabel(QStringLiteral("lblBankAcctTot"), this)),
      m_ccTotal(totalLabel(QStringLiteral("lblCCTotal"), this)),
      m_ccCaption(new QLabel(QStringLiteral("- Credit Card Debts"), this)),
      m_netTotal(totalLabel(QStringLiteral("lbltotbalamt"), this))
{
    setObjectName(QStringLiteral("picAccounts"));
    m_ccCaption->setObjectName(QStringLiteral("lblCCDebt"));

    m_grid->setObjectName(QStringLiteral("flxgdBankAcct"));
    m_grid->setModel(m_model);
    m_grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grid->setSelectionMode(QAbstractItemView::SingleSelection);
    m_grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grid->verticalHeader()->hide();
    m_grid->verticalHeader()->setDefaultSectionSize(22);
    m_grid->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_grid->horizontalHeader()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    m_grid->setMinimumHeight(10 * 22 + 26);
    m_grid->setAlternatingRowColors(false);
    connect(m_grid, &QTableView::clicked, this, [this](const QModelIndex &index) {
        const int bankNum = m_model->bankNumAt(index.row());
        if (bankNum != 0)
            Q_EMIT accountClicked(bankNum);
    });

    auto *totals = new QGridLayout;
    totals->addWidget(new QLabel(tr("Bank Accounts"), this), 0, 0);
    totals->addWidget(m_bankTotal, 0, 1);
    totals->addWidget(new QLabel(tr("Credit Cards"), this), 1, 0);
    totals->addWidget(m_ccTotal, 1, 1);
    totals->addWidget(m_ccCaption, 1, 2);
    totals->addWidget(new QLabel(tr("Net Balance"), this), 2, 0);
    totals->addWidget(m_netTotal, 2, 1);
    totals->setColumnStretch(2, 1);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_grid, 1);
    layout->addLayout(totals);
    layout->addWidget(buildEditor());
}

QWidget *AccountsPanel::buildEditor()
{
    auto *box = new QGroupBox(tr("Add an Account"), this);
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

    connect(m_kind, &QComboBox::currentIndexChanged, this, &AccountsPanel::onKindChanged);
    connect(m_balanceType, &QComboBox::currentIndexChanged, this, &AccountsPanel::onBalanceTypeChanged);
    connect(m_enter, &QPushButton::clicked, this, &AccountsPanel::onEnter);
    connect(m_rename, &QPushButton::clicked, this, &AccountsPanel::onRename);
    connect(m_name, &QLineEdit::returnPressed, this, &AccountsPanel::onEnter);
    connect(m_startBalance, &QLineEdit::returnPressed, this, &AccountsPanel::onEnter);
    return box;
}

void AccountsPanel::setDataFiles(const DataFiles &files)
{
    m_files = files;
    setRenameMode(false);
    m_error->clear();
    ShowAcctsForm();
}

void AccountsPanel::ShowAcctsForm()
{
    const auto accounts = AccountBook(m_files).readAll();
    if (!accounts) {
        // 75: the file could not be read.
        m_interaction.message(QStringLiteral("Unexpected error in procedure: ShowAcctsForm\nError # 75"),
                              QStringLiteral("Quillmere"), Interaction::Icon::Critical);
        return;
    }
    m_model->setSummary(AccountSummary::build(*accounts));
    const AccountSummary &s = m_model->summary();
    m_bankTotal->setText(s.bankTotal.toCurrencyText());
    m_ccTotal->setText(s.creditCardTotal.toCurrencyText());
    m_ccCaption->setText(s.creditCardCaption());
    m_netTotal->setText(s.netTotal().toCurrencyText());
    setCurrentAccount(m_current);
}

void AccountsPanel::setCurrentAccount(int bankNum)
{
    m_current = bankNum;
    const int row = m_model->rowOf(bankNum);
    if (row >= 0)
        m_grid->selectRow(row);
    else
        m_grid->clearSelection();
}

void AccountsPanel::onKindChanged(int index)
{
    // Money owed on a card is a debit; a bank account starts with a credit.
    const bool card = index == 3;
    m_debit->setChecked(card);
    m_credit->setChecked(!card);
}

void AccountsPanel::onBalanceTypeChanged(int index)
{
    m_balanceHint->setText(index == 1 ? InitialDepositHint : LastStatementHint);
}

void AccountsPanel::showError(const QString &text)
{
    ShowEntryError(m_error, text, m_interaction);
}

void AccountsPanel::onEnter()
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
        ShowAcctsForm();
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
    ShowAcctsForm();
    Q_EMIT accountAdded(result.bankNum);
}

void AccountsPanel::onRename()
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

void AccountsPanel::setRenameMode(bool on)
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
