#include "app/SystemInfo.h"

#include "accounts/AccountBook.h"
#include "records/TransRecord.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSysInfo>

#ifndef QUILLMERE_VERSION
#define QUILLMERE_VERSION "unknown"
#endif

namespace SystemInfo {

QString version()
{
    return QStringLiteral(QUILLMERE_VERSION);
}

QString description()
{
    return QCoreApplication::translate(
        "SystemInfo", "Household bank registers with an envelope budget, kept on your computer.");
}

Facts gather(const DataFiles &files)
{
    Facts f;
    f.programVersion = version();
    f.qtVersion = QString::fromLatin1(qVersion());
    f.operatingSystem = QSysInfo::prettyProductName() + QStringLiteral(" (")
                        + QSysInfo::currentCpuArchitecture() + QLatin1Char(')');
    f.dataFolder = files.dataDir();
    f.sample = files.isSample();
    for (const BankAcctRecord &account :
         AccountBook(files).readAll().value_or(std::vector<BankAcctRecord>{})) {
        if (account.isDeleted())
            continue;
        ++f.accounts;
        f.records
            += QFileInfo(files.registerFile(account.BankName.text())).size() / TransRecord::Size;
    }
    return f;
}

QStringList lines(const Facts &f)
{
    auto tr = [](const char *text) { return QCoreApplication::translate("SystemInfo", text); };
    const QString screen = f.screen.isValid() ? QStringLiteral("%1 x %2, scale %3")
                                                    .arg(f.screen.width())
                                                    .arg(f.screen.height())
                                                    .arg(QString::number(f.scale, 'g', 3))
                                              : tr("unknown");
    return {
        tr("Program version: %1").arg(f.programVersion),
        tr("Qt version: %1").arg(f.qtVersion),
        tr("Operating system: %1").arg(f.operatingSystem),
        tr("Screen: %1").arg(screen),
        tr("Data folder: %1").arg(QDir::toNativeSeparators(f.dataFolder)),
        tr("Open data set: %1").arg(f.sample ? tr("Sample accounts") : tr("My accounts")),
        tr("Accounts: %1").arg(f.accounts),
        tr("Transactions: %1").arg(f.records),
        tr("Settings file: %1").arg(QDir::toNativeSeparators(f.settingsFile)),
    };
}

} // namespace SystemInfo
