#include "accounts/AccountsPanel.h"

#include "accounts/AccountBook.h"
#include "accounts/AccountListModel.h"
#include "core/Interaction.h"
#include "ui/ColumnFit.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollBar>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

namespace {

QLabel *totalLabel(const QString &name, QWidget *parent)
{
    auto *l = new QLabel(parent);
    l->setObjectName(name);
    l->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
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
    ColumnFit::install(m_grid, {{ColumnFit::Share, 60}, {ColumnFit::Content}});
    m_grid->setMinimumHeight(10 * 22 + 26);
    m_grid->setAlternatingRowColors(false);
    // The list is one stop for Tab; the arrow keys move between accounts.
    m_grid->setTabKeyNavigation(false);
    m_grid->installEventFilter(this);
    connect(m_grid, &QTableView::clicked, this, [this](const QModelIndex &index) {
        const int bankNum = m_model->bankNumAt(index.row());
        if (bankNum != 0)
            Q_EMIT accountClicked(bankNum);
    });

    auto *totals = new QGridLayout;
    m_totals = totals;
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
    setMinimumWidth(MinimumWidth);
    setMaximumWidth(MaximumWidth);
}

bool AccountsPanel::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_grid || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    const int at = m_model->rowOf(m_current);
    int row = -1;
    switch (key->key()) {
    case Qt::Key_Up:
    case Qt::Key_Left:
        row = accountRow(at, -1);
        break;
    case Qt::Key_Down:
    case Qt::Key_Right:
        row = accountRow(at, 1);
        break;
    case Qt::Key_Home:
    case Qt::Key_PageUp:
        row = accountRow(-1, 1);
        break;
    case Qt::Key_End:
    case Qt::Key_PageDown:
        row = accountRow(m_model->rowCount(), -1);
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (m_current != 0)
            Q_EMIT accountOpened(m_current);
        return true;
    default:
        // Tab and Shift+Tab leave the list; other keys do nothing here.
        return false;
    }
    if (row >= 0 && m_model->bankNumAt(row) != m_current)
        Q_EMIT accountClicked(m_model->bankNumAt(row));
    return true;
}

int AccountsPanel::accountRow(int from, int step) const
{
    for (int row = from + step; row >= 0 && row < m_model->rowCount(); row += step)
        if (m_model->bankNumAt(row) != 0)
            return row;
    return -1;
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
    m_shown = *accounts;
    m_model->setSummary(AccountSummary::build(m_shown));
    showTotals();
    setCurrentAccount(m_current);
}

void AccountsPanel::updateAccounts(const std::vector<BankAcctRecord> &changed)
{
    for (const BankAcctRecord &a : changed)
        if (a.BankNum >= 1 && a.BankNum <= int(m_shown.size()))
            m_shown[std::size_t(a.BankNum - 1)] = a;
    m_model->updateSummary(AccountSummary::build(m_shown));
    showTotals();
    setCurrentAccount(m_current);
}

void AccountsPanel::showTotals()
{
    const AccountSummary &s = m_model->summary();
    m_bankTotal->setText(s.bankTotal.toCurrencyText());
    m_ccTotal->setText(s.creditCardTotal.toCurrencyText());
    m_ccCaption->setText(s.creditCardCaption());
    m_netTotal->setText(s.netTotal().toCurrencyText());
    fitFigures();
}

void AccountsPanel::fitFigures()
{
    // The three totals line up at the width of the widest.
    int widest = 0;
    for (const QLabel *l : {m_bankTotal, m_ccTotal, m_netTotal})
        widest = std::max(widest, l->fontMetrics().horizontalAdvance(l->text()));
    for (QLabel *l : {m_bankTotal, m_ccTotal, m_netTotal})
        l->setMinimumWidth(widest);
    // The list is never narrower than its balances (the names give way) nor
    // than the totals with their captions.
    int balances = m_grid->horizontalHeader()->sectionSizeHint(1);
    for (int row = 0; row < m_model->rowCount(); ++row)
        balances = std::max(balances, m_grid->sizeHintForIndex(m_model->index(row, 1)).width());
    const int list = NameRoom + balances + 2 * m_grid->frameWidth()
                     + m_grid->verticalScrollBar()->sizeHint().width();
    const int wanted = std::max({MinimumWidth, list, m_totals->minimumSize().width()});
    setMinimumWidth(wanted);
    setMaximumWidth(std::max(MaximumWidth, wanted));
}

void AccountsPanel::setCurrentAccount(int bankNum)
{
    m_current = bankNum;
    const int row = m_model->rowOf(bankNum);
    if (row >= 0)
        m_grid->selectionModel()->setCurrentIndex(m_model->index(row, 0),
                                                  QItemSelectionModel::ClearAndSelect
                                                      | QItemSelectionModel::Rows);
    else
        m_grid->clearSelection();
}
