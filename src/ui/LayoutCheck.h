#pragma once

#include <QStringList>

class QWidget;

// Looks at the controls a window shows and names those a user could not see
// whole: a control lying partly outside the window or cut by the frame around
// it, and two controls drawn over each other. Only what is visible counts, and
// only whole controls: a caption, a label or a closed list whose text does not
// fit is named too; the parts of a combo box or a grid are its own business.
class LayoutCheck
{
public:
    static QStringList problems(const QWidget *window);

    // How a control is named in a problem: its object name, or its kind and
    // caption when it has none.
    static QString nameOf(const QWidget *control);
};
