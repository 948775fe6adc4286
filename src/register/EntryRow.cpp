#include "register/EntryRow.h"

#include "register/CheckNumberPrompt.h"
#include "ui/DateBox.h"
#include "ui/MoneyBox.h"
#include "ui/Named.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace {

QLabel *caption(const QString &text, QWidget *parent)
{
    auto *l = new QLabel(text, parent);
    l->setStyleSheet(QStringLiteral("color: #44546a; font-size: 11px;"));
    return l;
}

} // namespace

EntryRow::EntryRow(Interaction &interaction, QWidget *parent)
    : QWidget(parent), title(named(new QLabel(this), "lblEntryTitle")),
      type(named(new QComboBox(this), "cmbType")), date(named(new DateBox(this), "cmbDate")),
      payee(named(new QComboBox(this), "cmbDesc")),
      addPayee(named(new QPushButton(tr("+"), this), "cmdAddDesc")),
      deletePayee(named(new QPushButton(tr("\u2212"), this), "cmdDelDesc")),
      amount(named(new QLineEdit(this), "cmbamt")),
      debit(named(new QRadioButton(tr("Debit"), this), "optdebitchng")),
      credit(named(new QRadioButton(tr("Credit"), this), "optcreditchng")),
      category(named(new QComboBox(this), "cmbBudItems")),
      card(named(new QComboBox(this), "cmbCreditCards")),
      memo(named(new QLineEdit(this), "txtBoxMemo")), cleared(named(new QLabel(this), "lblCheck")),
      checkNumbers(
          new CheckNumberPrompt(interaction, type, {"Label(2)", "txtchkno", "cmdchkno"}, this)),
      error(named(new QLabel(this), "lblTranserror")), notice(named(new QLabel(this), "lblNotice")),
      enter(named(new QPushButton(tr("Enter"), this), "cmdEnterTrans")),
      quick(named(new QPushButton(tr("Quick Entry"), this), "cmdNew")),
      clear(named(new QPushButton(tr("Clear"), this), "cmdClear")),
      voidButton(named(new QPushButton(tr("Void"), this), "cmdVoid"))
{
    setObjectName(QStringLiteral("picEntry"));
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    type->setEditable(true);
    type->setInsertPolicy(QComboBox::NoInsert);
    type->setMinimumWidth(104);
    payee->setEditable(true);
    payee->setInsertPolicy(QComboBox::NoInsert);
    payee->setMinimumWidth(72);
    addPayee->setToolTip(tr("Save the payee in the list"));
    deletePayee->setToolTip(tr("Remove the selected payee from the list"));
    for (QPushButton *b : {addPayee, deletePayee})
        b->setFixedWidth(26);
    fitLargestAmount(amount);
    amount->setAlignment(Qt::AlignRight);
    date->setMinimumWidth(92);
    // The lists share the columns' room instead of setting it by their longest name.
    // The type and payee lists likewise, so that at 800 x 600 the payee keeps
    // room to read what is typed.
    for (QComboBox *list : {category, card, type, payee}) {
        list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        list->setMinimumContentsLength(6);
    }
    cleared->setFixedWidth(18);
    cleared->setToolTip(tr("Cleared by a bank statement"));
    cleared->setStyleSheet(QStringLiteral("color: #1e7b34; font-weight: bold;"));
    quick->setToolTip(
        tr("Enter the row as a new transaction; the one it came from stays as it is"));
    voidButton->setToolTip(tr("Void the transaction picked in the register"));
    error->setStyleSheet(QStringLiteral("color: #c0392b;"));
    notice->setStyleSheet(QStringLiteral("color: #8a5a00;"));
    enter->setDefault(true);

    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(6);
    grid->setVerticalSpacing(2);
    grid->addWidget(caption(tr("Type"), this), 0, 0);
    grid->addWidget(caption(tr("Date"), this), 0, 1);
    grid->addWidget(caption(tr("Payee"), this), 0, 2);
    // The cleared mark stands over the amount, leaving the amount box its room.
    auto *amountCaption = new QHBoxLayout;
    amountCaption->addWidget(caption(tr("Amount"), this));
    amountCaption->addStretch();
    amountCaption->addWidget(cleared);
    grid->addLayout(amountCaption, 0, 3);
    grid->addWidget(type, 1, 0);
    grid->addWidget(date, 1, 1);
    auto *payeeBox = new QHBoxLayout;
    payeeBox->setSpacing(2);
    payeeBox->addWidget(payee, 1);
    payeeBox->addWidget(addPayee);
    payeeBox->addWidget(deletePayee);
    grid->addLayout(payeeBox, 1, 2);
    auto *amountBox = new QHBoxLayout;
    amountBox->addWidget(amount);
    amountBox->addWidget(credit);
    amountBox->addWidget(debit);
    grid->addLayout(amountBox, 1, 3);
    grid->addWidget(caption(tr("Category"), this), 2, 0);
    grid->addWidget(caption(tr("Credit Card"), this), 2, 1);
    grid->addWidget(caption(tr("Memo"), this), 2, 2);
    grid->addWidget(category, 3, 0);
    grid->addWidget(card, 3, 1);
    grid->addWidget(memo, 3, 2, 1, 2);
    grid->setColumnStretch(2, 1);

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(error, 1);
    buttons->addWidget(notice, 1);
    buttons->addWidget(voidButton);
    buttons->addWidget(clear);
    buttons->addWidget(quick);
    buttons->addWidget(enter);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 4, 6, 4);
    layout->setSpacing(3);
    layout->addWidget(title);
    layout->addLayout(grid);
    layout->addWidget(checkNumbers);
    layout->addLayout(buttons);
    showSignOptions(false);
}

void EntryRow::showSignOptions(bool shown)
{
    debit->setVisible(shown);
    credit->setVisible(shown);
}

EntryRules::Input EntryRow::input() const
{
    EntryRules::Input in;
    in.typeText = type->currentText();
    in.payee = payee->currentText();
    in.amountText = amount->text();
    in.dateText = date->currentText();
    in.memo = memo->text();
    in.budgetIndex = category->currentIndex();
    if (in.budgetIndex > 0) {
        in.budNum = category->currentData().toInt();
        in.budName = category->currentText();
    }
    in.cardIndex = card->currentIndex();
    in.debit = debit->isChecked();
    return in;
}

QStringList EntryRow::state(bool loaded) const
{
    return {loaded ? type->currentText() : QString(),
            date->currentText(),
            payee->currentText(),
            amount->text(),
            memo->text(),
            QString::number(category->currentIndex()),
            QString::number(card->currentIndex()),
            QString::number(debit->isChecked())};
}
