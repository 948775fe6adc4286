#pragma once

#include <QSize>
#include <QString>

#include <memory>

class Interaction;
class MainForm;
class QLockFile;
class TipForm;

// The start of a run: makes sure the program can run here, then hands over to
// the main window. Owns the windows and the one-copy lock for as long as the
// run lasts.
class StartForm
{
public:
    struct Options
    {
        QString appPath; // the folder that holds "Data" and the manifest
        QString exeBaseName = QStringLiteral("quillmere");
        QSize screen; // when valid, used instead of the real screen
    };

    StartForm(Options options, Interaction &interaction);
    ~StartForm();

    // Manifest check, run checks and hand-over. True when the main window is shown.
    bool start();
    // Closes every window and releases the data folder.
    void stop();

    MainForm *mainForm() const { return m_main.get(); }
    QString dataDir() const;

private:
    void manifestCheck();
    QSize screenSize() const;

    Options m_options;
    Interaction &m_interaction;
    std::unique_ptr<QLockFile> m_lock;
    std::unique_ptr<MainForm> m_main;
    std::unique_ptr<TipForm> m_tip;
    bool m_remembersPlacement = false;
};
