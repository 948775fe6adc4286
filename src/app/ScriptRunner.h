#pragma once

#include "app/StartForm.h"

#include <memory>

class ScriptInteraction;
class ScriptLine;
class QTimer;
class QWidget;

// Runs a scenario script against the real windows, without a display, and
// writes the transcript to stdout. The format is described in docs/scripting.md.
class ScriptRunner
{
public:
    explicit ScriptRunner(StartForm::Options options);
    ~ScriptRunner();

    // 0 at the end of the script, 1 on a script error (reported on stderr
    // as "FILE:LINE: message").
    int run(const QString &scriptPath);

    // Where the layout command saves a picture of each window it checks; no
    // pictures when empty.
    void setPictureFolder(const QString &folder) { m_pictures = folder; }

private:
    struct Error
    {
        int line;
        QString message;
    };

    void execute(const QString &command, ScriptLine &args);
    void startOnce();
    void requireRunning() const;
    void settle();
    void checkFault();
    QWidget *control(const QString &name) const;
    void act(const QString &problem) const;
    int number(const QString &word, const QString &what) const;
    void fail(const QString &message) const;
    void watchForModals();
    void checkLayout(const QString &name, const QString &label);

    StartForm::Options m_options;
    std::unique_ptr<ScriptInteraction> m_interaction;
    std::unique_ptr<StartForm> m_start;
    std::unique_ptr<QTimer> m_modalWatch;
    bool m_startTried = false;
    bool m_running = false;
    int m_line = 0;
    QString m_pictures;
    int m_pictureCount = 0;
};
