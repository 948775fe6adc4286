#include "ui/DateBox.h"

#include "core/Clock.h"
#include "core/EntryChecks.h"

#include <QCalendarWidget>
#include <QLineEdit>
#include <QScreen>

#include <algorithm>

DateBox::DateBox(QWidget *parent) : QComboBox(parent)
{
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    lineEdit()->setPlaceholderText(QStringLiteral("mm/dd/yyyy"));
}

QRect DateBox::dropDownGeometry(const QRect &box, const QSize &size, const QRect &screen)
{
    const int x = std::max(screen.left(), std::min(box.left(), screen.right() + 1 - size.width()));
    int y = box.bottom() + 1;
    if (y + size.height() > screen.bottom() + 1) {
        if (box.top() - size.height() >= screen.top())
            y = box.top() - size.height();
        else
            y = std::max(screen.top(), screen.bottom() + 1 - size.height());
    }
    return QRect(QPoint(x, y), size);
}

void DateBox::showPopup()
{
    if (!m_calendar) {
        m_calendar = new QCalendarWidget(this);
        m_calendar->setWindowFlags(Qt::Popup);
        m_calendar->setGridVisible(true);
        connect(m_calendar, &QCalendarWidget::clicked, this, [this](QDate date) {
            setEditText(EntryChecks::formatLongDate(date));
            hidePopup();
        });
    }
    const auto typed = EntryChecks::parseDate(currentText());
    m_calendar->setSelectedDate(typed ? *typed : Clock::today());
    // The whole month shows: the calendar keeps its full size and goes where
    // there is room for it.
    const QRect box(mapToGlobal(QPoint(0, 0)), size());
    const QSize month = m_calendar->sizeHint();
    const QScreen *s = screen();
    m_calendar->setGeometry(s ? dropDownGeometry(box, month, s->availableGeometry())
                              : QRect(box.bottomLeft() + QPoint(0, 1), month));
    m_calendar->show();
    m_calendar->setFocus();
}

void DateBox::hidePopup()
{
    if (m_calendar)
        m_calendar->hide();
    QComboBox::hidePopup();
}
