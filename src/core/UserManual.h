#pragma once

#include <QString>

class Interaction;

// The user manual, "Help/UserManual.htm" in the program's folder, opened in
// the user's browser through the interaction seam.
namespace UserManual {

inline const QString RelativePath = QStringLiteral("Help/UserManual.htm");
// The section the balancing window's explanation points the user to.
inline const QString BalanceAccounts = QStringLiteral("balance-accounts");

// Where the manual is: in programFolder, or beside the executable when empty.
QString path(const QString &programFolder = QString());
// Opens the manual, at a section (its anchor) when one is given. A missing
// manual is said in a message box instead; false then.
bool open(Interaction &interaction, const QString &section = QString(),
          const QString &programFolder = QString());

} // namespace UserManual
