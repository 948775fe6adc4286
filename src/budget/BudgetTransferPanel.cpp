#include "budget/BudgetTransferPanel.h"

#include "budget/BudgetBook.h"
#include "budget/BudgetTransferModel.h"
#include "budget/BudgetTransfers.h"
#include "calculator/AmountCalculator.h"
#include "core/Clock.h"
#include "core/EntryChecks.h"
#include "core/Interaction.h"
#include "ui/ColumnFit.h"
#include "ui/DateBox.h"
#include "ui/ErrorLabel.h"
#include "ui/EscapeKey.h"
#include "ui/MoneyBox.h"
#include "ui/Named.h"
#include "ui/ReturnKey.h"

#include <QAction>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QVBoxLayout>

namespace {

const QString TransferTitle = QStringLiteral("Transfer Money to Budget");
const QString ChangeTitle = QStringLiteral("Change Budget Transfer");

} // namespace

BudgetTransferPanel::BudgetTransferPanel(Interaction &interaction, QWidget *parent)
    : QWidget(parent), m_interaction(interaction), m_files(QString(), false),
      m_model(new BudgetTransferModel(this)), m_list(named(new QTableView(this), "flxgdBudTrans")),
      m_title(named(new QLabel(TransferTitle, this), "lblBudTransTitle")),
      m_single(named(new QRadioButton(tr("Single Transfer"), this), "optIndTrans")),
      m_periodic(named(new QRadioButton(this), "optMthlyTrans")),
      m_removal(named(new QRadioButton(this), "optRemMonTransfer")),
      m_from(named(new QComboBox(this), "cmbBudFrom")),
      m_to(named(new QComboBox(this), "cmbBudTo")),
      m_amount(named(new QLineEdit(this), "cmbamt(3)")),
      m_date(named(new DateBox(this), "cmbDate(5)")),
      m_description(named(new QLineEdit(this), "txtBudTransDesc")),
      m_memo(named(new QLineEdit(this), "txtBudMemo")),
      m_error(named(new QLabel(this), "lblTransbudError")),
      m_transfer(named(new QPushButton(tr("Transfer"), this), "cmdTransBudget")),
      m_change(named(new QPushButton(tr("Change"), this), "cmdChngBudTrans"))
{
    setObjectName(QStringLiteral("picBudgetTransfer"));
    fitLargestAmount(m_amount);
    QFont bold = m_title->font();
    bold.setBold(true);
    bold.setPointSize(bold.pointSize() + 2);
    m_title->setFont(bold);
    m_error->setStyleSheet(QStringLiteral("color: #c0392b;"));
    m_single->setChecked(true);
    setPeriodName(m_period);
    AmountCalculator::attach(m_amount, m_interaction);
    auto *clear = named(new QPushButton(tr("Clear"), this), "cmdClear(1)");

    m_list->setModel(m_model);
    m_list->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setTabKeyNavigation(false);
    m_list->verticalHeader()->hide();
    m_list->verticalHeader()->setDefaultSectionSize(21);
    ColumnFit::install(m_list, {{ColumnFit::Content},
                                {ColumnFit::Share, 80},
                                {ColumnFit::Share, 60},
                                {ColumnFit::Content}});
    auto *remove = new QAction(tr("Remove Selected Transfers from the List"), m_list);
    remove->setObjectName(QStringLiteral("mnuRemoveBudTrans"));
    remove->setShortcut(QKeySequence::Delete);
    remove->setShortcutContext(Qt::WidgetShortcut);
    connect(remove, &QAction::triggered, this, &BudgetTransferPanel::onRemoveSelected);
    m_list->addAction(remove);
    m_list->setContextMenuPolicy(Qt::ActionsContextMenu);

    connect(m_single, &QRadioButton::clicked, this, [this] { onKindChosen(Kind::Single); });
    connect(m_periodic, &QRadioButton::clicked, this, [this] { onKindChosen(Kind::Periodic); });
    connect(m_removal, &QRadioButton::clicked, this, [this] { onKindChosen(Kind::Removal); });
    connect(m_transfer, &QPushButton::clicked, this, &BudgetTransferPanel::onTransfer);
    connect(m_change, &QPushButton::clicked, this, &BudgetTransferPanel::onChange);
    connect(clear, &QPushButton::clicked, this, &BudgetTransferPanel::onClear);
    connect(m_list, &QTableView::clicked, this, &BudgetTransferPanel::onRowClicked);
    connect(m_date, &QComboBox::editTextChanged, this, [this] {
        if (m_kind != Kind::Single)
            fillPeriodic();
    });

    auto *kinds = new QHBoxLayout;
    kinds->addWidget(m_single);
    kinds->addWidget(m_periodic);
    kinds->addWidget(m_removal);
    kinds->addStretch();
    auto *form = new QGridLayout;
    form->addWidget(new QLabel(tr("From"), this), 0, 0);
    form->addWidget(m_from, 0, 1);
    form->addWidget(new QLabel(tr("To"), this), 0, 2);
    form->addWidget(m_to, 0, 3);
    form->addWidget(new QLabel(tr("Amount"), this), 1, 0);
    form->addWidget(m_amount, 1, 1);
    form->addWidget(new QLabel(tr("Date"), this), 1, 2);
    form->addWidget(m_date, 1, 3);
    form->addWidget(new QLabel(tr("Description"), this), 2, 0);
    form->addWidget(m_description, 2, 1, 1, 3);
    form->addWidget(new QLabel(tr("Memo"), this), 3, 0);
    form->addWidget(m_memo, 3, 1, 1, 3);
    form->setColumnStretch(1, 1);
    form->setColumnStretch(3, 1);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_error, 1);
    buttons->addWidget(clear);
    buttons->addWidget(m_change);
    buttons->addWidget(m_transfer);
    auto *help
        = new QLabel(tr("Transferring money into budget categories is the budgeting process. "
                        "Click a transfer to change it; the actions below do not change the "
                        "original budget transfers."),
                     this);
    help->setWordWrap(true);
    help->setStyleSheet(QStringLiteral("color: #44546a; font-size: 11px;"));

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_title);
    layout->addLayout(kinds);
    layout->addLayout(form);
    layout->addLayout(buttons);
    layout->addWidget(help);
    layout->addWidget(m_list, 1);
    m_change->hide();
    ReturnKey::install(this, {m_change, m_transfer});
    EscapeKey::install(this, clear);
}

