#include "register/CardPayments.h"

#include "accounts/AccountBook.h"
#include "accounts/AccountNames.h"
#include "budget/BudgetBook.h"
#include "budget/BudgetPosting.h"
#include "core/EntryChecks.h"
#include "records/AccountKinds.h"
#include "records/RecordFile.h"
#include "records/TransactionClasses.h"
#include "records/TransactionTemplate.h"
#include "records/TransactionTypes.h"
#include "records/UnitOfWork.h"
#include "register/AccountPosting.h"
#include "register/LinkedRecords.h"
#include "register/RegisterRefusals.h"

#include <QFileInfo>

#include <utility>

namespace {

// The card's side of a payment, from the bank side.
TransRecord cardSide(const TransRecord &bank, int cardRecord, const QString &memo)
{
    TransRecord c = TransactionTemplate::blank();
    c.Tranno = static_cast<std::int16_t>(cardRecord);
    c.Type = QStringLiteral("Payment");
    c.TypeNum = TransactionTypes::TypeNum::Credit;
    c.TransClass = TransactionClasses::PayCard;
    c.Amount = -bank.Amount;
    c.Date = bank.Date;
    c.Description = bank.Description;
    c.Memo = memo;
    c.BudName = TransactionTemplate::NoCategory;
    c.BudNum = 0;
    c.DateClear = bank.DateClear.text().trimmed();
    c.Status = c.DateClear.isBlank() ? TransactionTemplate::Open : TransactionTemplate::Cleared;
    c.PaidFromBankName = bank.PaidFromBankName;
    c.PaidFromBankNum = bank.PaidFromBankNum;
    c.PaidFromBankTransRecNum = bank.PaidFromBankTransRecNum;
    c.CCBankName = bank.CCBankName;
    c.CCBankNum = bank.CCBankNum;
    c.CCBudNum = bank.CCBudNum;
    c.PaidToBankName = bank.PaidToBankName;
    c.PaidToBankNum = bank.PaidToBankNum;
    c.PaidToBankTransRecNum = bank.PaidToBankTransRecNum;
    return c;
}

} // namespace

CardPayments::CardPayments(DataFiles files) : m_files(std::move(files)) {}

CardPayments::Result CardPayments::refuse(const QString &error, const QString &title) const
{
    Result r;
    r.error = error;
    r.title = title;
    return r;
}

CardPayments::Result CardPayments::add(int bankNum, TransRecord bankSide, int cardBankNum)
{
    AccountBook book(m_files);
    BankAcctRecord bank = book.read(bankNum);
    BankAcctRecord card = book.read(cardBankNum);
    if (bankNum < 1 || bank.isDeleted() || cardBankNum < 1 || cardBankNum > book.count()
        || card.isDeleted() || !AccountKinds::isCard(card.Type.text()))
        return refuse(QStringLiteral("That credit card is no longer in the account list"));
    for (const BankAcctRecord *account : {&bank, &card})
        if (const auto notice = AccountNames::damagedNotice(account->BankName.text()))
            return refuse(*notice, AccountNames::DamagedTitle);
    const QString bankPath = m_files.registerFile(bank.BankName.text());
    const QString cardPath = m_files.registerFile(card.BankName.text());
    for (const BankAcctRecord *a : {&bank, &card})
        if (!QFileInfo::exists(m_files.registerFile(a->BankName.text())))
            return refuse(RegisterRefusals::missing(a->BankName.text()));

    UnitOfWork unit(m_files.dataDir());
    const int bankRecord = unit.count(bankPath, TransRecord::Size) + 1;
    const int cardRecord = unit.count(cardPath, TransRecord::Size) + 1;
    if (bankRecord > RawRecordFile::MaxRecords || cardRecord > RawRecordFile::MaxRecords)
        return refuse(RegisterRefusals::full(
                          (bankRecord > RawRecordFile::MaxRecords ? bank : card).BankName.text()),
                      RegisterRefusals::FullTitle);
    const QString memo = bankSide.Memo.text();
    bankSide.Tranno = static_cast<std::int16_t>(bankRecord);
    bankSide.TransClass = TransactionClasses::PayBank;
    bankSide.PaidFromBankName = bank.BankName.text();
    bankSide.PaidFromBankNum = bank.BankNum;
    bankSide.PaidFromBankTransRecNum = static_cast<std::int16_t>(bankRecord);
    bankSide.PaidToBankName = card.BankName.text();
    bankSide.CCBankName = card.BankName.text();
    bankSide.CCBudNum = static_cast<std::int16_t>(BudgetBook(m_files).cardCategory(cardBankNum));
    bankSide.PaidToBankNum = card.BankNum;
    bankSide.CCBankNum = card.BankNum;
    bankSide.PaidToBankTransRecNum = static_cast<std::int16_t>(cardRecord);
    const TransRecord cardEntry = cardSide(bankSide, cardRecord, memo);
    unit.write(bankPath, bankRecord, bankSide);
    unit.write(cardPath, cardRecord, cardEntry);

    AccountPosting::post(unit, m_files, bank, nullptr, bankSide);
    AccountPosting::post(unit, m_files, card, nullptr, cardEntry);
    BudgetPosting::post(unit, m_files, nullptr, &bankSide);
    if (!unit.commit())
        return refuse(unit.error());
    Result r;
    r.ok = true;
    r.bankRecord = bankRecord;
    r.cardRecord = cardRecord;
    return r;
}

