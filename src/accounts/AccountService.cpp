#include "accounts/AccountService.h"

#include "accounts/AccountBook.h"
#include "accounts/AccountNames.h"
#include "core/EntryChecks.h"
#include "records/AccountKinds.h"
#include "records/ArchiveRecord.h"
#include "records/BudgetRecord.h"
#include "records/PayeeRecord.h"
#include "records/RecordFile.h"
#include "records/RemovedMark.h"
#include "records/TransactionClasses.h"
#include "records/TransactionTemplate.h"
#include "records/TransactionTypes.h"
#include "records/UnitOfWork.h"

#include <QDir>
#include <QFileInfo>

#include <utility>

AccountService::AccountService(DataFiles files) : m_files(std::move(files)) {}

bool AccountService::nameInUse(const QString &name, int exceptBankNum) const
{
    // "Deleted" marks a removed record, and the register of an account called
    // "Budget" would be the budget-transfer file "trans Budget.Dat".
    if (RemovedMark::marks(name) || AccountNames::same(name, QStringLiteral("Budget")))
        return true;
    for (const DataFiles &set : {m_files, m_files.other()}) {
        RecordFile<BankAcctRecord> accounts(set.accountList());
        for (const BankAcctRecord &a : accounts.readAll()) {
            const bool self = set.isSample() == m_files.isSample() && a.BankNum == exceptBankNum;
            if (!self && !a.isDeleted() && AccountNames::same(a.BankName.text(), name))
                return true;
        }
        RecordFile<ArchiveRecord> archive(set.archiveList());
        for (const ArchiveRecord &a : archive.readAll())
            if (!a.isDeleted() && AccountNames::same(a.BankName.text(), name))
                return true;
    }
    // A register or archived register left on disk under that name would be
    // taken over by the new account.
    const QString trans = QFileInfo(m_files.registerFile(name)).fileName();
    const QString arch = QFileInfo(m_files.archivedRegisterFile(name)).fileName();
    QString own;
    if (exceptBankNum > 0)
        own = QFileInfo(
                  m_files.registerFile(AccountBook(m_files).read(exceptBankNum).BankName.text()))
                  .fileName();
    const QStringList present = QDir(m_files.dataDir()).entryList(QDir::Files);
    for (const QString &f : present) {
        if (!own.isEmpty() && f == own)
            continue;
        if (f.compare(trans, Qt::CaseInsensitive) == 0 || f.compare(arch, Qt::CaseInsensitive) == 0)
            return true;
    }
    return false;
}

std::optional<QString> AccountService::checkName(const QString &name, int exceptBankNum) const
{
    if (auto problem = AccountNames::problem(name))
        return problem;
    if (nameInUse(name, exceptBankNum))
        return AccountNames::InUse;
    return std::nullopt;
}

AccountService::Result AccountService::add(const NewAccount &account)
{
    if (account.kind < 0 || account.kind > 3)
        return refuse(QStringLiteral("Select an Account Type"));
    const QString name = AccountNames::stored(account.name);
    if (auto problem = checkName(name, 0))
        return refuse(*problem);

    const QString typed = account.startBalance.trimmed();
    if (typed.isEmpty())
        return refuse(QStringLiteral("Enter a Starting Balance (0 when there is none)"));
    const auto amount = Currency::parse(typed);
    if (!amount)
        return refuse(QStringLiteral("The Starting Balance must be a number"));
    if (amount->isNegative() || EntryChecks::hasSign(typed))
        return refuse(
            QStringLiteral("Enter the Starting Balance without a sign and choose Debit or Credit"));
    if (exceedsMaxAmount(*amount))
        return refuse(EntryChecks::MaxAmountText);
    const Currency signedAmount = account.debit ? -*amount : *amount;
    const QString code = AccountKinds::Codes[account.kind];
    const bool card = account.kind == 3;

    UnitOfWork unit(m_files.dataDir());
    BankAcctRecord acct;
    acct.Type = code;
    acct.BankName = name;
    // Every file name and link is built from the name exactly as the record holds it.
    const QString storedName = acct.BankName.text();
    acct.Balance = signedAmount;
    acct.NextCheckNum = -1;
    acct.ViewFromDate = QStringLiteral("All");
    acct.ViewOption = 0;
    const int bankNum = unit.count(m_files.accountList(), BankAcctRecord::Size) + 1;
    if (bankNum > RawRecordFile::MaxRecords)
        return refuse(QStringLiteral("The account list is full"));
    acct.BankNum = static_cast<std::int16_t>(bankNum);
    unit.append(m_files.accountList(), acct);

    // A credit card gets its own budget category, in the first free record.
    int budNum = 0;
    if (card) {
        RecordFile<BudgetRecord> budget(m_files.budget());
        const std::vector<BudgetRecord> cats = budget.readAll();
        for (std::size_t i = 0; i < cats.size() && budNum == 0; ++i)
            if (cats[i].isDeleted())
                budNum = int(i) + 1;
        if (budNum == 0)
            budNum = int(cats.size()) + 1;
        if (budNum > RawRecordFile::MaxRecords)
            return refuse(QStringLiteral("The budget has no room for another category"));
        BudgetRecord cat;
        cat.BudNum = static_cast<std::int16_t>(budNum);
        cat.BudName = storedName;
        cat.CCBankName = storedName;
        cat.CCBankRecnum = acct.BankNum;
        cat.AmountText = QStringLiteral("0");
        unit.write(m_files.budget(), budNum, cat);
    }

    // The register starts with the opening entry. A last-statement balance has
    // already been through the bank, so it starts cleared; an initial deposit
    // still has to appear on a statement.
    TransRecord opening = TransactionTemplate::blank();
    opening.Tranno = 1;
    opening.Type = TransactionTemplate::StartingBalance;
    opening.TypeNum = TransactionTypes::TypeNum::StartingBalance;
    opening.Date = EntryChecks::formatLongDate(account.date);
    opening.Description = TransactionTemplate::NewAccountPayee;
    opening.Memo = account.lastStatement ? QStringLiteral("Ending balance of last statement")
                                         : QStringLiteral("Initial deposit");
    if (account.lastStatement) {
        opening.Status = TransactionTemplate::Cleared;
        opening.DateClear = EntryChecks::formatLongDate(account.date);
    }
    opening.BudName = TransactionTemplate::NoCategory;
    opening.TransClass = card ? TransactionClasses::CCTrans : TransactionClasses::NormTrans;
    opening.CCBankName = card ? storedName : TransactionTemplate::NoCategory;
    opening.CCBankNum = card ? acct.BankNum : 0;
    opening.CCBudNum = static_cast<std::int16_t>(budNum);
    opening.Amount = signedAmount;
    unit.write(m_files.registerFile(storedName), 1, opening);

    if (!unit.commit())
        return refuse(unit.error());
    return {true, QString(), bankNum};
}

