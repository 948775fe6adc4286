#pragma once

#include "records/BankAcctRecord.h"
#include "records/BudgetRecord.h"
#include "records/Currency.h"
#include "records/DataFiles.h"
#include "records/TransRecord.h"

#include <QDate>
#include <QString>
#include <QStringList>

#include <vector>

// The three printed reports, as plain lines for a fixed-pitch font: a
// register, the bank-accounts list with its summary, and the budget with its
// summary. Columns line up by padding with blanks and dot leaders.
namespace PrintedReports {

inline const QString NoPrinter = QStringLiteral("No Printer Installed");
inline const QString SelectAccount = QStringLiteral(" Please select an account");
inline const QString CountNotAboveZero = QStringLiteral(" please select a number greater then 0");
inline const QString SelectTwoDates = QStringLiteral(" Please select two dates ");
inline const QString DatesReversed = QStringLiteral(" The From date is after the To date ");
inline const QString RegisterSent = QStringLiteral("Transactions sent to printer.");
inline const QString AccountsSent = QStringLiteral("Bank Accounts sent to printer");
inline const QString BudgetSent = QStringLiteral("Budget sent to printer");
inline const QString SentTitle = QStringLiteral("Sent to printer");

inline const QString AccountsTitle = QStringLiteral(" Bank Accounts  ");
inline const QString BudgetTitle = QStringLiteral("Budget  ");
inline const QString AccountsHeading = QStringLiteral("Account Name                   Balance ");
inline const QString BudgetHeading
    = QStringLiteral("Category                       Monthly      Balance ");

// Lines on one printed page, its header included: 10-point type on a
// letter or A4 sheet with its margins.
inline constexpr int LinesPerPage = 60;

QStringList accountsReport(const std::vector<BankAcctRecord> &accounts, const QDate &printed,
                           int linesPerPage = LinesPerPage);
QStringList budgetReport(const std::vector<BudgetRecord> &categories,
                         const std::vector<BankAcctRecord> &accounts, const QDate &printed,
                         int linesPerPage = LinesPerPage);

// Register printouts.
QString registerHeading();
// One transaction: date, number or type, payee, category, amount (a
// withdrawal in parentheses), the running balance after it, "CL" when cleared.
QString registerLine(const TransRecord &r, Currency balance);
// The memo of a transaction, on its own line beneath it.
QString memoLine(const QString &memo);

struct RegisterChoice
{
    int bankNum = 0;
    bool byDates = false;
    QString count;    // the last N transactions
    QString from, to; // or those dated between these two (inclusive)
};
struct RegisterReport
{
    QString error;        // for the panel's error line
    bool badDate = false; // a date that is no date: the shared message box
    QString accountName;
    QStringList lines;
};
// Checks the choice, reads the register and lays it out; nothing on error.
RegisterReport registerReport(const DataFiles &files, const std::vector<BankAcctRecord> &accounts,
                              const RegisterChoice &choice, const QDate &printed,
                              int linesPerPage = LinesPerPage);
// The same from records already read (record numbers from 1).
QStringList registerLines(const QString &accountName, const std::vector<TransRecord> &records,
                          int first, int last, const QDate &printed, int linesPerPage);

} // namespace PrintedReports
