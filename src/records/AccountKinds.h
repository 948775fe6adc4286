#pragma once

#include <QString>

#include <array>

// The four kinds of account, in the order the account list shows them.
namespace AccountKinds {

inline const std::array<QString, 4> Codes
    = {QStringLiteral("CH"), QStringLiteral("SV"), QStringLiteral("MM"), QStringLiteral("CC")};
inline const std::array<QString, 4> GroupTitles
    = {QStringLiteral("Checking"), QStringLiteral("Savings"), QStringLiteral("Money Market"),
       QStringLiteral("Credit Cards")};
// The names offered when an account is added (cmbAcctType), same order.
inline const std::array<QString, 4> TypeNames
    = {QStringLiteral("Checking"), QStringLiteral("Savings"), QStringLiteral("Money Market"),
       QStringLiteral("Credit Card")};

inline const QString CreditCard = QStringLiteral("CC");

// -1 for an unknown code.
inline int indexOf(const QString &code)
{
    for (int i = 0; i < 4; ++i)
        if (Codes[i] == code.trimmed())
            return i;
    return -1;
}

} // namespace AccountKinds
