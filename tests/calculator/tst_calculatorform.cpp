#include "calculator/AmountCalculator.h"
#include "calculator/CalculatorForm.h"
#include "core/Interaction.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

namespace {

// Keeps what the calculator says and does instead of showing it.
class RecordingInteraction : public Interaction
{
public:
    Answer messageBox(const QString &text, const QString &title, Icon icon, Buttons) override
    {
        events << QStringLiteral("msgbox %1|%2|%3").arg(title, text).arg(int(icon));
        return Answer::OK;
    }
    int fund(const QString &, const QString &) override { return 1; }
    void beep() override { events << QStringLiteral("beep"); }
    void print(const QString &job, const QStringList &) override
    {
        events << QStringLiteral("print ") + job;
    }
    void setClipboard(const QString &text) override { clipboard = text; }
    QString clipboardText() override { return clipboard; }
    void openUrl(const QString &) override {}
    void windowEvent(const QString &name, bool shown) override
    {
        events << QStringLiteral("window %1 %2").arg(name, shown ? "shown" : "closed");
    }

    QStringList events;
    QString clipboard;
};

} // namespace

class CalculatorFormTest : public QObject
{
    Q_OBJECT

    RecordingInteraction m_seam;

    template<typename W> static W *control(QWidget *form, const char *name)
    {
        W *w = form->findChild<W *>(QString::fromLatin1(name));
        if (!w)
            qFatal("no control %s", name);
        return w;
    }
    static void click(QWidget *form, const char *name)
    {
        control<QPushButton>(form, name)->click();
    }
    static QString result(QWidget *form) { return control<QLabel>(form, "lblResult")->text(); }
    static QString message(QWidget *form)
    {
        return control<QLabel>(form, "lblCalcMessage")->text();
    }

private Q_SLOTS:
    void init() { m_seam = RecordingInteraction(); }

    // The tape follows the engine's: a replaced operator rewrites its line.
    void replacedOperatorRewritesTheTape()
    {
        CalculatorForm form(m_seam);
        for (const char *name : {"cmdNumber(2)", "cmdOperator(1)", "cmdOperator(3)"})
            click(&form, name);
        auto *tape = control<QListWidget>(&form, "lstTape");
        QCOMPARE(tape->count(), 1);
        QCOMPARE(tape->item(0)->text().trimmed(), QStringLiteral("2.00 -"));
    }

    void divideByZeroIsReported()
    {
        CalculatorForm form(m_seam);
        for (const char *name :
             {"cmdNumber(8)", "cmdOperator(0)", "cmdNumber(0)", "cmdOperator(4)"})
            click(&form, name);
        QCOMPARE(m_seam.events.size(), 1);
        QCOMPARE(result(&form), QStringLiteral("0"));
        // 1/x of zero is silently not computed; only a beep says the key did nothing.
        click(&form, "cmd1OverX");
        QCOMPARE(m_seam.events.last(), QStringLiteral("beep"));
        QCOMPARE(result(&form), QStringLiteral("0"));
    }

    // Delete clears the entry; the keyboard's other keys are driven by the
    // calculator scenario.
    void deleteClearsTheEntry()
    {
        CalculatorForm form(m_seam);
        form.show();
        QTest::keyClicks(&form, "12+99");
        QTest::keyClick(&form, Qt::Key_Delete);
        QCOMPARE(result(&form), QStringLiteral("0.00"));
        QTest::keyClicks(&form, "3=");
        QCOMPARE(result(&form), QStringLiteral("15.00"));
    }

    void refusedHandBack_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<bool>("negativesAllowed");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("handedBack"); // empty: refused
        auto row = [](const char *name, const char *typed, bool negativesAllowed, const char *shown,
                      const char *handedBack) {
            QTest::newRow(name) << QString(typed) << negativesAllowed << QString(shown)
                                << QString(handedBack);
        };
        row("negative", "5-8=", false, "                 Cannot enter a negative number", "");
        row("negative where allowed", "5-8=", true, "", "-3.00");
        row("too large", "9000000*10000=", false, "          Maximum Number 90,000,000,000", "");
        row("just below", "89999999999.99", false, "", "89999999999.99");
    }
    void refusedHandBack()
    {
        QFETCH(QString, typed);
        QFETCH(bool, negativesAllowed);
        QFETCH(QString, shown);
        QFETCH(QString, handedBack);
        CalculatorForm form(m_seam);
        form.setNegativesAllowed(negativesAllowed);
        form.show();
        QSignalSpy saved(&form, &CalculatorForm::valueSaved);
        QTest::keyClicks(&form, typed);
        click(&form, "cmdSave");
        QCOMPARE(message(&form), shown);
        QCOMPARE(saved.count(), handedBack.isEmpty() ? 0 : 1);
        QCOMPARE(form.isVisible(), handedBack.isEmpty());
        if (!handedBack.isEmpty()) {
            QCOMPARE(saved.at(0).at(0).toString(), handedBack);
            return;
        }
        // The next key clears the message; a figure the box takes goes back.
        QTest::keyClicks(&form, "7");
        QCOMPARE(message(&form), QString());
        click(&form, "cmdSave");
        QCOMPARE(saved.count(), 1);
        QCOMPARE(saved.at(0).at(0).toString(), QStringLiteral("7.00"));
    }

    // A printed tape is pinned by the calculator scenario; an empty one is not printed.
    void emptyTapeIsNotPrinted()
    {
        CalculatorForm form(m_seam);
        click(&form, "cmdPrint");
        QCOMPARE(m_seam.events, QStringList{QStringLiteral("beep")});
    }

    void amountBoxDropDown()
    {
        QWidget window;
        auto *box = new QLineEdit(&window);
        box->setText(QStringLiteral("$1,250.40"));
        AmountCalculator::attach(box, m_seam);
        window.show();
        QSignalSpy edited(box, &QLineEdit::textEdited);

        CalculatorForm *form = AmountCalculator::open(box);
        QVERIFY(form);
        QCOMPARE(result(form), QStringLiteral("1250.40"));
        QTest::keyClicks(form, "+9.6=");
        click(form, "cmdSave");
        QCOMPARE(box->text(), QStringLiteral("1260.00"));
        QCOMPARE(edited.count(), 1);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!window.findChild<CalculatorForm *>());

        // A negative figure stays in the calculator; Close leaves the box alone.
        QTest::keyClick(box, Qt::Key_F4);
        form = window.findChild<CalculatorForm *>();
        QVERIFY(form && form->isVisible());
        QTest::keyClicks(form, "-2000=");
        click(form, "cmdSave");
        QCOMPARE(message(form), CalculatorEngine::NegativeText);
        click(form, "cmdClose");
        QCOMPARE(box->text(), QStringLiteral("1260.00"));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

        // A box the user cannot reach opens nothing; text that is not a figure starts at 0.
        box->setEnabled(false);
        QVERIFY(!AmountCalculator::open(box));
        box->setEnabled(true);
        box->setText(QStringLiteral("abc"));
        form = AmountCalculator::open(box);
        QVERIFY(form);
        QCOMPARE(result(form), QStringLiteral("0.00"));
        form->close();
    }
};

QTEST_MAIN(CalculatorFormTest)
#include "tst_calculatorform.moc"
