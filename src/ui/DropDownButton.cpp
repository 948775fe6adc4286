#include "ui/DropDownButton.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPixmap>
#include <QStyle>
#include <QStyleOption>

#include <utility>

namespace {

QIcon arrowIcon(const QWidget *box)
{
    const qreal ratio = box->devicePixelRatioF();
    QPixmap pixmap(QSize(12, 12) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    QStyleOption option;
    option.initFrom(box);
    option.rect = QRect(0, 0, 12, 12);
    option.state |= QStyle::State_Enabled;
    box->style()->drawPrimitive(QStyle::PE_IndicatorArrowDown, &option, &painter, box);
    return QIcon(pixmap);
}

} // namespace

DropDownButton::DropDownButton(QLineEdit *box, const QString &toolTip, Opener opener)
    : QObject(box), m_box(box), m_opener(std::move(opener))
{
    setObjectName(QStringLiteral("dropDown"));
    m_arrow = box->addAction(arrowIcon(box), QLineEdit::TrailingPosition);
    // The arrow takes its room from the text: a box sized for its widest
    // figure grows by the arrow's width so that the figure still fits.
    const int room = box->style()->pixelMetric(QStyle::PM_LineEditIconSize, nullptr, box) + 6
                     + box->style()->pixelMetric(QStyle::PM_LineEditIconMargin, nullptr, box);
    if (box->minimumWidth() > 0)
        box->setMinimumWidth(box->minimumWidth() + room);
    if (box->maximumWidth() < QWIDGETSIZE_MAX)
        box->setMaximumWidth(box->maximumWidth() + room);
    m_arrow->setToolTip(toolTip);
    connect(m_arrow, &QAction::triggered, this, [this] { drop(); });
    box->installEventFilter(this);
}

DropDownButton *DropDownButton::of(const QLineEdit *box)
{
    return box ? box->findChild<DropDownButton *>(QStringLiteral("dropDown"),
                                                  Qt::FindDirectChildrenOnly)
               : nullptr;
}

QWidget *DropDownButton::drop()
{
    if (!m_box->isVisibleTo(m_box->window()) || !m_box->isEnabled() || m_box->isReadOnly())
        return nullptr;
    return m_opener(m_box);
}

bool DropDownButton::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        const bool f4 = key->key() == Qt::Key_F4 && key->modifiers() == Qt::NoModifier;
        const bool altDown = key->key() == Qt::Key_Down && key->modifiers() == Qt::AltModifier;
        if (f4 || altDown) {
            drop();
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}
