#include "register/LinkedRecords.h"

#include "accounts/AccountBook.h"
#include "records/RecordFile.h"
#include "records/TransactionClasses.h"

#include <QFileInfo>

bool LinkedRecords::isTransfer(const TransRecord &r)
{
    return r.TransClass.is(TransactionClasses::TransferFrom)
           || r.TransClass.is(TransactionClasses::TransferTo);
}

bool LinkedRecords::isPayment(const TransRecord &r)
{
    return r.TransClass.is(TransactionClasses::PayBank)
           || r.TransClass.is(TransactionClasses::PayCard);
}

bool LinkedRecords::isLinked(const TransRecord &r)
{
    return isTransfer(r) || isPayment(r);
}

bool LinkedRecords::otherAccountRemoved(const DataFiles &files, int ownBankNum,
                                        const TransRecord &record)
{
    AccountBook book(files);
    const int other
        = record.PaidFromBankNum == ownBankNum ? record.PaidToBankNum : record.PaidFromBankNum;
    return other >= 1 && other <= book.count() && book.read(other).isDeleted();
}

LinkedRecords::Found LinkedRecords::find(const DataFiles &files, const TransRecord &record)
{
    Found found;
    AccountBook book(files);
    LinkedRecords l;
    const int count = book.count();
    const int fromNum = record.PaidFromBankNum;
    const int toNum = record.PaidToBankNum;
    l.fromAccount = book.read(fromNum);
    l.toAccount = book.read(toNum);
    if (fromNum < 1 || toNum < 1 || fromNum > count || toNum > count || l.fromAccount.isDeleted()
        || l.toAccount.isDeleted()) {
        found.problem = QStringLiteral(
            "This transfer cannot be changed: one of its accounts has been removed.");
        return found;
    }
    l.fromPath = files.registerFile(l.fromAccount.BankName.text());
    l.toPath = files.registerFile(l.toAccount.BankName.text());
    if (!QFileInfo::exists(l.fromPath) || !QFileInfo::exists(l.toPath)) {
        found.problem = QStringLiteral(
            "This transfer cannot be changed: the register of one of its accounts is missing.");
        return found;
    }
    l.fromRecord = record.PaidFromBankTransRecNum;
    l.toRecord = record.PaidToBankTransRecNum;
    RecordFile<TransRecord> fromFile(l.fromPath);
    RecordFile<TransRecord> toFile(l.toPath);
    if (l.fromRecord < 1 || l.fromRecord > fromFile.count() || l.toRecord < 1
        || l.toRecord > toFile.count()) {
        found.problem = QStringLiteral(
            "This transfer cannot be changed: its other side is no longer in the register.");
        return found;
    }
    l.from = fromFile.read(l.fromRecord);
    l.to = toFile.read(l.toRecord);
    found.records = l;
    return found;
}
