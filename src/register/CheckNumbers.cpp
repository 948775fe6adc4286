#include "register/CheckNumbers.h"

#include <limits>

namespace CheckNumbers {

std::optional<std::int64_t> numericValue(const QString &text)
{
    qsizetype i = 0;
    while (i < text.size() && text[i] == QLatin1Char(' '))
        ++i;
    if (i == text.size() || !text[i].isDigit() || text[i].unicode() > '9')
        return std::nullopt;
    std::int64_t v = 0;
    for (; i < text.size() && text[i] >= QLatin1Char('0') && text[i] <= QLatin1Char('9'); ++i) {
        if (v > (std::numeric_limits<std::int64_t>::max() - 9) / 10)
            return std::numeric_limits<std::int64_t>::max();
        v = v * 10 + (text[i].unicode() - '0');
    }
    return v;
}

bool isDuplicate(const std::vector<TransRecord> &records, std::int64_t number)
{
    for (const TransRecord &r : records) {
        // The first digit of a numeric Type is at most one blank in.
        const char *b = r.Type.bytes();
        const char first = b[0] == ' ' ? b[1] : b[0];
        if (first < '0' || first > '9')
            continue;
        if (numericValue(r.Type.text()) == number)
            return true;
    }
    return false;
}

std::optional<std::int32_t> nextAfter(std::int32_t last)
{
    if (last == std::numeric_limits<std::int32_t>::max())
        return std::nullopt;
    return last + 1;
}

QString offeredText(std::int32_t number)
{
    return CheckPrefix + QLatin1Char(' ') + QString::number(number);
}

QString typedText(const QString &digits)
{
    return CheckPrefix + digits;
}

std::optional<Typed> typedNumber(const QString &text)
{
    Typed typed;
    bool overflow = false;
    for (QChar c : text) {
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            continue;
        typed.digits += c;
        if (typed.number > (std::numeric_limits<std::int64_t>::max() - 9) / 10)
            overflow = true;
        else
            typed.number = typed.number * 10 + (c.unicode() - '0');
    }
    if (typed.digits.isEmpty())
        return std::nullopt;
    if (overflow)
        typed.number = std::numeric_limits<std::int64_t>::max();
    return typed;
}

std::optional<std::int64_t> numberOfTypeText(const QString &typeText)
{
    const QString t = typeText.trimmed();
    if (!t.startsWith(CheckPrefix))
        return std::nullopt;
    const auto typed = typedNumber(t.mid(CheckPrefix.size()));
    if (!typed)
        return std::nullopt;
    return typed->number;
}

QString storedTypeText(const QString &typeText)
{
    const QString rest = typeText.trimmed().mid(CheckPrefix.size());
    const auto typed = typedNumber(rest);
    const QString digits = typed ? typed->digits : QString();
    return rest.startsWith(QLatin1Char(' ')) ? QLatin1Char(' ') + digits : digits;
}

bool acceptsKey(int key, const QString &text)
{
    if (key == Qt::Key_Backspace)
        return true;
    return text.size() == 1 && text[0] >= QLatin1Char('0') && text[0] <= QLatin1Char('9');
}

TypeChoice chooseType(const QString &listEntry, std::int32_t lastNumber, const IsTaken &isTaken)
{
    TypeChoice choice;
    if (listEntry == EnterCheck) {
        choice.step = TypeChoice::Step::Prompt;
        choice.prompt = EnterPrompt;
    } else if (listEntry == NextCheck && lastNumber == -1) {
        // No check written yet: the first number is asked for.
        choice.step = TypeChoice::Step::Prompt;
        choice.prompt = StartingPrompt;
    } else if (listEntry == NextCheck) {
        const auto candidate = nextAfter(lastNumber);
        if (!candidate) {
            choice.step = TypeChoice::Step::TooLarge;
            return choice;
        }
        choice.typeText = offeredText(*candidate);
        choice.step = isTaken(*candidate) ? TypeChoice::Step::Duplicate : TypeChoice::Step::Offered;
    }
    return choice;
}

TypedNumber acceptTyped(const QString &typed, const IsTaken &isTaken)
{
    TypedNumber result;
    const auto number = typedNumber(typed);
    if (!number)
        return result;
    result.number = number->number;
    result.digits = number->digits;
    if (result.number > std::numeric_limits<std::int32_t>::max())
        result.outcome = TypedNumber::Outcome::TooLarge;
    else if (isTaken(result.number))
        result.outcome = TypedNumber::Outcome::Duplicate;
    else
        result.outcome = TypedNumber::Outcome::Accepted;
    return result;
}

} // namespace CheckNumbers
