#include "RegisterPosting.h"

#include "AccountBook.h"
#include "UnitOfWork.h"

#include <QFileInfo>

namespace RegisterPosting {

Result append(const DataFiles &files, int bankNum, TransRecord record)
{
    AccountBook book(files);
    BankAcctRecord account = book.read(bankNum);
    if (bankNum < 1 || bankNum > book.count() || account.isDeleted())
        return {false, QStringLiteral("There is no such account."), 0};
    const QString path = files.registerFile(account.BankName.text());
    UnitOfWork unit(files.dataDir());
    const int n = unit.count(path, TransRecord::Size) + 1;
    record.Tranno = static_cast<std::int16_t>(n);
    if (unit.append(path, record) == 0)
        return {false, unit.error(), 0};
    account.Balance += record.Amount;
    unit.write(files.accountList(), bankNum, account);
    if (!unit.commit())
        return {false, unit.error(), 0};
    return {true, QString(), n};
}

} // namespace RegisterPosting
