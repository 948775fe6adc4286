#include "reports/TransactionSearch.h"

#include "core/EntryChecks.h"
#include "records/RawRecordFile.h"

#include <QFileInfo>

namespace TransactionSearch {

QStringList typeWords()
{
    return {QStringLiteral("Deposit"),          QStringLiteral("ATM Deposit"),
            QStringLiteral("Direct Deposit"),   QStringLiteral("Interest Received"),
            QStringLiteral("Credit"),           QStringLiteral("Withdrawal"),
            QStringLiteral("Payment"),          QStringLiteral("Transfer"),
            QStringLiteral("Charge"),           QStringLiteral("Auto Charge"),
            QStringLiteral("Starting Balance"), QStringLiteral("Void"),
            SearchCriteria::CheckWord,          QStringLiteral("Debit Card"),
            QStringLiteral("ATM Withdrawal"),   QStringLiteral("Auto Payment"),
            QStringLiteral("Bank Fee"),         QStringLiteral("Interest Charge")};
}

QString heading(const QString &accountChoice)
{
    return QStringLiteral("Transactions Found for ") + accountChoice
           + QStringLiteral(" Account(s)");
}

bool isAny(const QString &text)
{
    const QString t = text.trimmed();
    return t.isEmpty() || t.compare(Any, Qt::CaseInsensitive) == 0;
}

Checked check(const Request &q)
{
    Checked out;
    std::optional<QDate> from, to;
    for (const auto &[text, date] : {std::pair{&q.dateFrom, &from}, std::pair{&q.dateTo, &to}}) {
        if (isAny(*text))
            continue;
        *date = EntryChecks::parseDate(text->trimmed());
        if (!*date) {
            out.refusal = Refusal::BadDate;
            return out;
        }
    }
    if (!isAny(q.statement)) {
        if (q.bankNum == 0) {
            out.refusal = Refusal::StatementWithAll;
            return out;
        }
        out.criteria.setStatementDate(q.statement);
    }
    if (from && to && *from > *to) {
        out.refusal = Refusal::DatesReversed;
        return out;
    }
    out.criteria.setDates(from, to);

    std::optional<Currency> amountFrom, amountTo;
    for (const auto &[text, amount] :
         {std::pair{&q.amountFrom, &amountFrom}, std::pair{&q.amountTo, &amountTo}}) {
        if (isAny(*text))
            continue;
        const auto value = Currency::parse(*text);
        *amount = value ? value->abs() : Currency();
        if (!value)
            out.amountsAsZero << text->trimmed();
    }
    out.criteria.setAmounts(amountFrom, amountTo);

    if (!isAny(q.type))
        out.criteria.setType(q.type.trimmed());
    if (!isAny(q.description))
        out.criteria.setDescription(q.description);
    if (!isAny(q.category))
        out.criteria.setCategory(q.category);
    if (!isAny(q.memo))
        out.criteria.setMemo(q.memo);
    if (!isAny(q.transClass))
        out.criteria.setTransferClass(q.transClass);
    if (!isAny(q.paidTo))
        out.criteria.setPaidTo(q.paidTo);
    if (!isAny(q.cleared))
        out.criteria.setCleared(q.cleared);
    return out;
}

Result run(const DataFiles &files, const std::vector<BankAcctRecord> &accounts, int bankNum,
           const SearchCriteria &criteria)
{
    Result out;
    for (const BankAcctRecord &account : accounts) {
        if (account.isDeleted() || account.BankName.isBlank())
            continue;
        if (bankNum != 0 && account.BankNum != bankNum)
            continue;
        const QString name = account.BankName.text().trimmed();
        const QString path = files.registerFile(name);
        RawRecordFile file(path, TransRecord::Size);
        if (!QFileInfo::exists(path) || !file.open()) {
            out.unreadable << name;
            continue;
        }
        // One record decoded at a time: only the records kept are copied.
        int number = 0;
        TransRecord record;
        file.readBatches([&](const char *p, int n) {
            for (int i = 0; i < n; ++i) {
                ++number;
                record = TransRecord::decode(p + qsizetype(i) * TransRecord::Size);
                if (criteria.matches(record))
                    out.hits.push_back({account.BankNum, name, number, record});
            }
        });
    }
    return out;
}

} // namespace TransactionSearch
