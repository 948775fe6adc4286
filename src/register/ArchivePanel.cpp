#include "register/ArchivePanel.h"

#include "accounts/AccountArchive.h"
#include "accounts/AccountBook.h"
#include "core/Interaction.h"
#include "register/CopyRows.h"
#include "register/RegisterModel.h"
#include "ui/EscapeKey.h"
#include "ui/Named.h"
#include "ui/PaddedRowsProxy.h"

#include <QAction>
#include <QComboBox>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QTableView>
#include <QVBoxLayout>

namespace {

constexpr int NameRole = Qt::UserRole + 1;

const QString RemovePrompt = QStringLiteral("Select Account to Archive");
const QString ViewPrompt = QStringLiteral("Select an Archived Account to View");
const QString DeleteTitle = QStringLiteral("Delete Account");
const QString ArchiveTitle = QStringLiteral("Account Archive");
const QString MissingMark = QStringLiteral(" (file missing)");

} // namespace

ArchivePanel::ArchivePanel(Interaction &interaction, QWidget *parent)
    : QWidget(parent), m_interaction(interaction), m_files(QString(), false),
      m_model(new RegisterModel(this)), m_grid(named(new QTableView(this), "flxgdArchive"))
{
    setObjectName(QStringLiteral("picArchive"));
    auto *box = named(new QGroupBox(tr("Account Archive"), this), "fraArchive");
    m_optRemove = named(new QRadioButton(tr("Archive or Delete an Account"), box), "optAcct(0)");
    m_optView = named(new QRadioButton(tr("Show Archived Accounts"), box), "optAcct(1)");
    m_optRemove->setChecked(true);
    m_prompt = named(new QLabel(RemovePrompt, box), "lblArchPrompt");
    QFont bold = m_prompt->font();
    bold.setBold(true);
    m_prompt->setFont(bold);

    m_sides = new QStackedWidget(box);
    auto *remove = named(new QWidget(m_sides), "picRemoveAcct");
    m_accounts = named(new QComboBox(remove), "cmbBankAccts");
    m_accounts->setMinimumWidth(200);
    m_archive = named(new QPushButton(tr("Archive"), remove), "cmdArchive");
    m_delete = named(new QPushButton(tr("Delete"), remove), "cmdDelAcct");
    auto *removeRow = new QHBoxLayout(remove);
    removeRow->setContentsMargins(0, 0, 0, 0);
    removeRow->addWidget(m_accounts, 1);
    removeRow->addWidget(m_archive);
    removeRow->addWidget(m_delete);

    auto *view = named(new QWidget(m_sides), "picViewArchive");
    m_archived = named(new QComboBox(view), "cmbArchiveList");
    m_archived->setMinimumWidth(200);
    m_deleteArchived = named(new QPushButton(tr("Remove from Archive"), view), "cmdDelArchive");
    m_archive->setToolTip(
        tr("Take the account out of the list; its register stays, to be read here later"));
    m_delete->setToolTip(tr("Delete the account and its register for good"));
    m_deleteArchived->setToolTip(tr("Delete the archived register for good"));
    m_close = named(new QPushButton(tr("Close"), view), "cmdCloseArch");
    // The list has a line of its own: its entries name the account's kind too.
    auto *viewRow = new QGridLayout(view);
    viewRow->setContentsMargins(0, 0, 0, 0);
    viewRow->addWidget(m_archived, 0, 0, 1, 3);
    viewRow->setColumnStretch(0, 1);
    viewRow->addWidget(m_deleteArchived, 1, 1);
    viewRow->addWidget(m_close, 1, 2);
    m_sides->addWidget(remove);
    m_sides->addWidget(view);
    m_sides->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);

    auto *options = new QHBoxLayout;
    options->addWidget(m_optRemove);
    options->addWidget(m_optView);
    options->addStretch();
    auto *boxLayout = new QVBoxLayout(box);
    boxLayout->addLayout(options);
    boxLayout->addWidget(m_prompt);
    boxLayout->addWidget(m_sides);

    m_status = named(new QLabel(this), "lblArchStatus");
    m_status->setWordWrap(true);

    // At least ten rows, blank ones below the last entry.
    auto *padded = new PaddedRowsProxy(10, this);
    padded->setSourceModel(m_model);
    m_grid->setModel(padded);
    m_grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grid->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    RegisterModel::layOutColumns(m_grid);

    auto *copy = new QAction(tr("Copy Selected Transactions to Clipboard"), m_grid);
    copy->setObjectName(QStringLiteral("mnuCopyArchive"));
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    connect(copy, &QAction::triggered, this, &ArchivePanel::onCopy);
    m_grid->addAction(copy);
    m_grid->setContextMenuPolicy(Qt::ActionsContextMenu);

    connect(m_optRemove, &QRadioButton::clicked, this, [this] { showSide(0); });
    connect(m_optView, &QRadioButton::clicked, this, [this] { showSide(1); });
    connect(m_archive, &QPushButton::clicked, this, &ArchivePanel::onArchive);
    connect(m_delete, &QPushButton::clicked, this, &ArchivePanel::onDelete);
    connect(m_archived, &QComboBox::activated, this, &ArchivePanel::onArchiveChosen);
    connect(m_deleteArchived, &QPushButton::clicked, this, &ArchivePanel::onDeleteArchive);
    connect(m_close, &QPushButton::clicked, this, &ArchivePanel::onClose);
    EscapeKey::install(this, m_close);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addWidget(box);
    layout->addWidget(m_status);
    layout->addWidget(m_grid, 1);
    // Without the grid the box keeps its own height at the top.
    box->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    layout->addStretch(0);
    m_layout = layout;
    showSide(0);
}

