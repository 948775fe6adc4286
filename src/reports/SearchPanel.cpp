#include "reports/SearchPanel.h"

#include "calculator/AmountCalculator.h"
#include "core/EntryChecks.h"
#include "core/Interaction.h"
#include "records/RecordFile.h"
#include "records/TransactionClasses.h"
#include "reports/FollowedData.h"
#include "reports/SearchResultModel.h"
#include "reports/SearchSummary.h"
#include "ui/ColumnFit.h"
#include "ui/DateBox.h"
#include "ui/EscapeKey.h"
#include "ui/Named.h"
#include "ui/ReturnKey.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTableView>
#include <QVBoxLayout>

#include <set>

namespace {

using TransactionSearch::Any;

QComboBox *anyBox(QWidget *parent, const char *name, const QStringList &entries, bool editable)
{
    auto *box = named(new QComboBox(parent), name);
    box->setEditable(editable);
    box->addItem(Any);
    box->addItems(entries);
    box->setCurrentIndex(0);
    return box;
}

QLabel *caption(const QString &text, QWidget *parent)
{
    return new QLabel(text, parent);
}

} // namespace

SearchPanel::SearchPanel(Interaction &interaction, QWidget *parent)
    : QWidget(parent), m_interaction(interaction),
      m_account(named(new QComboBox(this), "cmblstBankSrch")),
      m_type(anyBox(this, "cmbSrchType", TransactionSearch::typeWords(), false)),
      m_dateFrom(named(new DateBox(this), "cmbDate(1)")),
      m_dateTo(named(new DateBox(this), "cmbDate(4)")),
      m_description(named(new QLineEdit(this), "txtSrchDesc")),
      m_amountFrom(named(new QLineEdit(this), "txtSrchAmtFrom")),
      m_amountTo(named(new QLineEdit(this), "txtSrchAmtTo")),
      m_category(anyBox(this, "cmbSrchBud", {}, true)),
      m_class(anyBox(this, "cmbSrchClass",
                     {TransactionClasses::NormTrans, TransactionClasses::CCTrans,
                      TransactionClasses::TransferFrom, TransactionClasses::TransferTo,
                      TransactionClasses::PayBank, TransactionClasses::PayCard},
                     false)),
      m_paidTo(anyBox(this, "cmbSrchPaidTo", {}, false)),
      m_memoLabel(named(new QLabel(tr("Memo"), this), "lblMemo")),
      m_memo(named(new QLineEdit(this), "txtSrchMemo")),
      m_cleared(anyBox(this, "cmbSrchCleared",
                       {TransactionSearch::ClearedWord, TransactionSearch::OpenWord}, false)),
      m_statement(anyBox(this, "cmbSrchStatement", {}, true)),
      m_search(named(new QPushButton(tr("Search"), this), "cmdSearch")),
      m_clear(named(new QPushButton(tr("Clear"), this), "cmdClearSrchForm")),
      m_copy(named(new QPushButton(tr("Copy"), this), "cmdSrchCopy")),
      m_error(named(new QLabel(this), "lblSrchError")),
      m_errorButton(named(new QPushButton(QStringLiteral("X"), this), "cmdTransError")),
      m_title(named(new QLabel(this), "lblSrchTitle")), m_results(new SearchResultModel(this)),
      m_grid(named(new QTableView(this), "flxgdSrchTrans")),
      m_summary(new QStandardItemModel(SearchSummary::RowCount, 2, this)),
      m_summaryGrid(named(new QTableView(this), "flxgdSrchSum"))
{
    for (QComboBox *date : {m_dateFrom, m_dateTo})
        date->setEditText(Any);
    for (QLineEdit *amount : {m_amountFrom, m_amountTo}) {
        amount->setText(Any);
        AmountCalculator::attach(amount, m_interaction);
    }
    m_memo->setMaxLength(100);
    m_description->setMaxLength(70);
    m_error->setStyleSheet(QStringLiteral("color: #c0392b;"));
    m_errorButton->setToolTip(tr("Dismiss the message"));
    m_errorButton->setFixedWidth(24);
    m_error->hide();
    m_errorButton->hide();
    QFont titleFont = m_title->font();
    titleFont.setBold(true);
    m_title->setFont(titleFont);

    auto *criteria = new QGridLayout;
    criteria->setHorizontalSpacing(6);
    criteria->setVerticalSpacing(3);
    const auto place = [criteria](int row, int col, QWidget *label, QWidget *box) {
        criteria->addWidget(label, row, col * 2);
        criteria->addWidget(box, row, col * 2 + 1);
        criteria->setColumnStretch(col * 2 + 1, 1);
    };
    place(0, 0, caption(tr("Account"), this), m_account);
    place(0, 1, caption(tr("Type"), this), m_type);
    place(0, 2, caption(tr("Category"), this), m_category);
    place(1, 0, caption(tr("From Date"), this), m_dateFrom);
    place(1, 1, caption(tr("To Date"), this), m_dateTo);
    place(1, 2, caption(tr("Class"), this), m_class);
    place(2, 0, caption(tr("From Amount"), this), m_amountFrom);
    place(2, 1, caption(tr("To Amount"), this), m_amountTo);
    place(2, 2, caption(tr("Paid To"), this), m_paidTo);
    place(3, 0, caption(tr("Description"), this), m_description);
    place(3, 1, caption(tr("Cleared"), this), m_cleared);
    place(3, 2, caption(tr("Statement"), this), m_statement);
    place(4, 0, m_memoLabel, m_memo);

    m_buttons = new QHBoxLayout;
    m_buttons->addWidget(m_search);
    m_buttons->addWidget(m_clear);
    m_buttons->addWidget(m_copy);
    criteria->addLayout(m_buttons, 4, 2, 1, 4);
    // The error line has a row of its own under the buttons, there only while
    // it is shown, so that its text is whole at 800 x 600.
    auto *errorRow = new QHBoxLayout;
    errorRow->addWidget(m_errorButton);
    errorRow->addWidget(m_error, 1);
    criteria->addLayout(errorRow, 5, 0, 1, 6);

    m_grid->setModel(m_results);
    m_grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grid->setSelectionMode(QAbstractItemView::SingleSelection);
    m_grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grid->verticalHeader()->hide();
    m_grid->verticalHeader()->setDefaultSectionSize(20);
    using C = ColumnFit::Column;
    ColumnFit::install(m_grid, {C{ColumnFit::Share, 60, 200}, C{ColumnFit::Content},
                                C{ColumnFit::Share, 48, 130, 150}, C{ColumnFit::Content},
                                C{ColumnFit::Share, 56, 400, 130}, C{ColumnFit::Share, 40, 180},
                                C{ColumnFit::Share, 40, 400, 80}, C{ColumnFit::Content},
                                C{ColumnFit::Content}});

    m_summary->setHorizontalHeaderLabels({tr("Item"), tr("Amount")});
    m_summaryGrid->setModel(m_summary);
    m_summaryGrid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_summaryGrid->setSelectionMode(QAbstractItemView::NoSelection);
    m_summaryGrid->verticalHeader()->hide();
    m_summaryGrid->verticalHeader()->setDefaultSectionSize(20);
    // The item texts are shown whole, with their leading blanks.
    m_summaryGrid->horizontalHeader()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    m_summaryGrid->horizontalHeader()->setStretchLastSection(true);
    m_summaryGrid->setFixedWidth(300);
    m_summaryGrid->setFixedHeight(20 * (SearchSummary::RowCount + 1) + 6);
    showSummary();

    // The results take the whole width; the summary sits beneath them.
    auto *summaryRow = new QHBoxLayout;
    summaryRow->addWidget(m_summaryGrid);
    summaryRow->addStretch();
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addLayout(criteria);
    layout->addWidget(m_title);
    layout->addWidget(m_grid, 1);
    layout->addLayout(summaryRow);

    connect(m_search, &QPushButton::clicked, this, [this] { onSearch(); });
    connect(m_clear, &QPushButton::clicked, this, [this] { onClear(); });
    connect(m_copy, &QPushButton::clicked, this, [this] { onCopy(); });
    connect(m_errorButton, &QPushButton::clicked, this, [this] { hideError(); });
    ReturnKey::install(this, {m_search});
    m_copy->setToolTip(tr("Copy the transactions found to the clipboard"));
    EscapeKey::install(this, m_clear);
    connect(m_account, &QComboBox::activated, this, [this] { onAccountChosen(); });
    connect(m_grid, &QTableView::clicked, this,
            [this](const QModelIndex &index) { onResultClicked(index); });
}

