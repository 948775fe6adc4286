#include "app/ScriptRunner.h"

#include "app/MainForm.h"
#include "app/ScriptControls.h"
#include "app/ScriptInteraction.h"
#include "app/ScriptLine.h"
#include "core/Clock.h"
#include "core/EntryChecks.h"
#include "ui/LayoutCheck.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QPixmap>
#include <QThread>
#include <QTimer>

#include <cstdio>
#include <utility>

namespace {

void writeError(const QString &text)
{
    const QByteArray bytes = text.toUtf8() + '\n';
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stderr);
    std::fflush(stderr);
}

// The buttons an "answer" may name for the two windows every panel shares.
const QStringList MsgBoxButtons
    = {QStringLiteral("OK"), QStringLiteral("Yes"), QStringLiteral("No"), QStringLiteral("Cancel")};
const QStringList FundButtons
    = {QStringLiteral("Continue"), QStringLiteral("Cancel"), QStringLiteral("Close")};

QString canonical(const QString &word, const QStringList &allowed)
{
    for (const QString &a : allowed)
        if (a.compare(word, Qt::CaseInsensitive) == 0)
            return a;
    return QString();
}

} // namespace

ScriptRunner::ScriptRunner(StartForm::Options options) : m_options(std::move(options)) {}

ScriptRunner::~ScriptRunner()
{
    // The windows go before the seam they talk to.
    m_start.reset();
}

void ScriptRunner::fail(const QString &message) const
{
    throw Error{m_line, message};
}

void ScriptRunner::act(const QString &problem) const
{
    if (!problem.isEmpty())
        fail(problem);
}

int ScriptRunner::number(const QString &word, const QString &what) const
{
    bool ok = false;
    const int n = word.toInt(&ok);
    if (!ok)
        fail(QStringLiteral("%1 must be a whole number, not \"%2\"").arg(what, word));
    return n;
}

QWidget *ScriptRunner::control(const QString &name) const
{
    if (name.isEmpty())
        fail(QStringLiteral("a control name is missing"));
    requireRunning();
    QString error;
    QWidget *w = ScriptControls::find(name, &error);
    if (!w)
        fail(error);
    return w;
}

void ScriptRunner::startOnce()
{
    if (m_startTried)
        return;
    m_startTried = true;
    m_running = m_start->start();
    settle();
}

void ScriptRunner::requireRunning() const
{
    if (!m_running)
        fail(QStringLiteral("Quillmere is not running: start-up stopped (see the transcript)"));
}

