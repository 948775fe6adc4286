#include "app/AppPaths.h"
#include "app/MainForm.h"
#include "app/ScriptRunner.h"
#include "app/StartForm.h"
#include "core/Clock.h"
#include "core/EntryChecks.h"
#include "records/UnitOfWork.h"
#include "ui/DesktopInteraction.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>
#include <QTextStream>

#include <cstdio>
#include <cstdlib>

namespace {

QStringList rawArguments(int argc, char **argv)
{
    QStringList args;
    for (int i = 0; i < argc; ++i)
        args << QString::fromLocal8Bit(argv[i]);
    return args;
}

} // namespace

int main(int argc, char **argv)
{
    const QStringList args = rawArguments(argc, argv);
    const bool scripted = args.contains(QStringLiteral("--script"));
    // Scenario scripts run without a display and never reach the real desktop.
    if (scripted && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");

    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("quillmere"));
    QApplication::setApplicationDisplayName(QStringLiteral("Quillmere"));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Quillmere: household bank registers and budget"));
    parser.addHelpOption();
    const QCommandLineOption home(QStringLiteral("home"),
                                  QStringLiteral("Folder that holds the Data folder."),
                                  QStringLiteral("DIR"));
    const QCommandLineOption script(QStringLiteral("script"),
                                    QStringLiteral("Run a scenario script headless."),
                                    QStringLiteral("FILE"));
    const QCommandLineOption today(QStringLiteral("today"),
                                   QStringLiteral("Take this date as today."),
                                   QStringLiteral("MM/DD/YYYY"));
    const QCommandLineOption screen(QStringLiteral("screen"),
                                    QStringLiteral("Take the screen to be this size."),
                                    QStringLiteral("WxH"));
    const QCommandLineOption pictures(
        QStringLiteral("pictures"),
        QStringLiteral("With --script: save a picture of each window the layout command checks."),
        QStringLiteral("DIR"));
    parser.addOptions({home, script, today, screen, pictures});
    parser.process(app);

    QTextStream err(stderr);
    StartForm::Options options;
    options.appPath
        = AppPaths::resolveAppPath(parser.value(home), QApplication::applicationDirPath());
    options.exeBaseName = QFileInfo(QApplication::applicationFilePath()).completeBaseName();
    if (parser.isSet(screen)) {
        const QStringList wh = parser.value(screen).split(QLatin1Char('x'));
        bool okW = false, okH = false;
        if (wh.size() == 2)
            options.screen = QSize(wh[0].toInt(&okW), wh[1].toInt(&okH));
        if (!okW || !okH) {
            err << "--screen wants WIDTHxHEIGHT, for example 1024x768\n";
            return 2;
        }
    }
    if (parser.isSet(today)) {
        const auto date = EntryChecks::parseDate(parser.value(today));
        if (!date) {
            err << "--today wants a date MM/DD/YYYY\n";
            return 2;
        }
        Clock::setToday(*date);
    }

    // For tests that stop the program in the middle of writing.
    // Step 0 is the moment the journal is committed, before any data file is touched.
    bool stopSet = false;
    const int stopAfter = qEnvironmentVariableIntValue("QUILLMERE_STOP_AFTER_STEP", &stopSet);
    if (stopSet && stopAfter >= 0)
        UnitOfWork::setStepHook([stopAfter](int step) {
            if (step == stopAfter)
                std::_Exit(70);
        });

    if (parser.isSet(script)) {
        ScriptRunner runner(options);
        runner.setPictureFolder(parser.value(pictures));
        return runner.run(parser.value(script));
    }

    DesktopInteraction interaction;
    StartForm start(options, interaction);
    if (!start.start())
        return 0;
    interaction.setParentWindow(start.mainForm());
    return QApplication::exec();
}