void SearchPanel::resetTo(QComboBox *box, const QStringList &entries, const QString &keep)
{
    box->clear();
    box->addItem(Any);
    box->addItems(entries);
    const int at = box->findText(keep);
    if (at >= 0)
        box->setCurrentIndex(at);
    else if (box->isEditable())
        box->setEditText(keep);
    else
        box->setCurrentIndex(0);
}

void SearchPanel::setData(const DataSnapshot &data)
{
    m_files = data.files;
    m_accounts = data.accountList();
    m_categories = data.budget;
    const int chosen = m_account->currentData().toInt();
    m_account->clear();
    m_account->addItem(TransactionSearch::AllAccounts, 0);
    QStringList names;
    for (const BankAcctRecord &a : m_accounts)
        if (!a.isDeleted() && !a.BankName.isBlank()) {
            m_account->addItem(a.BankName.text().trimmed(), int(a.BankNum));
            names << a.BankName.text().trimmed();
        }
    const int at = m_account->findData(chosen);
    m_account->setCurrentIndex(at >= 0 ? at : 0);
    resetTo(m_paidTo, names, m_paidTo->currentText());
    QStringList categories;
    for (const BudgetRecord &c : data.budget)
        if (!c.isDeleted() && !c.BudName.isBlank())
            categories << c.BudName.text().trimmed();
    resetTo(m_category, categories, m_category->currentText());
    onAccountChosen();
}

