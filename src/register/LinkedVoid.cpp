#include "register/LinkedVoid.h"

#include "accounts/AccountBook.h"
#include "budget/BudgetPosting.h"
#include "records/AccountKinds.h"
#include "records/RecordFile.h"
#include "records/TransactionClasses.h"
#include "records/TransactionTemplate.h"
#include "records/UnitOfWork.h"
#include "register/AccountPosting.h"
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
    v.TransClass = AccountKinds::isCard(account.Type.text()) ? TransactionClasses::CCTrans
                                                             : TransactionClasses::NormTrans;
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
    const TransRecord fromVoid = voided(l.from, l.fromAccount);
    const TransRecord toVoid = voided(l.to, l.toAccount);
    unit.write(l.fromPath, l.fromRecord, fromVoid);
    unit.write(l.toPath, l.toRecord, toVoid);
    BankAcctRecord from = l.fromAccount;
    BankAcctRecord to = l.toAccount;
    AccountPosting::post(unit, files, from, &l.from, fromVoid);
    AccountPosting::post(unit, files, to, &l.to, toVoid);
    BudgetPosting::post(unit, files, &l.from, nullptr);
    if (!unit.commit())
        return {false, unit.error()};
    return {true, QString()};
}

} // namespace LinkedVoid
