#include "budget/BudgetCategories.h"

#include "budget/BudgetBook.h"
#include "core/EntryChecks.h"
#include "records/RemovedMark.h"
#include "records/UnitOfWork.h"

#include <utility>

BudgetCategories::BudgetCategories(DataFiles files) : m_files(std::move(files)) {}

Currency BudgetCategories::itemTotal(const ItemRows &rows)
{
    Currency total;
    for (const Item &item : rows)
        total += BudgetBook::amountValue(item.amount);
    return total;
}

std::optional<QString> BudgetCategories::amountProblem(const QString &text)
{
    if (text.trimmed().isEmpty())
        return std::nullopt;
    const auto value = Currency::parse(text);
    if (!value)
        return QStringLiteral("The monthly amount must be a number");
    if (exceedsMaxAmount(*value))
        return EntryChecks::MaxAmountText;
    return std::nullopt;
}

std::optional<QString> BudgetCategories::nameProblem(const QString &name) const
{
    if (name.trimmed().size() > 20)
        return NameTooLong;
    if (RemovedMark::marks(name))
        return NameReserved;
    return std::nullopt;
}

BudgetCategories::Result BudgetCategories::save(const QString &name, const QString &amountText,
                                                const ItemRows &rows)
{
    const QString trimmed = name.trimmed();
    if (trimmed.isEmpty())
        return refuse(QString());
    if (auto problem = nameProblem(trimmed))
        return refuse(*problem);
    if (auto problem = amountProblem(amountText))
        return refuse(*problem);

    BudgetRecord r;
    const Currency total = itemTotal(rows);
    const Currency monthly = total.isZero() ? BudgetBook::amountValue(amountText) : total;
    if (exceedsMaxAmount(monthly))
        return refuse(EntryChecks::MaxAmountText);
    int n = 0;
    for (const Item &item : rows) {
        if (item.name.trimmed().isEmpty() && item.amount.trimmed().isEmpty())
            continue;
        if (n == BudgetRecord::MaxItems)
            break;
        r.ItemNames[n] = item.name.trimmed();
        r.ItemAmounts[n] = BudgetBook::itemAmountText(item.amount);
        ++n;
    }
    r.ItemCount = static_cast<std::int16_t>(n);
    r.AmountText = BudgetBook::amountText(monthly);
    r.Flag = 1;
    r.BudName = trimmed;

    const QString path = m_files.budget();
    const std::vector<BudgetRecord> all = BudgetBook(m_files).readAll();
    int slot = 0;
    for (std::size_t i = 0; i < all.size() && slot == 0; ++i) {
        if (!all[i].isDeleted() && all[i].BudName.text().trimmed() == trimmed) {
            slot = int(i) + 1;
            // An existing category keeps its balance and its card.
            r.Balance = all[i].Balance;
            r.CCBankName = all[i].CCBankName;
            r.CCBankRecnum = all[i].CCBankRecnum;
        }
    }
    for (std::size_t i = 0; i < all.size() && slot == 0; ++i)
        if (all[i].isDeleted())
            slot = int(i) + 1;
    if (slot == 0)
        slot = int(all.size()) + 1;
    if (slot > RawRecordFile::MaxRecords)
        return refuse(QStringLiteral("The budget has no room for another category"));
    r.BudNum = static_cast<std::int16_t>(slot);

    UnitOfWork unit(m_files.dataDir());
    unit.write(path, slot, r);
    if (!unit.commit())
        return refuse(unit.error());
    return {true, QString(), slot, r.AmountText.text()};
}

BudgetCategories::Result BudgetCategories::rename(int budNum, const QString &newName)
{
    BudgetRecord r = BudgetBook(m_files).read(budNum);
    if (budNum < 1 || r.isDeleted())
        return refuse(QString());
    if (r.CCBankRecnum != 0)
        return refuse(CardRename);
    const QString trimmed = newName.trimmed();
    if (trimmed.isEmpty())
        return refuse(QString());
    if (auto problem = nameProblem(trimmed))
        return refuse(*problem);
    r.BudName = trimmed;
    UnitOfWork unit(m_files.dataDir());
    unit.write(m_files.budget(), budNum, r);
    if (!unit.commit())
        return refuse(unit.error());
    return {true, QString(), budNum, r.AmountText.text()};
}

BudgetCategories::Result BudgetCategories::remove(int budNum)
{
    BudgetRecord r = BudgetBook(m_files).read(budNum);
    if (budNum < 1 || r.isDeleted())
        return refuse(QString());
    if (r.CCBankRecnum != 0)
        return refuse(CardRemove);
    BudgetRecord freed;
    freed.BudNum = static_cast<std::int16_t>(budNum);
    freed.Balance = Currency();
    freed.AmountText = BudgetBook::amountText(Currency());
    freed.BudName = RemovedMark::Text;
    freed.CCBankName = BudgetBook::amountText(Currency());
    freed.CCBankRecnum = 0;
    freed.ItemCount = 0;
    freed.Flag = 0;
    UnitOfWork unit(m_files.dataDir());
    unit.write(m_files.budget(), budNum, freed);
    if (!unit.commit())
        return refuse(unit.error());
    return {true, QString(), budNum, QString()};
}
