#pragma once

#include <QObject>

#include <functional>

class QAction;
class QLineEdit;
class QWidget;

// Gives a line edit the drop-down arrow of a combo box: a small arrow button
// at its right end, also reached with F4 or Alt+Down while the box has the
// keyboard. The box stays an ordinary line edit with its own name and checks.
class DropDownButton : public QObject
{
    Q_OBJECT
public:
    // Opens what drops down from the box and hands back its window.
    using Opener = std::function<QWidget *(QLineEdit *box)>;

    DropDownButton(QLineEdit *box, const QString &toolTip, Opener opener);

    // The drop-down of a box, or null when it has none.
    static DropDownButton *of(const QLineEdit *box);

    // Opens what drops down, as the arrow does; null when the box is hidden,
    // disabled or read-only and so could not be reached.
    QWidget *drop();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QLineEdit *m_box;
    QAction *m_arrow;
    Opener m_opener;
};