CardPayments::Result CardPayments::change(int bankNum, int bankRecord, TransRecord bankSide,
                                          int cardBankNum)
{
    const BankAcctRecord owner = AccountBook(m_files).read(bankNum);
    const TransRecord stored
        = RecordFile<TransRecord>(m_files.registerFile(owner.BankName.text())).read(bankRecord);
    const auto found = LinkedRecords::find(m_files, stored);
    if (!found.records)
        return refuse(found.problem);
    const LinkedRecords &old = *found.records;
    if (old.toAccount.BankNum != cardBankNum)
        return refuse(QStringLiteral("To pay another card, void this payment and enter a new one"));

    BankAcctRecord bank = old.fromAccount;
    BankAcctRecord card = old.toAccount;
    const QString memo = bankSide.Memo.text();
    bankSide.Tranno = static_cast<std::int16_t>(old.fromRecord);
    bankSide.TransClass = TransactionClasses::PayBank;
    bankSide.PaidFromBankName = old.from.PaidFromBankName;
    bankSide.PaidFromBankNum = old.from.PaidFromBankNum;
    bankSide.PaidFromBankTransRecNum = static_cast<std::int16_t>(old.fromRecord);
    bankSide.PaidToBankName = old.from.PaidToBankName;
    bankSide.PaidToBankNum = old.from.PaidToBankNum;
    bankSide.PaidToBankTransRecNum = static_cast<std::int16_t>(old.toRecord);
    bankSide.CCBankName = old.from.CCBankName;
    bankSide.CCBankNum = old.from.CCBankNum;
    bankSide.CCBudNum = old.from.CCBudNum;

    UnitOfWork unit(m_files.dataDir());
    const TransRecord cardEntry = cardSide(bankSide, old.toRecord, memo);
    unit.write(old.fromPath, old.fromRecord, bankSide);
    unit.write(old.toPath, old.toRecord, cardEntry);
    // The old amounts are given back (no floor), then the new ones applied.
    AccountPosting::post(unit, m_files, bank, &old.from, bankSide);
    AccountPosting::post(unit, m_files, card, &old.to, cardEntry);
    BudgetPosting::post(unit, m_files, &old.from, &bankSide);
    if (!unit.commit())
        return refuse(unit.error());
    Result r;
    r.ok = true;
    r.bankRecord = old.fromRecord;
    r.cardRecord = old.toRecord;
    return r;
}

CardPayments::Result CardPayments::changeFromCard(int cardBankNum, int cardRecord, Currency amount,
                                                  const QDate &date, const QString &description,
                                                  const QString &memo)
{
    return changeFromCardSide(cardBankNum, cardRecord, amount,
                              date.isValid() ? std::optional<QDate>(date) : std::nullopt,
                              description, memo);
}

CardPayments::Result CardPayments::changeFromCard(int cardBankNum, int cardRecord,
                                                  const QString &amountText, const QString &date,
                                                  const QString &description, const QString &memo)
{
    return changeFromCardSide(cardBankNum, cardRecord, Currency::parse(amountText),
                              EntryChecks::parseDate(date), description, memo);
}

CardPayments::Result CardPayments::changeFromCardSide(int cardBankNum, int cardRecord,
                                                      std::optional<Currency> amount,
                                                      std::optional<QDate> day,
                                                      const QString &description,
                                                      const QString &memo)
{
    const BankAcctRecord card = AccountBook(m_files).read(cardBankNum);
    const TransRecord stored
        = RecordFile<TransRecord>(m_files.registerFile(card.BankName.text())).read(cardRecord);
    const auto found = LinkedRecords::find(m_files, stored);
    if (!found.records)
        return refuse(found.problem);
    if (!amount || amount->isNegative() || amount->isZero())
        return refuse(QStringLiteral("Enter an amount greater than zero"));
    if (exceedsMaxAmount(*amount))
        return refuse(EntryChecks::MaxAmountText, EntryChecks::MaxAmountTitle);
    if (!day)
        return refuse(EntryChecks::BadDateText, EntryChecks::BadDateTitle);
    TransRecord bankSide = found.records->from;
    bankSide.Amount = -*amount;
    bankSide.Date = EntryChecks::formatLongDate(*day);
    bankSide.Description = description.trimmed();
    bankSide.Memo = memo;
    return change(found.records->fromAccount.BankNum, found.records->fromRecord, bankSide,
                  cardBankNum);
}
