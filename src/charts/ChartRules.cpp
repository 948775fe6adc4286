#include "charts/ChartRules.h"

#include "records/TransactionClasses.h"
#include "records/TransactionTypes.h"

#include <QByteArray>

#include <cstring>

namespace {

enum class Kind { Bank, Card, Other };

Kind kindOf(const char *bytes, int length)
{
    static const QByteArray bank = TransactionClasses::NormTrans.toLatin1();
    static const QByteArray card = TransactionClasses::CCTrans.toLatin1();
    while (length > 0 && (bytes[length - 1] == ' ' || bytes[length - 1] == '\0'))
        --length;
    const auto is = [bytes, length](const QByteArray &word) {
        return word.size() == length && std::memcmp(bytes, word.constData(), word.size()) == 0;
    };
    if (is(bank))
        return Kind::Bank;
    if (is(card))
        return Kind::Card;
    return Kind::Other;
}

} // namespace

namespace ChartRules {

Flow flow(const char *classBytes, std::int16_t typeNum, Currency amount)
{
    if (amount.isZero() || typeNum == TransactionTypes::TypeNum::StartingBalance)
        return Flow::Neither;
    const Kind kind = kindOf(classBytes, 20);
    if (kind == Kind::Other)
        return Flow::Neither;
    if (amount.isNegative())
        return Flow::Spending;
    return kind == Kind::Bank ? Flow::Income : Flow::Neither;
}

Flow flow(const TransRecord &entry)
{
    return flow(entry.TransClass.bytes(), entry.TypeNum, entry.Amount);
}

} // namespace ChartRules
