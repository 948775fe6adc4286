#include "register/RegisterRefusals.h"

namespace RegisterRefusals {

QString full(const QString &accountName)
{
    return QStringLiteral("The register of \"%1\" is full: a register holds at most 32,767 "
                          "transactions.\n\nNothing has been entered.")
        .arg(accountName.trimmed());
}

QString missing(const QString &accountName)
{
    return QStringLiteral("The register of \"%1\" is missing.\n\nNothing has been entered.")
        .arg(accountName.trimmed());
}

QString recreated(const QString &accountName)
{
    return QStringLiteral(
               "The register of \"%1\" was missing and has been created again, empty.\n\n"
               "The account's balance is kept as it was.")
        .arg(accountName);
}

} // namespace RegisterRefusals
