#include "app/SampleData.h"

#include "accounts/AccountArchive.h"
#include "accounts/AccountBook.h"
#include "accounts/AccountService.h"
#include "budget/BudgetBook.h"
#include "budget/BudgetCategories.h"
#include "budget/BudgetTransfers.h"
#include "core/EntryChecks.h"
#include "reconcile/StatementBook.h"
#include "records/BudgetRecord.h"
#include "records/RecordFile.h"
#include "records/TransactionClasses.h"
#include "records/TransactionTemplate.h"
#include "records/TransactionTypes.h"
#include "register/CardPayments.h"
#include "register/PayeeBook.h"
#include "register/RegisterService.h"
#include "transfers/TransferService.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>

#include <algorithm>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

namespace {

struct Entry
{
    int month;
    int day;
    const char *type;
    const char *payee;
    qint64 cents;
    const char *memo = "";
    const char *category = nullptr;
};

class Builder
{
public:
    explicit Builder(const DataFiles &files) : m_files(files) {}

    int account(int kind, const char *name, qint64 cents, bool lastStatement, const QDate &date)
    {
        AccountService::NewAccount a;
        a.kind = kind;
        a.name = QString::fromLatin1(name);
        a.lastStatement = lastStatement;
        a.startBalance = Currency::fromCents(cents < 0 ? -cents : cents).toPlainText();
        a.debit = cents < 0;
        a.date = date;
        const auto r = AccountService(m_files).add(a);
        if (!r.ok && m_error.isEmpty())
            m_error = r.error;
        return r.bankNum;
    }

    void post(int bankNum, bool card, const Entry &e, int year = 2026)
    {
        if (bankNum == 0)
            return;
        TransRecord t = TransactionTemplate::blank();
        const QString type = QString::fromLatin1(e.type);
        t.Type = type.startsWith(QStringLiteral("Check #")) ? type.mid(7) : type;
        t.TypeNum = static_cast<std::int16_t>(TransactionTypes::typeNum(type));
        t.Date = EntryChecks::formatLongDate(QDate(year, e.month, e.day));
        t.Description = QString::fromLatin1(e.payee);
        t.Memo = QString::fromLatin1(e.memo);
        t.BudName = TransactionTemplate::NoCategory;
        if (e.category) {
            t.BudName = QString::fromLatin1(e.category);
            t.BudNum = static_cast<std::int16_t>(m_categories.value(t.BudName.text()));
        }
        t.TransClass = card ? TransactionClasses::CCTrans : TransactionClasses::NormTrans;
        t.CCBankName = TransactionTemplate::NoCategory;
        if (card) {
            // A card's own transactions name the card and its budget category.
            const BankAcctRecord acct = AccountBook(m_files).read(bankNum);
            t.CCBankName = acct.BankName.text();
            t.CCBankNum = acct.BankNum;
            RecordFile<BudgetRecord> budget(m_files.budget());
            for (const BudgetRecord &c : budget.readAll())
                if (!c.isDeleted() && c.CCBankRecnum == bankNum)
                    t.CCBudNum = c.BudNum;
        }
        t.Amount = TransactionTypes::signedAmount(t.TypeNum, Currency::fromCents(e.cents));
        const auto r = RegisterService(m_files).add(bankNum, t);
        if (!r.ok && m_error.isEmpty())
            m_error = r.error;
    }

    void payee(int bankNum, const char *name, const char *text)
    {
        const auto r
            = PayeeBook(m_files).add(bankNum, QString::fromLatin1(name), QString::fromLatin1(text));
        if (!r.ok && m_error.isEmpty())
            m_error = r.error;
    }

    void category(const char *name, qint64 cents,
                  const std::vector<std::pair<const char *, qint64>> &items = {})
    {
        BudgetCategories::ItemRows rows;
        for (std::size_t i = 0; i < items.size(); ++i)
            rows[i] = {QString::fromLatin1(items[i].first),
                       Currency::fromCents(items[i].second).toPlainText()};
        const auto r = BudgetCategories(m_files).save(
            QString::fromLatin1(name), Currency::fromCents(cents).toPlainText(), rows);
        if (!r.ok && m_error.isEmpty())
            m_error = r.error;
        m_categories.insert(QString::fromLatin1(name), r.budNum);
    }