void ArchivePanel::setDataFiles(const DataFiles &files)
{
    m_files = files;
    reload();
}

void ArchivePanel::reload()
{
    m_accounts->clear();
    const auto accounts = AccountBook(m_files).readAll().value_or(std::vector<BankAcctRecord>{});
    for (const BankAcctRecord &a : accounts)
        if (!a.isDeleted())
            m_accounts->addItem(a.BankName.text().trimmed(), int(a.BankNum));
    m_accounts->setCurrentIndex(-1);

    m_archived->clear();
    for (const AccountArchive::Entry &e : AccountArchive(m_files).entries()) {
        m_archived->addItem(AccountArchive::listText(e.typeCode, e.name)
                                + (e.fileMissing ? MissingMark : QString()),
                            e.archNum);
        m_archived->setItemData(m_archived->count() - 1, e.name, NameRole);
    }
    m_archived->setCurrentIndex(-1);
    clearGrid();
}

void ArchivePanel::showSide(int side)
{
    m_optRemove->setChecked(side == 0);
    m_optView->setChecked(side == 1);
    m_sides->setCurrentIndex(side);
    m_prompt->setText(side == 0 ? RemovePrompt : ViewPrompt);
    m_grid->setVisible(side == 1);
    m_status->setVisible(side == 1);
    if (m_layout)
        m_layout->setStretch(m_layout->count() - 1, side == 1 ? 0 : 1);
    if (side == 1 && m_archived->currentIndex() < 0)
        clearGrid();
}

void ArchivePanel::clearGrid()
{
    m_model->setRegister({}, 1, false);
    m_status->clear();
}

void ArchivePanel::notComplete(const QString &prompt)
{
    m_prompt->setText(prompt);
    m_interaction.beep();
}

void ArchivePanel::onArchive()
{
    const int bankNum = m_accounts->currentIndex() >= 0 ? m_accounts->currentData().toInt() : 0;
    const auto r = AccountArchive(m_files).RemoveAccount(bankNum, AccountArchive::ArchiveMode);
    if (!r.prompt.isEmpty())
        return notComplete(r.prompt);
    if (!r.ok) {
        m_interaction.message(r.error, ArchiveTitle, Interaction::Icon::Critical);
        return;
    }
    m_prompt->setText(RemovePrompt);
    m_interaction.message(r.report, ArchiveTitle, Interaction::Icon::Information);
    Q_EMIT accountRemoved();
}

