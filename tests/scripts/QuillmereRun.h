#pragma once

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QTemporaryDir>

// Transcript lines most runs print.
namespace Transcript {
const QString Manifest = QStringLiteral("msgbox title=\"Application manifest file missing\" "
                                        "text=\"Did not find a Manifest file, so one has been "
                                        "created for you.\\nXP styles will be applied next time "
                                        "you run this application\" icon=information "
                                        "buttons=OK -> OK\n");
const QString Tip = QStringLiteral("window frmTip shown\n");
const QString Title = QStringLiteral("show lblTitle text=\"Quillmere\" visible=1 enabled=1\n");
} // namespace Transcript

// One run of the quillmere program on a script, the way the scenario driver
// runs it: headless, with its own per-user settings folder.
struct QuillmereRun
{
    int exitCode = -1;
    bool finished = false;
    QString out;
    QString err;

    struct Options
    {
        QString configDir; // XDG_CONFIG_HOME; empty: a fresh one
        QString screen = QStringLiteral("1024x768");
        QProcessEnvironment extraEnv;
    };

    static QuillmereRun run(const QString &home, const QString &script)
    {
        return run(home, script, Options());
    }
    static QuillmereRun run(const QString &home, const QString &script, const Options &options)
    {
        QuillmereRun r;
        QTemporaryDir scratch;
        const QString scriptPath = scratch.filePath(QStringLiteral("run.qms"));
        QFile f(scriptPath);
        if (!f.open(QIODevice::WriteOnly) || f.write(script.toUtf8()) < 0)
            return r;
        f.close();

        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        env.insert(QStringLiteral("XDG_CONFIG_HOME"),
                   options.configDir.isEmpty() ? scratch.filePath(QStringLiteral("config"))
                                               : options.configDir);
        env.remove(QStringLiteral("QUILLMERE_STOP_AFTER_STEP"));
        for (const QString &key : options.extraEnv.keys())
            env.insert(key, options.extraEnv.value(key));

        QProcess p;
        p.setProcessEnvironment(env);
        p.start(QStringLiteral(QUILLMERE_BINARY),
                {QStringLiteral("--home"), home, QStringLiteral("--script"), scriptPath,
                 QStringLiteral("--today"), QStringLiteral("11/21/2026"),
                 QStringLiteral("--screen"), options.screen});
        r.finished = p.waitForFinished(60000) && p.exitStatus() == QProcess::NormalExit;
        r.exitCode = p.exitCode();
        r.out = QString::fromUtf8(p.readAllStandardOutput());
        r.err = QString::fromUtf8(p.readAllStandardError());
        // The script file is named in error messages; tests compare what follows it.
        r.err.replace(scriptPath, QStringLiteral("run.qms"));
        return r;
    }
};
