#pragma once

#include "records/DataFiles.h"

#include <QString>

#include <vector>

// The saved payees of a data set. Removing a payee blanks its record; adding
// reuses the first blank record before the file grows.
class PayeeBook
{
public:
    explicit PayeeBook(DataFiles files);

    struct Entry
    {
        QString payee;
        int recordNumber = 0;
    };
    // Payees saved under the account first, then the others, each text once
    // (compared without regard to case); blank records never appear.
    std::vector<Entry> listFor(int bankNum) const;

    struct Result
    {
        bool ok = false;
        QString error;
        int recordNumber = 0;
    };
    Result add(int bankNum, const QString &accountName, const QString &payee);
    Result remove(int recordNumber);

    int count() const;

private:
    DataFiles m_files;
};
