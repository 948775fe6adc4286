#pragma once

#include <functional>

class QAbstractButton;
class QWidget;

// Escape anywhere in a panel presses the button that clears it (or closes
// it), when that button is shown and enabled and `when` (if given) agrees.
// An open list or calendar takes its own Escape first.
class EscapeKey
{
public:
    static void install(QWidget *panel, QAbstractButton *button,
                        std::function<bool()> when = nullptr);
};
