#pragma once

#include "core/Interaction.h"

#include <deque>
#include <functional>
#include <optional>

// The interaction seam for scenario scripts. Nothing is shown and nothing
// leaves the program: every message box, warning window, beep, print job,
// clipboard write, opened address and secondary window becomes one line of
// the transcript, and windows that ask the user something (file dialogs
// included) take their answer from a queue the script fills with "answer"
// commands.
class ScriptInteraction : public Interaction
{
public:
    struct QueuedAnswer
    {
        QString window; // "msgbox", "frmFund", "filedialog" or the name of another modal window
        QString button;
        int line = 0; // the script line that queued it
    };

    // Each transcript line goes to the sink; the default writes it to stdout at once.
    explicit ScriptInteraction(std::function<void(const QString &)> sink = {});

    void queueAnswer(const QString &window, const QString &button, int line);
    const std::deque<QueuedAnswer> &queuedAnswers() const { return m_answers; }

    // A modal window other than the message box and frmFund asks for one of
    // its buttons. Returns the queued answer, or the fallback (and records a
    // fault) when the script queued none that fits.
    QString askWindow(const QString &window, const QStringList &buttons, const QString &fallback);
    // The folder a relative path answered to a file dialog is taken from.
    void setFileFolder(const QString &folder) { m_fileFolder = folder; }

    // The first thing that went wrong since the last call: a window with a
    // choice that had no answer, or an answer that did not fit.
    std::optional<QString> takeFault();
    void addFault(const QString &fault);
    // The script is over: closing the program is not part of the transcript.
    void closeTranscript() { m_closed = true; }

    // Writes one line of the transcript.
    void writeLine(const QString &line);

    Answer messageBox(const QString &text, const QString &title, Icon icon,
                      Buttons buttons) override;
    int fund(const QString &title, const QString &text) override;
    QString ask(const QString &window, const QString &text, const QStringList &buttons,
                const QString &title = QString()) override;
    QString fileDialog(FileDialog kind, const QString &title, const QString &folder,
                       const QString &filter) override;
    void beep() override;
    void print(const QString &job, const QStringList &lines) override;
    void printPreview(const QString &job, const QStringList &lines) override;
    void printToPdf(const QString &job, const QStringList &lines, const QString &path) override;
    void printImage(const QString &job, const QImage &image, PrintTarget target,
                    const QString &pdfPath = QString()) override;
    void setClipboard(const QString &text) override;
    // The run has a clipboard of its own: what the program last put there.
    QString clipboardText() override { return m_clipboard; }
    void openUrl(const QString &url) override;
    void windowEvent(const QString &name, bool shown) override;
    std::optional<QString> answerFor(const QString &window, const QString &text,
                                     const QStringList &buttons) override;

    static QString iconName(Icon icon);
    static QString buttonsName(Buttons buttons);
    static QStringList buttonNames(Buttons buttons);

private:
    // A print job's first line, then its printed lines.
    void printed(const QString &heading, const QStringList &lines);
    // The head of the queue when it is meant for this window and names one of
    // its buttons; otherwise records a fault and gives nothing.
    std::optional<QString> take(const QString &window, const QString &shownAs,
                                const QStringList &buttons);

    std::function<void(const QString &)> m_sink;
    bool m_closed = false;
    std::deque<QueuedAnswer> m_answers;
    QString m_fileFolder;
    std::optional<QString> m_fault;
    QString m_clipboard;
};
