#pragma once

#include <QFrame>

class QLabel;
class QPlainTextEdit;

// picHelp: the help panel under the work area. It shows the help text of the
// panel in front (from HelpTexts) and offers the user manual, which F1 asks
// for too, in every window of the program (modal ones included).
class HelpPanel : public QFrame
{
    Q_OBJECT
public:
    explicit HelpPanel(QWidget *parent = nullptr);

    // Shows the help of this panel (its id in the work area).
    void follow(const QString &panelId);

Q_SIGNALS:
    void manualRequested();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QLabel *m_title;
    QPlainTextEdit *m_text;
};
