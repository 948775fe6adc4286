#include "ui/WindowReport.h"

#include "core/Interaction.h"

#include <QEvent>
#include <QWidget>

WindowReport::WindowReport(QWidget *window, Interaction &interaction)
    : QObject(window), m_window(window), m_interaction(interaction)
{
}

void WindowReport::watch(QWidget *window, Interaction &interaction)
{
    window->installEventFilter(new WindowReport(window, interaction));
}

bool WindowReport::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_window) {
        if (event->type() == QEvent::Show && !m_shown) {
            m_shown = true;
            m_interaction.windowEvent(m_window->objectName(), true);
        } else if (event->type() == QEvent::Hide && m_shown && m_window->isHidden()) {
            m_shown = false;
            m_interaction.windowEvent(m_window->objectName(), false);
        }
    }
    return QObject::eventFilter(watched, event);
}
