#pragma once

#include "records/BankAcctRecord.h"
#include "records/DataFiles.h"

#include <optional>
#include <utility>
#include <vector>

// Reads the account list of one data set.
class AccountBook
{
public:
    explicit AccountBook(DataFiles files) : m_files(std::move(files)) {}

    // Every record, "Deleted" ones included, in record order. Returns nothing
    // when the file cannot be opened or read.
    std::optional<std::vector<BankAcctRecord>> readAll() const;
    // Record n (from 1); blanks and zeros past the end.
    BankAcctRecord read(int bankNum) const;
    // The first record that is not "Deleted", or nothing.
    std::optional<BankAcctRecord> firstLive() const;
    int count() const;

    const DataFiles &files() const { return m_files; }

private:
    DataFiles m_files;
};
