#include "ui/ReturnKey.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>

ReturnKey::ReturnKey(QWidget *area, const QList<QAbstractButton *> &buttons) : QObject(area)
{
    for (QAbstractButton *b : buttons)
        m_buttons << b;
}

ReturnKey *ReturnKey::install(QWidget *area, const QList<QAbstractButton *> &buttons,
                              const QList<QWidget *> &skip)
{
    auto *filter = new ReturnKey(area, buttons);
    QList<QWidget *> boxes;
    for (QComboBox *combo : area->findChildren<QComboBox *>()) {
        if (skip.contains(combo))
            continue;
        boxes << combo;
        // An editable list box hands its keys to its own text box.
        if (combo->lineEdit())
            boxes << combo->lineEdit();
    }
    for (QLineEdit *edit : area->findChildren<QLineEdit *>())
        if (!skip.contains(edit) && !boxes.contains(edit)
            && !qobject_cast<QComboBox *>(edit->parentWidget()))
            boxes << edit;
    for (QAbstractSpinBox *spin : area->findChildren<QAbstractSpinBox *>())
        if (!skip.contains(spin))
            boxes << spin;
    for (QWidget *box : boxes)
        box->installEventFilter(filter);
    return filter;
}

bool ReturnKey::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    if (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter)
        return false;
    if ((key->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
        return false;
    // An open drop-down list takes its own Return (the choice).
    if (auto *combo = qobject_cast<QComboBox *>(watched); combo && combo->view()->isVisible())
        return false;
    for (const QPointer<QAbstractButton> &button : m_buttons) {
        if (button && button->isVisible() && button->isEnabled()) {
            button->click();
            return true;
        }
    }
    return false;
}
