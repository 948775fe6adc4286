#include "app/ScriptInteraction.h"

#include "app/ScriptLine.h"
#include "ui/ReportPainter.h"

#include <QCoreApplication>
#include <QDir>
#include <QImage>
#include <QUrl>

#include <cstdio>
#include <utility>

ScriptInteraction::ScriptInteraction(std::function<void(const QString &)> sink)
    : m_sink(std::move(sink))
{
    if (!m_sink)
        m_sink = [](const QString &line) {
            // Flushed line by line: a run that stops half way still leaves
            // everything up to that point in the transcript.
            const QByteArray bytes = line.toUtf8() + '\n';
            std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stdout);
            std::fflush(stdout);
        };
}

void ScriptInteraction::writeLine(const QString &line)
{
    if (!m_closed)
        m_sink(line);
}

void ScriptInteraction::queueAnswer(const QString &window, const QString &button, int line)
{
    m_answers.push_back({window, button, line});
}

std::optional<QString> ScriptInteraction::takeFault()
{
    return std::exchange(m_fault, std::nullopt);
}

void ScriptInteraction::addFault(const QString &fault)
{
    if (!m_fault)
        m_fault = fault;
}

std::optional<QString> ScriptInteraction::take(const QString &window, const QString &shownAs,
                                               const QStringList &buttons)
{
    if (m_answers.empty()) {
        addFault(QStringLiteral("%1 asks for one of %2 and no answer was queued (answer %3 ...)")
                     .arg(shownAs, buttons.join(QLatin1Char('/')), window));
        return std::nullopt;
    }
    const QueuedAnswer head = m_answers.front();
    if (head.window.compare(window, Qt::CaseInsensitive) != 0) {
        addFault(QStringLiteral("%1 came up, but the next queued answer (line %2) is for %3")
                     .arg(shownAs)
                     .arg(head.line)
                     .arg(head.window));
        return std::nullopt;
    }
    for (const QString &b : buttons) {
        if (b.compare(head.button, Qt::CaseInsensitive) == 0) {
            m_answers.pop_front();
            return b;
        }
    }
    addFault(QStringLiteral("%1 has no button %2 (queued on line %3); it offers %4")
                 .arg(shownAs, head.button)
                 .arg(head.line)
                 .arg(buttons.join(QLatin1Char('/'))));
    return std::nullopt;
}

QString ScriptInteraction::askWindow(const QString &window, const QStringList &buttons,
                                     const QString &fallback)
{
    return take(window, QStringLiteral("window %1").arg(window), buttons).value_or(fallback);
}

std::optional<QString> ScriptInteraction::answerFor(const QString &window, const QString &text,
                                                    const QStringList &buttons)
{
    // The same transcript line and queue as any other modal question; without
    // a fitting answer the window is left as by its close button.
    return ask(window, text, buttons);
}

QString ScriptInteraction::iconName(Icon icon)
{
    switch (icon) {
    case Icon::None:
        return QStringLiteral("none");
    case Icon::Information:
        return QStringLiteral("information");
    case Icon::Exclamation:
        return QStringLiteral("exclamation");
    case Icon::Question:
        return QStringLiteral("question");
    case Icon::Critical:
        return QStringLiteral("critical");
    }
    return QStringLiteral("none");
}

QString ScriptInteraction::buttonsName(Buttons buttons)
{
    return buttonNames(buttons).join(QString());
}

QStringList ScriptInteraction::buttonNames(Buttons buttons)
{
    switch (buttons) {
    case Buttons::OK:
        return {QStringLiteral("OK")};
    case Buttons::OKCancel:
        return {QStringLiteral("OK"), QStringLiteral("Cancel")};
    case Buttons::YesNo:
        return {QStringLiteral("Yes"), QStringLiteral("No")};
    case Buttons::YesNoCancel:
        return {QStringLiteral("Yes"), QStringLiteral("No"), QStringLiteral("Cancel")};
    }
    return {QStringLiteral("OK")};
}

Interaction::Answer ScriptInteraction::messageBox(const QString &text, const QString &title,
                                                  Icon icon, Buttons buttons)
{
    const QString shown = QStringLiteral("msgbox title=%1 text=%2 icon=%3 buttons=%4")
                              .arg(ScriptLine::quote(title), ScriptLine::quote(text),
                                   iconName(icon), buttonsName(buttons));
    QString chosen;
    if (buttons == Buttons::OK) {
        // A box that only informs answers itself; queued answers are left for
        // the boxes that ask something.
        chosen = QStringLiteral("OK");
    } else {
        const QStringList offered = buttonNames(buttons);
        if (const auto answer
            = take(QStringLiteral("msgbox"), QStringLiteral("a message box"), offered))
            chosen = *answer;
    }
    if (chosen.isEmpty()) {
        // The program carries on as if the box had been closed; the script
        // stops with an error after this command.
        writeLine(shown + QStringLiteral(" -> (no answer)"));
        return buttons == Buttons::YesNo ? Answer::No : Answer::Cancel;
    }
    writeLine(shown + QStringLiteral(" -> ") + chosen);
    if (chosen == QStringLiteral("Yes"))
        return Answer::Yes;
    if (chosen == QStringLiteral("No"))
        return Answer::No;
    if (chosen == QStringLiteral("Cancel"))
        return Answer::Cancel;
    return Answer::OK;
}

