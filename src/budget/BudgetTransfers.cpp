#include "budget/BudgetTransfers.h"

#include "budget/BudgetBook.h"
#include "core/EntryChecks.h"
#include "records/BudgetRecord.h"
#include "records/RecordFile.h"
#include "records/RemovedMark.h"
#include "records/UnitOfWork.h"

#include <algorithm>
#include <utility>

namespace {

// Moves a category's balance inside a unit; number 0 (disposable cash) has no record.
void move(UnitOfWork &unit, const DataFiles &files, int budNum, Currency by,
          bool floorAtZero = false)
{
    if (budNum == 0)
        return;
    BudgetRecord c = unit.read<BudgetRecord>(files.budget(), budNum);
    c.Balance += by;
    if (floorAtZero && c.Balance < Currency())
        c.Balance = Currency();
    unit.write(files.budget(), budNum, c);
}

} // namespace

BudgetTransfers::BudgetTransfers(DataFiles files) : m_files(std::move(files)) {}

std::vector<BudgetTransfers::Entry> BudgetTransfers::list() const
{
    std::vector<Entry> out;
    const std::vector<BudgetTransRecord> all
        = RecordFile<BudgetTransRecord>(m_files.budgetTransfers()).readAll();
    for (std::size_t i = 0; i < all.size(); ++i)
        if (!all[i].isDeleted())
            out.push_back({int(i) + 1, all[i]});
    return out;
}

QString BudgetTransfers::periodicDescription(bool remove, Currency total, const QString &period,
                                             const QString &date)
{
    if (remove)
        return QStringLiteral("Remove Transfer of ") + total.toCurrencyText()
               + QStringLiteral(" from Budget for ") + period
               + QStringLiteral(" Period starting on ") + date;
    return QStringLiteral("Transfer ") + total.toCurrencyText() + QStringLiteral(" to Budget for ")
           + period + QStringLiteral(" Period starting on ") + date;
}

BudgetTransfers::Result BudgetTransfers::refuse(const QString &error, const QString &title) const
{
    Result r;
    r.error = error;
    r.title = title;
    return r;
}

std::optional<BudgetTransfers::Result> BudgetTransfers::commonChecks(const Request &request) const
{
    if (!EntryChecks::ValidateEntryDate(request.date))
        return refuse(EntryChecks::BadDateText, EntryChecks::BadDateTitle);
    if (request.description.trimmed().isEmpty())
        return refuse(CompleteAll);
    // Stored, it would read as a free record: the transfer would vanish from the list.
    if (RemovedMark::marks(request.description))
        return refuse(DescriptionReserved);
    return std::nullopt;
}

std::optional<BudgetTransfers::Result> BudgetTransfers::amountChecks(const QString &text) const
{
    const auto amount = Currency::parse(text);
    if (!amount)
        return refuse(QStringLiteral("The amount must be a number"));
    if (exceedsMaxAmount(*amount))
        return refuse(EntryChecks::MaxAmountText, EntryChecks::MaxAmountTitle);
    if (amount->isNegative() || amount->isZero())
        return refuse(QStringLiteral("Enter an amount greater than zero"));
    return std::nullopt;
}

BudgetTransfers::Result BudgetTransfers::record(UnitOfWork &unit, const Request &request, int from,
                                                int to, Currency amount) const
{
    BudgetTransRecord t;
    t.Date = EntryChecks::formatLongDate(*EntryChecks::parseDate(request.date));
    t.Description = request.description.trimmed();
    t.Memo = request.memo;
    t.FromBudNum = static_cast<std::int16_t>(from);
    t.ToBudNum = static_cast<std::int16_t>(to);
    t.Amount = amount;
    const int slot = freeSlot();
    if (slot > RawRecordFile::MaxRecords)
        return refuse(QStringLiteral("The list of budget transfers is full"));
    unit.write(m_files.budgetTransfers(), slot, t);
    if (!unit.commit())
        return refuse(unit.error());
    Result r;
    r.ok = true;
    r.recordNumber = slot;
    return r;
}

int BudgetTransfers::freeSlot() const
{
    const std::vector<BudgetTransRecord> all
        = RecordFile<BudgetTransRecord>(m_files.budgetTransfers()).readAll();
    for (std::size_t i = 0; i < all.size(); ++i)
        if (all[i].isDeleted())
            return int(i) + 1;
    return int(all.size()) + 1;
}

BudgetTransfers::Result BudgetTransfers::periodic(const Request &request, bool remove)
{
    if (auto problem = commonChecks(request))
        return *problem;
    const QString typed = request.amountText.trimmed();
    if (typed.isEmpty() || typed == QStringLiteral("0"))
        return refuse(SetUpBudget);

    UnitOfWork unit(m_files.dataDir());
    Currency total;
    const std::vector<BudgetRecord> all = BudgetBook(m_files).readAll();
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (all[i].isDeleted() || all[i].BudName.isBlank())
            continue;
        const Currency monthly = BudgetBook::amountValue(all[i].AmountText.text());
        total += monthly;
        move(unit, m_files, int(i) + 1, remove ? -monthly : monthly, remove);
    }
    if (total.isZero())
        return refuse(SetUpBudget);
    return record(unit, request, remove ? RemovalCode : PeriodicCode,
                  remove ? PeriodicCode : RemovalCode, total);
}

