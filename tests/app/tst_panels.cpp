// The panel registry of the main window: which panel a saved settings record
// opens, what showing a panel writes back, and the names scripts use.

#include "app/GeneralSettings.h"
#include "app/MainForm.h"
#include "app/ScriptInteraction.h"

#include <QApplication>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

using Values = PanelStates::Values;
Q_DECLARE_METATYPE(Values)

class PanelsTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    QStringList m_transcript;
    ScriptInteraction m_ui{[this](const QString &line) { m_transcript << line; }};

    void writeState(const Values &values)
    {
        GeneralSettings settings(m_dir.path());
        GenInfoRecord r = settings.load();
        r.PanelState = values;
        QVERIFY(settings.save(r).isEmpty());
    }
    Values savedState() const { return GeneralSettings(m_dir.path()).load().PanelState; }
    std::unique_ptr<MainForm> opened()
    {
        auto form = std::make_unique<MainForm>(m_ui, m_dir.path());
        form->load();
        return form;
    }
    static QString checkedButton(const MainForm &form)
    {
        for (const QPushButton *b : form.findChildren<QPushButton *>())
            if (b->isCheckable() && b->isChecked())
                return b->objectName();
        return QString();
    }

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_dir.isValid()); }

    // Settings records written before the registry open the panel they opened then.
    void savedStateOpensItsPanel_data()
    {
        QTest::addColumn<Values>("saved");
        QTest::addColumn<QString>("panel");
        QTest::addColumn<QString>("button");
        auto row = [](const char *name, Values saved, const char *panel, const char *button) {
            QTest::newRow(name) << saved << QString(panel) << QString(button);
        };
        row("register", {0, 0, 0, 0}, "register", "cmdRegister");
        row("transfers", {1, 0, 0, 0}, "transfer", "cmdTransfer");
        row("budget", {2, 0, 0, 0}, "budget", "cmdBudget");
        row("budget transfers", {3, 0, 2, 3}, "budgettransfer", "cmdBudgetTransfer");
        row("account form over budget", {2, 1, 0, 0}, "accounts", "cmdAccounts");
        row("unused value in place 1", {1, 3, 0, 0}, "transfer", "cmdTransfer");
        row("out of range", {7, -2, 0, 0}, "register", "cmdRegister");
    }
    void savedStateOpensItsPanel()
    {
        QFETCH(Values, saved);
        QFETCH(QString, panel);
        QFETCH(QString, button);
        writeState(saved);
        const auto form = opened();
        QCOMPARE(form->shownPanel(), panel);
        QCOMPARE(checkedButton(*form), button);
        QVERIFY(m_transcript.isEmpty());
    }

    // Showing a panel writes the values older versions wrote, and leaves the
    // places no panel uses as they were.
    void showingAPanelSavesIt()
    {
        writeState({2, 0, 3, 1});
        auto form = opened();
        QVERIFY(form->showPanel(QStringLiteral("accounts")));
        QCOMPARE(savedState(), (Values{2, 1, 3, 1}));
        form = opened();
        QCOMPARE(form->shownPanel(), QStringLiteral("accounts"));
        QVERIFY(form->showPanel(QStringLiteral("transfer")));
        QCOMPARE(savedState(), (Values{1, 0, 3, 1}));
        form = opened();
        QCOMPARE(form->shownPanel(), QStringLiteral("transfer"));

        QVERIFY(!form->showPanel(QStringLiteral("Register")));
        QCOMPARE(form->shownPanel(), QStringLiteral("transfer"));
        QCOMPARE(form->panelIds(),
                 (QStringList{"register", "transfer", "budget", "budgettransfer", "balancing",
                              "accounts", "archive", "search", "print", "charts"}));
        // The archive is never where a start opens; search, print and charts
        // are not remembered either: the saved state stays as it was.
        QVERIFY(form->showPanel(QStringLiteral("archive")));
        QVERIFY(form->showPanel(QStringLiteral("search")));
        QVERIFY(form->showPanel(QStringLiteral("print")));
        QVERIFY(form->showPanel(QStringLiteral("charts")));
        QCOMPARE(savedState(), (Values{1, 0, 3, 1}));
        // The balancing panel is not remembered: the next start shows the work panel.
        QVERIFY(form->showPanel(QStringLiteral("balancing")));
        form = opened();
        QCOMPARE(form->shownPanel(), QStringLiteral("transfer"));
    }
};

QTEST_MAIN(PanelsTest)
#include "tst_panels.moc"
