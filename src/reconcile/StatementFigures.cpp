#include "reconcile/StatementFigures.h"

#include "core/EntryChecks.h"

namespace StatementFigures {

std::optional<Currency> amount(const QString &text)
{
    const auto value = Currency::parse(text);
    if (!value || exceedsMaxAmount(*value))
        return std::nullopt;
    return value;
}

Sums sums(Currency listStart, Currency clearedSum, const QString &endingText)
{
    Sums s;
    s.cleared = listStart + clearedSum;
    s.difference = amount(endingText).value_or(Currency()) - s.cleared;
    if (s.difference > Currency())
        s.caption = UnderBy;
    else if (s.difference < Currency())
        s.caption = OverBy;
    return s;
}

Check check(const Typed &typed, Currency expectedStart, Currency listStart, Currency clearedSum,
            bool skipStartTest)
{
    Check c;
    const QString date = typed.date.trimmed();
    if (!date.isEmpty() && !EntryChecks::ValidateEntryDate(date)) {
        c.stop = Stop::BadDate;
        c.text = EntryChecks::BadDateText;
        c.title = EntryChecks::BadDateTitle;
        c.icon = Interaction::Icon::Exclamation;
        return c;
    }
    if (date.isEmpty() || typed.start.trimmed().isEmpty() || typed.ending.trimmed().isEmpty()) {
        c.stop = Stop::Missing;
        c.text = EnterInformation;
        return c;
    }
    c.date = *EntryChecks::parseDate(date);
    for (const QString *text : {&typed.start, &typed.ending}) {
        const auto value = Currency::parse(*text);
        if (!value) {
            c.stop = Stop::BadAmount;
            c.text = QStringLiteral("\"%1\" is not an amount. Type the balance as it is on the "
                                    "statement, for example 1234.56")
                         .arg(text->trimmed());
            c.title = BadAmountTitle;
            c.icon = Interaction::Icon::Exclamation;
            return c;
        }
        if (exceedsMaxAmount(*value)) {
            c.stop = Stop::BadAmount;
            c.text = EntryChecks::MaxAmountText;
            c.title = EntryChecks::MaxAmountTitle;
            c.icon = Interaction::Icon::Exclamation;
            return c;
        }
        (text == &typed.start ? c.start : c.ending) = *value;
    }
    if (!skipStartTest && c.start != expectedStart) {
        c.stop = Stop::StartDiffers;
        c.startDifference = c.start - expectedStart;
        return c;
    }
    c.difference = c.ending - (listStart + clearedSum);
    if (!c.difference.isZero()) {
        c.stop = Stop::NotBalanced;
        c.text = NotBalanced;
    }
    return c;
}

} // namespace StatementFigures
