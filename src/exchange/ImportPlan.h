#pragma once

#include "exchange/ImportRow.h"
#include "exchange/ImportedIds.h"
#include "records/BankAcctRecord.h"
#include "records/BudgetRecord.h"
#include "records/DataFiles.h"
#include "records/TransRecord.h"
#include "register/EntryRules.h"

#include <QHash>
#include <QSet>
#include <QString>

#include <optional>
#include <vector>

// A bank download matched against an account's register: what each row
// becomes (its type, texts cut to the register's fields, its category),
// which rows the register holds already, and which Enter would refuse.
class ImportPlan
{
public:
    enum class Status { New, Duplicate, Refused };

    struct Row
    {
        ImportRow source;
        Status status = Status::New;
        bool included = false;
        QString refusal;  // why Enter would refuse it (Refused rows)
        QString typeText; // the register's word for it ("Deposit", "Check", ...)
        QString number;   // the check number of a check
        QString payee;    // cut to the register's field, as Windows-1252 holds it
        QString memo;
        int budNum = 0; // 0: no category
        QString budName;
        Currency amount;
        QString note; // what the reader said, or a category the budget lacks
    };

    struct Summary
    {
        int count = 0;
        Currency total;
        Currency balanceAfter;
        bool belowZero = false;
        QString text;    // the summary line
        QString refusal; // set when the register cannot take the rows ticked
    };

    // Reads the account's register, the budget and the imported ids.
    ImportPlan(DataFiles files, BankAcctRecord account);
    // The same with the register and categories given (as read already).
    ImportPlan(DataFiles files, BankAcctRecord account, const std::vector<TransRecord> &records,
               std::vector<BudgetRecord> budget);

    void build(const ImportFile &file);

    const ImportFile &file() const { return m_file; }
    const std::vector<Row> &rows() const { return m_rows; }
    const BankAcctRecord &account() const { return m_account; }
    const DataFiles &files() const { return m_files; }
    ImportedIds &importedIds() { return m_ids; }
    int registerCount() const { return m_registerCount; }

    // Ticks or unticks a row; a refused row stays unticked (false).
    bool setIncluded(int row, bool included);
    // The categories a row may take, by number; 0 is "(none)".
    std::vector<std::pair<int, QString>> categories() const;
    // Sets a row's category; other rows of the same payee without one take it too.
    bool setCategory(int row, int budNum);

    Summary summary() const;
    // Set when the statement is for another bank account than the one this
    // account was last imported from.
    QString otherAccountWarning() const;

    static QString statusText(const Row &row);
    // The register's type for a downloaded transaction in this kind of account.
    static QString typeFor(const QString &kindCode, const ImportRow &row);
    // The row as the entry row would hold it, for Enter's own checks.
    static EntryRules::Input entryInput(const Row &row);

private:
    void readCategories(std::vector<BudgetRecord> budget);
    void remember(const std::vector<TransRecord> &records);
    void markDuplicates();
    void checkEntries();

    DataFiles m_files;
    BankAcctRecord m_account;
    ImportFile m_file;
    ImportedIds m_ids;
    std::vector<Row> m_rows;
    std::vector<std::pair<int, QString>> m_categories;
    // What the register holds, for the duplicate check and the category memory.
    struct Existing
    {
        qint64 amount;
        qint64 day;
    };
    std::vector<Existing> m_existing; // sorted by amount, then day
    QSet<qint64> m_checkNumbers;
    QHash<QString, int> m_payeeCategory; // payee (lower case) -> BudNum
    int m_registerCount = 0;
};