AccountService::Result AccountService::rename(int bankNum, const QString &newName)
{
    AccountBook book(m_files);
    const BankAcctRecord old = book.read(bankNum);
    if (bankNum < 1 || bankNum > book.count() || old.isDeleted() || old.BankName.isBlank())
        return refuse(SelectToRename);
    const QString typed = AccountNames::stored(newName);
    const QString oldName = old.BankName.text();
    if (typed == oldName)
        return {true, QString(), bankNum};
    if (auto problem = checkName(typed, bankNum))
        return refuse(*problem);
    // Every file name and link is built from the name exactly as the record holds it.
    const QString name = decltype(BankAcctRecord::BankName)(typed).text();

    UnitOfWork unit(m_files.dataDir());
    const QString oldRegister = m_files.registerFile(oldName);
    const QString newRegister = m_files.registerFile(name);
    // A name damaged on disk is no file name: renaming is how such an account is
    // put right, and its register starts again under the new name.
    const bool oldUsable = !AccountNames::damagedNotice(oldName);
    if (oldUsable && QFileInfo::exists(oldRegister))
        unit.rename(oldRegister, newRegister);
    // What bank downloads brought in stays with the account.
    if (oldUsable && QFileInfo::exists(m_files.importedIds(oldName)))
        unit.rename(m_files.importedIds(oldName), m_files.importedIds(name));

    BankAcctRecord acct = old;
    acct.BankName = name;
    unit.write(m_files.accountList(), bankNum, acct);

    RecordFile<PayeeRecord> payees(m_files.payees());
    const std::vector<PayeeRecord> payeeRecs = payees.readAll();
    for (std::size_t i = 0; i < payeeRecs.size(); ++i) {
        if (!payeeRecs[i].isEmpty() && payeeRecs[i].BankName.is(oldName)) {
            PayeeRecord p = payeeRecs[i];
            p.BankName = name;
            unit.write(m_files.payees(), int(i) + 1, p);
        }
    }

    RecordFile<BudgetRecord> budget(m_files.budget());
    const std::vector<BudgetRecord> cats = budget.readAll();
    for (std::size_t i = 0; i < cats.size(); ++i) {
        if (!cats[i].isDeleted() && cats[i].CCBankRecnum == bankNum
            && cats[i].CCBankName.is(oldName)) {
            BudgetRecord c = cats[i];
            c.BudName = name;
            c.CCBankName = name;
            unit.write(m_files.budget(), int(i) + 1, c);
        }
    }

    // Transactions name the accounts they link to; keep those names current in
    // every register of the data set, this account's own included.
    const auto accounts = book.readAll().value_or(std::vector<BankAcctRecord>{});
    for (const BankAcctRecord &a : accounts) {
        if (a.isDeleted() || AccountNames::damagedNotice(a.BankName.text()))
            continue;
        const bool self = a.BankNum == bankNum;
        RecordFile<TransRecord> reg(self ? oldRegister : m_files.registerFile(a.BankName.text()));
        const std::vector<TransRecord> recs = reg.readAll();
        for (std::size_t i = 0; i < recs.size(); ++i) {
            TransRecord t = recs[i];
            bool changed = false;
            auto fix = [&](FixedText<30> &field, std::int16_t num) {
                if (num == bankNum && field.is(oldName)) {
                    field = name;
                    changed = true;
                }
            };
            fix(t.CCBankName, t.CCBankNum);
            fix(t.PaidFromBankName, t.PaidFromBankNum);
            fix(t.PaidToBankName, t.PaidToBankNum);
            if (changed)
                unit.write(self ? newRegister : reg.path(), int(i) + 1, t);
        }
    }

    if (!unit.commit())
        return refuse(unit.error());
    return {true, QString(), bankNum};
}