    void monthlyTransfer(int month)
    {
        const QString date = EntryChecks::formatLongDate(QDate(2026, month, 1));
        BudgetTransfers::Request request;
        request.date = date;
        request.amountText = QStringLiteral("1");
        request.description = BudgetTransfers::periodicDescription(
            false, BudgetBook(m_files).totals().monthly, QStringLiteral("Monthly"), date);
        const auto r = BudgetTransfers(m_files).periodic(request, false);
        if (!r.ok && m_error.isEmpty())
            m_error = r.error;
    }

    void transfer(int month, int day, const char *from, const char *to, qint64 cents,
                  const char *description)
    {
        BudgetTransfers::Request request;
        request.date = EntryChecks::formatLongDate(QDate(2026, month, day));
        request.description = QString::fromLatin1(description);
        request.from = from ? m_categories.value(QString::fromLatin1(from)) : 0;
        request.to = to ? m_categories.value(QString::fromLatin1(to)) : 0;
        request.amountText = Currency::fromCents(cents).toPlainText();
        const auto r = BudgetTransfers(m_files).single(request, true);
        if (!r.ok && m_error.isEmpty())
            m_error = r.error;
    }

    void transfer(int month, int day, int from, int to, const char *type, qint64 cents,
                  const char *memo = "")
    {
        const AccountBook book(m_files);
        TransferService::Request r;
        r.fromBankNum = from;
        r.toBankNum = to;
        r.typeText = QString::fromLatin1(type);
        r.amountText = Currency::fromCents(cents).toPlainText();
        r.date = r.date3 = EntryChecks::formatLongDate(QDate(2026, month, day));
        r.description = TransferService::description(r.amountText, book.read(from).BankName.text(),
                                                     book.read(to).BankName.text());
        r.memo = QString::fromLatin1(memo);
        const auto result = TransferService(m_files).enter(r);
        if (!result.ok && m_error.isEmpty())
            m_error = result.error;
    }

    void payCard(int month, int day, int bank, int card, const char *type, qint64 cents)
    {
        TransRecord t = TransactionTemplate::blank();
        const QString typeText = QString::fromLatin1(type);
        t.Type = typeText.startsWith(QStringLiteral("Check #")) ? typeText.mid(7) : typeText;
        t.TypeNum = static_cast<std::int16_t>(TransactionTypes::typeNum(typeText));
        t.Date = EntryChecks::formatLongDate(QDate(2026, month, day));
        const QString cardName = AccountBook(m_files).read(card).BankName.text();
        t.Description = cardName;
        t.Memo = typeText + QStringLiteral(" payment from ")
                 + AccountBook(m_files).read(bank).BankName.text() + QStringLiteral(" to ")
                 + cardName;
        t.BudName = TransactionTemplate::NoCategory;
        t.Amount = -Currency::fromCents(cents);
        const auto result = CardPayments(m_files).add(bank, t, card);
        if (!result.ok && m_error.isEmpty())
            m_error = result.error;
    }

    void archive(int bankNum)
    {
        const auto r = AccountArchive(m_files).RemoveAccount(bankNum, AccountArchive::ArchiveMode);
        if (!r.ok && m_error.isEmpty())
            m_error = r.error;
    }

    // Balances a statement of the account: every open entry dated on or
    // before `date` is cleared on it, except those dated `outstanding`.
    void balanceStatement(int bankNum, const QDate &date, const QDate &outstanding = QDate())
    {
        if (bankNum == 0)
            return;
        const BankAcctRecord account = AccountBook(m_files).read(bankNum);
        const QString path = m_files.registerFile(account.BankName.text());
        const std::vector<TransRecord> records = RecordFile<TransRecord>(path).readAll();
        std::vector<int> cleared;
        for (std::size_t i = 0; i < records.size(); ++i) {
            const TransRecord &t = records[i];
            const auto on = EntryChecks::parseDate(t.Date.text());
            if (t.Status.is(TransactionTemplate::Open) && on && *on <= date && *on != outstanding)
                cleared.push_back(int(i + 1));
        }
        const auto r
            = StatementBook(m_files).clear(bankNum, account.BankName.text(), date, cleared);
        if (!r.ok && m_error.isEmpty())
            m_error = r.error;
    }

