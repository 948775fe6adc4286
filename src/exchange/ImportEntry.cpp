#include "exchange/ImportEntry.h"

#include "accounts/AccountBook.h"
#include "budget/BudgetBook.h"
#include "budget/BudgetPosting.h"
#include "core/Clock.h"
#include "core/EntryChecks.h"
#include "records/AccountKinds.h"
#include "records/RawRecordFile.h"
#include "records/TransactionTemplate.h"
#include "records/UnitOfWork.h"
#include "register/AccountPosting.h"
#include "register/CheckNumbers.h"
#include "register/EntryRules.h"
#include "register/RegisterRefusals.h"

#include <QFileInfo>

namespace ImportEntry {

namespace {

Outcome refuse(const QString &error, const QString &title = QStringLiteral("Import"))
{
    Outcome out;
    out.error = error;
    out.title = title;
    return out;
}

} // namespace

Outcome enter(ImportPlan &plan, const Progress &progress)
{
    const DataFiles &files = plan.files();
    const ImportPlan::Summary summary = plan.summary();
    if (!summary.refusal.isEmpty())
        return refuse(summary.refusal, RegisterRefusals::FullTitle);
    if (summary.count == 0)
        return refuse(QStringLiteral("No row is ticked: there is nothing to enter."));

    // The account as stored now, not as it was when the preview was made.
    BankAcctRecord account = AccountBook(files).read(plan.account().BankNum);
    if (account.isDeleted() || !account.BankName.is(plan.account().BankName.text()))
        return refuse(QStringLiteral("The account is no longer there."));
    const QString kind = account.Type.text().trimmed();
    const QString path = files.registerFile(account.BankName.text());
    if (!QFileInfo::exists(path))
        return refuse(RegisterRefusals::recreated(account.BankName.text()),
                      RegisterRefusals::MissingTitle);
    const int cardBudNum
        = AccountKinds::isCard(kind) ? BudgetBook(files).cardCategory(account.BankNum) : 0;
    const QString today = EntryChecks::formatLongDate(Clock::today());

    UnitOfWork unit(files.dataDir());
    int n = unit.count(path, TransRecord::Size);
    if (n + summary.count > RawRecordFile::MaxRecords)
        return refuse(RegisterRefusals::full(account.BankName.text()), RegisterRefusals::FullTitle);
    Outcome out;
    out.firstRecord = n + 1;
    QStringList fitIds;
    const auto &rows = plan.rows();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const ImportPlan::Row &row = rows[i];
        if (!row.included)
            continue;
        const EntryRules::Parsed parsed = EntryRules::parse(kind, ImportPlan::entryInput(row));
        if (parsed.refusal)
            return refuse(QStringLiteral("Line %1 of the file: %2")
                              .arg(row.source.line)
                              .arg(parsed.refusal->text.trimmed()));
        TransRecord record = EntryRules::fillRecord(TransactionTemplate::blank(), parsed.entry,
                                                    account, cardBudNum);
        if (row.source.cleared) {
            record.Status = TransactionTemplate::Cleared;
            record.DateClear = today;
        }
        record.Tranno = static_cast<std::int16_t>(++n);
        unit.write(path, n, record);
        AccountPosting::post(unit, files, account, nullptr, record);
        BudgetPosting::post(unit, files, nullptr, &record);
        if (!row.source.fitId.isEmpty())
            fitIds << row.source.fitId;
        ++out.entered;
        if (progress && out.entered % 500 == 0)
            progress(out.entered, summary.count);
    }
    ImportedIds ids = plan.importedIds();
    ids.add(unit, plan.file().accountId, fitIds);
    if (!unit.commit())
        return refuse(unit.error(), UnitOfWork::FailureTitle);
    plan.importedIds() = ids;
    if (progress)
        progress(out.entered, summary.count);
    out.ok = true;
    out.account = account;
    return out;
}

} // namespace ImportEntry
