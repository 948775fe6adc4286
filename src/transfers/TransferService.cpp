#include "transfers/TransferService.h"

#include "accounts/AccountBook.h"
#include "accounts/AccountNames.h"
#include "core/EntryChecks.h"
#include "records/AccountKinds.h"
#include "records/RecordFile.h"
#include "records/TransactionClasses.h"
#include "records/TransactionTemplate.h"
#include "records/TransactionTypes.h"
#include "records/UnitOfWork.h"
#include "register/AccountPosting.h"
#include "register/CheckNumbers.h"
#include "register/LinkedRecords.h"
#include "register/RegisterRefusals.h"

#include <QFileInfo>

#include <limits>
#include <utility>

namespace {

bool isCard(const BankAcctRecord &a)
{
    return AccountKinds::isCard(a.Type.text());
}

} // namespace

TransferService::TransferService(DataFiles files) : m_files(std::move(files)) {}

QStringList TransferService::typesFor(const QString &kindCode)
{
    const QString k = kindCode.trimmed();
    if (AccountKinds::isCard(k))
        return {QStringLiteral("Charge")};
    if (AccountKinds::keepsCheckNumbers(k))
        return {CheckNumbers::NextCheck, CheckNumbers::EnterCheck, QStringLiteral("Withdrawal")};
    return {QStringLiteral("Withdrawal")};
}

QString TransferService::description(const QString &amountText, const QString &from,
                                     const QString &to)
{
    const auto amount = Currency::parse(amountText);
    const QString lead = amount ? QStringLiteral("Transfer ") + amount->toCurrencyText()
                                : QStringLiteral("Transfer");
    return lead + QStringLiteral(" from ") + from.trimmed() + QStringLiteral(" to ") + to.trimmed();
}

TransferService::Result TransferService::refuse(const QString &error, const QString &title) const
{
    Result r;
    r.error = error;
    r.title = title;
    return r;
}

std::optional<TransferService::Result> TransferService::validate(const Request &request) const
{
    if (!EntryChecks::ValidateEntryDate(request.date)
        || !EntryChecks::ValidateEntryDate(request.date3))
        return refuse(EntryChecks::BadDateText, EntryChecks::BadDateTitle);
    for (const QString &cleared : {request.fromCleared, request.toCleared})
        if (!cleared.trimmed().isEmpty() && !EntryChecks::ValidateEntryDate(cleared))
            return refuse(EntryChecks::BadDateText, EntryChecks::BadDateTitle);
    AccountBook book(m_files);
    const BankAcctRecord from = book.read(request.fromBankNum);
    const BankAcctRecord to = book.read(request.toBankNum);
    if (request.fromBankNum > 0 && request.fromBankNum == request.toBankNum)
        return refuse(SameAccounts);
    if (request.fromBankNum > 0 && request.toBankNum > 0 && from.BankName.is(to.BankName.text()))
        return refuse(SameAccounts);
    if (request.fromBankNum < 1 || request.toBankNum < 1 || request.typeText.trimmed().isEmpty()
        || request.amountText.trimmed().isEmpty() || request.description.trimmed().isEmpty())
        return refuse(Incomplete);
    if (from.isDeleted() || to.isDeleted() || request.fromBankNum > book.count()
        || request.toBankNum > book.count())
        return refuse(QStringLiteral("One of the accounts has been removed"));
    for (const BankAcctRecord *account : {&from, &to})
        if (const auto notice = AccountNames::damagedNotice(account->BankName.text()))
            return refuse(*notice, AccountNames::DamagedTitle);
    const QString type = request.typeText.trimmed();
    // Only checking and money-market accounts write checks.
    const bool check = AccountKinds::keepsCheckNumbers(from.Type.text())
                       && CheckNumbers::numberOfTypeText(type).has_value();
    if (!check && !typesFor(from.Type.text()).contains(type))
        return refuse(QStringLiteral("Choose how the money leaves %1").arg(from.BankName.text()));
    if (type == CheckNumbers::NextCheck || type == CheckNumbers::EnterCheck)
        return refuse(QStringLiteral("Enter the check number first"));
    if (check && *CheckNumbers::numberOfTypeText(type) > std::numeric_limits<std::int32_t>::max())
        return refuse(CheckNumbers::TooLargeText, CheckNumbers::TooLargeTitle);
    const auto amount = Currency::parse(request.amountText);
    if (!amount)
        return refuse(QStringLiteral("The amount must be a number"));
    if (exceedsMaxAmount(*amount))
        return refuse(EntryChecks::MaxAmountText, EntryChecks::MaxAmountTitle);
    if (EntryChecks::hasSign(request.amountText))
        return refuse(QStringLiteral("Type the amount without a sign"));
    if (amount->isNegative() || amount->isZero())
        return refuse(QStringLiteral("Enter an amount greater than zero"));
    return std::nullopt;
}

