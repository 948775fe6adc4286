#include "app/WindowUtils.h"

#include "app/WindowPlacement.h"

#include <QScreen>
#include <QWidget>
#include <QWindow>

#include <algorithm>

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
    QPoint pos = area.topLeft() + centredPosition(area.size(), window->frameGeometry().size());
    // A window nearly as tall as the screen would lose its top edge.
    pos.setY(std::max(pos.y(), screen->availableGeometry().top()));
    window->move(pos);
}
