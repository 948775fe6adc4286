#include "reconcile/StatementBook.h"

#include "accounts/AccountBook.h"
#include "core/EntryChecks.h"
#include "core/TransactionText.h"
#include "records/AccountKinds.h"
#include "records/RawRecordFile.h"
#include "records/TransactionClasses.h"
#include "records/TransactionTemplate.h"
#include "records/TransactionTypes.h"
#include "records/UnitOfWork.h"
#include "register/AccountPosting.h"
#include "register/RegisterRefusals.h"

#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace {

const QString Gone = QStringLiteral("Account Not Found");

StatementBook::Result refused(const QString &error, const QString &title, bool relist = false)
{
    StatementBook::Result r;
    r.error = error;
    r.title = title;
    r.relist = relist;
    return r;
}

} // namespace

StatementBook::StatementBook(DataFiles files) : m_files(std::move(files)) {}

Currency StatementBook::expectedStart(const std::vector<TransRecord> &records)
{
    Currency sum;
    for (const TransRecord &t : records)
        if (t.Status.is(TransactionTemplate::Cleared))
            sum += t.Amount;
    return sum;
}

StatementBook::Result StatementBook::account(int bankNum, const QString &accountName) const
{
    AccountBook book(m_files);
    const BankAcctRecord a = book.read(bankNum);
    if (bankNum < 1 || bankNum > book.count() || a.isDeleted()
        || a.BankName.text().trimmed() != accountName.trimmed())
        return refused(QStringLiteral("The account \"%1\" is no longer in the account list. "
                                      "Nothing has been written.")
                           .arg(accountName.trimmed()),
                       Gone);
    const QString path = m_files.registerFile(a.BankName.text());
    if (!QFileInfo::exists(path))
        return refused(QStringLiteral("The register of \"%1\" (%2) is missing. Nothing has been "
                                      "written.")
                           .arg(accountName.trimmed(), QFileInfo(path).fileName()),
                       RegisterRefusals::MissingTitle);
    Result r;
    r.ok = true;
    r.account = a;
    return r;
}

StatementBook::Result StatementBook::clear(int bankNum, const QString &accountName,
                                           const QDate &statementDate,
                                           const std::vector<int> &recordNumbers) const
{
    Result r = account(bankNum, accountName);
    if (!r.ok)
        return r;
    const QString path = m_files.registerFile(r.account.BankName.text());
    UnitOfWork unit(m_files.dataDir());
    const int count = unit.count(path, TransRecord::Size);
    const QString date = EntryChecks::formatLongDate(statementDate);
    for (int n : recordNumbers) {
        TransRecord t = n >= 1 && n <= count ? unit.read<TransRecord>(path, n) : TransRecord();
        if (n < 1 || n > count || !t.Status.is(TransactionTemplate::Open))
            return refused(QStringLiteral("The register of \"%1\" changed while the statement "
                                          "was open. Nothing has been written; the list has "
                                          "been read again with your ticks kept.")
                               .arg(accountName.trimmed()),
                           ChangedTitle, true);
        t.Status = TransactionTemplate::Cleared;
        t.DateClear = date;
        unit.write(path, n, t);
    }
    if (!unit.isEmpty() && !unit.commit())
        return refused(unit.error(), UnitOfWork::FailureTitle);
    return r;
}

TransRecord StatementBook::correction(const BankAcctRecord &account, Currency difference,
                                      const QDate &statementDate, const QDate &today,
                                      int recordNumber)
{
    const bool card = AccountKinds::isCard(account.Type.text());
    const bool up = difference > Currency();
    TransRecord t;
    t.Tranno = static_cast<std::int16_t>(recordNumber);
    t.Status = TransactionTemplate::Open;
    t.Type = card ? (up ? QStringLiteral("Credit") : QStringLiteral("Charge"))
                  : (up ? QStringLiteral("Deposit") : QStringLiteral("Withdrawal"));
    t.TypeNum = 0;
    t.Date = EntryChecks::formatLongDate(today);
    t.Description = CorrectionPayee + EntryChecks::formatLongDate(statementDate);
    t.TransClass = TransactionClasses::NormTrans;
    t.CCBankName = account.BankName.text();
    t.CCBankNum = account.BankNum;
    t.Amount = difference;
    return t;
}

