#include "reconcile/BalanceErrorForm.h"

#include "core/Interaction.h"
#include "core/UserManual.h"
#include "reconcile/BalanceExplanation.h"
#include "ui/Named.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

BalanceErrorForm::Choice BalanceErrorForm::ask(Interaction &interaction, Currency registerStart,
                                               Currency difference, QWidget *parent)
{
    const QString text = BalanceExplanation::text(registerStart, difference);
    if (const auto answer
        = interaction.answerFor(Name, text, {CorrectAnswer, UseAnswer, CancelAnswer})) {
        if (*answer == CorrectAnswer)
            return CorrectRegister;
        if (*answer == UseAnswer)
            return UseBankStatement;
        return Cancel;
    }
    BalanceErrorForm form(interaction, text, parent);
    form.exec();
    return form.m_choice;
}

BalanceErrorForm::BalanceErrorForm(Interaction &interaction, const QString &text, QWidget *parent)
    : QDialog(parent), m_interaction(interaction)
{
    setObjectName(Name);
    setWindowTitle(tr("Starting Balance Error"));
    auto *explanation = named(new QPlainTextEdit(this), "txtBSError");
    explanation->setReadOnly(true);
    explanation->setLineWrapMode(QPlainTextEdit::NoWrap);
    explanation->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    explanation->setPlainText(text);

    auto *correct = named(new QPushButton(tr("Correct Register"), this), "cmdbserr");
    auto *use = named(new QPushButton(tr("Use Bank Statement"), this), "cmdUseBankStatement");
    auto *cancel = named(new QPushButton(tr("Cancel"), this), "cmdCancelBSError");
    auto *help = named(new QPushButton(tr("User Manual"), this), "Command1");
    connect(correct, &QPushButton::clicked, this, [this] {
        m_choice = CorrectRegister;
        accept();
    });
    connect(use, &QPushButton::clicked, this, [this] {
        m_choice = UseBankStatement;
        accept();
    });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(help, &QPushButton::clicked, this, &BalanceErrorForm::openManual);

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(use);
    buttons->addWidget(correct);
    buttons->addWidget(cancel);
    buttons->addStretch();
    buttons->addWidget(help);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(explanation, 1);
    layout->addLayout(buttons);
    resize(760, 420);
}

void BalanceErrorForm::openManual()
{
    UserManual::open(m_interaction, UserManual::BalanceAccounts);
}
