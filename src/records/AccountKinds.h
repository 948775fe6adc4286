#pragma once

#include <QString>

#include <array>

// The four kinds of account, in the order the account list shows them.
namespace AccountKinds {

inline const QString Checking = QStringLiteral("CH");
inline const QString Savings = QStringLiteral("SV");
inline const QString MoneyMarket = QStringLiteral("MM");
inline const QString CreditCard = QStringLiteral("CC");

inline const std::array<QString, 4> Codes = {Checking, Savings, MoneyMarket, CreditCard};
inline const std::array<QString, 4> GroupTitles
    = {QStringLiteral("Checking"), QStringLiteral("Savings"), QStringLiteral("Money Market"),
       QStringLiteral("Credit Cards")};
// The names offered when an account is added (cmbAcctType), same order.
inline const std::array<QString, 4> TypeNames
    = {QStringLiteral("Checking"), QStringLiteral("Savings"), QStringLiteral("Money Market"),
       QStringLiteral("Credit Card")};

// -1 for an unknown code.
inline int indexOf(const QString &code)
{
    for (int i = 0; i < 4; ++i)
        if (Codes[i] == code.trimmed())
            return i;
    return -1;
}

inline bool isCard(const QString &code)
{
    return code.trimmed() == CreditCard;
}

// Checking and money-market accounts write checks and keep the number of the
// last one.
inline bool keepsCheckNumbers(const QString &code)
{
    const QString k = code.trimmed();
    return k == Checking || k == MoneyMarket;
}

} // namespace AccountKinds
