#include "register/ViewFromRow.h"

#include "ui/DateBox.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

ViewFromRow::ViewFromRow(QWidget *parent) : QWidget(parent)
{
    m_view = new QPushButton(tr("View From\u2026"), this);
    m_view->setObjectName(QStringLiteral("cmdView"));
    m_prompt = new QLabel(this);
    m_prompt->setObjectName(QStringLiteral("Label(86)"));
    // On a narrow window the prompt takes two lines rather than pushing the
    // date box aside.
    m_prompt->setWordWrap(true);
    m_date = new DateBox(this);
    m_date->setObjectName(QStringLiteral("cmbDate(9)"));
    m_ok = new QPushButton(tr("OK"), this);
    m_ok->setObjectName(QStringLiteral("cmdviewdate"));
    m_view->setToolTip(tr("List the register from a date on, or all of it"));
    m_ok->setToolTip(tr("List the register from this date on"));
    connect(m_view, &QPushButton::clicked, this, &ViewFromRow::viewRequested);
    auto choose = [this] { Q_EMIT dateChosen(m_date->currentText()); };
    connect(m_ok, &QPushButton::clicked, this, choose);
    connect(m_date->lineEdit(), &QLineEdit::returnPressed, this, choose);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_prompt, 1);
    layout->addWidget(m_date);
    layout->addWidget(m_ok);
    close();
}

void ViewFromRow::open(const QString &prompt, const QString &shown)
{
    m_prompt->setText(prompt);
    m_date->setEditText(shown);
    show();
    m_date->setFocus();
}

void ViewFromRow::close()
{
    hide();
}
