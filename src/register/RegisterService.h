#pragma once

#include "records/BankAcctRecord.h"
#include "records/DataFiles.h"
#include "records/TransRecord.h"

#include <QString>

#include <vector>

// Reads and writes the register of an account. Every write moves the account
// (AccountPosting) and its categories (BudgetPosting) in the same unit of work.
class RegisterService
{
public:
    explicit RegisterService(DataFiles files);

    struct Loaded
    {
        std::vector<TransRecord> records;
        // The register file was missing and has been created again, empty.
        bool recreated = false;
        QString error;
        QString title; // of the message box that shows `error`
    };
    Loaded load(const BankAcctRecord &account) const;
    static constexpr int RoomToGrow = 64;

    struct Result
    {
        bool ok = false;
        QString error;
        QString title; // for a message box; empty for the error label
        int recordNumber = 0;
        BankAcctRecord account; // the account as stored
    };

    // A new transaction goes after the last one. The account's last check
    // number follows a check written in a checking or money-market account.
    Result add(int bankNum, TransRecord record);
    // Rewrites record n in place; the balance moves by the difference. The last
    // check number changes only when the check's number did.
    Result change(int bankNum, int recordNumber, TransRecord record);
    // Turns record n into a void entry in place and takes its amount off the balance.
    Result voidRecord(int bankNum, int recordNumber);

    // Keeps the register's view range ("All" or a date) with the account.
    Result setViewFrom(int bankNum, const QString &viewFrom);

private:
    Result refuse(const QString &error, const QString &title = {}) const;
    Result write(int bankNum, int recordNumber, TransRecord record, bool isNew,
                 bool voiding = false);

    DataFiles m_files;
};