BudgetTransfers::Result BudgetTransfers::single(const Request &request, bool confirmed)
{
    if (auto problem = commonChecks(request))
        return *problem;
    if (request.from < 0 || request.to < 0 || request.amountText.trimmed().isEmpty())
        return refuse(CompleteAll);
    if (request.from == request.to)
        return refuse(DifferentCategories);
    if (auto problem = amountChecks(request.amountText))
        return *problem;
    const Currency amount = *Currency::parse(request.amountText);

    UnitOfWork unit(m_files.dataDir());
    if (request.from != 0) {
        const BudgetRecord source = BudgetBook(m_files).read(request.from);
        if (source.Balance - amount < Currency()) {
            if (!confirmed) {
                Result r;
                r.warning = amount.toCurrencyText() + QStringLiteral(" exceeds the ")
                            + source.BudName.text().trimmed() + QStringLiteral(" balance of ")
                            + source.Balance.toCurrencyText() + QStringLiteral(". ")
                            + (amount - source.Balance).toCurrencyText()
                            + QStringLiteral(" will be taken from disposable cash)");
                return r;
            }
            // The shortfall comes out of disposable cash.
            move(unit, m_files, request.from, -source.Balance);
        } else {
            move(unit, m_files, request.from, -amount);
        }
    }
    move(unit, m_files, request.to, amount);

    return record(unit, request, request.from, request.to, amount);
}

BudgetTransfers::Result BudgetTransfers::change(int recordNumber, const Request &request)
{
    if (request.from < 0 || request.to < 0 || request.amountText.trimmed().isEmpty())
        return refuse(CompleteAll);
    if (request.from == request.to)
        return refuse(DifferentCategories);
    if (auto problem = commonChecks(request))
        return *problem;
    if (auto problem = amountChecks(request.amountText))
        return *problem;
    RecordFile<BudgetTransRecord> file(m_files.budgetTransfers());
    if (recordNumber < 1 || recordNumber > file.count())
        return refuse(QStringLiteral("That transfer is no longer in the list"));
    const BudgetTransRecord old = file.read(recordNumber);
    if (old.isDeleted() || old.FromBudNum == PeriodicCode || old.FromBudNum == RemovalCode)
        return refuse(QStringLiteral("That transfer cannot be changed"));
    const Currency amount = *Currency::parse(request.amountText);

    UnitOfWork unit(m_files.dataDir());
    move(unit, m_files, old.FromBudNum, old.Amount);
    move(unit, m_files, request.from, -amount);
    move(unit, m_files, old.ToBudNum, -old.Amount);
    move(unit, m_files, request.to, amount);
    BudgetTransRecord t = old;
    t.Date = EntryChecks::formatLongDate(*EntryChecks::parseDate(request.date));
    t.Description = request.description.trimmed();
    t.Memo = request.memo;
    t.FromBudNum = static_cast<std::int16_t>(request.from);
    t.ToBudNum = static_cast<std::int16_t>(request.to);
    t.Amount = amount;
    unit.write(m_files.budgetTransfers(), recordNumber, t);
    if (!unit.commit())
        return refuse(unit.error());
    Result r;
    r.ok = true;
    r.recordNumber = recordNumber;
    return r;
}

BudgetTransfers::Result BudgetTransfers::remove(QList<int> recordNumbers)
{
    const QString path = m_files.budgetTransfers();
    std::vector<BudgetTransRecord> all = RecordFile<BudgetTransRecord>(path).readAll();
    std::sort(recordNumbers.begin(), recordNumbers.end());
    recordNumbers.erase(std::unique(recordNumbers.begin(), recordNumbers.end()),
                        recordNumbers.end());
    if (recordNumbers.isEmpty() || recordNumbers.first() < 1
        || recordNumbers.last() > int(all.size()))
        return refuse(QStringLiteral("Select the transfers to remove"));

    std::vector<BudgetTransRecord> kept;
    for (std::size_t i = 0; i < all.size(); ++i)
        if (!recordNumbers.contains(int(i) + 1))
            kept.push_back(all[i]);
    BudgetTransRecord freed;
    freed.Description = RemovedMark::Text;
    while (kept.size() < all.size())
        kept.push_back(freed);

    UnitOfWork unit(m_files.dataDir());
    for (int n = recordNumbers.first(); n <= int(all.size()); ++n)
        unit.write(path, n, kept[n - 1]);
    if (!unit.commit())
        return refuse(unit.error());
    Result r;
    r.ok = true;
    return r;
}
