#include "WindowUtils.h"

#include "WindowPlacement.h"

#include <QScreen>
#include <QWidget>
#include <QWindow>

void DragWindow(QWidget *window)
{
    if (QWindow *handle = window->window()->windowHandle())
        handle->startSystemMove();
}

void CentreWindow(QWidget *window)
{
    const QScreen *screen = window->screen();
    if (!screen)
        return;
    const QRect area = screen->geometry();
    window->move(area.topLeft() + centredPosition(area.size(), window->frameGeometry().size()));
}
