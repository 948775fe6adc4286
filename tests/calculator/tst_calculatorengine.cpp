#include "calculator/CalculatorEngine.h"

#include <QtTest>

using Op = CalculatorEngine::Op;
using Outcome = CalculatorEngine::Outcome;

namespace {

// One tape line: the figure right-aligned in its column, then the mark.
QString line(const QString &number, const QString &mark)
{
    return QLatin1Char(' ') + number.rightJustified(CalculatorEngine::TapeNumberWidth)
           + QLatin1Char(' ') + mark;
}

// Presses the keys of a sequence written as on the keys, blank-separated:
// numbers are typed digit by digit, "BS" is backspace, "CE", "C", "+/-",
// "1/x", "sqrt", "M+", "M-", "MR", "MC" and the operators as they read.
// Returns the outcome of the last key that was not Done, or Done.
Outcome press(CalculatorEngine &calc, const QString &keys)
{
    using Key = std::function<Outcome()>;
    const auto done = [](auto f) -> Key { return [f] { return f(), Outcome::Done; }; };
    const auto op = [&calc](Op o) -> Key { return [&calc, o] { return calc.applyOperator(o); }; };
    const QHash<QString, Key> named = {{"+", op(Op::Add)},
                                       {"-", op(Op::Subtract)},
                                       {"x", op(Op::Multiply)},
                                       {"/", op(Op::Divide)},
                                       {"=", op(Op::Equals)},
                                       {"%", [&] { return calc.percent(); }},
                                       {"1/x", [&] { return calc.reciprocal(); }},
                                       {"sqrt", [&] { return calc.squareRoot(); }},
                                       {"BS", [&] { return calc.backspace(); }},
                                       {"+/-", done([&] { calc.negate(); })},
                                       {"CE", done([&] { calc.clearEntry(); })},
                                       {"C", done([&] { calc.clearCalculation(); })},
                                       {"M+", done([&] { calc.memoryAdd(); })},
                                       {"M-", done([&] { calc.memorySubtract(); })},
                                       {"MR", done([&] { calc.memoryRecall(); })},
                                       {"MC", done([&] { calc.memoryClear(); })}};
    Outcome last = Outcome::Done;
    auto note = [&last](Outcome o) { last = o == Outcome::Done ? last : o; };
    for (const QString &k : keys.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        if (named.contains(k))
            note(named[k]());
        else
            for (const QChar c : k)
                note(c == QLatin1Char('.') ? calc.decimalPoint() : calc.digit(c.digitValue()));
    }
    return last;
}

} // namespace

class CalculatorEngineTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sequences_data()
    {
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QString>("display");
        QTest::addColumn<QStringList>("tape");

        auto row
            = [](const char *name, const char *keys, const char *display, const QStringList &tape) {
                  QTest::newRow(name) << QString(keys) << QString(display) << tape;
              };
        row("start", "", "0.00", {});
        row("typing shows the keys", "1.50", "1.50", {});
        row("leading zeros", "0 0 7", "7", {});
        row("point first", ".", "0.", {});
        row("second point ignored", "1.2.3", "1.23", {});
        row("immediate order, no precedence", "2 + 3 x 4 =", "20.00",
            {line("2.00", "+"), line("3.00", "x"), line("4.00", "="), line("20.00", "*")});
        row("result shown after each operator", "2 + 3 x", "5.00",
            {line("2.00", "+"), line("3.00", "x")});
        row("= repeated leaves the total", "2 + 3 = = =", "5.00",
            {line("2.00", "+"), line("3.00", "="), line("5.00", "*")});
        row("second operator replaces the first", "2 + x 3 =", "6.00",
            {line("2.00", "x"), line("3.00", "="), line("6.00", "*")});
        row("= straight after an operator", "2 + =", "2.00",
            {line("2.00", "="), line("2.00", "*")});
        row("total carried on", "2 + 3 = x 4 =", "20.00",
            {line("2.00", "+"), line("3.00", "="), line("5.00", "*"), line("5.00", "x"),
             line("4.00", "="), line("20.00", "*")});
        row("new number after a total starts again", "2 + 3 = 7 - 1 =", "6.00",
            {line("2.00", "+"), line("3.00", "="), line("5.00", "*"), line("7.00", "-"),
             line("1.00", "="), line("6.00", "*")});
        row("CE in the middle of a number", "2 + 35 CE 4 =", "6.00",
            {line("2.00", "+"), line("4.00", "="), line("6.00", "*")});
        row("CE then = uses zero", "2 + 3 CE =", "2.00",
            {line("2.00", "+"), line("0.00", "="), line("2.00", "*")});
        row("backspace over the point", "1.5 BS BS", "1", {});
        row("point again after backspace", "1.5 BS BS 2.25", "12.25", {});
        row("backspace to nothing", "7 BS BS", "0", {});
        row("backspace ignored on a result", "2 + 3 = BS", "5.00",
            {line("2.00", "+"), line("3.00", "="), line("5.00", "*")});
        row("negation of 0", "+/-", "0.00", {});
        row("negation of a typed 0", "0 +/-", "0", {});
        row("negation while typing", "5 +/- 3", "-53", {});
        row("negated operand", "2 + 5 +/- =", "-3.00",
            {line("2.00", "+"), line("-5.00", "="), line("-3.00", "*")});
        row("negated total", "2 + 3 = +/-", "-5.00",
            {line("2.00", "+"), line("3.00", "="), line("5.00", "*")});
        row("exact figures under a rounded display", "10 / 3 = x 3 =", "10.00",
            {line("10.00", "/"), line("3.00", "="), line("3.33", "*"), line("3.33", "x"),
             line("3.00", "="), line("10.00", "*")});
        row("more decimals than shown are written as typed", "1.234 + 1 =", "2.23",
            {line("1.234", "+"), line("1.00", "="), line("2.23", "*")});
        row("percent added", "200 + 10 %", "220.00",
            {line("200.00", "+"), line("10.00", "%"), line("220.00", "*")});
        row("percent of", "200 x 10 %", "20.00",
            {line("200.00", "x"), line("10.00", "%"), line("20.00", "*")});
        row("percent taken off", "200 - 10 %", "180.00",
            {line("200.00", "-"), line("10.00", "%"), line("180.00", "*")});
        row("as a percentage", "50 / 200 %", "25.00",
            {line("50.00", "/"), line("200.00", "%"), line("25.00", "*")});
        row("percent alone", "10 %", "0.10", {line("10.00", "%"), line("0.10", "*")});
        row("= after percent keeps it", "200 + 10 % =", "220.00",
            {line("200.00", "+"), line("10.00", "%"), line("220.00", "*")});
        row("reciprocal", "4 1/x", "0.25", {"1/x 0.25"});
        row("reciprocal on the tape unrounded", "3 1/x", "0.33", {"1/x 0.333333333333333"});
        row("reciprocal of 0 not computed", "0 1/x", "0", {});
        row("square root", "2 sqrt", "1.41", {"sqrt 1.414213562373095"});
        row("whole square root keeps one decimal", "9 sqrt", "3.00", {"sqrt 3.0"});
        row("root as an operand", "2 + 9 sqrt =", "5.00",
            {line("2.00", "+"), "sqrt 3.0", line("3.00", "="), line("5.00", "*")});
        row("square root of a negative not computed", "4 +/- sqrt", "-4", {});
        row("C keeps the tape", "2 + 3 C 4 =", "4.00",
            {line("2.00", "+"), line("4.00", "="), line("4.00", "*")});
        row("memory add on the tape", "12 M+ 3 M-", "3", {line("12.00", "M+"), line("3.00", "M-")});
        // A memory key leaves its figure ready for the next operator.
        row("operator after a memory key", "2 + 3 M+ =", "5.00",
            {line("2.00", "+"), line("3.00", "M+"), line("3.00", "="), line("5.00", "*")});
    }
    void sequences()
    {
        QFETCH(QString, keys);
        QFETCH(QString, display);
        QFETCH(QStringList, tape);
        CalculatorEngine calc;
        press(calc, keys);
        QCOMPARE(calc.display(), display);
        QCOMPARE(calc.tape(), tape);
    }

    void divideByZeroChangesNothing_data()
    {
        QTest::addColumn<QString>("zeroKey");
        for (const char *key : {"=", "+", "%"})
            QTest::newRow(key) << QString(key);
    }
    void divideByZeroChangesNothing()
    {
        QFETCH(QString, zeroKey);
        CalculatorEngine calc;
        press(calc, "8 / 0");
        const QString display = calc.display();
        const QStringList tape = calc.tape();
        QCOMPARE(press(calc, zeroKey), Outcome::DivideByZero);
        QCOMPARE(calc.display(), display);
        QCOMPARE(calc.tape(), tape);
        QCOMPARE(calc.accumulator(), 8.0);
        QCOMPARE(calc.pending(), Op::Divide);
        // The user can go on with another divisor.
        press(calc, "BS 4 =");
        QCOMPARE(calc.display(), QStringLiteral("2.00"));
    }

    void refusedKeysChangeNothing()
    {
        CalculatorEngine calc;
        QCOMPARE(press(calc, "123456789012345"), Outcome::Done);
        QCOMPARE(press(calc, "6"), Outcome::Refused);
        QCOMPARE(calc.display(), QStringLiteral("123456789012345"));
        QCOMPARE(press(calc, "x 10 ="), Outcome::Refused); // past what a double holds to the cent
        QCOMPARE(calc.display(), QStringLiteral("10"));
        QCOMPARE(press(calc, "C 0 1/x"), Outcome::Refused);
        QCOMPARE(press(calc, "."), Outcome::Done);
        QCOMPARE(press(calc, "."), Outcome::Refused);
    }

    void memory()
    {
        CalculatorEngine calc;
        QVERIFY(!calc.hasMemory());
        press(calc, "12.5 M+ 2.25 M+");
        QCOMPARE(calc.memory(), 14.75);
        QVERIFY(calc.hasMemory());
        press(calc, "0.75 M- C MR");
        QCOMPARE(calc.display(), QStringLiteral("14.00"));
        // The recalled figure is an operand; digits after it start a new number.
        press(calc, "+ MR =");
        QCOMPARE(calc.display(), QStringLiteral("28.00"));
        press(calc, "MR 5");
        QCOMPARE(calc.display(), QStringLiteral("5"));
        press(calc, "M- M- M- M-");
        QCOMPARE(calc.memory(), -6.0);
        press(calc, "MC");
        QVERIFY(!calc.hasMemory());
        press(calc, "MR");
        QCOMPARE(calc.display(), QStringLiteral("0.00"));
        // Adding its own negative brings the memory to zero.
        press(calc, "3 M+ 3 M-");
        QVERIFY(!calc.hasMemory());
    }

    void decimalPlaces()
    {
        CalculatorEngine calc;
        press(calc, "1.23456 M+ 2 / 3 =");
        calc.setPlaces(4);
        QCOMPARE(calc.display(), QStringLiteral("0.6667"));
        press(calc, "MR");
        QCOMPARE(calc.display(), QStringLiteral("1.2346"));
        calc.setPlaces(0);
        QCOMPARE(calc.display(), QStringLiteral("1."));
        press(calc, "MR");
        QCOMPARE(calc.display(), QStringLiteral("1."));
        press(calc, "+ 2 =");
        QCOMPARE(calc.display(), QStringLiteral("3."));
        QCOMPARE(calc.tape().last(), line("3.", "*"));
        QCOMPARE(calc.handBackText(), QStringLiteral("3"));
        // A number being typed stays as typed when the places change.
        press(calc, "7.5");
        calc.setPlaces(3);
        QCOMPARE(calc.display(), QStringLiteral("7.5"));
    }

    void formats_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<int>("places");
        QTest::addColumn<QString>("text");
        QTest::newRow("no places keeps the point") << 42.0 << 0 << "42.";
        QTest::newRow("four places") << 0.12345678 << 4 << "0.1235";
        QTest::newRow("leading zero") << 0.5 << 1 << "0.5";
        QTest::newRow("rounds to zero without a sign") << -0.001 << 2 << "0.00";
    }
    void formats()
    {
        QFETCH(double, value);
        QFETCH(int, places);
        QFETCH(QString, text);
        QCOMPARE(CalculatorEngine::format(value, places), text);
    }

    void startValueAndHandBack()
    {
        CalculatorEngine calc;
        calc.setStartValue(12.5);
        QCOMPARE(calc.display(), QStringLiteral("12.50"));
        QCOMPARE(calc.handBackText(), QStringLiteral("12.50"));
        // Typing replaces the start value; an operator works on it.
        press(calc, "+ 3 =");
        QCOMPARE(calc.handBackText(), QStringLiteral("15.50"));
        calc.setStartValue(7);
        press(calc, "4");
        QCOMPARE(calc.display(), QStringLiteral("4"));
        // The figure handed back is the one displayed.
        calc.setStartValue(2.0 / 3.0);
        QCOMPARE(calc.handBackText(), QStringLiteral("0.67"));
        // A typed figure goes back in the chosen places unless it has more.
        const struct
        {
            const char *typed;
            const char *handedBack;
        } typed[] = {{"42.5", "42.50"}, {"1.2345", "1.2345"}, {"1.000", "1.00"}, {"7.", "7.00"}};
        for (const auto &t : typed) {
            calc.clearCalculation();
            press(calc, QString::fromLatin1(t.typed));
            QCOMPARE(calc.handBackText(), QString::fromLatin1(t.handedBack));
        }
    }

    void handBackLimits_data()
    {
        QTest::addColumn<QString>("keys");
        QTest::addColumn<bool>("negativesAllowed");
        QTest::addColumn<QString>("problem");
        QTest::newRow("positive") << "12.34" << false << "";
        QTest::newRow("zero") << "0" << false << "";
        QTest::newRow("negative refused") << "5 +/-" << false << CalculatorEngine::NegativeText;
        QTest::newRow("negative result refused")
            << "5 - 6 =" << false << CalculatorEngine::NegativeText;
        QTest::newRow("negative where allowed") << "5 +/-" << true << "";
        QTest::newRow("a cent below the maximum") << "89999999999.99" << false << "";
        QTest::newRow("the maximum") << "90000000000" << false << CalculatorEngine::MaxNumberText;
        QTest::newRow("rounded up to the maximum")
            << "89999999999.999 =" << false << CalculatorEngine::MaxNumberText;
        QTest::newRow("large negative is too large first")
            << "90000000000 +/-" << false << CalculatorEngine::MaxNumberText;
        QTest::newRow("large negative where allowed")
            << "90000000000 +/-" << true << CalculatorEngine::MaxNumberText;
    }
    void handBackLimits()
    {
        QFETCH(QString, keys);
        QFETCH(bool, negativesAllowed);
        QFETCH(QString, problem);
        CalculatorEngine calc;
        press(calc, keys);
        QCOMPARE(calc.handBackProblem(negativesAllowed), problem);
    }

    void paste()
    {
        CalculatorEngine calc;
        QCOMPARE(calc.paste(QStringLiteral("$1,234.50")), Outcome::Done);
        QCOMPARE(calc.display(), QStringLiteral("1234.50"));
        press(calc, "+ 1 =");
        QCOMPARE(calc.display(), QStringLiteral("1235.50"));
        QCOMPARE(calc.paste(QStringLiteral("(12.00)")), Outcome::Done);
        QCOMPARE(calc.display(), QStringLiteral("-12.00"));
        QCOMPARE(calc.paste(QStringLiteral("twelve")), Outcome::Refused);
        QCOMPARE(calc.display(), QStringLiteral("-12.00"));
    }
};

QTEST_APPLESS_MAIN(CalculatorEngineTest)
#include "tst_calculatorengine.moc"