void ScriptRunner::settle()
{
    // Queued signals, zero-time timers and deferred deletes run before the
    // next command, as they would while the user moves the mouse.
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents(QEventLoop::AllEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void ScriptRunner::checkFault()
{
    if (const auto fault = m_interaction->takeFault())
        fail(*fault);
}

void ScriptRunner::watchForModals()
{
    // A window that runs its own event loop without going through the
    // interaction seam would wait for ever without a display. It is closed,
    // and the script stops with an error after the command.
    m_modalWatch = std::make_unique<QTimer>();
    m_modalWatch->setInterval(50);
    QObject::connect(m_modalWatch.get(), &QTimer::timeout, m_modalWatch.get(), [this] {
        if (QThread::currentThread()->loopLevel() == 0)
            return;
        QWidget *modal = QApplication::activeModalWidget();
        if (!modal)
            return;
        m_interaction->addFault(
            QStringLiteral("window %1 (\"%2\") waited for an answer the script cannot give; "
                           "it was closed")
                .arg(modal->objectName(), modal->windowTitle()));
        // Closed as by the window frame (a message box takes its escape
        // button); a window that refuses to close is rejected.
        if (!modal->close())
            if (auto *dialog = qobject_cast<QDialog *>(modal))
                dialog->reject();
    });
    m_modalWatch->start();
}

void ScriptRunner::execute(const QString &command, ScriptLine &args)
{
    auto done = [&] {
        if (!args.error().isEmpty())
            fail(args.error());
        if (!args.atEnd())
            fail(QStringLiteral("too much on the line for %1").arg(command));
    };

    if (command == QStringLiteral("answer")) {
        const QString window = args.word();
        if (window.compare(QStringLiteral("filedialog"), Qt::CaseInsensitive) == 0) {
            // A path may hold blanks; "" cancels the dialog.
            const bool given = !args.atEnd();
            const QString path = args.rest();
            done();
            if (!given)
                fail(QStringLiteral("answer filedialog wants a path, or \"\" to cancel"));
            m_interaction->queueAnswer(QStringLiteral("filedialog"), path, m_line);
            return;
        }
        const QString button = args.word();
        done();
        if (window.isEmpty() || button.isEmpty())
            fail(QStringLiteral(
                "answer wants a window and a button, for example: answer msgbox Yes"));
        if (window.compare(QStringLiteral("msgbox"), Qt::CaseInsensitive) == 0) {
            const QString b = canonical(button, MsgBoxButtons);
            if (b.isEmpty())
                fail(QStringLiteral("a message box has no button %1 (OK, Yes, No or Cancel)")
                         .arg(button));
            m_interaction->queueAnswer(QStringLiteral("msgbox"), b, m_line);
        } else if (window.compare(QStringLiteral("frmFund"), Qt::CaseInsensitive) == 0) {
            const QString b = canonical(button, FundButtons);
            if (b.isEmpty())
                fail(QStringLiteral("frmFund has no button %1 (Continue, Cancel or Close)")
                         .arg(button));
            m_interaction->queueAnswer(QStringLiteral("frmFund"), b, m_line);
        } else {
            m_interaction->queueAnswer(window, button, m_line);
        }
        return;
    }
    if (command == QStringLiteral("today")) {
        const QString text = args.word();
        done();
        const auto date = EntryChecks::parseDate(text);
        if (!date)
            fail(QStringLiteral("today wants a date MM/DD/YYYY, not \"%1\"").arg(text));
        Clock::setToday(*date);
        return;
    }
    if (command == QStringLiteral("restart")) {
        done();
        if (!m_startTried) {
            startOnce();
            return;
        }
        m_start->stop();
        settle();
        m_running = m_start->start();
        return;
    }

    static const QStringList known
        = {QStringLiteral("panel"),  QStringLiteral("set"),       QStringLiteral("choose"),
           QStringLiteral("click"),  QStringLiteral("cell"),      QStringLiteral("select"),
           QStringLiteral("key"),    QStringLiteral("show"),      QStringLiteral("grid"),
           QStringLiteral("layout"), QStringLiteral("screenshot")};
    if (!known.contains(command))
        fail(QStringLiteral("unknown command %1").arg(command));
    startOnce();
    checkFault();

    if (command == QStringLiteral("panel")) {
        const QString panel = args.word();
        done();
        requireRunning();
        if (panel.isEmpty() || !m_start->mainForm()->showPanel(panel))
            fail(QStringLiteral("there is no panel %1").arg(panel));
        return;
    }
    const QString name = args.word();
    if (command == QStringLiteral("layout")) {
        const QString label = args.word();
        done();
        checkLayout(name, label.isEmpty() ? name : label);
    } else if (command == QStringLiteral("set")) {
        const QString text = args.rest();
        done();
        act(ScriptControls::setText(control(name), name, text));
    } else if (command == QStringLiteral("choose")) {
        if (args.peek() == QLatin1Char('#')) {
            const QString index = args.word();
            done();
            act(ScriptControls::chooseIndex(control(name), name,
                                            number(index.mid(1), QStringLiteral("#N"))));
        } else {
            const QString text = args.rest();
            done();
            act(ScriptControls::chooseText(control(name), name, text));
        }
    } else if (command == QStringLiteral("click")) {
        done();
        act(ScriptControls::click(control(name), name));
    } else if (command == QStringLiteral("cell")) {
        const QString row = args.word();
        const QString column = args.word();
        const QString click = args.word();
        done();
        const int r = number(row, QStringLiteral("ROW"));
        const int c = number(column, QStringLiteral("COL"));
        act(ScriptControls::clickCell(control(name), name, r, c, click));
    } else if (command == QStringLiteral("select")) {
        const QString first = args.word();
        const QString last = args.word();
        done();
        const int a = number(first, QStringLiteral("ROW1"));
        const int b = number(last, QStringLiteral("ROW2"));
        act(ScriptControls::selectRows(control(name), name, a, b));
    } else if (command == QStringLiteral("key")) {
        const QString key = args.word();
        done();
        if (key.isEmpty())
            fail(QStringLiteral("key wants a control and a key, for example: key txtAmount Enter"));
        act(ScriptControls::pressKey(control(name), name, key));
    } else if (command == QStringLiteral("show")) {
        done();
        m_interaction->writeLine(
            QStringLiteral("show %1 %2").arg(name, ScriptControls::describe(control(name))));
    } else if (command == QStringLiteral("screenshot")) {
        const QString file = args.rest();
        done();
        if (file.isEmpty())
            fail(QStringLiteral("screenshot wants a window or control and a file, for example: "
                                "screenshot MainForm shots/main.png"));
        act(ScriptControls::saveImage(control(name), name,
                                      QDir(m_options.appPath).absoluteFilePath(file)));
    } else if (command == QStringLiteral("grid")) {
        done();
        QStringList rows;
        act(ScriptControls::gridRows(control(name), name, &rows));
        for (const QString &row : rows)
            m_interaction->writeLine(QStringLiteral("grid %1 %2").arg(name, row));
    }
}

void ScriptRunner::checkLayout(const QString &name, const QString &label)
{
    QWidget *window = control(name);
    if (window != window->window())
        fail(QStringLiteral("layout wants a window, and %1 is a control").arg(name));
    if (!window->isVisible())
        fail(QStringLiteral("window %1 is not open").arg(name));
    const QStringList problems = LayoutCheck::problems(window);
    for (const QString &problem : problems)
        m_interaction->writeLine(QStringLiteral("layout %1: %2").arg(label, problem));
    if (problems.isEmpty())
        m_interaction->writeLine(QStringLiteral("layout %1 ok").arg(label));
    if (m_pictures.isEmpty())
        return;
    QDir().mkpath(m_pictures);
    const QString file = QStringLiteral("%1/%2-%3.png")
                             .arg(m_pictures)
                             .arg(++m_pictureCount, 2, 10, QLatin1Char('0'))
                             .arg(label);
    if (!window->grab().save(file))
        fail(QStringLiteral("cannot save the picture %1").arg(file));
}

int ScriptRunner::run(const QString &scriptPath)
{
    QFile file(scriptPath);
    if (!file.open(QIODevice::ReadOnly)) {
        writeError(
            QStringLiteral("%1: cannot read the script: %2").arg(scriptPath, file.errorString()));
        return 1;
    }
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    file.close();

    m_interaction = std::make_unique<ScriptInteraction>();
    m_interaction->setFileFolder(m_options.appPath);
    m_start = std::make_unique<StartForm>(m_options, *m_interaction);
    watchForModals();

    try {
        for (int i = 0; i < lines.size(); ++i) {
            QString text = lines[i];
            if (text.endsWith(QLatin1Char('\r')))
                text.chop(1);
            const QString trimmed = text.trimmed();
            if (trimmed.isEmpty() || trimmed.startsWith(QLatin1Char('#')))
                continue;
            m_line = i + 1;
            ScriptLine args(text);
            const QString command = args.word();
            try {
                execute(command, args);
            } catch (const Error &) {
                // A window left without an answer is what went wrong first.
                checkFault();
                throw;
            }
            settle();
            checkFault();
        }
        // A script without commands still starts the program: its start-up
        // messages are the transcript.
        m_line = std::max(m_line, 1);
        startOnce();
        checkFault();
        const auto &unused = m_interaction->queuedAnswers();
        if (!unused.empty()) {
            const auto &a = unused.front();
            m_line = a.line;
            fail(QStringLiteral("answer %1 %2 was never used").arg(a.window, a.button));
        }
    } catch (const Error &e) {
        writeError(QStringLiteral("%1:%2: %3").arg(scriptPath).arg(e.line).arg(e.message));
        m_interaction->closeTranscript();
        m_start->stop();
        return 1;
    }
    m_interaction->closeTranscript();
    m_start->stop();
    settle();
    return 0;
}
