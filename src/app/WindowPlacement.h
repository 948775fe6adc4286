#pragma once

#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>

// Where CentreWindow puts a window: centred across, and a little above the
// middle (0.95 of the screen height) to leave room for the task bar.
inline QPoint centredPosition(const QSize &screen, const QSize &window)
{
    return QPoint((screen.width() - window.width()) / 2,
                  int((screen.height() * 0.95 - window.height()) / 2));
}

// Whether a window may open where it was last: enough of its top edge, where
// it is grabbed to be moved, lies on one of the screens (a screen since
// unplugged, or made smaller, may have left it nowhere to be seen).
inline bool placementUsable(const QRect &window, const QList<QRect> &screens)
{
    if (!window.isValid())
        return false;
    const QRect grip(window.left(), window.top(), window.width(), 30);
    for (const QRect &screen : screens) {
        const QRect seen = screen.intersected(grip);
        if (seen.width() >= 100 && seen.height() >= 20)
            return true;
    }
    return false;
}
