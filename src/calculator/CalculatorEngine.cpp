#include "calculator/CalculatorEngine.h"

#include "records/Currency.h"

#include <algorithm>
#include <cmath>

const QString CalculatorEngine::DivideByZeroText = QStringLiteral("Divide by zero Error");
const QString CalculatorEngine::MaxNumberText
    = QStringLiteral("          Maximum Number 90,000,000,000");
const QString CalculatorEngine::NegativeText
    = QStringLiteral("                 Cannot enter a negative number");

namespace {

// Amount boxes take figures below this size.
constexpr double AmountLimit = 90'000'000'000.0;

bool usable(double value)
{
    return std::isfinite(value) && std::fabs(value) < CalculatorEngine::MaxResult;
}

int decimalsOf(const QString &typed)
{
    const qsizetype point = typed.indexOf(QLatin1Char('.'));
    return point < 0 ? 0 : int(typed.size() - point - 1);
}

} // namespace

QString CalculatorEngine::format(double value, int places)
{
    QString text = QString::number(value, 'f', places);
    if (text.startsWith(QLatin1Char('-')) && text.toDouble() == 0.0)
        text.remove(0, 1);
    if (places == 0)
        text += QLatin1Char('.');
    return text;
}

QString CalculatorEngine::formatPrecise(double value)
{
    QString text = QString::number(value, 'f', 15);
    while (text.endsWith(QLatin1Char('0')) && !text.endsWith(QStringLiteral(".0")))
        text.chop(1);
    if (text.startsWith(QLatin1Char('-')) && text.toDouble() == 0.0)
        text.remove(0, 1);
    return text;
}

QString CalculatorEngine::symbol(Op op)
{
    switch (op) {
    case Op::None:
        return QStringLiteral("NONE");
    case Op::Divide:
        return QStringLiteral("/");
    case Op::Add:
        return QStringLiteral("+");
    case Op::Multiply:
        return QStringLiteral("x");
    case Op::Subtract:
        return QStringLiteral("-");
    case Op::Equals:
        return QStringLiteral("=");
    }
    return QString();
}

QString CalculatorEngine::entryName(Entry entry)
{
    return entry == Entry::Num ? QStringLiteral("NUM") : QStringLiteral("OPS");
}

void CalculatorEngine::setTyped(const QString &text)
{
    m_display = text;
    m_value = text.toDouble();
    m_typing = true;
    m_entry = Entry::Num;
}

int CalculatorEngine::typedDigits() const
{
    int digits = 0;
    for (const QChar c : m_display)
        digits += c.isDigit() ? 1 : 0;
    return digits;
}

CalculatorEngine::Outcome CalculatorEngine::digit(int d)
{
    if (d < 0 || d > 9)
        return Outcome::Refused;
    const QChar c(QLatin1Char(char('0' + d)));
    if (!m_typing) {
        setTyped(QString(c));
        return Outcome::Done;
    }
    // A lone zero is replaced rather than followed: "0" then "5" is "5".
    if (m_display == QStringLiteral("0") || m_display == QStringLiteral("-0")) {
        setTyped(m_display.chopped(1) + c);
        return Outcome::Done;
    }
    if (typedDigits() >= MaxDigits)
        return Outcome::Refused;
    setTyped(m_display + c);
    return Outcome::Done;
}

CalculatorEngine::Outcome CalculatorEngine::decimalPoint()
{
    if (!m_typing) {
        setTyped(QStringLiteral("0."));
        return Outcome::Done;
    }
    if (m_display.contains(QLatin1Char('.')))
        return Outcome::Refused;
    setTyped(m_display + QLatin1Char('.'));
    return Outcome::Done;
}

CalculatorEngine::Outcome CalculatorEngine::backspace()
{
    if (!m_typing)
        return Outcome::Refused;
    QString text = m_display.chopped(1);
    if (text.isEmpty() || text == QStringLiteral("-"))
        text = QStringLiteral("0");
    setTyped(text);
    return Outcome::Done;
}

QString CalculatorEngine::operandText() const
{
    // A typed number with more decimals than the display keeps is written as
    // typed, so the tape never shows a figure other than the one used.
    if (m_typing && decimalsOf(m_display) > m_places) {
        QString text = m_display;
        while (text.endsWith(QLatin1Char('0')))
            text.chop(1);
        if (decimalsOf(text) > m_places)
            return text;
    }
    return format(m_value, m_places);
}

void CalculatorEngine::appendLine(const QString &number, const QString &mark)
{
    m_tape << QLatin1Char(' ') + number.rightJustified(TapeNumberWidth) + QLatin1Char(' ') + mark;
}

void CalculatorEngine::appendOperandLine(const QString &mark)
{
    appendLine(operandText(), mark);
}

void CalculatorEngine::showResult(double value)
{
    m_value = value;
    m_display = format(value, m_places);
    m_typing = false;
}

