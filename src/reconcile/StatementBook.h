#pragma once

#include "records/BankAcctRecord.h"
#include "records/Currency.h"
#include "records/DataFiles.h"
#include "records/TransRecord.h"

#include <QDate>
#include <QString>
#include <QStringList>

#include <vector>

// What balancing writes to a register, each operation in one unit of work:
// clearing the ticked transactions of a balanced statement, the correction of
// a starting balance the bank disagrees with, and taking a transaction off a
// statement it was cleared on by mistake. Also reads prior statements back:
// a statement is the set of transactions that carry its date as their clearing
// date.
class StatementBook
{
public:
    explicit StatementBook(DataFiles files);

    struct Result
    {
        bool ok = false;
        QString error; // a message box with `title`
        QString title;
        // The register changed under the list: it should be listed again.
        bool relist = false;
        int recordNumber = 0;   // the correction's record
        TransRecord record;     // as stored
        BankAcctRecord account; // as stored
    };

    // The balance the next statement should start from: the account's cleared
    // transactions (the opening entry of an account opened from its last
    // statement is one of them).
    static Currency expectedStart(const std::vector<TransRecord> &records);

    // Marks the ticked records cleared on the statement's date, all or none.
    // `accountName` is the name the list was filled for.
    Result clear(int bankNum, const QString &accountName, const QDate &statementDate,
                 const std::vector<int> &recordNumbers) const;
    // Enters the correction of the register's starting balance: a deposit (a
    // credit on a card) of the difference, or a withdrawal (a charge), and the
    // account's balance moved by it.
    Result correct(int bankNum, const QString &accountName, Currency difference,
                   const QDate &statementDate, const QDate &today) const;
    // Takes a cleared transaction off its statement: open again, no clearing date.
    Result unclear(int bankNum, const QString &accountName, int recordNumber) const;

    // The correction record, as correct() writes it at `recordNumber`.
    static TransRecord correction(const BankAcctRecord &account, Currency difference,
                                  const QDate &statementDate, const QDate &today, int recordNumber);
    inline static const QString CorrectionPayee
        = QStringLiteral("Correction to Starting Balance for Statement dated ");

    // The dates of the statements in a register, newest first, as stored.
    static QStringList statementDates(const std::vector<TransRecord> &records);

    struct Prior
    {
        std::vector<int> recordNumbers; // cleared on that statement, in record order
        Currency deposits;              // their deposits
        Currency withdrawals;           // their withdrawals, as a positive figure
        Currency start;                 // the statement's starting balance
        Currency ending;                // and its ending balance
    };
    // A prior statement as the register has it: its ending balance counts
    // every transaction cleared on it or on an earlier statement.
    static Prior prior(const std::vector<TransRecord> &records, const QString &date);

    inline static const QString ChangedTitle = QStringLiteral("Register Changed");

private:
    // The account as it is now, or an error when it was removed or renamed.
    Result account(int bankNum, const QString &accountName) const;

    DataFiles m_files;
};
