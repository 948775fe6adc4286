#include "accounts/AccountBook.h"

#include "records/RecordFile.h"

#include <QFileInfo>

std::optional<std::vector<BankAcctRecord>> AccountBook::readAll() const
{
    RecordFile<BankAcctRecord> file(m_files.accountList());
    if (QFileInfo::exists(file.path()) && !QFileInfo(file.path()).isReadable())
        return std::nullopt;
    return file.readAll();
}

BankAcctRecord AccountBook::read(int bankNum) const
{
    RecordFile<BankAcctRecord> file(m_files.accountList());
    return file.read(bankNum);
}

std::optional<BankAcctRecord> AccountBook::firstLive() const
{
    RecordFile<BankAcctRecord> file(m_files.accountList());
    const int n = file.count();
    for (int i = 1; i <= n; ++i) {
        BankAcctRecord r = file.read(i);
        if (!r.isDeleted())
            return r;
    }
    return std::nullopt;
}

int AccountBook::count() const
{
    return RecordFile<BankAcctRecord>(m_files.accountList()).count();
}