std::optional<QString> TransferService::balanceWarning(const Request &request,
                                                       Currency oldFromAmount) const
{
    const BankAcctRecord from = AccountBook(m_files).read(request.fromBankNum);
    if (isCard(from))
        return std::nullopt;
    const Currency amount = Currency::parse(request.amountText).value_or(Currency());
    const Currency base = from.Balance - oldFromAmount;
    const Currency after = base - amount;
    if (after >= Currency())
        return std::nullopt;
    return EntryChecks::transferBalanceText({amount, from.BankName.text().trimmed(), base, after});
}

namespace {

// Fills both records of a transfer from a request (record numbers aside).
void fillPair(const TransferService::Request &request, const BankAcctRecord &from,
              const BankAcctRecord &to, TransRecord &f, TransRecord &t)
{
    const QString type = request.typeText.trimmed();
    const auto check = CheckNumbers::numberOfTypeText(type);
    const Currency amount = *Currency::parse(request.amountText);
    const QString date = EntryChecks::formatLongDate(*EntryChecks::parseDate(request.date));
    auto clearedText = [](const QString &typed) {
        const auto d = EntryChecks::parseDate(typed);
        return d ? EntryChecks::formatLongDate(*d) : QString();
    };
    for (TransRecord *r : {&f, &t}) {
        r->Status = TransactionTemplate::Open;
        r->Date = date;
        r->Description = request.description.trimmed();
        r->Memo = request.memo;
        r->BudNum = 0;
        r->BudName = QString();
        r->CCBankName = QString();
        r->CCBankNum = 0;
        r->CCBudNum = 0;
        r->PaidFromBankName = from.BankName.text();
        r->PaidFromBankNum = from.BankNum;
        r->PaidToBankName = to.BankName.text();
        r->PaidToBankNum = to.BankNum;
    }
    if (check) {
        f.Type = CheckNumbers::storedTypeText(type);
        f.TypeNum = TransactionTypes::TypeNum::Check;
    } else {
        f.Type = type;
        f.TypeNum = isCard(from) ? TransactionTypes::TypeNum::Charge
                                 : TransactionTypes::TypeNum::Withdrawal;
    }
    f.DateClear = clearedText(request.fromCleared);
    f.TransClass = TransactionClasses::TransferFrom;
    f.Amount = -amount;
    t.Type = isCard(to) ? QStringLiteral("Credit") : QStringLiteral("Deposit");
    t.TypeNum = isCard(to) ? TransactionTypes::TypeNum::Credit : TransactionTypes::TypeNum::Deposit;
    t.DateClear = clearedText(request.toCleared);
    t.TransClass = TransactionClasses::TransferTo;
    t.Amount = amount;
    // A cleared side carries its mark.
    if (!f.DateClear.isBlank())
        f.Status = TransactionTemplate::Cleared;
    if (!t.DateClear.isBlank())
        t.Status = TransactionTemplate::Cleared;
}

} // namespace