int ScriptInteraction::fund(const QString &title, const QString &text)
{
    const QString shown = QStringLiteral("fund title=%1 text=%2")
                              .arg(ScriptLine::quote(title), ScriptLine::quote(text));
    const auto answer
        = take(QStringLiteral("frmFund"), QStringLiteral("frmFund"),
               {QStringLiteral("Continue"), QStringLiteral("Cancel"), QStringLiteral("Close")});
    writeLine(shown + QStringLiteral(" -> ") + answer.value_or(QStringLiteral("(no answer)")));
    return answer && *answer == QStringLiteral("Continue") ? 0 : 1;
}

QString ScriptInteraction::ask(const QString &window, const QString &text,
                               const QStringList &buttons, const QString &title)
{
    QString shown = QStringLiteral("ask %1").arg(window);
    if (!title.isEmpty())
        shown += QStringLiteral(" title=") + ScriptLine::quote(title);
    shown += QStringLiteral(" text=") + ScriptLine::quote(text) + QStringLiteral(" buttons=");
    QStringList quoted;
    for (const QString &b : buttons)
        quoted << ScriptLine::quote(b);
    shown += quoted.join(QLatin1Char(' '));
    const auto answer = take(window, QStringLiteral("window %1").arg(window), buttons);
    writeLine(shown + QStringLiteral(" -> ")
              + (answer ? ScriptLine::quote(*answer) : QStringLiteral("(no answer)")));
    return answer.value_or(QString());
}

QString ScriptInteraction::fileDialog(FileDialog kind, const QString &title, const QString &,
                                      const QString &filter)
{
    const QString shown
        = QStringLiteral("filedialog %1 title=%2 filter=%3")
              .arg(kind == FileDialog::Open ? QStringLiteral("open") : QStringLiteral("save"),
                   ScriptLine::quote(title), ScriptLine::quote(filter));
    const QString window = QStringLiteral("filedialog");
    if (m_answers.empty() || m_answers.front().window.compare(window, Qt::CaseInsensitive) != 0) {
        // Asks for the path, and there is none to give: it is cancelled.
        take(window, QStringLiteral("a file dialog"), {QStringLiteral("PATH")});
        writeLine(shown + QStringLiteral(" -> (no answer)"));
        return QString();
    }
    const QString path = m_answers.front().button;
    m_answers.pop_front();
    writeLine(shown + QStringLiteral(" -> ") + ScriptLine::quote(path));
    if (path.isEmpty())
        return QString();
    return QDir::cleanPath(QDir(m_fileFolder).absoluteFilePath(path));
}

void ScriptInteraction::beep()
{
    writeLine(QStringLiteral("beep"));
}

void ScriptInteraction::print(const QString &job, const QStringList &lines)
{
    printed(QStringLiteral("print job=") + ScriptLine::quote(job), lines);
}

void ScriptInteraction::printPreview(const QString &job, const QStringList &lines)
{
    printed(QStringLiteral("print job=") + ScriptLine::quote(job) + QStringLiteral(" preview"),
            lines);
}

void ScriptInteraction::printToPdf(const QString &job, const QStringList &lines,
                                   const QString &path)
{
    // The file is written as on the desktop; the transcript names it from
    // the home folder, so that it reads the same from run to run.
    const bool written = ReportPainter::writePdf(path, job, lines);
    printed(QStringLiteral("print job=") + ScriptLine::quote(job) + QStringLiteral(" pdf=")
                + ScriptLine::quote(QDir(m_fileFolder).relativeFilePath(path))
                + (written ? QString() : QStringLiteral(" (not written)")),
            lines);
}

void ScriptInteraction::printImage(const QString &job, const QImage &image, PrintTarget target,
                                   const QString &pdfPath)
{
    QString line = QStringLiteral("print job=") + ScriptLine::quote(job)
                   + QStringLiteral(" image=%1x%2").arg(image.width()).arg(image.height());
    if (target == PrintTarget::Preview)
        line += QStringLiteral(" preview");
    if (target == PrintTarget::Pdf) {
        const bool written = ReportPainter::writeImagePdf(pdfPath, job, image);
        line += QStringLiteral(" pdf=")
                + ScriptLine::quote(QDir(m_fileFolder).relativeFilePath(pdfPath))
                + (written ? QString() : QStringLiteral(" (not written)"));
    }
    writeLine(line);
}

void ScriptInteraction::printed(const QString &heading, const QStringList &lines)
{
    writeLine(heading);
    for (const QString &line : lines)
        writeLine(QStringLiteral("| ") + ScriptLine::escape(line, false));
}

void ScriptInteraction::setClipboard(const QString &text)
{
    m_clipboard = text;
    writeLine(QStringLiteral("clipboard text=") + ScriptLine::quote(text));
}

void ScriptInteraction::openUrl(const QString &url)
{
    // A document of the program's own folder (the user manual) is named from
    // that folder, so that the transcript reads the same wherever it is built.
    QString shown = url;
    const QUrl u(url);
    if (u.isLocalFile()) {
        const QString relative
            = QDir(QCoreApplication::applicationDirPath()).relativeFilePath(u.toLocalFile());
        if (!relative.startsWith(QLatin1String("..")))
            shown = relative + (u.hasFragment() ? QLatin1Char('#') + u.fragment() : QString());
    }
    writeLine(QStringLiteral("open url=") + ScriptLine::quote(shown));
}

void ScriptInteraction::windowEvent(const QString &name, bool shown)
{
    writeLine(QStringLiteral("window %1 %2")
                  .arg(name, shown ? QStringLiteral("shown") : QStringLiteral("closed")));
}
