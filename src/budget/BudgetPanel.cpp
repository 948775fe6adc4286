#include "budget/BudgetPanel.h"

#include "accounts/AccountBook.h"
#include "budget/BudgetBook.h"
#include "budget/BudgetCategories.h"
#include "budget/BudgetItemDelegate.h"
#include "budget/BudgetItemModel.h"
#include "budget/BudgetListModel.h"
#include "calculator/AmountCalculator.h"
#include "core/Interaction.h"
#include "ui/ColumnFit.h"
#include "ui/EscapeKey.h"
#include "ui/MoneyBox.h"
#include "ui/ReturnKey.h"

#include <QAction>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollArea>
#include <QTableView>
#include <QVBoxLayout>

namespace {

// The help lines of the budget editor, worded as they have always been.
const char *HelpText
    = "1.  Select a category or type a new one, enter its monthly amount and press Enter.\n"
      "2.  To itemize, type sub-categories and amounts in the grid; the monthly amount is their "
      "total.\n"
      "3.  The category balance (money left to spend) is reduced by the transaction amount.\n"
      "4.  15 sub-categories are available for each Budget Category.\n"
      "5.  If a categrory with a balance is deleted, the money will be transferred to \n"
      "disposable cash.\n"
      "Your budget entries should be consistent with the \nperiod selected.";

QLabel *figure(const QString &name, QWidget *parent)
{
    auto *l = new QLabel(parent);
    l->setObjectName(name);
    QFont f = l->font();
    f.setBold(true);
    l->setFont(f);
    return l;
}

} // namespace

BudgetPanel::BudgetPanel(Interaction &interaction, QWidget *parent)
    : QWidget(parent), m_interaction(interaction), m_files(QString(), false),
      m_model(new BudgetListModel(this)), m_grid(new QTableView(this)),
      m_items(new BudgetItemModel(this)),
      m_monthly(figure(QStringLiteral("lblMonthlyBudget"), this)),
      m_balance(figure(QStringLiteral("lblBudgetBalance"), this)),
      m_disposable(figure(QStringLiteral("lblDisposable"), this))
{
    setObjectName(QStringLiteral("picBudget"));
    m_monthly->setText(QStringLiteral("Monthly Budget $0.00"));

    m_grid->setObjectName(QStringLiteral("flxgdAcctBudget"));
    m_grid->setModel(m_model);
    m_grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grid->setSelectionMode(QAbstractItemView::SingleSelection);
    m_grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grid->setTabKeyNavigation(false);
    m_grid->verticalHeader()->hide();
    m_grid->verticalHeader()->setDefaultSectionSize(21);
    m_grid->setColumnHidden(BudgetListModel::BudNum, true);
    m_grid->setColumnHidden(BudgetListModel::CCBankRecnum, true);
    m_grid->horizontalHeader()->setMinimumSectionSize(14);
    // The money columns take the width of their widest figure, so a balance
    // is never shown cut, however narrow the window; the names take the rest.
    using C = ColumnFit::Column;
    const C content{ColumnFit::Content, 14};
    ColumnFit::install(m_grid, {content, C{ColumnFit::Share, 60}, content, content, content,
                                content, C{ColumnFit::Content, 20}, content});
    connect(m_grid, &QTableView::clicked, this, &BudgetPanel::onGridClicked);
    // Shift and the right button copy the budget table, as does Ctrl+C.
    m_grid->viewport()->installEventFilter(this);
    auto *copy = new QAction(tr("Copy Budget to Clipboard"), m_grid);
    copy->setObjectName(QStringLiteral("mnuCopyBudget"));
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    connect(copy, &QAction::triggered, this, &BudgetPanel::onCopy);
    m_grid->addAction(copy);

    auto *totals = new QGridLayout;
    totals->addWidget(m_monthly, 0, 0, 1, 2);
    totals->addWidget(new QLabel(tr("Budget Balance"), this), 1, 0);
    totals->addWidget(m_balance, 1, 1);
    totals->addWidget(new QLabel(tr("Disposable Cash"), this), 2, 0);
    totals->addWidget(m_disposable, 2, 1);
    totals->setColumnStretch(2, 1);

    auto *left = new QVBoxLayout;
    left->addWidget(m_grid, 1);
    left->addLayout(totals);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(left, 3);
    layout->addWidget(buildEditor(), 2);
}

