#pragma once

#include "records/BankAcctRecord.h"
#include "records/DataFiles.h"
#include "records/TransRecord.h"

#include <QString>
#include <QStringList>

#include <vector>

// Taking an account out of the account list, for good or into the archive,
// and the archive list with its archived registers. Every operation writes
// all of its records and moves or removes its file in one unit of work.
class AccountArchive
{
public:
    enum Mode { DeleteMode = 0, ArchiveMode = 1 };

    struct Result
    {
        bool ok = false;
        QString prompt; // for the panel's prompt label ("Entries not Complete ")
        QString error;  // a failure to report in a message box
        QString report; // what was done, for the user
        int archNum = 0;
    };

    struct Entry
    {
        int archNum = 0;
        QString typeCode;
        QString name;
        bool fileMissing = false; // the "Archive " register is not in the data folder
    };

    struct ArchivedRegister
    {
        std::vector<TransRecord> records; // whole records only
        bool missing = false;
        bool creditCard = false;
        qint64 ignoredBytes = 0; // a cut-off last record, left unread
    };

    explicit AccountArchive(DataFiles files);

    // The warnings shown before an account is deleted, in order.
    static QStringList deleteWarnings(const BankAcctRecord &account);

    // Removes the live account bankNum (0: none chosen). Mode 0 deletes its
    // register file, mode 1 keeps it as "Archive " + name + ".Dat" with an entry
    // in the archive list. A credit card's own budget category and the payees
    // saved under the account are freed either way.
    Result RemoveAccount(int bankNum, int mode);

    // The live entries of the archive list, in record order.
    std::vector<Entry> entries() const;
    // How an entry is offered: "Archived Savings Account " + name, for instance.
    static QString listText(const QString &typeCode, const QString &name);
    // The archived register of a live entry, read-only.
    ArchivedRegister readRegister(int archNum) const;
    // Frees the entry for reuse and deletes its archived register file.
    Result deleteEntry(int archNum);

    inline static const QString NotComplete = QStringLiteral("Entries not Complete ");
    inline static const QString BalanceWarning = QStringLiteral(
        "THIS ACCOUNT HAS A BALANCE - you may want to transfer the balance to another account "
        "before you remove it.");
    inline static const QString ArchiveHint = QStringLiteral(
        "To view this account in the future - Archive the account - deleting will permanently "
        "remove the file.");

private:
    Result refuse(const QString &error) const;

    DataFiles m_files;
};
