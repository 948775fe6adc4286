#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

class QAbstractButton;
class QWidget;

// Return (or Enter) in any text box, list box or date box of a panel presses
// the panel's main button, as a default button does in a dialog. Boxes whose
// Return means something of their own (a check-number prompt with its OK
// button, a grid's cell editor) are left out.
class ReturnKey : public QObject
{
    Q_OBJECT
public:
    // Watches every box under area that exists now, except those in skip.
    // Return presses the first of buttons that is shown and enabled (a panel
    // whose main button changes with its mode names each of them).
    static ReturnKey *install(QWidget *area, const QList<QAbstractButton *> &buttons,
                              const QList<QWidget *> &skip = {});

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    ReturnKey(QWidget *area, const QList<QAbstractButton *> &buttons);

    QList<QPointer<QAbstractButton>> m_buttons;
};
