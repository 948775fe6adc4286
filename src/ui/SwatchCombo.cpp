#include "ui/SwatchCombo.h"

#include <QAbstractItemView>
#include <QStyleOptionComboBox>
#include <QStylePainter>

SwatchCombo::SwatchCombo(QWidget *parent) : QComboBox(parent) {}

QSize SwatchCombo::sizeHint() const
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    option.currentText.clear();
    return style()->sizeFromContents(QStyle::CT_ComboBox, &option, iconSize() + QSize(4, 4), this);
}

void SwatchCombo::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    option.currentText.clear();
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

void SwatchCombo::showPopup()
{
    // The list is as wide as its names, however narrow the box.
    view()->setMinimumWidth(view()->sizeHintForColumn(0) + 24);
    QComboBox::showPopup();
}
