#pragma once

#include "records/BankAcctRecord.h"
#include "records/DataFiles.h"
#include "records/TransRecord.h"
#include "reports/SearchCriteria.h"

#include <QString>
#include <QStringList>

#include <vector>

// A search of one account's register or of every account's: the criteria as
// typed, how they are checked, and the records that meet them.
namespace TransactionSearch {

inline const QString Any = QStringLiteral("Any");
inline const QString AllAccounts = QStringLiteral("All"); // "All Bank Accounts"
inline const QString StatementWithAll = QStringLiteral("Bank statement search: No bank selected");
inline const QString DatesReversed = QStringLiteral(" The From date is after the To Date");
inline const QString ClearedWord = QStringLiteral("CL");
inline const QString OpenWord = QStringLiteral("OP");

// The type words offered: the register's own and the kinds of withdrawal.
QStringList typeWords();
// "Transactions Found for " + the account choice + " Account(s)".
QString heading(const QString &accountChoice);
// A box left empty or holding "Any" (in any case) sets no criterion.
bool isAny(const QString &text);

// The criteria as the boxes hold them.
struct Request
{
    int bankNum = 0; // 0: every account ("All")
    QString type, dateFrom, dateTo, description, amountFrom, amountTo, category, transClass, paidTo,
        memo, cleared, statement;
};

enum class Refusal {
    None,
    BadDate,          // the shared bad-date message box
    StatementWithAll, // a statement date asked of every account
    DatesReversed,    // the from-date lies after the to-date
};

struct Checked
{
    Refusal refusal = Refusal::None;
    SearchCriteria criteria;
    // Amount boxes holding something other than a number: they count as 0.
    QStringList amountsAsZero;
};
Checked check(const Request &request);

struct Hit
{
    int bankNum = 0;
    QString accountName;
    int recordNumber = 0;
    TransRecord record;
};

struct Result
{
    std::vector<Hit> hits;
    QStringList unreadable; // accounts whose register could not be read
};

// Reads each chosen account's register from record 1 to its last record and
// keeps the records that meet the criteria, account by account in list order.
Result run(const DataFiles &files, const std::vector<BankAcctRecord> &accounts, int bankNum,
           const SearchCriteria &criteria);

} // namespace TransactionSearch
