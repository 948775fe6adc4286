#include "core/TransactionText.h"

#include "core/EntryChecks.h"

namespace TransactionText {

namespace {

QString shortDate(const FixedText<15> &stored)
{
    const QString text = stored.text().trimmed();
    const auto parsed = EntryChecks::parseDate(text);
    return parsed ? EntryChecks::formatShortDate(*parsed) : text;
}

} // namespace

QString money(Currency amount)
{
    return amount.toCurrencyText();
}

QDate date(const FixedText<15> &stored)
{
    return EntryChecks::parseDate(stored.text().trimmed()).value_or(QDate());
}

QString field(const TransRecord &r, Field which)
{
    switch (which) {
    case Field::Status: {
        const QString s = r.Status.text().trimmed();
        // Cleared and open entries each have their mark; anything else has none.
        if (s == QStringLiteral("CL"))
            return ClearedMark;
        return s == QStringLiteral("OP") ? OpenMark : QString();
    }
    case Field::Type:
        return r.Type.text().trimmed();
    case Field::Date:
        return shortDate(r.Date);
    case Field::Payee:
        return r.Description.text().trimmed();
    case Field::Category: {
        const QString cat = r.BudName.text().trimmed();
        return cat.contains(QStringLiteral("none")) || cat == QStringLiteral("na") ? QString()
                                                                                   : cat;
    }
    case Field::Memo:
        return r.Memo.text().trimmed();
    case Field::Deposit:
        return r.Amount.isNegative() ? QString() : money(r.Amount);
    case Field::Withdrawal:
        return r.Amount.isNegative() ? money(-r.Amount) : QString();
    case Field::DateCleared:
        return shortDate(r.DateClear);
    }
    return {};
}

} // namespace TransactionText