void BudgetTransferPanel::setDataFiles(const DataSnapshot &data)
{
    m_files = data.files;
    m_single->setChecked(true);
    m_kind = Kind::Single;
    m_transfer->setText(tr("Transfer"));
    clearEntry(data.budget);
    refreshBudgetTransferList();
}

void BudgetTransferPanel::setPeriodName(const QString &period)
{
    m_period = period;
    m_periodic->setText(QStringLiteral("Make a ") + period + QStringLiteral(" Budget Transfer"));
    m_removal->setText(QStringLiteral("Remove a ") + period + QStringLiteral(" Budget Transfer"));
    if (m_kind != Kind::Single)
        fillPeriodic();
}

void BudgetTransferPanel::reloadCategories()
{
    reloadCategories(BudgetBook(m_files).readAll());
}

void BudgetTransferPanel::reloadCategories(const std::vector<BudgetRecord> &budget)
{
    if (m_kind != Kind::Single) {
        fillPeriodic(budget);
        return;
    }
    for (QComboBox *list : {m_from, m_to}) {
        const int keep = list->currentData().isValid() ? list->currentData().toInt() : -1;
        list->clear();
        list->setEnabled(true);
        list->addItem(BudgetTransfers::DisposableEntry, 0);
        for (const BudgetRecord &c : budget)
            if (!c.isDeleted() && !c.BudName.isBlank())
                list->addItem(c.BudName.text().trimmed(), int(c.BudNum));
        list->setCurrentIndex(keep >= 0 ? list->findData(keep) : -1);
    }
}

void BudgetTransferPanel::refreshBudgetTransferList()
{
    m_model->setTransfers(BudgetTransfers(m_files).list());
    m_list->scrollToBottom();
}

void BudgetTransferPanel::showError(const QString &text)
{
    ShowEntryError(m_error, text, m_interaction);
}

void BudgetTransferPanel::fillPeriodic()
{
    fillPeriodic(BudgetBook(m_files).readAll());
}

void BudgetTransferPanel::fillPeriodic(const std::vector<BudgetRecord> &budget)
{
    const Currency total = BudgetBook::totals(budget, {}).monthly;
    for (QComboBox *list : {m_from, m_to}) {
        list->clear();
        list->addItem(QStringLiteral("Budget"));
        list->setEnabled(false);
    }
    m_amount->setText(total.isZero() ? QStringLiteral("0") : total.toFixedText());
    m_amount->setEnabled(false);
    m_description->setText(BudgetTransfers::periodicDescription(m_kind == Kind::Removal, total,
                                                                m_period, m_date->currentText()));
}

void BudgetTransferPanel::onKindChosen(Kind kind)
{
    m_kind = kind;
    m_transfer->setText(kind == Kind::Removal ? tr("Remove") : tr("Transfer"));
    if (kind == Kind::Single) {
        onClear();
        return;
    }
    m_error->clear();
    fillPeriodic();
}

void BudgetTransferPanel::onClear()
{
    clearEntry(BudgetBook(m_files).readAll());
}

