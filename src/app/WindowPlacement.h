#pragma once

#include <QPoint>
#include <QSize>

// Where CentreWindow puts a window: centred across, and a little above the
// middle (0.95 of the screen height) to leave room for the task bar.
inline QPoint centredPosition(const QSize &screen, const QSize &window)
{
    return QPoint((screen.width() - window.width()) / 2,
                  int((screen.height() * 0.95 - window.height()) / 2));
}