TransferService::Result TransferService::enter(const Request &request)
{
    if (auto problem = validate(request))
        return *problem;
    AccountBook book(m_files);
    BankAcctRecord from = book.read(request.fromBankNum);
    BankAcctRecord to = book.read(request.toBankNum);
    const QString fromPath = m_files.registerFile(from.BankName.text());
    const QString toPath = m_files.registerFile(to.BankName.text());
    for (const BankAcctRecord *a : {&from, &to})
        if (!QFileInfo::exists(m_files.registerFile(a->BankName.text())))
            return refuse(RegisterRefusals::missing(a->BankName.text()));

    UnitOfWork unit(m_files.dataDir());
    const int fromRecord = unit.count(fromPath, TransRecord::Size) + 1;
    const int toRecord = unit.count(toPath, TransRecord::Size) + 1;
    if (fromRecord > RawRecordFile::MaxRecords || toRecord > RawRecordFile::MaxRecords)
        return refuse(RegisterRefusals::full(
                          (fromRecord > RawRecordFile::MaxRecords ? from : to).BankName.text()),
                      RegisterRefusals::FullTitle);
    TransRecord f = TransactionTemplate::blank();
    TransRecord t = TransactionTemplate::blank();
    fillPair(request, from, to, f, t);
    for (TransRecord *r : {&f, &t}) {
        r->PaidFromBankTransRecNum = static_cast<std::int16_t>(fromRecord);
        r->PaidToBankTransRecNum = static_cast<std::int16_t>(toRecord);
    }
    f.Tranno = static_cast<std::int16_t>(fromRecord);
    t.Tranno = static_cast<std::int16_t>(toRecord);
    unit.write(fromPath, fromRecord, f);
    unit.write(toPath, toRecord, t);

    AccountPosting::post(unit, m_files, from, nullptr, f);
    AccountPosting::post(unit, m_files, to, nullptr, t);
    if (!unit.commit())
        return refuse(unit.error());
    Result r;
    r.ok = true;
    r.fromRecord = fromRecord;
    r.toRecord = toRecord;
    return r;
}

TransferService::Result TransferService::change(int fromBankNum, int fromRecord,
                                                const Request &request)
{
    if (auto problem = validate(request))
        return *problem;
    AccountBook book(m_files);
    const BankAcctRecord owner = book.read(fromBankNum);
    RecordFile<TransRecord> ownFile(m_files.registerFile(owner.BankName.text()));
    const auto found = LinkedRecords::find(m_files, ownFile.read(fromRecord));
    if (!found.records)
        return refuse(found.problem);
    const LinkedRecords &old = *found.records;
    if (old.fromAccount.BankNum != request.fromBankNum
        || old.toAccount.BankNum != request.toBankNum)
        return refuse(QStringLiteral(
            "The accounts of a transfer cannot be changed; void it and enter it again"));

    BankAcctRecord from = old.fromAccount;
    BankAcctRecord to = old.toAccount;
    TransRecord f = old.from;
    TransRecord t = old.to;
    fillPair(request, from, to, f, t);
    for (TransRecord *r : {&f, &t}) {
        r->PaidFromBankTransRecNum = static_cast<std::int16_t>(old.fromRecord);
        r->PaidToBankTransRecNum = static_cast<std::int16_t>(old.toRecord);
    }
    f.Tranno = static_cast<std::int16_t>(old.fromRecord);

    UnitOfWork unit(m_files.dataDir());
    unit.write(old.fromPath, old.fromRecord, f);
    unit.write(old.toPath, old.toRecord, t);
    // The old transfer is undone on both sides, then the new one applied.
    AccountPosting::post(unit, m_files, from, &old.from, f);
    AccountPosting::post(unit, m_files, to, &old.to, t);
    if (!unit.commit())
        return refuse(unit.error());
    Result r;
    r.ok = true;
    r.fromRecord = old.fromRecord;
    r.toRecord = old.toRecord;
    return r;
}
