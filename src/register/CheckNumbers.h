#pragma once

#include "records/TransRecord.h"

#include <QString>

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

// Check numbers of checking and money-market accounts. A check keeps its
// number as text in the record's Type field; a record is a check exactly when
// that text is a number.
namespace CheckNumbers {

inline const QString NextCheck = QStringLiteral("Next Check #");
inline const QString EnterCheck = QStringLiteral("Enter Check #");
inline const QString CheckPrefix = QStringLiteral("Check #");
inline const QString StartingPrompt = QStringLiteral("Enter Starting Check #");
inline const QString EnterPrompt = QStringLiteral("Enter Check #");
inline const QString Duplicate = QStringLiteral("Duplicate Number");
inline const QString TooLargeTitle = QStringLiteral("Check Number Too Large");
inline const QString TooLargeText = QStringLiteral(
    "Check numbers go up to 2,147,483,647.\n\nUse \"Enter Check #\" and type a smaller number.");

// The value of the leading number of a text (blanks before it are skipped,
// anything after its digits is ignored): " 1001" and "00123x" give 1001 and 123.
// Nothing when the text does not start with a digit.
std::optional<std::int64_t> numericValue(const QString &text);

// Whether any record of the register holds this check number.
bool isDuplicate(const std::vector<TransRecord> &records, std::int64_t number);

// The number after the last one used; nothing when it would not fit in 32 bits.
std::optional<std::int32_t> nextAfter(std::int32_t last);

// "Check # 1001" (offered by "Next Check #") and "Check #1001" (typed).
QString offeredText(std::int32_t number);
QString typedText(const QString &digits);

// A check number as typed or pasted: its digits, read as one number. Anything
// between them is a separator and dropped ("1,234", "1 234" and "12a34" are
// all 1234), so the number tested for a duplicate is the one stored and shown.
struct Typed
{
    QString digits;          // leading zeros kept
    std::int64_t number = 0; // the largest int64 when the digits do not fit
};
// Nothing when the text holds no digit.
std::optional<Typed> typedNumber(const QString &text);

// The number a type text "Check #..." carries, read as typedNumber() reads it.
std::optional<std::int64_t> numberOfTypeText(const QString &typeText);
// What the record's Type field keeps of a type text "Check #...": the blank
// after "#" when there is one ("Check # 1001", as offered) and the digits.
QString storedTypeText(const QString &typeText);

// Only digits and Backspace may be typed into the check-number box.
bool acceptsKey(int key, const QString &text);

// Whether a check number is already used in the register concerned.
using IsTaken = std::function<bool(std::int64_t number)>;

// What choosing a type in a type list means for check numbering.
struct TypeChoice
{
    enum class Step {
        None,      // not a check entry: no number to settle
        Prompt,    // ask for a number; `prompt` is the caption
        Offered,   // `typeText` carries the next number
        Duplicate, // `typeText` carries the next number, which is taken
        TooLarge,  // the next number would not fit in 32 bits
    };
    Step step = Step::None;
    QString prompt;
    QString typeText;
};
TypeChoice chooseType(const QString &listEntry, std::int32_t lastNumber, const IsTaken &isTaken);

// What a number typed into the check-number box means.
struct TypedNumber
{
    enum class Outcome { NotNumber, TooLarge, Duplicate, Accepted };
    Outcome outcome = Outcome::NotNumber;
    std::int64_t number = 0;
    QString digits; // the digits as typed, leading zeros kept
};
TypedNumber acceptTyped(const QString &typed, const IsTaken &isTaken);

} // namespace CheckNumbers
