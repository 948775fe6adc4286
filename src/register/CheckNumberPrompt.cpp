#include "register/CheckNumberPrompt.h"

#include "core/Interaction.h"
#include "ui/KeyFilter.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

CheckNumberPrompt::CheckNumberPrompt(Interaction &interaction, QComboBox *type, const Names &names,
                                     QWidget *parent)
    : QWidget(parent), m_interaction(interaction), m_type(type), m_caption(new QLabel(this)),
      m_box(new QLineEdit(this)), m_ok(new QPushButton(tr("OK"), this))
{
    m_caption->setObjectName(QString::fromLatin1(names.caption));
    m_box->setObjectName(QString::fromLatin1(names.box));
    m_ok->setObjectName(QString::fromLatin1(names.ok));
    m_box->setMaximumWidth(100);
    new KeyFilter(m_box, m_ok, &CheckNumbers::acceptsKey);
    connect(m_ok, &QPushButton::clicked, this, &CheckNumberPrompt::confirm);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_caption);
    layout->addWidget(m_box);
    layout->addWidget(m_ok);
    layout->addStretch();
    reset();
}

void CheckNumberPrompt::reset()
{
    m_pending = false;
    m_caption->hide();
    m_box->hide();
    m_ok->hide();
    // The row keeps no room for the prompt while it is hidden.
    hide();
}

void CheckNumberPrompt::ask(const QString &caption)
{
    m_box->clear();
    m_caption->setText(caption);
    m_caption->show();
    m_box->show();
    m_ok->show();
    show();
    m_pending = true;
}

void CheckNumberPrompt::showDuplicate()
{
    m_interaction.beep();
    m_caption->setText(CheckNumbers::Duplicate);
    m_caption->show();
    show();
    // The number is taken: Enter waits until another type or number is given.
    m_pending = true;
}

void CheckNumberPrompt::setType(const QString &text)
{
    // The list entry gives way to the number it stands for.
    m_type->setCurrentIndex(-1);
    m_type->setEditText(text);
}

bool CheckNumberPrompt::typeChosen(const QString &listEntry, std::int32_t lastNumber)
{
    reset();
    const CheckNumbers::TypeChoice choice
        = CheckNumbers::chooseType(listEntry, lastNumber, m_isTaken);
    switch (choice.step) {
    case CheckNumbers::TypeChoice::Step::Prompt:
        ask(choice.prompt);
        return true;
    case CheckNumbers::TypeChoice::Step::TooLarge:
        m_interaction.message(CheckNumbers::TooLargeText, CheckNumbers::TooLargeTitle,
                              Interaction::Icon::Exclamation);
        m_type->setCurrentIndex(-1);
        return false;
    case CheckNumbers::TypeChoice::Step::Offered:
        setType(choice.typeText);
        return true;
    case CheckNumbers::TypeChoice::Step::Duplicate:
        setType(choice.typeText);
        showDuplicate();
        return false;
    case CheckNumbers::TypeChoice::Step::None:
        break;
    }
    return true;
}

void CheckNumberPrompt::confirm()
{
    const QString typed = m_box->text().trimmed();
    if (typed.isEmpty()) {
        // No number after all: no type is chosen.
        setType(QString());
        reset();
        return;
    }
    const CheckNumbers::TypedNumber result = CheckNumbers::acceptTyped(typed, m_isTaken);
    switch (result.outcome) {
    case CheckNumbers::TypedNumber::Outcome::NotNumber:
        m_interaction.beep();
        return;
    case CheckNumbers::TypedNumber::Outcome::TooLarge:
        m_interaction.message(CheckNumbers::TooLargeText, CheckNumbers::TooLargeTitle,
                              Interaction::Icon::Exclamation);
        return;
    case CheckNumbers::TypedNumber::Outcome::Duplicate:
        m_interaction.beep();
        m_caption->setText(CheckNumbers::Duplicate);
        return;
    case CheckNumbers::TypedNumber::Outcome::Accepted:
        break;
    }
    reset();
    setType(CheckNumbers::typedText(result.digits));
}
