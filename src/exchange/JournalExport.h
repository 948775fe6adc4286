#pragma once

#include "exchange/ExportSet.h"

#include <QByteArray>

// Transactions as a plain-text double-entry journal that command-line
// accounting tools read. Each transaction moves its account
// ("assets:bank:<name>", "liabilities:card:<name>") against its category
// ("expenses:<category>", or "income:<category>" for a category that takes
// in more than it pays out), the other account of a transfer or card payment,
// or "equity:opening balances" for a starting balance. A transfer whose two
// sides are both exported is written once. Cleared entries are marked "*",
// checks carry their number as the code, memos follow as a comment. Void
// entries carry no money and are left out.
namespace JournalExport {

struct Output
{
    QByteArray bytes;
    int written = 0;
    int skipped = 0; // entries whose date could not be read
    int paired = 0;  // second sides of transfers written with their first
};

Output write(const ExportSet &set);

// A name as one part of an account name: single blanks only, no ':' (which
// would nest it) and no ';' (which starts a comment).
QString safeName(const QString &name);
// The journal name of one of the program's accounts.
QString accountName(const ExportSet &set, const QString &account);

} // namespace JournalExport
