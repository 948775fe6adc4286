#include "ui/KeyFilter.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QLineEdit>

#include <utility>

KeyFilter::KeyFilter(QLineEdit *box, QAbstractButton *confirm, Rule rule)
    : QObject(box), m_confirm(confirm), m_rule(std::move(rule))
{
    box->installEventFilter(this);
}

bool KeyFilter::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    switch (key->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        m_confirm->click();
        return true;
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Delete:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return false;
    default:
        return !m_rule(key->key(), key->text());
    }
}
