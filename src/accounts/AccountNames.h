#pragma once

#include <QString>

#include <optional>

// Rules for an account name. The name becomes part of a file name
// ("trans " + name + ".Dat"), so it must be one on Windows and on Linux.
namespace AccountNames {

inline constexpr int MaxLength = 30;
inline const QString InUse = QStringLiteral(" This Name is in Use");

// The name as it will be stored: cut to 30 characters.
QString stored(const QString &typed);
// A message saying what is wrong with the (stored) name, or nothing.
std::optional<QString> problem(const QString &name);
// Names are compared trimmed and without regard to case (Windows file names
// ignore case, so "Visa" and "VISA" would share a register file there).
bool same(const QString &a, const QString &b);

} // namespace AccountNames