void SearchPanel::addCommand(QWidget *button)
{
    button->setParent(this);
    m_buttons->insertWidget(m_buttons->indexOf(m_copy) + 1, button);
}

const std::vector<TransactionSearch::Hit> &SearchPanel::hits() const
{
    return m_results->hits();
}

void SearchPanel::follow(const DataChange &change, const DataSnapshot &data)
{
    if (!(change.parts & (DataChange::Accounts | DataChange::Categories)))
        return;
    DataSnapshot kept;
    kept.files = m_files;
    kept.accounts = m_accounts;
    kept.budget = m_categories;
    FollowedData::follow(kept, change, data);
    setData(kept);
}

void SearchPanel::onAccountChosen()
{
    // The statement dates of the account chosen (none for "All").
    QStringList dates;
    const int bankNum = m_account->currentData().toInt();
    for (const BankAcctRecord &a : m_accounts) {
        if (a.BankNum != bankNum || bankNum == 0)
            continue;
        RecordFile<TransRecord> file(m_files.registerFile(a.BankName.text().trimmed()));
        if (!file.open())
            break;
        std::set<qint64> seen;
        for (const TransRecord &r : file.readAll()) {
            const auto d = EntryChecks::parseDate(r.DateClear.text().trimmed());
            if (d && seen.insert(d->toJulianDay()).second)
                dates << EntryChecks::formatLongDate(*d);
        }
    }
    resetTo(m_statement, dates, m_statement->currentText());
}

void SearchPanel::showError(const QString &text)
{
    m_error->setText(text);
    m_error->show();
    m_errorButton->show();
}

void SearchPanel::hideError()
{
    m_error->clear();
    m_error->hide();
    m_errorButton->hide();
    m_memo->show();
    m_memoLabel->show();
}

