#pragma once

#include <QString>
#include <QStringList>

#include <optional>

class QImage;

// Everything the program says to the user or does outside its own windows
// passes through here: message boxes, the warning window frmFund, other modal
// questions, file dialogs, beeps, print jobs, the clipboard, opened addresses
// and the showing and closing of secondary windows.
// The desktop answers with real dialogs; scenario scripts answer from a queue
// and keep a transcript.
class Interaction
{
public:
    enum class Icon { None, Information, Exclamation, Question, Critical };
    enum class Buttons { OK, OKCancel, YesNo, YesNoCancel };
    enum class Answer { OK, Cancel, Yes, No };
    enum class FileDialog { Open, Save };

    virtual ~Interaction() = default;

    virtual Answer messageBox(const QString &text, const QString &title, Icon icon, Buttons buttons)
        = 0;
    // frmFund: 0 when the user chose Continue, 1 for Cancel or closing the window.
    virtual int fund(const QString &title, const QString &text) = 0;
    // A modal window (its object name, such as "frmBalanceError") asks a
    // question and offers its buttons by caption. Returns the caption of the
    // button chosen, or an empty string when the window was closed instead
    // (which is all a seam that cannot ask does).
    virtual QString ask(const QString &window, const QString &text, const QStringList &buttons,
                        const QString &title = QString())
    {
        Q_UNUSED(window);
        Q_UNUSED(text);
        Q_UNUSED(buttons);
        Q_UNUSED(title);
        return QString();
    }
    // Asks for a file to read (import) or to write (export), starting in a
    // folder and offering names that fit the filter ("Text files (*.txt)").
    // Returns the full path chosen, or an empty string when cancelled.
    virtual QString fileDialog(FileDialog kind, const QString &title, const QString &folder,
                               const QString &filter)
    {
        Q_UNUSED(kind);
        Q_UNUSED(title);
        Q_UNUSED(folder);
        Q_UNUSED(filter);
        return QString();
    }
    virtual void beep() = 0;
    // Prints the lines as they are, one to a printed line, in a fixed-pitch
    // font: columns padded with blanks line up on paper. A line holding only a
    // form feed ("\f") starts a new page.
    virtual void print(const QString &job, const QStringList &lines) = 0;
    // Whether there is a printer to print on (the system's default printer).
    virtual bool printerInstalled() { return true; }
    // Shows the pages of a print job first; the user prints them from there.
    virtual void printPreview(const QString &job, const QStringList &lines) { print(job, lines); }
    // Writes the pages of a print job to a PDF file instead of a printer.
    virtual void printToPdf(const QString &job, const QStringList &lines, const QString &path)
    {
        Q_UNUSED(path);
        print(job, lines);
    }
    // A picture (a chart) printed on one page, as large as the page allows: on
    // the default printer, in the print preview, or into a PDF file at pdfPath.
    enum class PrintTarget { Printer, Preview, Pdf };
    virtual void printImage(const QString &job, const QImage &image, PrintTarget target,
                            const QString &pdfPath = QString())
    {
        Q_UNUSED(job);
        Q_UNUSED(image);
        Q_UNUSED(target);
        Q_UNUSED(pdfPath);
    }
    virtual void setClipboard(const QString &text) = 0;
    // What a paste would take: the text on the clipboard (none by default).
    virtual QString clipboardText() { return QString(); }
    virtual void openUrl(const QString &url) = 0;
    // A secondary window (tip window, calculator, ...) was shown or closed.
    virtual void windowEvent(const QString &name, bool shown) = 0;
    // One of the program's own modal windows (its object name) is about to ask
    // the user to choose one of its buttons (by object name). A seam that
    // answers for the user gives the button here and the window is not shown;
    // the desktop gives nothing and the window is shown as usual.
    virtual std::optional<QString> answerFor(const QString &window, const QString &text,
                                             const QStringList &buttons)
    {
        Q_UNUSED(window);
        Q_UNUSED(text);
        Q_UNUSED(buttons);
        return std::nullopt;
    }

    // Shorthand for the common OK-only box.
    void message(const QString &text, const QString &title, Icon icon = Icon::None)
    {
        messageBox(text, title, icon, Buttons::OK);
    }
};
