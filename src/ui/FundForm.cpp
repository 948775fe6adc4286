#include "ui/FundForm.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

FundForm::FundForm(const QString &title, const QString &text, QWidget *parent)
    : QDialog(parent), m_text(new QLabel(text, this))
{
    setObjectName(QStringLiteral("frmFund"));
    setWindowTitle(title);
    setModal(true);
    m_text->setObjectName(QStringLiteral("lblFund"));
    m_text->setWordWrap(true);
    m_text->setMinimumWidth(320);

    auto *cont = new QPushButton(tr("Continue"), this);
    cont->setObjectName(QStringLiteral("Continue"));
    auto *cancel = new QPushButton(tr("Cancel"), this);
    cancel->setObjectName(QStringLiteral("Cancel"));
    cancel->setDefault(true);
    connect(cont, &QPushButton::clicked, this, [this] { done(ContinueCode); });
    connect(cancel, &QPushButton::clicked, this, [this] { done(CancelCode); });

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cont);
    buttons->addWidget(cancel);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_text);
    layout->addLayout(buttons);
}

int FundForm::ask(const QString &title, const QString &text, QWidget *parent)
{
    FundForm form(title, text, parent);
    // Escape or the window frame end the dialog with QDialog::Rejected: Cancel.
    return form.exec() == ContinueCode ? 0 : 1;
}
