#pragma once

#include "records/BankAcctRecord.h"
#include "records/DataFiles.h"
#include "records/TransRecord.h"

#include <QString>

#include <optional>

// The two records of a transfer or a card payment, found from either one.
struct LinkedRecords
{
    BankAcctRecord fromAccount; // the paying account
    BankAcctRecord toAccount;   // the receiving account (the card, for a payment)
    int fromRecord = 0;         // record numbers in the two registers
    int toRecord = 0;
    TransRecord from;
    TransRecord to;

    QString fromPath;
    QString toPath;

    static bool isLinked(const TransRecord &r);
    static bool isTransfer(const TransRecord &r);
    static bool isPayment(const TransRecord &r);

    // Reads both sides of the transfer or payment that `record` belongs to.
    // Returns the notice to show instead when one account is "Deleted" or
    // one register file is missing.
    struct Found;
    static Found find(const DataFiles &files, const TransRecord &record);
    // Whether the account at the other end of this side (kept in account
    // ownBankNum's register) has been deleted or archived.
    static bool otherAccountRemoved(const DataFiles &files, int ownBankNum,
                                    const TransRecord &record);
};

struct LinkedRecords::Found
{
    std::optional<LinkedRecords> records;
    QString problem;
};
