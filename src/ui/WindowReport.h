#pragma once

#include <QObject>

class Interaction;
class QWidget;

// Tells the interaction seam when a secondary window is shown and when it is
// closed, under the window's object name. Hiding the window counts as closing
// it; being hidden along with the window beneath it does not.
class WindowReport : public QObject
{
public:
    // Watches the window for as long as it lives.
    static void watch(QWidget *window, Interaction &interaction);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    WindowReport(QWidget *window, Interaction &interaction);

    QWidget *m_window;
    Interaction &m_interaction;
    bool m_shown = false;
};