void BudgetTransferPanel::clearEntry(const std::vector<BudgetRecord> &budget)
{
    m_changing = 0;
    m_title->setText(TransferTitle);
    m_change->hide();
    m_transfer->show();
    m_kind = Kind::Single;
    m_single->setChecked(true);
    m_transfer->setText(tr("Transfer"));
    m_amount->setEnabled(true);
    m_amount->clear();
    m_description->clear();
    m_memo->clear();
    m_error->clear();
    m_date->setEditText(EntryChecks::formatLongDate(Clock::today()));
    m_from->setCurrentIndex(-1);
    m_to->setCurrentIndex(-1);
    reloadCategories(budget);
    m_from->setCurrentIndex(-1);
    m_to->setCurrentIndex(-1);
}

void BudgetTransferPanel::finish()
{
    Q_EMIT budgetChanged();
    refreshBudgetTransferList();
    onClear();
}

BudgetTransfers::Request BudgetTransferPanel::request() const
{
    BudgetTransfers::Request request;
    request.date = m_date->currentText();
    request.description = m_description->text();
    request.memo = m_memo->text();
    request.amountText = m_amount->text();
    if (m_kind == Kind::Single) {
        request.from = m_from->currentIndex() < 0 ? -1 : m_from->currentData().toInt();
        request.to = m_to->currentIndex() < 0 ? -1 : m_to->currentData().toInt();
    }
    return request;
}

void BudgetTransferPanel::report(const BudgetTransfers::Result &result)
{
    if (result.ok)
        finish();
    else if (!result.title.isEmpty())
        m_interaction.message(result.error, result.title);
    else
        showError(result.error);
}

void BudgetTransferPanel::onTransfer()
{
    const BudgetTransfers::Request r = request();
    BudgetTransfers transfers(m_files);
    if (m_kind != Kind::Single) {
        report(transfers.periodic(r, m_kind == Kind::Removal));
        return;
    }
    const BudgetTransfers::Result first = transfers.single(r, false);
    if (first.warning.isEmpty()) {
        report(first);
        return;
    }
    // The source holds less than the amount: the user decides.
    if (m_interaction.fund(BudgetTransfers::ExceededTitle, first.warning) == 0)
        report(transfers.single(r, true));
}

void BudgetTransferPanel::onChange()
{
    if (m_editLock || m_changing == 0)
        return;
    report(BudgetTransfers(m_files).change(m_changing, request()));
}

void BudgetTransferPanel::onRowClicked(const QModelIndex &index)
{
    const int n = m_model->recordNumberAt(index.row());
    if (n == 0 || m_list->selectionModel()->selectedRows().size() > 1)
        return;
    BudgetTransRecord t;
    for (const BudgetTransfers::Entry &e : BudgetTransfers(m_files).list())
        if (e.recordNumber == n)
            t = e.record;
    if (t.FromBudNum == BudgetTransfers::PeriodicCode
        || t.FromBudNum == BudgetTransfers::RemovalCode) {
        m_title->setText(TransferTitle);
        m_error->setText(t.FromBudNum == BudgetTransfers::PeriodicCode
                             ? QStringLiteral("To Change: Use Remove a ") + m_period
                                   + QStringLiteral(" Budget Transfer. ")
                             : QStringLiteral("To Change: Use Make a ") + m_period
                                   + QStringLiteral(" Budget Transfer."));
        return;
    }
    onClear();
    m_changing = n;
    m_title->setText(ChangeTitle);
    m_transfer->hide();
    m_change->show();
    m_from->setCurrentIndex(m_from->findData(int(t.FromBudNum)));
    m_to->setCurrentIndex(m_to->findData(int(t.ToBudNum)));
    m_amount->setText(t.Amount.toFixedText());
    const auto date = EntryChecks::parseDate(t.Date.text());
    m_date->setEditText(date ? EntryChecks::formatLongDate(*date) : t.Date.text().trimmed());
    m_description->setText(t.Description.text().trimmed());
    m_memo->setText(t.Memo.text().trimmed());
    if (m_from->currentIndex() < 0)
        m_error->setText(QStringLiteral("Budget Category has been deleted"));
    else if (m_to->currentIndex() < 0)
        m_error->setText(QStringLiteral("Budget Catgory has been deleted"));
}

void BudgetTransferPanel::onRemoveSelected()
{
    QList<int> records;
    for (const QModelIndex &index : m_list->selectionModel()->selectedRows())
        if (const int n = m_model->recordNumberAt(index.row()))
            records << n;
    if (records.isEmpty()) {
        m_interaction.beep();
        return;
    }
    const auto answer
        = m_interaction.messageBox(QStringLiteral("Remove the ") + QString::number(records.size())
                                       + QStringLiteral(" selected transfer(s) from the list "),
                                   QStringLiteral("Remove Selected Budget Transfers"),
                                   Interaction::Icon::Question, Interaction::Buttons::YesNo);
    if (answer != Interaction::Answer::Yes)
        return;
    const BudgetTransfers::Result result = BudgetTransfers(m_files).remove(records);
    if (!result.ok) {
        showError(result.error);
        return;
    }
    refreshBudgetTransferList();
    onClear();
}
