#include "budget/BudgetPosting.h"

#include "records/BudgetRecord.h"
#include "records/TransactionClasses.h"
#include "records/UnitOfWork.h"

namespace {

enum class Floor { AtZero, None };

void adjust(UnitOfWork &unit, const DataFiles &files, int budNum, Currency by, Floor floor)
{
    const QString path = files.budget();
    // A category that does not exist (any more) holds nothing to move.
    if (budNum < 1 || budNum > unit.count(path, BudgetRecord::Size))
        return;
    BudgetRecord c = unit.read<BudgetRecord>(path, budNum);
    if (c.isDeleted() || c.BudName.isBlank())
        return;
    Currency balance = c.Balance + by;
    if (floor == Floor::AtZero && balance < Currency())
        balance = Currency();
    c.Balance = balance;
    unit.write(path, budNum, c);
}

// Whether a record's own category (BudNum) takes its amount.
bool chargesCategory(const TransRecord &r)
{
    if (r.TransClass.is(TransactionClasses::NormTrans))
        return true;
    // A card's record marked 1 in its leading field is its opening entry.
    return r.TransClass.is(TransactionClasses::CCTrans) && r.Tranno != 1;
}

} // namespace

namespace BudgetPosting {

QList<int> categories(const TransRecord *before, const TransRecord *after)
{
    QList<int> moved;
    for (const TransRecord *r : {before, after}) {
        if (!r)
            continue;
        if (chargesCategory(*r) && r->BudNum != 0 && !moved.contains(r->BudNum))
            moved << r->BudNum;
        if ((r->TransClass.is(TransactionClasses::CCTrans)
             || r->TransClass.is(TransactionClasses::PayBank))
            && r->CCBudNum != 0 && !moved.contains(r->CCBudNum))
            moved << r->CCBudNum;
    }
    return moved;
}

void post(UnitOfWork &unit, const DataFiles &files, const TransRecord *before,
          const TransRecord *after)
{
    if (before) {
        if (chargesCategory(*before) && before->BudNum != 0)
            adjust(unit, files, before->BudNum, -before->Amount, Floor::None);
        if (before->TransClass.is(TransactionClasses::CCTrans) && before->CCBudNum != 0)
            adjust(unit, files, before->CCBudNum, before->Amount, Floor::None);
        if (before->TransClass.is(TransactionClasses::PayBank) && before->CCBudNum != 0)
            adjust(unit, files, before->CCBudNum, -before->Amount, Floor::None);
    }
    if (after) {
        if (chargesCategory(*after) && after->BudNum != 0)
            adjust(unit, files, after->BudNum, after->Amount, Floor::AtZero);
        if (after->TransClass.is(TransactionClasses::CCTrans) && after->CCBudNum != 0)
            adjust(unit, files, after->CCBudNum, -after->Amount, Floor::AtZero);
        if (after->TransClass.is(TransactionClasses::PayBank) && after->CCBudNum != 0)
            adjust(unit, files, after->CCBudNum, after->Amount, Floor::AtZero);
    }
}

} // namespace BudgetPosting
