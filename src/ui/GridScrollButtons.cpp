#include "ui/GridScrollButtons.h"

#include "ui/PictureButton.h"

#include <QAbstractItemView>
#include <QHBoxLayout>
#include <QScrollBar>

GridScrollButtons::GridScrollButtons(QAbstractItemView *grid, const QString &pictures,
                                     QWidget *parent)
    : QWidget(parent)
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    const struct
    {
        FramePictures::Kind kind;
        const char *name;
        const char *tip;
        QAbstractSlider::SliderAction action;
    } buttons[] = {
        {FramePictures::Kind::Up, "cmdScrollUp", "Scroll up a page",
         QAbstractSlider::SliderPageStepSub},
        {FramePictures::Kind::Down, "cmdScrollDown", "Scroll down a page",
         QAbstractSlider::SliderPageStepAdd},
    };
    for (const auto &b : buttons) {
        auto *button = new PictureButton(b.kind, pictures, this);
        button->setObjectName(QString::fromLatin1(b.name));
        button->setToolTip(tr(b.tip));
        button->setAutoRepeat(true);
        const QAbstractSlider::SliderAction action = b.action;
        connect(button, &QAbstractButton::clicked, grid,
                [grid, action] { grid->verticalScrollBar()->triggerAction(action); });
        layout->addWidget(button);
    }
}