void ArchivePanel::onDelete()
{
    const int bankNum = m_accounts->currentIndex() >= 0 ? m_accounts->currentData().toInt() : 0;
    const BankAcctRecord account = AccountBook(m_files).read(bankNum);
    if (bankNum < 1 || account.isDeleted() || account.BankName.isBlank())
        return notComplete(AccountArchive::NotComplete);
    for (const QString &warning : AccountArchive::deleteWarnings(account))
        m_interaction.message(warning, DeleteTitle, Interaction::Icon::Exclamation);
    const auto answer = m_interaction.messageBox(
        QStringLiteral("Delete the account ") + account.BankName.text().trimmed()
            + QStringLiteral(" and its register for good?"),
        DeleteTitle, Interaction::Icon::Question, Interaction::Buttons::YesNo);
    if (answer != Interaction::Answer::Yes)
        return;
    const auto r = AccountArchive(m_files).RemoveAccount(bankNum, AccountArchive::DeleteMode);
    if (!r.prompt.isEmpty())
        return notComplete(r.prompt);
    if (!r.ok) {
        m_interaction.message(r.error, DeleteTitle, Interaction::Icon::Critical);
        return;
    }
    m_prompt->setText(RemovePrompt);
    Q_EMIT accountRemoved();
}

void ArchivePanel::onArchiveChosen()
{
    const int archNum = m_archived->currentIndex() >= 0 ? m_archived->currentData().toInt() : 0;
    m_prompt->setText(ViewPrompt);
    const auto shown = AccountArchive(m_files).readRegister(archNum);
    // The archived register is read from its first record on.
    m_model->setRegister(shown.records, 1, shown.creditCard);
    const QString file
        = QLatin1Char('"')
          + QFileInfo(m_files.archivedRegisterFile(m_archived->currentData(NameRole).toString()))
                .fileName()
          + QLatin1Char('"');
    if (shown.missing)
        m_status->setText(QStringLiteral("The archived register ") + file
                          + QStringLiteral(" is not in the data folder."));
    else if (shown.ignoredBytes > 0)
        m_status->setText(QStringLiteral("The last %1 bytes of ").arg(shown.ignoredBytes) + file
                          + QStringLiteral(" are not a whole entry and are not shown."));
    else
        m_status->clear();
    m_grid->scrollToTop();
}

void ArchivePanel::onDeleteArchive()
{
    const int archNum = m_archived->currentIndex() >= 0 ? m_archived->currentData().toInt() : 0;
    if (archNum == 0)
        return notComplete(AccountArchive::NotComplete);
    const auto answer = m_interaction.messageBox(
        QStringLiteral("Remove ") + m_archived->currentText().remove(MissingMark)
            + QStringLiteral(" from the archive and delete its register for good?"),
        QStringLiteral("Remove Archived Account"), Interaction::Icon::Question,
        Interaction::Buttons::YesNo);
    if (answer != Interaction::Answer::Yes)
        return;
    const auto r = AccountArchive(m_files).deleteEntry(archNum);
    if (!r.prompt.isEmpty())
        return notComplete(r.prompt);
    if (!r.ok) {
        m_interaction.message(r.error, ArchiveTitle, Interaction::Icon::Critical);
        return;
    }
    m_prompt->setText(ViewPrompt);
    reload();
}

void ArchivePanel::onClose()
{
    m_archived->setCurrentIndex(-1);
    clearGrid();
    showSide(0);
    Q_EMIT closeRequested();
}

void ArchivePanel::onCopy()
{
    copySelectedTransactions(m_interaction, *m_grid, *m_model);
}
