#pragma once

#include <QString>

#include <optional>

// Rules for an account name. The name becomes part of a file name
// ("trans " + name + ".Dat"), so it must be one on Windows and on Linux.
namespace AccountNames {

inline constexpr int MaxLength = 30;
inline const QString InUse = QStringLiteral(" This Name is in Use");
inline const QString DamagedTitle = QStringLiteral("Account Name Damaged");

// The name as it will be stored: cut to 30 characters, without the blanks at
// its end (the field is blank padded, so they could not be kept anyway).
QString stored(const QString &typed);
// A message saying what is wrong with the (stored) name, or nothing. A
// character the account list's single-byte text cannot hold is refused too.
std::optional<QString> problem(const QString &name);
// Names are compared trimmed and without regard to case (Windows file names
// ignore case, so "Visa" and "VISA" would share a register file there).
bool same(const QString &a, const QString &b);

// A name read from the account list goes through the same rule before a file
// name is built from it (a damaged list can hold anything): the notice to
// show instead of opening the account's register, or nothing.
std::optional<QString> damagedNotice(const QString &storedName);

} // namespace AccountNames
