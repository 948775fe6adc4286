#include "ui/MoneyBox.h"

#include <QLineEdit>
#include <QStyle>
#include <QStyleOptionFrame>

void fitLargestAmount(QLineEdit *box)
{
    const QString largest = QStringLiteral("90,000,000,000.00");
    QStyleOptionFrame option;
    option.initFrom(box);
    option.lineWidth = box->hasFrame()
                           ? box->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, box)
                           : 0;
    const QMargins margins = box->textMargins();
    // A line edit keeps two pixels clear on each side of its text.
    const QSize text(box->fontMetrics().horizontalAdvance(largest) + 4 + margins.left()
                         + margins.right(),
                     box->fontMetrics().height());
    const QSize size = box->style()->sizeFromContents(QStyle::CT_LineEdit, &option, text, box);
    box->setMinimumWidth(size.width());
    if (box->maximumWidth() < size.width())
        box->setMaximumWidth(size.width());
}
