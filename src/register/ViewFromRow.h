#pragma once

#include <QWidget>

class DateBox;
class QLabel;
class QPushButton;

// The register's "View From…" button and the row it opens: a prompt, a date
// box ("All" or a date) and OK. The panel decides what the date does, and
// where the button stands: the row is a line of its own below it, shown only
// while open, so the prompt never crowds the register's title.
class ViewFromRow : public QWidget
{
    Q_OBJECT

public:
    explicit ViewFromRow(QWidget *parent = nullptr);

    // Shows the prompt with the date box holding `shown` and gives it focus.
    void open(const QString &prompt, const QString &shown);
    void close();
    QPushButton *button() const { return m_view; }

Q_SIGNALS:
    void viewRequested();
    void dateChosen(const QString &typed);

private:
    QPushButton *m_view = nullptr;
    QLabel *m_prompt = nullptr;
    DateBox *m_date = nullptr;
    QPushButton *m_ok = nullptr;
};