    Currency balance(int bankNum) const { return AccountBook(m_files).read(bankNum).Balance; }

    const QString &error() const { return m_error; }

private:
    DataFiles m_files;
    QString m_error;
    QHash<QString, int> m_categories;
};

// A holiday savings club kept through 2025 and emptied for the holidays, then
// archived: the sample set's archive list holds it.
void archivedSavings(Builder &b)
{
    const int club = b.account(1, "Holiday Club Savings", 250'00, true, QDate(2025, 1, 2));
    for (int month = 1; month <= 11; ++month) {
        b.post(club, false, {month, 15, "Deposit", "Holiday club deposit", 100'00}, 2025);
        b.post(club, false,
               {month, QDate(2025, month, 1).daysInMonth(), "Interest Received", "Interest",
                80 + month * 9},
               2025);
    }
    b.post(club, false,
           {12, 1, "Withdrawal", "Holiday shopping money", b.balance(club).raw() / 100,
            "Club paid out"},
           2025);
    b.archive(club);
}

// Writes the whole sample set into dataDir (a fresh folder).
QString build(const QString &dataDir)
{
    const DataFiles files(dataDir, true);
    Builder b(files);
    const QDate opened(2026, 8, 1);
    const int checking = b.account(0, "First Community Checking", 2'450'00, true, opened);
    const int joint = b.account(0, "Joint Household Checking", 1'180'25, true, opened);
    const int savings = b.account(1, "Rainy Day Savings", 8'200'00, true, opened);
    const int market = b.account(2, "Harbor Money Market", 15'000'00, false, opened);
    const int visa = b.account(3, "Travel Visa", -642'18, true, opened);
    const int store = b.account(3, "Hometown Store Card", -89'99, true, opened);

    // The budget: two of the categories itemised.
    b.category("Groceries", 450'00);
    b.category("Rent", 1'350'00);
    b.category("Utilities", 0, {{"Electricity", 110'00}, {"Phone", 65'00}, {"Water", 60'00}});
    b.category("Car", 0, {{"Fuel", 120'00}, {"Repairs", 50'00}});
    b.category("Dining Out", 80'00);
    b.category("Fun Money", 60'00);
    b.category("Savings Goal", 200'00);

    struct Queued
    {
        int bankNum;
        bool card;
        Entry entry;
    };
    std::vector<Queued> queued;

    const Entry checkingEntries[] = {
        {8, 1, "Direct Deposit", "Riverside Clinic Payroll", 2'140'00},
        {8, 3, "Check #1001", "Maple Street Properties", 1'350'00, "August rent", "Rent"},
        {8, 5, "Debit Card", "Green Basket Grocery", 86'42, "", "Groceries"},
        {8, 9, "Auto Payment", "City Power & Light", 94'17, "", "Utilities"},
        {8, 12, "ATM Withdrawal", "Main St ATM", 60'00},
        {8, 15, "Direct Deposit", "Riverside Clinic Payroll", 2'140'00},
        {8, 18, "Check #1002", "Dr. Alvarez Dental", 145'00},
        {8, 22, "Debit Card", "Green Basket Grocery", 112'08, "", "Groceries"},
        {8, 28, "Bank Fee", "Monthly Service Fee", 5'00},
        {9, 1, "Direct Deposit", "Riverside Clinic Payroll", 2'140'00},
        {9, 3, "Check #1003", "Maple Street Properties", 1'350'00, "September rent", "Rent"},
        {9, 7, "Debit Card", "Corner Pharmacy", 23'57},
        {9, 10, "Auto Payment", "City Power & Light", 88'41, "", "Utilities"},
        {9, 15, "Direct Deposit", "Riverside Clinic Payroll", 2'140'00},
        {9, 19, "Debit Card", "Green Basket Grocery", 97'66, "", "Groceries"},
        {9, 24, "Withdrawal", "Cash for school trip", 40'00},
        {10, 1, "Direct Deposit", "Riverside Clinic Payroll", 2'140'00},
        {10, 3, "Check #1004", "Maple Street Properties", 1'350'00, "October rent", "Rent"},
        {10, 8, "Auto Payment", "City Power & Light", 79'90, "", "Utilities"},
        {10, 14, "Debit Card", "Green Basket Grocery", 104'33, "", "Groceries"},
        {10, 15, "Direct Deposit", "Riverside Clinic Payroll", 2'140'00},
        {10, 21, "Check #1005", "Lakeside Youth Soccer", 75'00, "Fall season", "Fun Money"},
        {8, 16, "Debit Card", "Luigi's Trattoria", 64'50, "", "Dining Out"},
        {9, 12, "Debit Card", "Sushi Corner", 72'80, "", "Dining Out"},
        {10, 9, "Debit Card", "Luigi's Trattoria", 58'00, "", "Dining Out"},
        {10, 24, "Debit Card", "Bistro 21", 96'40, "Anniversary dinner", "Dining Out"},
        {10, 29, "ATM Deposit", "Birthday money", 50'00},
        // Everyday card purchases: enough entries for a register of a few pages.
        {8, 4, "Debit Card", "Daily Grind Coffee", 4'75, "", "Dining Out"},
        {8, 6, "Debit Card", "Fuel Stop", 41'30, "", "Car"},
        {8, 7, "Debit Card", "Corner Pharmacy", 12'49},
        {8, 8, "Debit Card", "Daily Grind Coffee", 5'25, "", "Dining Out"},
        {8, 10, "Debit Card", "Green Basket Grocery", 38'17, "", "Groceries"},
        {8, 11, "Debit Card", "Hardware Hut", 18'62, "Hose fittings"},
        {8, 13, "Debit Card", "Fuel Stop", 44'05, "", "Car"},
        {8, 14, "Debit Card", "Corner Pharmacy", 9'88},
        {8, 17, "Debit Card", "Green Basket Grocery", 54'91, "", "Groceries"},
        {8, 19, "Debit Card", "Daily Grind Coffee", 4'75, "", "Dining Out"},
        {8, 21, "Debit Card", "Dollar Den", 11'34},
        {8, 25, "Debit Card", "Fuel Stop", 39'76, "", "Car"},
        {8, 27, "Debit Card", "Green Basket Grocery", 47'23, "", "Groceries"},
        {8, 29, "Debit Card", "Daily Grind Coffee", 6'10, "", "Dining Out"},
        {9, 4, "Debit Card", "Green Basket Grocery", 63'48, "", "Groceries"},
        {9, 5, "Debit Card", "Daily Grind Coffee", 4'75, "", "Dining Out"},
        {9, 8, "Debit Card", "Fuel Stop", 42'88, "", "Car"},
        {9, 9, "Debit Card", "Hardware Hut", 27'15, "Furnace filter"},
        {9, 11, "Debit Card", "Corner Pharmacy", 16'20},
        {9, 14, "Debit Card", "Green Basket Grocery", 44'09, "", "Groceries"},
        {9, 16, "Debit Card", "Daily Grind Coffee", 5'25, "", "Dining Out"},
        {9, 18, "Debit Card", "Fuel Stop", 40'11, "", "Car"},
        {9, 22, "Debit Card", "Green Basket Grocery", 58'37, "", "Groceries"},
        {9, 25, "Debit Card", "Dollar Den", 8'56},
        {9, 27, "Debit Card", "Daily Grind Coffee", 4'75, "", "Dining Out"},
        {9, 29, "Debit Card", "Fuel Stop", 37'94, "", "Car"},
        {10, 4, "Debit Card", "Green Basket Grocery", 51'26, "", "Groceries"},
        {10, 6, "Debit Card", "Daily Grind Coffee", 4'75, "", "Dining Out"},
        {10, 7, "Debit Card", "Fuel Stop", 43'50, "", "Car"},
        {10, 10, "Debit Card", "Corner Pharmacy", 21'44},
        {10, 12, "Debit Card", "Green Basket Grocery", 39'82, "", "Groceries"},
        {10, 16, "Debit Card", "Daily Grind Coffee", 5'25, "", "Dining Out"},
        {10, 19, "Debit Card", "Fuel Stop", 41'07, "", "Car"},
        {10, 22, "Debit Card", "Hardware Hut", 14'99},
        {10, 26, "Debit Card", "Green Basket Grocery", 66'15, "", "Groceries"},
    };
    for (const Entry &e : checkingEntries)
        queued.push_back({checking, false, e});

    const Entry jointEntries[] = {
        {8, 2, "Deposit", "Transfer from paycheck", 600'00},
        {8, 6, "Auto Payment", "Northwind Mobile", 64'99, "", "Utilities"},
        {8, 20, "Debit Card", "Fuel Stop", 48'12, "", "Car"},
        {9, 2, "Deposit", "Transfer from paycheck", 600'00},
        {9, 6, "Auto Payment", "Northwind Mobile", 64'99, "", "Utilities"},
        {9, 17, "Check #501", "County Water District", 58'20, "", "Utilities"},
        {10, 2, "Deposit", "Transfer from paycheck", 600'00},
        {10, 6, "Auto Payment", "Northwind Mobile", 64'99, "", "Utilities"},
        {10, 23, "Debit Card", "Fuel Stop", 51'77, "", "Car"},
    };
    for (const Entry &e : jointEntries)
        queued.push_back({joint, false, e});

    const Entry savingsEntries[] = {
        {8, 31, "Interest Received", "Interest", 6'83},
        {9, 12, "Deposit", "Tax refund", 412'00},
        {9, 30, "Interest Received", "Interest", 7'21},
        {10, 31, "Interest Received", "Interest", 7'24},
    };
    for (const Entry &e : savingsEntries)
        queued.push_back({savings, false, e});

    const Entry marketEntries[] = {
        {8, 31, "Interest Received", "Dividend", 41'10},
        {9, 30, "Interest Received", "Dividend", 40'02},
        {10, 15, "Withdrawal", "Car repair", 780'00, "New brakes", "Car"},
        {10, 31, "Interest Received", "Dividend", 39'87},
    };
    for (const Entry &e : marketEntries)
        queued.push_back({market, false, e});

    const Entry visaEntries[] = {
        {8, 4, "Charge", "Skyway Airlines", 389'40, "Flight to see Grandma"},
        {8, 16, "Charge", "Harbor View Hotel", 254'00},
        {8, 25, "Credit", "Harbor View Hotel refund", 54'00},
        {9, 8, "Charge", "Green Basket Grocery", 73'25, "", "Groceries"},
        {9, 26, "Interest Charge", "Finance charge", 11'62},
        {10, 11, "Charge", "Bookshop on 5th", 42'19, "", "Fun Money"},
    };
    for (const Entry &e : visaEntries)
        queued.push_back({visa, true, e});

    const Entry storeEntries[] = {
        {8, 14, "Charge", "Hometown Department Store", 129'99, "School clothes"},
        {9, 20, "Charge", "Hometown Department Store", 35'50},
        {10, 5, "Credit", "Returned jacket", 49'99},
    };
    for (const Entry &e : storeEntries)
        queued.push_back({store, true, e});

    // Everything in date order; each month begins with the monthly transfer.
    std::stable_sort(queued.begin(), queued.end(), [](const Queued &a, const Queued &b) {
        return std::pair(a.entry.month, a.entry.day) < std::pair(b.entry.month, b.entry.day);
    });
    int month = 0;
    int transferMonth = 0;
    bool carCovered = false;
    for (const Queued &q : queued) {
        if (q.entry.month != month) {
            month = q.entry.month;
            b.monthlyTransfer(month);
            if (month == 9)
                b.transfer(9, 1, nullptr, "Fun Money", 150'00, "Birthday money for fun");
        }
        // Moving money between accounts, and paying the cards.
        if (q.entry.month != transferMonth && q.entry.day >= 2) {
            transferMonth = q.entry.month;
            b.transfer(transferMonth, 2, checking, savings, "Withdrawal", 200'00, "Monthly saving");
            b.payCard(transferMonth, 2, checking, visa, "Debit Card",
                      transferMonth == 10 ? 700'00 : 300'00);
        }
        if (q.entry.month == 10 && q.entry.day == 15 && !std::exchange(carCovered, true))
            b.transfer(10, 15, "Savings Goal", "Car", 300'00, "Cover the brake repair");
        b.post(q.bankNum, q.card, q.entry);
    }

    // A transfer paid by check, and the store card paid beyond its debt.
    b.transfer(10, 30, joint, market, "Check #502", 250'00, "Top up the reserve");
    b.payCard(10, 30, joint, store, "Withdrawal", 250'00);

    // Payees saved for the everyday accounts and the travel card.
    for (const char *p : {"Maple Street Properties", "Green Basket Grocery", "City Power & Light",
                          "Riverside Clinic Payroll", "Corner Pharmacy"})
        b.payee(checking, "First Community Checking", p);
    for (const char *p : {"Northwind Mobile", "County Water District", "Fuel Stop"})
        b.payee(joint, "Joint Household Checking", p);
    b.payee(visa, "Travel Visa", "Skyway Airlines");
    archivedSavings(b);

    // Two statements of the main checking account balanced already; the cash
    // taken for the school trip has not reached the bank yet.
    b.balanceStatement(checking, QDate(2026, 8, 31));
    b.balanceStatement(checking, QDate(2026, 9, 30), QDate(2026, 9, 24));
    return b.error();
}

// Makes a folder's entries durable.
void syncFolder(const QString &path)
{
    const int fd = ::open(QFile::encodeName(path).constData(), O_RDONLY);
    if (fd >= 0) {
        ::fsync(fd);
        ::close(fd);
    }
}

} // namespace

namespace SampleData {

QString ensure(const QString &dataDir)
{
    const DataFiles files(dataDir, true);
    // The payees are the last thing the set is written with: a folder that has
    // the account list without them holds a set an earlier version was stopped
    // writing in place, and it is written again as well.
    if (QFileInfo::exists(files.accountList()) && QFileInfo::exists(files.payees()))
        return QString();

    // The set is written into a fresh folder and moved in with its account list
    // last: the account list is the mark of a complete set. A start stopped half
    // way left that folder, or some files without the list; both are replaced
    // by a set written again from scratch.
    const QString building = dataDir + QLatin1Char('/') + BuildingFolder;
    QDir(building).removeRecursively();
    if (!QDir().mkpath(building))
        return QStringLiteral("The folder \"%1\" could not be created.").arg(building);
    if (const QString error = build(building); !error.isEmpty()) {
        QDir(building).removeRecursively();
        return error;
    }

    // A register of the user's own is never replaced by a sample one.
    QStringList own;
    if (const auto accounts = AccountBook(DataFiles(dataDir, false)).readAll())
        for (const BankAcctRecord &a : *accounts)
            if (!a.isDeleted())
                own << QFileInfo(DataFiles(dataDir, false).registerFile(a.BankName.text()))
                           .fileName();
    // Nor an archived register of the user's own.
    for (const AccountArchive::Entry &e : AccountArchive(DataFiles(dataDir, false)).entries())
        own << QFileInfo(DataFiles(dataDir, false).archivedRegisterFile(e.name)).fileName();
    const QString list = QFileInfo(files.accountList()).fileName();
    QStringList names = QDir(building).entryList(QDir::Files);
    names.removeAll(list);
    for (const QString &name : names)
        if (own.contains(name)) {
            QDir(building).removeRecursively();
            return QStringLiteral("Your own account already uses the file \"%1\".").arg(name);
        }
    names.append(list);
    for (const QString &name : names) {
        const QString to = dataDir + QLatin1Char('/') + name;
        if (name == list)
            syncFolder(dataDir); // every other file is in place before the mark
        if ((QFileInfo::exists(to) && !QFile::remove(to))
            || !QFile::rename(building + QLatin1Char('/') + name, to))
            return QStringLiteral("\"%1\" could not be moved into the data folder.").arg(name);
    }
    syncFolder(dataDir);
    QDir(building).removeRecursively();
    return QString();
}

} // namespace SampleData
