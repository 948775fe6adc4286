#include "accounts/AccountArchive.h"

#include "accounts/AccountBook.h"
#include "accounts/ArchiveList.h"
#include "records/AccountKinds.h"
#include "records/ArchiveRecord.h"
#include "records/BudgetRecord.h"
#include "records/PayeeRecord.h"
#include "records/RecordFile.h"
#include "records/UnitOfWork.h"

#include <QFileInfo>

#include <utility>

namespace {

// "Savings " for "SV" and so on; empty for a code that is not a kind.
QString kindWord(const QString &typeCode)
{
    const int kind = AccountKinds::indexOf(typeCode);
    return kind < 0 ? QString() : AccountKinds::TypeNames[kind] + QLatin1Char(' ');
}

} // namespace

AccountArchive::AccountArchive(DataFiles files) : m_files(std::move(files)) {}

AccountArchive::Result AccountArchive::refuse(const QString &error) const
{
    Result r;
    r.error = error;
    return r;
}

QStringList AccountArchive::deleteWarnings(const BankAcctRecord &account)
{
    QStringList warnings;
    if (!account.Balance.isZero())
        warnings << BalanceWarning;
    warnings << ArchiveHint;
    return warnings;
}

QString AccountArchive::listText(const QString &typeCode, const QString &name)
{
    return QStringLiteral("Archived ") + kindWord(typeCode) + QStringLiteral("Account ")
           + name.trimmed();
}

AccountArchive::Result AccountArchive::RemoveAccount(int bankNum, int mode)
{
    AccountBook book(m_files);
    const BankAcctRecord account = book.read(bankNum);
    const QString name = account.BankName.text().trimmed();
    if (bankNum < 1 || bankNum > book.count() || account.isDeleted() || name.isEmpty()) {
        Result r;
        r.prompt = NotComplete;
        return r;
    }
    const QString typeCode = account.Type.text().trimmed();
    const QString registerFile = m_files.registerFile(name);
    const QString archivedFile = m_files.archivedRegisterFile(name);
    if (mode == ArchiveMode && QFileInfo::exists(archivedFile))
        return refuse(QStringLiteral("\"%1\" is already in the data folder. Move it away or "
                                     "rename the account before archiving it.")
                          .arg(QFileInfo(archivedFile).fileName()));

    UnitOfWork unit(m_files.dataDir());
    BankAcctRecord removed = account;
    removed.BankName = QStringLiteral("Deleted");
    unit.write(m_files.accountList(), bankNum, removed);

    // A card's own category: tied to the card by number, or (in a list
    // written before categories carried the number) by the card's name.
    if (typeCode == AccountKinds::CreditCard) {
        RecordFile<BudgetRecord> budget(m_files.budget());
        const std::vector<BudgetRecord> cats = budget.readAll();
        for (std::size_t i = 0; i < cats.size(); ++i) {
            const BudgetRecord &c = cats[i];
            const bool own = c.CCBankRecnum == bankNum
                             || (c.CCBankRecnum == 0 && c.BudName.text().trimmed() == name);
            if (c.isDeleted() || !own)
                continue;
            BudgetRecord freed = c;
            freed.Balance = Currency();
            freed.BudName = QStringLiteral("Deleted");
            unit.write(m_files.budget(), int(i) + 1, freed);
        }
    }

    // The account's saved payees become free records for the payee list to reuse.
    RecordFile<PayeeRecord> payees(m_files.payees());
    const std::vector<PayeeRecord> saved = payees.readAll();
    for (std::size_t i = 0; i < saved.size(); ++i) {
        if (saved[i].BankNum != bankNum || saved[i].isEmpty())
            continue;
        PayeeRecord freed;
        freed.PayeeNum = static_cast<std::int16_t>(i + 1);
        unit.write(m_files.payees(), int(i) + 1, freed);
    }

    // The record of bank downloads goes with the account either way.
    unit.remove(m_files.importedIds(name));

    Result result;
    if (mode == ArchiveMode) {
        result.archNum = ArchiveList::addEntry(unit, m_files, typeCode, name);
        if (result.archNum == 0)
            return refuse(QStringLiteral("The archive list is full"));
        if (QFileInfo::exists(registerFile))
            unit.rename(registerFile, archivedFile);
        result.report
            = kindWord(typeCode) + QStringLiteral("Account ") + name
              + QStringLiteral(" has been Archived. Select Show Archived Accounts to view file.");
    } else {
        // Done last, once every record above is safely written.
        unit.remove(registerFile);
    }
    if (!unit.commit())
        return refuse(unit.error());
    result.ok = true;
    return result;
}

std::vector<AccountArchive::Entry> AccountArchive::entries() const
{
    std::vector<Entry> out;
    if (!QFileInfo::exists(m_files.archiveList()))
        return out;
    RecordFile<ArchiveRecord> list(m_files.archiveList());
    const std::vector<ArchiveRecord> all = list.readAll();
    for (std::size_t i = 0; i < all.size(); ++i) {
        const ArchiveRecord &a = all[i];
        const QString name = a.BankName.text().trimmed();
        if (a.isDeleted() || name.isEmpty())
            continue;
        Entry e;
        e.archNum = int(i) + 1;
        e.typeCode = a.Type.text().trimmed();
        e.name = name;
        e.fileMissing = !QFileInfo::exists(m_files.archivedRegisterFile(name));
        out.push_back(e);
    }
    return out;
}

AccountArchive::ArchivedRegister AccountArchive::readRegister(int archNum) const
{
    ArchivedRegister out;
    for (const Entry &e : entries()) {
        if (e.archNum != archNum)
            continue;
        out.creditCard = e.typeCode == AccountKinds::CreditCard;
        const QString path = m_files.archivedRegisterFile(e.name);
        // Opening a missing file would create it: look first.
        const QFileInfo info(path);
        if (!info.exists()) {
            out.missing = true;
            return out;
        }
        RecordFile<TransRecord> file(path);
        out.records = file.readAll();
        const qint64 whole
            = std::min<qint64>(info.size() / TransRecord::Size, RawRecordFile::MaxRecords);
        out.ignoredBytes = info.size() - whole * TransRecord::Size;
        if (qint64(out.records.size()) > whole)
            out.records.resize(std::size_t(whole));
        return out;
    }
    out.missing = true;
    return out;
}

AccountArchive::Result AccountArchive::deleteEntry(int archNum)
{
    const QString path = m_files.archiveList();
    RecordFile<ArchiveRecord> list(path);
    ArchiveRecord entry = QFileInfo::exists(path) ? list.read(archNum) : ArchiveRecord{};
    const QString name = entry.BankName.text().trimmed();
    if (archNum < 1 || entry.isDeleted() || name.isEmpty()) {
        Result r;
        r.prompt = NotComplete;
        return r;
    }
    UnitOfWork unit(m_files.dataDir());
    entry.ArchNum = static_cast<std::int16_t>(archNum);
    entry.BankName = QStringLiteral("Deleted");
    unit.write(path, archNum, entry);
    unit.remove(m_files.archivedRegisterFile(name));
    if (!unit.commit())
        return refuse(unit.error());
    Result r;
    r.ok = true;
    r.archNum = archNum;
    return r;
}
