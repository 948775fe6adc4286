#include "register/LinkedVoid.h"

#include "accounts/AccountBook.h"
#include "budget/BudgetBook.h"
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

// The other account was deleted or archived: its side stays as it is, and
// this side is voided like an entry of its own.
LinkedVoid::Result voidAlone(const DataFiles &files, BankAcctRecord owner, int recordNumber,
                             const TransRecord &record)
{
    UnitOfWork unit(files.dataDir());
    const TransRecord v = voided(record, owner);
    unit.write(files.registerFile(owner.BankName.text()), recordNumber, v);
    AccountPosting::post(unit, files, owner, &record, v);
    // A payment kept by a card whose bank account is gone still gives the
    // card's own category its amount back. The other way round the card's
    // category went with the card (its number may serve another card now).
    if (record.TransClass.is(TransactionClasses::PayCard)
        && BudgetBook(files).cardCategory(owner.BankNum) == record.CCBudNum) {
        TransRecord bankSide = record;
        bankSide.TransClass = TransactionClasses::PayBank;
        bankSide.Amount = -record.Amount;
        BudgetPosting::post(unit, files, &bankSide, nullptr);
    }
    if (!unit.commit())
        return {false, unit.error()};
    return {true, QString()};
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
    if (!found.records && LinkedRecords::otherAccountRemoved(files, bankNum, record))
        return voidAlone(files, owner, recordNumber, record);
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
