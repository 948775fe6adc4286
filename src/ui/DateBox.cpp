#include "ui/DateBox.h"

#include "core/Clock.h"
#include "core/EntryChecks.h"

#include <QCalendarWidget>
#include <QLineEdit>

DateBox::DateBox(QWidget *parent) : QComboBox(parent), m_calendar(new QCalendarWidget(this))
{
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    lineEdit()->setPlaceholderText(QStringLiteral("mm/dd/yyyy"));
    m_calendar->setWindowFlags(Qt::Popup);
    m_calendar->setGridVisible(true);
    m_calendar->hide();
    connect(m_calendar, &QCalendarWidget::clicked, this, [this](QDate date) {
        setEditText(EntryChecks::formatLongDate(date));
        hidePopup();
    });
}

void DateBox::showPopup()
{
    const auto typed = EntryChecks::parseDate(currentText());
    m_calendar->setSelectedDate(typed ? *typed : Clock::today());
    m_calendar->move(mapToGlobal(QPoint(0, height())));
    m_calendar->show();
    m_calendar->setFocus();
}

void DateBox::hidePopup()
{
    m_calendar->hide();
    QComboBox::hidePopup();
}