QWidget *BudgetPanel::buildEditor()
{
    auto *box = new QGroupBox(tr("Budget Category"), this);
    box->setObjectName(QStringLiteral("fraBudEditor"));
    m_category = new QComboBox(box);
    m_category->setObjectName(QStringLiteral("cmbBudCat"));
    m_category->setEditable(true);
    m_category->setInsertPolicy(QComboBox::NoInsert);
    m_amount = new QLineEdit(box);
    m_amount->setObjectName(QStringLiteral("txtBudAmount"));
    fitLargestAmount(m_amount);
    AmountCalculator::attach(m_amount, m_interaction);
    m_itemize = new QLabel(tr("Itemize for "), box);
    m_itemize->setObjectName(QStringLiteral("lblItemize"));
    m_itemGrid = new QTableView(box);
    m_itemGrid->setObjectName(QStringLiteral("flxgdBuditem"));
    m_itemGrid->setModel(m_items);
    m_itemGrid->verticalHeader()->hide();
    m_itemGrid->verticalHeader()->setDefaultSectionSize(20);
    m_itemGrid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_itemGrid->setSelectionMode(QAbstractItemView::SingleSelection);
    ColumnFit::install(m_itemGrid,
                       {{ColumnFit::Content}, {ColumnFit::Share, 50}, {ColumnFit::Content}});
    // A click on a name or amount opens the cell's editor.
    m_itemEditor = new BudgetItemDelegate(m_interaction, m_itemGrid);
    m_itemGrid->setItemDelegate(m_itemEditor);
    connect(m_itemGrid, &QTableView::clicked, this, &BudgetPanel::onItemCellClicked);

    m_message = new QLabel(box);
    m_message->setObjectName(QStringLiteral("lblBudError"));
    m_message->setWordWrap(true);
    m_message->setStyleSheet(QStringLiteral("color: #c0392b;"));
    auto *help = new QLabel(QString::fromLatin1(HelpText), box);
    help->setObjectName(QStringLiteral("lblBudHelp"));
    help->setWordWrap(true);
    help->setStyleSheet(QStringLiteral("color: #44546a; font-size: 11px;"));

    auto button = [box](const QString &text, const char *name) {
        auto *b = new QPushButton(text, box);
        b->setObjectName(QString::fromLatin1(name));
        return b;
    };
    QPushButton *save = button(tr("Enter"), "cmdBudEnter");
    QPushButton *rename = button(tr("Rename"), "cmdRenameBudCat");
    QPushButton *remove = button(tr("Remove"), "cmdRemoveBud");
    QPushButton *clear = button(tr("Clear"), "cmdClearList");
    rename->setToolTip(tr("Give the category chosen above a new name"));
    remove->setToolTip(tr("Remove the category; money left in it goes to disposable cash"));
    connect(m_category, &QComboBox::activated, this, &BudgetPanel::onCategoryChosen);
    connect(save, &QPushButton::clicked, this, &BudgetPanel::onSave);
    connect(rename, &QPushButton::clicked, this, &BudgetPanel::onRename);
    connect(remove, &QPushButton::clicked, this, &BudgetPanel::onRemove);
    connect(clear, &QPushButton::clicked, this, &BudgetPanel::onClearList);

    auto *form = new QGridLayout;
    form->addWidget(new QLabel(tr("Category"), box), 0, 0);
    form->addWidget(m_category, 0, 1);
    form->addWidget(new QLabel(tr("Monthly"), box), 1, 0);
    form->addWidget(m_amount, 1, 1);
    // Two rows of two, so the editor leaves the category list room for its
    // figures at 800 x 600.
    auto *buttons = new QGridLayout;
    buttons->addWidget(clear, 0, 0);
    buttons->addWidget(remove, 0, 1);
    buttons->addWidget(rename, 1, 0);
    buttons->addWidget(save, 1, 1);
    auto *layout = new QVBoxLayout(box);
    layout->addLayout(form);
    layout->addWidget(m_itemize);
    layout->addWidget(m_itemGrid, 1);
    layout->addWidget(m_message);
    layout->addLayout(buttons);
    // On a short window the help scrolls rather than taking the item grid's rows.
    auto *helpArea = new QScrollArea(box);
    helpArea->setObjectName(QStringLiteral("scrBudHelp"));
    helpArea->setWidget(help);
    helpArea->setWidgetResizable(true);
    helpArea->setFrameShape(QFrame::NoFrame);
    helpArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    helpArea->viewport()->setAutoFillBackground(false);
    help->setAutoFillBackground(false);
    layout->addWidget(helpArea);
    // The item grid's cell editor (made when a cell is typed into) keeps its
    // own Return, which ends the cell's typing.
    ReturnKey::install(box, {save});
    EscapeKey::install(box, clear);
    return box;
}

void BudgetPanel::setDataFiles(const DataSnapshot &data)
{
    m_files = data.files;
    onClearList();
    m_category->setEditText(QString());
    m_amount->clear();
    showBudget(data);
}

void BudgetPanel::refreshBudgetList()
{
    DataSnapshot data;
    data.files = m_files;
    data.budget = BudgetBook(m_files).readAll();
    data.accounts = AccountBook(m_files).readAll();
    showBudget(data);
}

void BudgetPanel::showBudget(const DataSnapshot &data)
{
    const std::vector<BudgetRecord> &all = data.budget;
    const QString typed = m_category->currentText();
    m_category->clear();
    for (const BudgetRecord &c : all)
        if (!c.isDeleted() && !c.BudName.isBlank())
            m_category->addItem(c.BudName.text().trimmed(), int(c.BudNum));
    m_category->setCurrentIndex(m_category->findText(typed));
    m_category->setEditText(typed);
    m_model->setCategories(all);
    m_shown = data;
    showTotals();
}

