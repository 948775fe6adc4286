#include "ui/ErrorLabel.h"

#include "core/Interaction.h"

#include <QLabel>
#include <QPointer>
#include <QTimer>

void ShowEntryError(QLabel *label, const QString &text, Interaction &interaction)
{
    label->setText(text);
    label->setVisible(true);
    label->setStyleSheet(QStringLiteral("color: white; background: #c0392b; padding: 1px 4px;"));
    QPointer<QLabel> guard(label);
    QTimer::singleShot(700, label, [guard] {
        if (guard)
            guard->setStyleSheet(QStringLiteral("color: #c0392b; padding: 1px 4px;"));
    });
    interaction.beep();
}
