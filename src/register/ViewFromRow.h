#pragma once

#include <QWidget>

class DateBox;
class QLabel;
class QPushButton;

// The register's "View From…" button and the row it opens: a prompt, a date
// box ("All" or a date) and OK. The panel decides what the date does.
class ViewFromRow : public QWidget
{
    Q_OBJECT

public:
    explicit ViewFromRow(QWidget *parent = nullptr);

    // Shows the prompt with the date box holding `shown` and gives it focus.
    void open(const QString &prompt, const QString &shown);
    void close();

Q_SIGNALS:
    void viewRequested();
    void dateChosen(const QString &typed);

private:
    QPushButton *m_view = nullptr;
    QLabel *m_prompt = nullptr;
    DateBox *m_date = nullptr;
    QPushButton *m_ok = nullptr;
};
