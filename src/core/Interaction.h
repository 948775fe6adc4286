#pragma once

#include <QString>
#include <QStringList>

// Everything the program says to the user or does outside its own windows
// passes through here: message boxes, the warning window frmFund, beeps, print
// jobs, the clipboard, opened addresses and the showing of secondary windows.
// The desktop answers with real dialogs; scenario scripts answer from a queue
// and keep a transcript.
class Interaction
{
public:
    enum class Icon { None, Information, Exclamation, Question, Critical };
    enum class Buttons { OK, OKCancel, YesNo, YesNoCancel };
    enum class Answer { OK, Cancel, Yes, No };

    virtual ~Interaction() = default;

    virtual Answer messageBox(const QString &text, const QString &title, Icon icon, Buttons buttons)
        = 0;
    // frmFund: 0 when the user chose Continue, 1 for Cancel or closing the window.
    virtual int fund(const QString &title, const QString &text) = 0;
    virtual void beep() = 0;
    virtual void print(const QString &job, const QStringList &lines) = 0;
    virtual void setClipboard(const QString &text) = 0;
    virtual void openUrl(const QString &url) = 0;
    // A secondary window (tip window, calculator, ...) was shown or closed.
    virtual void windowEvent(const QString &name, bool shown) = 0;

    // Shorthand for the common OK-only box.
    void message(const QString &text, const QString &title, Icon icon = Icon::None)
    {
        messageBox(text, title, icon, Buttons::OK);
    }
};