void SearchPanel::onSearch()
{
    hideError();
    TransactionSearch::Request q;
    q.bankNum = m_account->currentData().toInt();
    q.type = m_type->currentText();
    q.dateFrom = m_dateFrom->currentText();
    q.dateTo = m_dateTo->currentText();
    q.description = m_description->text();
    q.amountFrom = m_amountFrom->text();
    q.amountTo = m_amountTo->text();
    q.category = m_category->currentText();
    q.transClass = m_class->currentText();
    q.paidTo = m_paidTo->currentText();
    q.memo = m_memo->text();
    q.cleared = m_cleared->currentText();
    q.statement = m_statement->currentText();

    const TransactionSearch::Checked checked = TransactionSearch::check(q);
    switch (checked.refusal) {
    case TransactionSearch::Refusal::None:
        break;
    case TransactionSearch::Refusal::BadDate:
        m_interaction.message(EntryChecks::BadDateText, EntryChecks::BadDateTitle);
        return;
    case TransactionSearch::Refusal::StatementWithAll:
        showError(TransactionSearch::StatementWithAll);
        m_memo->hide();
        m_memoLabel->hide();
        return;
    case TransactionSearch::Refusal::DatesReversed:
        showError(TransactionSearch::DatesReversed);
        return;
    }
    TransactionSearch::Result result
        = TransactionSearch::run(m_files, m_accounts, q.bankNum, checked.criteria);
    m_results->setHits(std::move(result.hits));
    m_title->setText(TransactionSearch::heading(m_account->currentText()));
    showSummary();
    QStringList notes;
    if (!checked.amountsAsZero.isEmpty())
        notes << QStringLiteral(" An amount that is not a number was taken as 0: ")
                     + checked.amountsAsZero.join(QStringLiteral(", "));
    if (!result.unreadable.isEmpty())
        notes << QStringLiteral(" The register could not be read: ")
                     + result.unreadable.join(QStringLiteral(", "));
    if (!notes.isEmpty())
        showError(notes.join(QLatin1Char(' ')));
}

void SearchPanel::showSummary()
{
    const auto rows = SearchSummary::of(m_results->hits()).rows();
    for (int r = 0; r < SearchSummary::RowCount; ++r) {
        m_summary->setItem(r, 0, new QStandardItem(rows[std::size_t(r)].item));
        auto *amount = new QStandardItem(rows[std::size_t(r)].amount);
        amount->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        m_summary->setItem(r, 1, amount);
    }
}

void SearchPanel::onClear()
{
    hideError();
    for (QComboBox *box : {m_type, m_category, m_class, m_paidTo, m_cleared, m_statement})
        box->setCurrentIndex(0);
    for (QComboBox *date : {m_dateFrom, m_dateTo}) {
        date->setCurrentIndex(-1);
        date->setEditText(Any);
    }
    m_category->setEditText(Any);
    m_statement->setEditText(Any);
    for (QLineEdit *amount : {m_amountFrom, m_amountTo})
        amount->setText(Any);
    m_description->clear();
    m_memo->clear();
    m_title->clear();
    m_results->setHits({});
    showSummary();
}

void SearchPanel::searchCategory(int bankNum, const QString &category, const QString &from,
                                 const QString &to)
{
    onClear();
    const int at = m_account->findData(bankNum);
    m_account->setCurrentIndex(at >= 0 ? at : 0);
    onAccountChosen();
    const int listed = m_category->findText(category);
    if (listed >= 0)
        m_category->setCurrentIndex(listed);
    m_category->setEditText(category);
    m_dateFrom->setEditText(from);
    m_dateTo->setEditText(to);
    onSearch();
}

void SearchPanel::onResultClicked(const QModelIndex &index)
{
    if (!index.isValid())
        return;
    Q_EMIT transactionChosen(index.data(SearchResultModel::BankNumRole).toInt(),
                             index.data(SearchResultModel::RecordNumberRole).toInt());
}

void SearchPanel::onCopy()
{
    if (m_results->rowCount() == 0) {
        m_interaction.beep();
        return;
    }
    m_interaction.setClipboard(m_results->tabSeparated());
}
