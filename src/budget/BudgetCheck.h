#pragma once

#include "records/Currency.h"
#include "records/DataFiles.h"

#include <QString>

#include <optional>

// budgetcheck: before an entry with a category (or a card) is written, warns
// when it would take more than the category still holds.
namespace BudgetCheck {

struct Input
{
    QString amountText;  // cmbamt
    QString typeText;    // cmbType
    int budgetIndex = 0; // selection of cmbBudItems (0: no category)
    int budNum = 0;      // the selected category
    QString budName;
    int cardIndex = 0;  // selection of cmbCreditCards (0: no card)
    int cardBudNum = 0; // the budget category of the selected card
    QString cardName;

    int mode = 0;             // 0 new, 1 change
    int tranno = 0;           // leading field of the record being changed
    Currency oldTransAmount;  // OldTransAmount
    int oldBudNum = 0;        // OldBudNum
    int oldAmountApplies = 0; // OldAmountApplies: -1 (True) or 0
};

// The same, as read once from the entry row.
struct Request
{
    Currency amount;       // the typed amount: never negative
    bool incoming = false; // the type brings money in (it raises the category)
    bool category = false; // a category is chosen, with a type
    int budNum = 0;
    QString budName;
    bool card = false;  // a card is chosen (and no category)
    int cardBudNum = 0; // the budget category of that card
    QString cardName;

    int mode = 0;
    int tranno = 0;
    Currency oldTransAmount;
    int oldBudNum = 0;
    int oldAmountApplies = 0;
};

// Whether a type brings money in, as the budget takes it: a deposit of any
// kind, or a credit.
bool isIncoming(const QString &typeText);

inline const QString Title = QStringLiteral("Budget Balance Exceeded");

struct Result
{
    int curBudNum = 0;              // CurBudNum
    std::optional<QString> warning; // the text for frmFund, when one is due
};

Result budgetcheck(const DataFiles &files, const Request &request);
Result budgetcheck(const DataFiles &files, const Input &input);

} // namespace BudgetCheck
