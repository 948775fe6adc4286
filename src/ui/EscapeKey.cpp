#include "ui/EscapeKey.h"

#include <QAbstractButton>
#include <QPointer>
#include <QShortcut>

void EscapeKey::install(QWidget *panel, QAbstractButton *button, std::function<bool()> when)
{
    auto *key = new QShortcut(QKeySequence(Qt::Key_Escape), panel);
    key->setContext(Qt::WidgetWithChildrenShortcut);
    QObject::connect(key, &QShortcut::activated, button,
                     [target = QPointer<QAbstractButton>(button), when = std::move(when)] {
                         if (target && target->isVisible() && target->isEnabled()
                             && (!when || when()))
                             target->click();
                     });
}