void BudgetPanel::updateFigures(const std::vector<BudgetRecord> &categories,
                                const std::vector<BankAcctRecord> &accounts)
{
    for (const BudgetRecord &c : categories)
        if (c.BudNum >= 1 && c.BudNum <= int(m_shown.budget.size()))
            m_shown.budget[std::size_t(c.BudNum - 1)] = c;
    if (m_shown.accounts)
        for (const BankAcctRecord &a : accounts)
            if (a.BankNum >= 1 && a.BankNum <= int(m_shown.accounts->size()))
                (*m_shown.accounts)[std::size_t(a.BankNum - 1)] = a;
    m_model->updateCategories(categories);
    showTotals();
}

void BudgetPanel::showTotals()
{
    const BudgetBook::Totals t = BudgetBook::totals(m_shown.budget, m_shown.accountList());
    m_monthly->setText(QStringLiteral("Monthly Budget ") + t.monthly.toCurrencyText());
    m_balance->setText(t.balance.toCurrencyText());
    m_disposable->setText(t.disposable().toCurrencyText());
}

bool BudgetPanel::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_grid->viewport() && event->type() == QEvent::MouseButtonPress) {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        if (mouse->button() == Qt::RightButton && (mouse->modifiers() & Qt::ShiftModifier)) {
            onCopy();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void BudgetPanel::showMessage(const QString &text)
{
    m_message->setText(text);
}

void BudgetPanel::onCategoryChosen(int index)
{
    const int budNum = m_category->itemData(index).toInt();
    m_loaded = budNum;
    const BudgetRecord r = BudgetBook(m_files).read(budNum);
    m_amount->setText(r.AmountText.text().trimmed());
    BudgetCategories::ItemRows rows;
    for (int k = 0; k < BudgetRecord::MaxItems; ++k)
        rows[k] = {r.ItemNames[k].text().trimmed(), r.ItemAmounts[k].text().trimmed()};
    m_items->setRows(rows);
    m_itemize->setText(QStringLiteral("Itemize for ") + r.BudName.text().trimmed());
    m_message->clear();
}

void BudgetPanel::onSave()
{
    if (m_editLock || m_category->currentText().trimmed().isEmpty()) {
        m_interaction.beep();
        return;
    }
    m_itemEditor->closeOpenEditor();
    const BudgetCategories::Result result = BudgetCategories(m_files).save(
        m_category->currentText(), m_amount->text(), m_items->rows());
    if (!result.ok) {
        showMessage(result.error);
        m_interaction.beep();
        return;
    }
    m_amount->setText(result.amountText.trimmed());
    onClearList();
    m_message->clear();
    refreshBudgetList();
    Q_EMIT categoriesChanged();
}

void BudgetPanel::onRename()
{
    if (m_loaded == 0) {
        onClearList();
        return;
    }
    const BudgetCategories::Result result
        = BudgetCategories(m_files).rename(m_loaded, m_category->currentText());
    if (!result.ok) {
        showMessage(result.error);
        return;
    }
    m_itemize->setText(QStringLiteral("Itemize for ") + m_category->currentText().trimmed());
    m_message->clear();
    refreshBudgetList();
    Q_EMIT categoriesChanged();
}

void BudgetPanel::onRemove()
{
    if (m_loaded == 0) {
        onClearList();
        return;
    }
    const BudgetCategories::Result result = BudgetCategories(m_files).remove(m_loaded);
    if (!result.ok) {
        showMessage(result.error);
        return;
    }
    onClearList();
    m_category->setEditText(QString());
    m_amount->clear();
    m_message->clear();
    refreshBudgetList();
    Q_EMIT categoriesChanged();
}

void BudgetPanel::onClearList()
{
    m_loaded = 0;
    m_itemEditor->closeOpenEditor();
    m_items->clear();
    m_itemize->setText(QStringLiteral("Itemize for "));
}

void BudgetPanel::onGridClicked(const QModelIndex &index)
{
    if (index.column() == BudgetListModel::Picture && m_model->isCategoryRow(index.row())) {
        m_model->toggle(index.row());
        return;
    }
    const int at = m_category->findData(m_model->budNumAt(index.row()));
    if (at < 0)
        return;
    m_category->setCurrentIndex(at);
    onCategoryChosen(at);
}

void BudgetPanel::onItemCellClicked(const QModelIndex &index)
{
    if (!(m_items->flags(index) & Qt::ItemIsEditable))
        return;
    // A click on the cell being edited starts it again from what the cell holds.
    if (QLineEdit *open = m_itemEditor->openEditor();
        open && m_itemGrid->indexWidget(index) == open) {
        m_itemEditor->setEditorData(open, index);
        open->setFocus();
        return;
    }
    m_itemGrid->edit(index);
}

void BudgetPanel::onCopy()
{
    const auto answer = m_interaction.messageBox(
        QStringLiteral("Copy Budget to Clipboard "), QStringLiteral("Copy to Clipboard"),
        Interaction::Icon::Question, Interaction::Buttons::OKCancel);
    if (answer == Interaction::Answer::OK)
        m_interaction.setClipboard(m_model->tabSeparated());
}
