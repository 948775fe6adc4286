#include "register/RegisterService.h"

#include "accounts/AccountBook.h"
#include "accounts/AccountNames.h"
#include "budget/BudgetPosting.h"
#include "records/RecordFile.h"
#include "records/TransactionClasses.h"
#include "records/TransactionTemplate.h"
#include "records/TransactionTypes.h"
#include "records/UnitOfWork.h"
#include "register/AccountPosting.h"
#include "register/RegisterRefusals.h"

#include <QFileInfo>

#include <utility>

RegisterService::RegisterService(DataFiles files) : m_files(std::move(files)) {}

RegisterService::Loaded RegisterService::load(const BankAcctRecord &account) const
{
    Loaded loaded;
    if (account.BankNum == 0)
        return loaded;
    if (const auto notice = AccountNames::damagedNotice(account.BankName.text())) {
        loaded.error = *notice;
        loaded.title = AccountNames::DamagedTitle;
        return loaded;
    }
    const QString path = m_files.registerFile(account.BankName.text());
    RecordFile<TransRecord> file(path);
    if (!QFileInfo::exists(path)) {
        loaded.recreated = true;
        if (!file.open()) {
            loaded.error = QStringLiteral("The register \"%1\" could not be created: %2")
                               .arg(QFileInfo(path).fileName(), file.errorString());
            loaded.title = RegisterRefusals::MissingTitle;
        }
        return loaded;
    }
    // Room for the entries made before the register is listed again, so that
    // adding one to the list does not move a full register in memory.
    loaded.records = file.readAll(RoomToGrow);
    return loaded;
}

RegisterService::Result RegisterService::refuse(const QString &error, const QString &title) const
{
    Result r;
    r.error = error;
    r.title = title;
    return r;
}

RegisterService::Result RegisterService::add(int bankNum, TransRecord record)
{
    return write(bankNum, 0, std::move(record), true);
}

RegisterService::Result RegisterService::change(int bankNum, int recordNumber, TransRecord record)
{
    return write(bankNum, recordNumber, std::move(record), false);
}

RegisterService::Result RegisterService::write(int bankNum, int recordNumber, TransRecord record,
                                               bool isNew, bool voiding)
{
    AccountBook book(m_files);
    BankAcctRecord account = book.read(bankNum);
    if (bankNum < 1 || bankNum > book.count() || account.isDeleted())
        return refuse(QStringLiteral("There is no such account."));
    if (const auto notice = AccountNames::damagedNotice(account.BankName.text()))
        return refuse(*notice, AccountNames::DamagedTitle);
    const QString path = m_files.registerFile(account.BankName.text());
    if (!QFileInfo::exists(path)) {
        // Removed behind the program's back: start it again, empty, and say so
        // rather than quietly writing a register that begins with this entry.
        RecordFile<TransRecord>(path).open();
        return refuse(RegisterRefusals::recreated(account.BankName.text()),
                      RegisterRefusals::MissingTitle);
    }
    UnitOfWork unit(m_files.dataDir());

    TransRecord before;
    if (isNew) {
        recordNumber = unit.count(path, TransRecord::Size) + 1;
        if (recordNumber > RawRecordFile::MaxRecords)
            return refuse(RegisterRefusals::full(account.BankName.text()),
                          RegisterRefusals::FullTitle);
    } else {
        if (recordNumber < 1 || recordNumber > unit.count(path, TransRecord::Size))
            return refuse(QStringLiteral("That transaction is no longer in the register."));
        before = unit.read<TransRecord>(path, recordNumber);
    }
    record.Tranno = static_cast<std::int16_t>(recordNumber);
    unit.write(path, recordNumber, record);

    AccountPosting::post(unit, m_files, account, isNew ? nullptr : &before, record);
    BudgetPosting::post(unit, m_files, isNew ? nullptr : &before, voiding ? nullptr : &record);

    if (!unit.commit())
        return refuse(unit.error());
    Result r;
    r.ok = true;
    r.recordNumber = recordNumber;
    r.account = account;
    return r;
}

RegisterService::Result RegisterService::voidRecord(int bankNum, int recordNumber)
{
    AccountBook book(m_files);
    const BankAcctRecord account = book.read(bankNum);
    if (bankNum < 1 || account.isDeleted())
        return refuse(QStringLiteral("There is no such account."));
    RecordFile<TransRecord> file(m_files.registerFile(account.BankName.text()));
    if (recordNumber < 1 || recordNumber > file.count())
        return refuse(QStringLiteral("That transaction is no longer in the register."));
    const TransRecord old = file.read(recordNumber);
    if (old.TypeNum == TransactionTypes::TypeNum::StartingBalance)
        return refuse(
            QStringLiteral("The starting balance cannot be voided; change its amount instead."));
    if (old.Description.is(QStringLiteral("Void")) && old.Amount.isZero())
        return refuse(QStringLiteral("This transaction is void already."));
    const QString cls = old.TransClass.text().trimmed();
    if (cls != TransactionClasses::NormTrans && cls != TransactionClasses::CCTrans)
        return refuse(
            QStringLiteral("A transfer or card payment is voided together with its other side."));

    TransRecord v = TransactionTemplate::blank();
    v.Status = old.Status;
    v.Date = old.Date;
    v.DateClear = old.DateClear;
    v.Type = QStringLiteral("Void");
    v.BudName = TransactionTemplate::NoCategory;
    v.TransClass = old.TransClass;
    v.CCBankName = TransactionTemplate::NoCategory;
    return write(bankNum, recordNumber, v, false, true);
}

RegisterService::Result RegisterService::setViewFrom(int bankNum, const QString &viewFrom)
{
    BankAcctRecord account = AccountBook(m_files).read(bankNum);
    if (bankNum < 1 || account.isDeleted())
        return refuse(QStringLiteral("There is no such account."));
    account.ViewFromDate = viewFrom;
    account.ViewOption = viewFrom == QStringLiteral("All") ? 0 : 1;
    UnitOfWork unit(m_files.dataDir());
    unit.write(m_files.accountList(), bankNum, account);
    if (!unit.commit())
        return refuse(unit.error());
    Result r;
    r.ok = true;
    r.account = account;
    return r;
}
