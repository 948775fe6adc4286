#pragma once

#include <QString>
#include <QStringList>

// The desk calculator behind CalculatorForm: immediate execution (each
// operator applies the one pending before it, no precedence), a memory, a
// choice of decimal places and a paper tape. Figures are doubles; the display
// is a text the form shows as it is.
//
// Entry state "NUM": the display holds a number the next operator will use.
// Entry state "OPS": an operator was just applied; the display shows its
// result and the next digit starts a new number.
class CalculatorEngine
{
public:
    enum class Op { None, Divide, Add, Multiply, Subtract, Equals };
    enum class Entry { Num, Ops };
    enum class Outcome {
        Done,
        Refused,     // nothing changed; the key made no sense here (the form beeps)
        DivideByZero // nothing changed; the form shows "Divide by zero Error"
    };

    static constexpr int MaxPlaces = 4;
    static constexpr int StartPlaces = 2;
    // Digits a typed number may have, and the size a result may reach: beyond
    // them a double no longer holds every cent.
    static constexpr int MaxDigits = 15;
    static constexpr double MaxResult = 1e15;
    // Width of the number column of a tape line.
    static constexpr int TapeNumberWidth = 18;

    static const QString DivideByZeroText;
    static const QString MaxNumberText;
    static const QString NegativeText;

    CalculatorEngine() = default;

    Outcome digit(int d);
    Outcome decimalPoint();
    Outcome applyOperator(Op op);
    Outcome percent();
    Outcome reciprocal();
    Outcome squareRoot();
    void negate();
    Outcome backspace();
    void clearEntry();
    // The whole calculation: display, accumulator and pending operator.
    void clearCalculation();
    // The calculation and the tape.
    void clearAll();

    void memoryAdd();
    void memorySubtract();
    void memoryRecall();
    void memoryClear();

    void setPlaces(int places);
    void setStartValue(double value);
    // A number from the clipboard ("$1,234.50", "(12.00)" and plain figures).
    Outcome paste(const QString &text);

    const QString &display() const { return m_display; }
    // The display as an amount box takes it: in the chosen places ("12.50",
    // and "12" rather than "12."), or as typed when it was typed with more.
    QString handBackText() const;
    // That figure as a number.
    double displayValue() const;
    // Why an amount box would refuse the display, or empty when it takes it.
    QString handBackProblem(bool negativesAllowed) const;

    int places() const { return m_places; }
    Op pending() const { return m_pending; }
    Entry entry() const { return m_entry; }
    double accumulator() const { return m_accumulator; }
    double memory() const { return m_memory; }
    bool hasMemory() const { return m_memory != 0.0; }
    const QStringList &tape() const { return m_tape; }

    // "#0." followed by one "0" for each place; never "-0.00".
    static QString format(double value, int places);
    // "0.0##############": results of 1/x and square roots on the tape.
    static QString formatPrecise(double value);
    static QString symbol(Op op);
    static QString entryName(Entry entry);

private:
    void showResult(double value);
    void appendLine(const QString &number, const QString &mark);
    void appendOperandLine(const QString &mark);
    QString operandText() const;
    void setTyped(const QString &text);
    int typedDigits() const;

    QString m_display = format(0.0, StartPlaces);
    double m_value = 0.0;  // the display's number, unrounded for results
    bool m_typing = false; // digits go onto the display rather than start a new number
    Entry m_entry = Entry::Ops;
    Op m_pending = Op::None;
    double m_accumulator = 0.0;
    double m_memory = 0.0;
    int m_places = StartPlaces;
    QStringList m_tape;
    int m_operatorLine = -1; // tape line of the operator last pressed, while in "OPS"
};
