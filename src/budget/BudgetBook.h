#pragma once

#include "records/BankAcctRecord.h"
#include "records/BudgetRecord.h"
#include "records/Currency.h"
#include "records/DataFiles.h"

#include <QString>

#include <vector>

// Reads the budget categories of a data set and the figures derived from them.
class BudgetBook
{
public:
    explicit BudgetBook(DataFiles files);

    // Every record, "Deleted" ones included, in record order.
    std::vector<BudgetRecord> readAll() const;
    // Record n; a number past the end reads as an empty category (balance 0).
    BudgetRecord read(int budNum) const;
    int count() const;

    struct Totals
    {
        Currency monthly;      // the monthly budget: the sum of the categories' monthly amounts
        Currency balance;      // the total budget balance
        Currency bankAccounts; // the total of the bank accounts (cards excluded)
        Currency disposable() const { return bankAccounts - balance; }
    };
    Totals totals() const;
    // The same from records already read.
    static Totals totals(const std::vector<BudgetRecord> &categories,
                         const std::vector<BankAcctRecord> &accounts);

    // The category that belongs to a credit-card account (0: none).
    int cardCategory(int cardBankNum) const;

    const DataFiles &files() const { return m_files; }

    // A monthly amount as it is kept: the number as text, a blank before a
    // value of zero or more ("Str" style: " 50", "-12.5").
    static QString amountText(Currency value);
    // An item amount as typed, unless it would not fit its 15 characters;
    // then the number written out plainly.
    static QString itemAmountText(const QString &typed);
    // The number in a kept or typed amount text; 0 for text that is not a number.
    static Currency amountValue(const QString &text);

private:
    DataFiles m_files;
};
