#pragma once

#include <QComboBox>

class QCalendarWidget;

// A date box: the date is typed ("mm/dd/yy" or "mm/dd/yyyy") or picked from
// the drop-down calendar.
class DateBox : public QComboBox
{
    Q_OBJECT
public:
    explicit DateBox(QWidget *parent = nullptr);

    void showPopup() override;
    void hidePopup() override;

private:
    QCalendarWidget *m_calendar;
};
