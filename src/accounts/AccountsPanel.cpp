#include "accounts/AccountsPanel.h"

#include "accounts/AccountBook.h"
#include "accounts/AccountListModel.h"
#include "core/Interaction.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QTableView>
#include <QVBoxLayout>

namespace {

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
    // The card total's caption says whether the cards are owed or in credit.
    totals->addWidget(m_ccCaption, 1, 0);
    totals->addWidget(m_ccTotal, 1, 1);
    totals->addWidget(new QLabel(tr("Net Balance"), this), 2, 0);
    totals->addWidget(m_netTotal, 2, 1);
    totals->setColumnStretch(0, 1);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_grid, 1);
    layout->addLayout(totals);
}

void AccountsPanel::setDataFiles(const DataSnapshot &data)
{
    m_files = data.files;
    showAccounts(data.accounts);
}

void AccountsPanel::ShowAcctsForm()
{
    showAccounts(AccountBook(m_files).readAll());
}

void AccountsPanel::showAccounts(const std::optional<std::vector<BankAcctRecord>> &accounts)
{
    if (!accounts) {
        // 75: the file could not be read.
        m_interaction.message(
            QStringLiteral("Unexpected error in procedure: ShowAcctsForm\nError # 75"),
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
