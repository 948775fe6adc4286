#include "register/LinkedVoid.h"

#include "accounts/AccountBook.h"
#include "budget/BudgetPosting.h"
#include "records/RecordFile.h"
#include "records/TransactionTemplate.h"
#include "records/UnitOfWork.h"
#include "register/LinkedRecords.h"

namespace {

TransRecord voided(const TransRecord &old, const BankAcctRecord &account)
{
    TransRecord v = TransactionTemplate::blank();
    v.Tranno = old.Tranno;
    v.Status = old.Status;
    v.Date = old.Date;
    v.DateClear = old.DateClear;
    v.Type = QStringLiteral("Void");
    v.BudName = TransactionTemplate::NoCategory;
    // Once void, a side is an ordinary entry of its own register.
    v.TransClass = account.Type.is(QStringLiteral("CC")) ? TransactionTemplate::CCTrans
                                                         : TransactionTemplate::NormTrans;
    v.CCBankName = TransactionTemplate::NoCategory;
    return v;
}

} // namespace

namespace LinkedVoid {

Result voidLinked(const DataFiles &files, int bankNum, int recordNumber)
{
    const BankAcctRecord owner = AccountBook(files).read(bankNum);
    const TransRecord record
        = RecordFile<TransRecord>(files.registerFile(owner.BankName.text())).read(recordNumber);
    if (!LinkedRecords::isLinked(record))
        return {false, QStringLiteral("This is not a transfer or a card payment")};
    const auto found = LinkedRecords::find(files, record);
    if (!found.records)
        return {false, found.problem};
    const LinkedRecords &l = *found.records;

    UnitOfWork unit(files.dataDir());
    unit.write(l.fromPath, l.fromRecord, voided(l.from, l.fromAccount));
    unit.write(l.toPath, l.toRecord, voided(l.to, l.toAccount));
    BankAcctRecord from = l.fromAccount;
    BankAcctRecord to = l.toAccount;
    from.Balance -= l.from.Amount;
    to.Balance -= l.to.Amount;
    unit.write(files.accountList(), from.BankNum, from);
    unit.write(files.accountList(), to.BankNum, to);
    BudgetPosting::post(unit, files, &l.from, nullptr);
    if (!unit.commit())
        return {false, unit.error()};
    return {true, QString()};
}

} // namespace LinkedVoid
