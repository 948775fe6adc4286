#include "app/StartForm.h"

#include "app/AppPaths.h"
#include "app/MainForm.h"
#include "app/SampleData.h"
#include "app/StartupChecks.h"
#include "app/TipForm.h"
#include "app/WindowPlacement.h"
#include "app/WindowUtils.h"
#include "core/Interaction.h"
#include "records/UnitOfWork.h"
#include "ui/WindowReport.h"

#include <QDir>
#include <QGuiApplication>
#include <QLockFile>
#include <QScreen>
#include <QSettings>

#include <utility>

namespace {

// The main window's size and place are kept in the per-user settings (the
// settings record of the data folder has no field for them).
const QString GeometryKey = QStringLiteral("Window/Geometry");
const QString MaximisedKey = QStringLiteral("Window/Maximised");

QSettings userSettings()
{
    return QSettings(QStringLiteral("quillmere"));
}

// Puts the window where it was last; false when there is no usable place.
bool restorePlacement(QWidget &window)
{
    const QSettings settings = userSettings();
    const QRect remembered = settings.value(GeometryKey).toRect();
    QList<QRect> screens;
    for (const QScreen *screen : QGuiApplication::screens())
        screens << screen->availableGeometry();
    if (!placementUsable(remembered, screens))
        return false;
    window.setGeometry(remembered);
    if (settings.value(MaximisedKey).toBool())
        window.setWindowState(Qt::WindowMaximized);
    return true;
}

} // namespace

StartForm::StartForm(Options options, Interaction &interaction)
    : m_options(std::move(options)), m_interaction(interaction)
{
}

StartForm::~StartForm()
{
    stop();
}

QString StartForm::dataDir() const
{
    return AppPaths::dataDir(m_options.appPath);
}

void StartForm::manifestCheck()
{
    // A new --home folder is made here, so that its manifest is written on the first start.
    QDir().mkpath(m_options.appPath);
    const QString path = StartupChecks::manifestPath(m_options.appPath, m_options.exeBaseName);
    if (StartupChecks::ensureManifest(path) == StartupChecks::ManifestResult::Created)
        m_interaction.message(StartupChecks::ManifestCreatedText,
                              StartupChecks::ManifestCreatedTitle, Interaction::Icon::Information);
}

QSize StartForm::screenSize() const
{
    if (m_options.screen.isValid())
        return m_options.screen;
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen ? screen->size() : QSize();
}

bool StartForm::start()
{
    stop();
    // The data folder is taken before anything is shown, so that a second copy
    // started at any moment of this one's life gives way.
    const QString data = dataDir();
    const QString problem = AppPaths::prepareDataDir(data);
    if (!problem.isEmpty()) {
        m_interaction.message(problem, QStringLiteral("Quillmere cannot use its data folder"),
                              Interaction::Icon::Critical);
        return false;
    }
    auto lock = std::make_unique<QLockFile>(data + QStringLiteral("/Quillmere.lock"));
    lock->setStaleLockTime(0);
    if (!lock->tryLock(0)) {
        m_interaction.message(StartupChecks::AlreadyRunningText, QStringLiteral("Quillmere"));
        return false;
    }
    m_lock = std::move(lock);

    manifestCheck();
    if (!StartupChecks::screenLargeEnough(screenSize())) {
        m_interaction.message(StartupChecks::SmallScreenText, StartupChecks::SmallScreenTitle,
                              Interaction::Icon::Exclamation);
        stop();
        return false;
    }
    const int showTips = TipForm::showTipsSetting();

    // An operation cut short last time is finished (or undone, or refused and
    // set aside) before anything is read.
    QString error;
    QString notice;
    if (!UnitOfWork::recover(data, &error, &notice)) {
        m_interaction.message(error
                                  + QStringLiteral("\n\nThe journal is kept; Quillmere tries "
                                                   "again at its next start."),
                              QStringLiteral("Quillmere cannot use its data folder"),
                              Interaction::Icon::Critical);
        stop();
        return false;
    }
    if (!notice.isEmpty())
        m_interaction.message(notice, QStringLiteral("Quillmere"), Interaction::Icon::Exclamation);
    UnitOfWork::setFailureReport([this](const QString &text, const QString &title) {
        m_interaction.message(text, title, Interaction::Icon::Critical);
    });
    error = SampleData::ensure(data);
    if (!error.isEmpty())
        m_interaction.message(QStringLiteral("The sample accounts could not be written:\n") + error,
                              QStringLiteral("Quillmere"), Interaction::Icon::Exclamation);

    m_main = std::make_unique<MainForm>(m_interaction, data);
    // Laid out for 1024 x 768; on a smaller screen it takes what there is (the
    // screen a script names, or the desktop's working area).
    QSize size(1024, 768);
    if (m_options.screen.isValid())
        size = size.boundedTo(m_options.screen);
    else if (const QScreen *s = m_main->screen())
        size = size.boundedTo(s->availableGeometry().size());
    m_main->resize(size);
    m_main->load();
    // A run on a screen of a given size (scripts, tests) neither reads nor
    // keeps the place of the window; the first run opens centred.
    m_remembersPlacement = !m_options.screen.isValid();
    const bool restored = m_remembersPlacement && restorePlacement(*m_main);
    m_main->show();
    if (!restored)
        CentreWindow(m_main.get());
    if (showTips == 1) {
        m_tip = std::make_unique<TipForm>(m_main.get());
        WindowReport::watch(m_tip.get(), m_interaction);
        // The keys go back to the main window once the tip is done with.
        QObject::connect(m_tip.get(), &QDialog::finished, m_main.get(), &QWidget::activateWindow);
        m_tip->show();
    }
    return true;
}

void StartForm::stop()
{
    UnitOfWork::setFailureReport({});
    if (m_tip && m_tip->isVisible())
        m_tip->done(QDialog::Rejected); // reports the window closed
    m_tip.reset();
    if (m_main && m_remembersPlacement) {
        QSettings settings = userSettings();
        settings.setValue(GeometryKey, m_main->normalGeometry());
        settings.setValue(MaximisedKey, m_main->isMaximized());
    }
    m_remembersPlacement = false;
    if (m_main)
        m_main->close();
    m_main.reset();
    if (m_lock)
        m_lock->unlock();
    m_lock.reset();
}
