#pragma once

#include <QString>

// The words for a register that cannot take an entry, the same for an entry,
// a card payment and a transfer.
namespace RegisterRefusals {

inline const QString FullTitle = QStringLiteral("Register Full");
inline const QString MissingTitle = QStringLiteral("Register Missing");

// A register already holds as many transactions as a register can.
QString full(const QString &accountName);
// The register's file is gone; nothing has been written.
QString missing(const QString &accountName);
// The register's file was gone and has been started again, empty.
QString recreated(const QString &accountName);

} // namespace RegisterRefusals