CalculatorEngine::Outcome CalculatorEngine::applyOperator(Op op)
{
    if (op == Op::None)
        return Outcome::Refused;
    const bool binaryPending = m_pending != Op::None && m_pending != Op::Equals;
    if (m_entry == Entry::Ops && binaryPending) {
        // A second operator straight after the first takes its place.
        if (m_operatorLine >= 0 && m_operatorLine < m_tape.size()) {
            QString &line = m_tape[m_operatorLine];
            line = line.left(line.lastIndexOf(QLatin1Char(' ')) + 1) + symbol(op);
        } else {
            appendOperandLine(symbol(op));
        }
        m_pending = op;
        if (op == Op::Equals) {
            appendLine(format(m_accumulator, m_places), QStringLiteral("*"));
            m_operatorLine = -1;
        }
        return Outcome::Done;
    }
    // "=" again after a total: the tape already shows it.
    if (m_entry == Entry::Ops && op == Op::Equals)
        return Outcome::Done;

    const double operand = m_value;
    double result = operand;
    switch (m_pending) {
    case Op::None:
    case Op::Equals:
        break;
    case Op::Add:
        result = m_accumulator + operand;
        break;
    case Op::Subtract:
        result = m_accumulator - operand;
        break;
    case Op::Multiply:
        result = m_accumulator * operand;
        break;
    case Op::Divide:
        if (operand == 0.0)
            return Outcome::DivideByZero;
        result = m_accumulator / operand;
        break;
    }
    if (!usable(result))
        return Outcome::Refused;

    appendOperandLine(symbol(op));
    m_operatorLine = int(m_tape.size()) - 1;
    if (op == Op::Equals) {
        appendLine(format(result, m_places), QStringLiteral("*"));
        m_operatorLine = -1;
    }
    m_accumulator = result;
    showResult(result);
    m_entry = Entry::Ops;
    m_pending = op;
    return Outcome::Done;
}

CalculatorEngine::Outcome CalculatorEngine::percent()
{
    // As on a desk calculator the percent key finishes the calculation:
    // a + b% adds b percent of a, a - b% takes it off, a x b% is b percent
    // of a, a / b% is a as a percentage of b, and b% alone is b / 100.
    const double b = m_value;
    double result = b / 100.0;
    switch (m_pending) {
    case Op::None:
    case Op::Equals:
        break;
    case Op::Add:
        result = m_accumulator + m_accumulator * b / 100.0;
        break;
    case Op::Subtract:
        result = m_accumulator - m_accumulator * b / 100.0;
        break;
    case Op::Multiply:
        result = m_accumulator * b / 100.0;
        break;
    case Op::Divide:
        if (b == 0.0)
            return Outcome::DivideByZero;
        result = m_accumulator / b * 100.0;
        break;
    }
    if (!usable(result))
        return Outcome::Refused;
    appendOperandLine(QStringLiteral("%"));
    appendLine(format(result, m_places), QStringLiteral("*"));
    m_operatorLine = -1;
    m_accumulator = result;
    showResult(result);
    m_entry = Entry::Ops;
    m_pending = Op::Equals;
    return Outcome::Done;
}

CalculatorEngine::Outcome CalculatorEngine::reciprocal()
{
    if (m_value == 0.0)
        return Outcome::Refused;
    const double result = 1.0 / m_value;
    if (!usable(result))
        return Outcome::Refused;
    m_tape << QStringLiteral("1/x ") + formatPrecise(result);
    showResult(result);
    m_entry = Entry::Num;
    return Outcome::Done;
}

CalculatorEngine::Outcome CalculatorEngine::squareRoot()
{
    if (m_value < 0.0)
        return Outcome::Refused;
    const double result = std::sqrt(m_value);
    m_tape << QStringLiteral("sqrt ") + formatPrecise(result);
    showResult(result);
    m_entry = Entry::Num;
    return Outcome::Done;
}

void CalculatorEngine::negate()
{
    if (m_value == 0.0)
        return;
    if (m_typing) {
        setTyped(m_display.startsWith(QLatin1Char('-')) ? m_display.mid(1)
                                                        : QLatin1Char('-') + m_display);
        return;
    }
    showResult(-m_value);
    m_entry = Entry::Num;
}

void CalculatorEngine::clearEntry()
{
    showResult(0.0);
    m_entry = Entry::Num;
}

void CalculatorEngine::clearCalculation()
{
    showResult(0.0);
    m_accumulator = 0.0;
    m_pending = Op::None;
    m_entry = Entry::Ops;
    m_operatorLine = -1;
}

void CalculatorEngine::clearAll()
{
    clearCalculation();
    m_tape.clear();
}

void CalculatorEngine::memoryAdd()
{
    m_memory += m_value;
    appendOperandLine(QStringLiteral("M+"));
    m_typing = false;
    m_entry = Entry::Num;
}

void CalculatorEngine::memorySubtract()
{
    m_memory -= m_value;
    appendOperandLine(QStringLiteral("M-"));
    m_typing = false;
    m_entry = Entry::Num;
}

void CalculatorEngine::memoryRecall()
{
    showResult(m_memory);
    m_entry = Entry::Num;
}

void CalculatorEngine::memoryClear()
{
    m_memory = 0.0;
    m_entry = Entry::Num;
}

void CalculatorEngine::setPlaces(int places)
{
    m_places = std::clamp(places, 0, MaxPlaces);
    if (!m_typing)
        m_display = format(m_value, m_places);
}

void CalculatorEngine::setStartValue(double value)
{
    clearCalculation();
    if (usable(value))
        showResult(value);
}

CalculatorEngine::Outcome CalculatorEngine::paste(const QString &text)
{
    const auto amount = Currency::parse(text);
    if (!amount)
        return Outcome::Refused;
    const double value = double(amount->raw()) / double(Currency::Scale);
    if (!usable(value))
        return Outcome::Refused;
    showResult(value);
    m_entry = Entry::Num;
    return Outcome::Done;
}

double CalculatorEngine::displayValue() const
{
    return handBackText().toDouble();
}

QString CalculatorEngine::handBackText() const
{
    QString text = operandText();
    if (text.endsWith(QLatin1Char('.')))
        text.chop(1);
    return text;
}

QString CalculatorEngine::handBackProblem(bool negativesAllowed) const
{
    const double value = displayValue();
    if (std::fabs(value) >= AmountLimit)
        return MaxNumberText;
    if (!negativesAllowed && value < 0.0)
        return NegativeText;
    return QString();
}
