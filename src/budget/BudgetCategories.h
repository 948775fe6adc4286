#pragma once

#include "records/BudgetRecord.h"
#include "records/DataFiles.h"

#include <QString>

#include <array>
#include <optional>

// Saving, renaming and removing budget categories.
class BudgetCategories
{
public:
    explicit BudgetCategories(DataFiles files);

    struct Item
    {
        QString name;
        QString amount;
    };
    using ItemRows = std::array<Item, BudgetRecord::MaxItems>;

    struct Result
    {
        bool ok = false;
        QString error; // for the editor's message label
        int budNum = 0;
        QString amountText; // the monthly amount as the amount box should now show it
    };

    // Creates a category, or rewrites the live one of that name (compared
    // trimmed). Non-blank item rows become items 1, 2, ... in order; when the
    // items add up to something other than zero, that sum is the monthly amount.
    Result save(const QString &name, const QString &amountText, const ItemRows &rows);
    Result rename(int budNum, const QString &newName);
    // Frees the record; its balance is dropped and so counts as disposable cash.
    Result remove(int budNum);

    // The sum of the numeric values of the item amounts.
    static Currency itemTotal(const ItemRows &rows);
    // A problem with a typed amount (not a number, or 90,000,000,000 or more).
    static std::optional<QString> amountProblem(const QString &text);

    inline static const QString CardRename
        = QStringLiteral("To rename a credit card budget category rename the credit card.");
    inline static const QString CardRemove = QStringLiteral(
        "To remove a credit card budget category you must remove the credit card.");
    inline static const QString NameTooLong
        = QStringLiteral("A category name can have at most 20 characters");
    inline static const QString NameReserved
        = QStringLiteral("\"Deleted\" cannot be the name of a category");

private:
    Result refuse(const QString &error) const { return {false, error, 0, {}}; }
    std::optional<QString> nameProblem(const QString &name) const;

    DataFiles m_files;
};
