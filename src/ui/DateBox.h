#pragma once

#include <QComboBox>

class QCalendarWidget;

// A date box: the date is typed ("mm/dd/yy" or "mm/dd/yyyy") or picked from
// the drop-down calendar. The calendar is made the first time it is opened, so
// a window with many date boxes starts without building a calendar for each.
class DateBox : public QComboBox
{
    Q_OBJECT
public:
    explicit DateBox(QWidget *parent = nullptr);

    void showPopup() override;
    void hidePopup() override;

    // The drop-down calendar; null until the box was first opened.
    QCalendarWidget *calendar() const { return m_calendar; }

    // Where a drop-down of `size` goes for a box at `box` (both in screen
    // coordinates) on a screen whose free area is `screen`: below the box when
    // it fits there, otherwise above it, otherwise as low as the screen lets
    // it be, and never past the screen's left or right edge.
    static QRect dropDownGeometry(const QRect &box, const QSize &size, const QRect &screen);

private:
    QCalendarWidget *m_calendar = nullptr;
};
