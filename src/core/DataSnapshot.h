#pragma once

#include "records/BankAcctRecord.h"
#include "records/BudgetRecord.h"
#include "records/DataFiles.h"

#include <optional>
#include <vector>

// The account list and the budget categories of the open data set, read once
// and handed to every panel that shows them, so that opening a data set or
// finishing an operation reads each file one time however many panels follow it.
struct DataSnapshot
{
    DataFiles files{QString(), false};
    // Every account record in record order, "Deleted" ones included; nothing
    // when the account file could not be read.
    std::optional<std::vector<BankAcctRecord>> accounts;
    // Every category record in record order, "Deleted" ones included.
    std::vector<BudgetRecord> budget;

    // The account list, or an empty one when it could not be read.
    const std::vector<BankAcctRecord> &accountList() const
    {
        static const std::vector<BankAcctRecord> none;
        return accounts ? *accounts : none;
    }
    // Record n (from 1); an empty record past the end, as the file reads.
    BankAcctRecord account(int bankNum) const
    {
        const auto &all = accountList();
        return bankNum >= 1 && bankNum <= int(all.size()) ? all[std::size_t(bankNum - 1)]
                                                          : BankAcctRecord{};
    }
};