StatementBook::Result StatementBook::correct(int bankNum, const QString &accountName,
                                             Currency difference, const QDate &statementDate,
                                             const QDate &today) const
{
    Result r = account(bankNum, accountName);
    if (!r.ok)
        return r;
    const QString path = m_files.registerFile(r.account.BankName.text());
    UnitOfWork unit(m_files.dataDir());
    const int n = unit.count(path, TransRecord::Size) + 1;
    if (n > RawRecordFile::MaxRecords)
        return refused(RegisterRefusals::full(accountName), RegisterRefusals::FullTitle);
    r.record = correction(r.account, difference, statementDate, today, n);
    r.recordNumber = n;
    unit.write(path, n, r.record);
    AccountPosting::post(unit, m_files, r.account, nullptr, r.record);
    if (!unit.commit())
        return refused(unit.error(), UnitOfWork::FailureTitle);
    return r;
}

StatementBook::Result StatementBook::unclear(int bankNum, const QString &accountName,
                                             int recordNumber) const
{
    Result r = account(bankNum, accountName);
    if (!r.ok)
        return r;
    const QString path = m_files.registerFile(r.account.BankName.text());
    UnitOfWork unit(m_files.dataDir());
    if (recordNumber < 1 || recordNumber > unit.count(path, TransRecord::Size))
        return refused(QStringLiteral("That transaction is no longer in the register."),
                       ChangedTitle, true);
    TransRecord t = unit.read<TransRecord>(path, recordNumber);
    if (!t.Status.is(TransactionTemplate::Cleared))
        return refused(QStringLiteral("That transaction is not cleared any more."), ChangedTitle,
                       true);
    t.Status = TransactionTemplate::Open;
    t.DateClear = QString();
    unit.write(path, recordNumber, t);
    if (!unit.commit())
        return refused(unit.error(), UnitOfWork::FailureTitle);
    r.recordNumber = recordNumber;
    r.record = t;
    return r;
}

QStringList StatementBook::statementDates(const std::vector<TransRecord> &records)
{
    std::vector<std::pair<QDate, QString>> dates;
    for (const TransRecord &t : records) {
        if (!t.Status.is(TransactionTemplate::Cleared) || t.DateClear.isBlank())
            continue;
        const QString text = t.DateClear.text().trimmed();
        if (std::none_of(dates.begin(), dates.end(),
                         [&](const auto &d) { return d.second == text; }))
            dates.emplace_back(TransactionText::date(t.DateClear), text);
    }
    std::stable_sort(dates.begin(), dates.end(),
                     [](const auto &a, const auto &b) { return a.first > b.first; });
    QStringList out;
    for (const auto &d : dates)
        out << d.second;
    return out;
}

StatementBook::Prior StatementBook::prior(const std::vector<TransRecord> &records,
                                          const QString &date)
{
    Prior p;
    const QDate on = EntryChecks::parseDate(date).value_or(QDate());
    for (std::size_t i = 0; i < records.size(); ++i) {
        const TransRecord &t = records[i];
        if (!t.Status.is(TransactionTemplate::Cleared))
            continue;
        const QDate cleared = TransactionText::date(t.DateClear);
        if (t.DateClear.is(date)) {
            p.recordNumbers.push_back(int(i + 1));
            if (t.Amount.isNegative())
                p.withdrawals -= t.Amount;
            else
                p.deposits += t.Amount;
        }
        // Cleared on this statement or an earlier one; the opening entry (the
        // ending balance of the statement before the first) and an entry
        // cleared without a date come before every statement.
        if (t.DateClear.is(date) || !cleared.isValid() || (on.isValid() && cleared < on)
            || t.TypeNum == TransactionTypes::TypeNum::StartingBalance)
            p.ending += t.Amount;
    }
    p.start = p.ending - p.deposits + p.withdrawals;
    return p;
}
