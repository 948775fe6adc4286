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
    Outcome last = Outcome::Done;
    auto note = [&last](Outcome o) {
        if (o != Outcome::Done)
            last = o;
    };
    const QStringList words = keys.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString &k : words) {
        if (k == QStringLiteral("+"))
            note(calc.applyOperator(Op::Add));
        else if (k == QStringLiteral("-"))
            note(calc.applyOperator(Op::Subtract));
        else if (k == QStringLiteral("x"))
            note(calc.applyOperator(Op::Multiply));
        else if (k == QStringLiteral("/"))
            note(calc.applyOperator(Op::Divide));
        else if (k == QStringLiteral("="))
            note(calc.applyOperator(Op::Equals));
        else if (k == QStringLiteral("%"))
            note(calc.percent());
        else if (k == QStringLiteral("1/x"))
            note(calc.reciprocal());
        else if (k == QStringLiteral("sqrt"))
            note(calc.squareRoot());
        else if (k == QStringLiteral("+/-"))
            calc.negate();
        else if (k == QStringLiteral("BS"))
            note(calc.backspace());
        else if (k == QStringLiteral("CE"))
            calc.clearEntry();
        else if (k == QStringLiteral("C"))
            calc.clearCalculation();
        else if (k == QStringLiteral("M+"))
            calc.memoryAdd();
        else if (k == QStringLiteral("M-"))
            calc.memorySubtract();
        else if (k == QStringLiteral("MR"))
            calc.memoryRecall();
        else if (k == QStringLiteral("MC"))
            calc.memoryClear();
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

        QTest::newRow("start") << ""
                               << "0.00" << QStringList{};
        QTest::newRow("typing shows the keys") << "1.50"
                                               << "1.50" << QStringList{};
        QTest::newRow("leading zeros") << "0 0 7"
                                       << "7" << QStringList{};
        QTest::newRow("point first") << "."
                                     << "0." << QStringList{};
        QTest::newRow("second point ignored") << "1.2.3"
                                              << "1.23" << QStringList{};
        QTest::newRow("immediate order, no precedence")
            << "2 + 3 x 4 ="
            << "20.00"
            << QStringList{line("2.00", "+"), line("3.00", "x"), line("4.00", "="),
                           line("20.00", "*")};
        QTest::newRow("result shown after each operator")
            << "2 + 3 x"
            << "5.00" << QStringList{line("2.00", "+"), line("3.00", "x")};
        QTest::newRow("= repeated leaves the total")
            << "2 + 3 = = ="
            << "5.00" << QStringList{line("2.00", "+"), line("3.00", "="), line("5.00", "*")};
        QTest::newRow("second operator replaces the first")
            << "2 + x 3 ="
            << "6.00" << QStringList{line("2.00", "x"), line("3.00", "="), line("6.00", "*")};
        QTest::newRow("= straight after an operator")
            << "2 + ="
            << "2.00" << QStringList{line("2.00", "="), line("2.00", "*")};
        QTest::newRow("total carried on")
            << "2 + 3 = x 4 ="
            << "20.00" << QStringList{line("2.00", "+"), line("3.00", "="), line("5.00", "*"),
                                      line("5.00", "x"), line("4.00", "="), line("20.00", "*")};
        QTest::newRow("new number after a total starts again")
            << "2 + 3 = 7 - 1 ="
            << "6.00" << QStringList{line("2.00", "+"), line("3.00", "="), line("5.00", "*"),
                                     line("7.00", "-"), line("1.00", "="), line("6.00", "*")};
        QTest::newRow("CE in the middle of a number")
            << "2 + 35 CE 4 ="
            << "6.00" << QStringList{line("2.00", "+"), line("4.00", "="), line("6.00", "*")};
        QTest::newRow("CE then = uses zero")
            << "2 + 3 CE ="
            << "2.00" << QStringList{line("2.00", "+"), line("0.00", "="), line("2.00", "*")};
        QTest::newRow("backspace over the point") << "1.5 BS BS"
                                                  << "1" << QStringList{};
        QTest::newRow("point again after backspace") << "1.5 BS BS 2.25"
                                                     << "12.25" << QStringList{};
        QTest::newRow("backspace to nothing") << "7 BS BS"
                                              << "0" << QStringList{};
        QTest::newRow("backspace ignored on a result")
            << "2 + 3 = BS"
            << "5.00" << QStringList{line("2.00", "+"), line("3.00", "="), line("5.00", "*")};
        QTest::newRow("negation of 0") << "+/-"
                                       << "0.00" << QStringList{};
        QTest::newRow("negation of a typed 0") << "0 +/-"
                                               << "0" << QStringList{};
        QTest::newRow("negation while typing") << "5 +/- 3"
                                               << "-53" << QStringList{};
        QTest::newRow("negated operand")
            << "2 + 5 +/- ="
            << "-3.00" << QStringList{line("2.00", "+"), line("-5.00", "="), line("-3.00", "*")};
        QTest::newRow("negated total")
            << "2 + 3 = +/-"
            << "-5.00" << QStringList{line("2.00", "+"), line("3.00", "="), line("5.00", "*")};
        QTest::newRow("exact figures under a rounded display")
            << "10 / 3 = x 3 ="
            << "10.00" << QStringList{line("10.00", "/"), line("3.00", "="), line("3.33", "*"),
                                      line("3.33", "x"),  line("3.00", "="), line("10.00", "*")};
        QTest::newRow("more decimals than shown are written as typed")
            << "1.234 + 1 ="
            << "2.23" << QStringList{line("1.234", "+"), line("1.00", "="), line("2.23", "*")};
        QTest::newRow("percent added")
            << "200 + 10 %"
            << "220.00"
            << QStringList{line("200.00", "+"), line("10.00", "%"), line("220.00", "*")};
        QTest::newRow("percent of")
            << "200 x 10 %"
            << "20.00" << QStringList{line("200.00", "x"), line("10.00", "%"), line("20.00", "*")};
        QTest::newRow("percent taken off")
            << "200 - 10 %"
            << "180.00"
            << QStringList{line("200.00", "-"), line("10.00", "%"), line("180.00", "*")};
        QTest::newRow("as a percentage")
            << "50 / 200 %"
            << "25.00" << QStringList{line("50.00", "/"), line("200.00", "%"), line("25.00", "*")};
        QTest::newRow("percent alone")
            << "10 %"
            << "0.10" << QStringList{line("10.00", "%"), line("0.10", "*")};
        QTest::newRow("= after percent keeps it")
            << "200 + 10 % ="
            << "220.00"
            << QStringList{line("200.00", "+"), line("10.00", "%"), line("220.00", "*")};
        QTest::newRow("reciprocal") << "4 1/x"
                                    << "0.25" << QStringList{"1/x 0.25"};
        QTest::newRow("reciprocal on the tape unrounded")
            << "3 1/x"
            << "0.33" << QStringList{"1/x 0.333333333333333"};
        QTest::newRow("reciprocal of 0 not computed") << "0 1/x"
                                                      << "0" << QStringList{};
        QTest::newRow("square root") << "2 sqrt"
                                     << "1.41" << QStringList{"sqrt 1.414213562373095"};
        QTest::newRow("whole square root keeps one decimal") << "9 sqrt"
                                                             << "3.00" << QStringList{"sqrt 3.0"};
        QTest::newRow("root as an operand")
            << "2 + 9 sqrt ="
            << "5.00"
            << QStringList{line("2.00", "+"), "sqrt 3.0", line("3.00", "="), line("5.00", "*")};
        QTest::newRow("square root of a negative not computed") << "4 +/- sqrt"
                                                                << "-4" << QStringList{};
        QTest::newRow("C keeps the tape")
            << "2 + 3 C 4 ="
            << "4.00" << QStringList{line("2.00", "+"), line("4.00", "="), line("4.00", "*")};
        QTest::newRow("memory add on the tape")
            << "12 M+ 3 M-"
            << "3" << QStringList{line("12.00", "M+"), line("3.00", "M-")};
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

    void statesFollowTheKeys()
    {
        CalculatorEngine calc;
        QCOMPARE(CalculatorEngine::symbol(calc.pending()), QStringLiteral("NONE"));
        QCOMPARE(CalculatorEngine::entryName(calc.entry()), QStringLiteral("OPS"));
        press(calc, "2");
        QCOMPARE(CalculatorEngine::entryName(calc.entry()), QStringLiteral("NUM"));
        press(calc, "+");
        QCOMPARE(CalculatorEngine::entryName(calc.entry()), QStringLiteral("OPS"));
        QCOMPARE(CalculatorEngine::symbol(calc.pending()), QStringLiteral("+"));
        QCOMPARE(calc.accumulator(), 2.0);
        press(calc, "3 =");
        QCOMPARE(CalculatorEngine::symbol(calc.pending()), QStringLiteral("="));
        QCOMPARE(calc.accumulator(), 5.0);
        // Memory keys leave a number ready for the next operator.
        press(calc, "M+");
        QCOMPARE(CalculatorEngine::entryName(calc.entry()), QStringLiteral("NUM"));
    }

    void divideByZeroChangesNothing_data()
    {
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QString>("zeroKey");
        QTest::newRow("operator") << "8 / 0"
                                  << "=";
        QTest::newRow("chained operator") << "8 / 0"
                                          << "+";
        QTest::newRow("percent") << "8 / 0"
                                 << "%";
    }
    void divideByZeroChangesNothing()
    {
        QFETCH(QString, keys);
        QFETCH(QString, zeroKey);
        CalculatorEngine calc;
        press(calc, keys);
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
        QTest::newRow("two places") << 1234.5 << 2 << "1234.50";
        QTest::newRow("no places keeps the point") << 42.0 << 0 << "42.";
        QTest::newRow("four places") << 0.12345678 << 4 << "0.1235";
        QTest::newRow("leading zero") << 0.5 << 1 << "0.5";
        QTest::newRow("negative") << -3.25 << 2 << "-3.25";
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
