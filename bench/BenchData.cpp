#include "BenchData.h"

#include "app/AppPaths.h"
#include "core/EntryChecks.h"
#include "records/BankAcctRecord.h"
#include "records/BudgetRecord.h"
#include "records/DataFiles.h"
#include "records/TransRecord.h"
#include "records/TransactionClasses.h"
#include "records/TransactionTemplate.h"
#include "records/TransactionTypes.h"

#include <QDate>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <random>

namespace {

// Fails loudly: a benchmark on half-written data would measure nothing useful.
[[noreturn]] void fail(const QString &what)
{
    std::fprintf(stderr, "quillmere_bench: %s\n", qPrintable(what));
    std::exit(2);
}

void writeFile(const QString &path, const QByteArray &bytes)
{
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate) || f.write(bytes) != bytes.size())
        fail(QStringLiteral("cannot write %1: %2").arg(path, f.errorString()));
}

struct Kind
{
    const char *type;
    int lowCents;
    int highCents;
};

// What a household account sees, with the amounts each kind usually runs to.
constexpr std::array<Kind, 10> BankSpending = {{
    {"Debit Card", 4'50, 189'99},
    {"Debit Card", 12'00, 240'00},
    {"Check", 25'00, 1'450'00},
    {"Auto Payment", 35'00, 420'00},
    {"ATM Withdrawal", 20'00, 200'00},
    {"Withdrawal", 40'00, 600'00},
    {"Bank Fee", 2'50, 35'00},
    {"Debit Card", 3'25, 64'00},
    {"Check", 15'00, 300'00},
    {"Auto Payment", 9'99, 89'99},
}};
constexpr std::array<Kind, 4> BankIncome = {{
    {"Direct Deposit", 1'200'00, 3'400'00},
    {"Deposit", 50'00, 900'00},
    {"ATM Deposit", 20'00, 400'00},
    {"Interest Received", 35, 48'00},
}};
constexpr std::array<Kind, 3> CardSpending = {{
    {"Charge", 3'99, 480'00},
    {"Charge", 18'00, 125'00},
    {"Auto Charge", 9'99, 79'99},
}};

const char *const Payees[] = {
    "Green Basket Grocery",
    "City Power & Light",
    "Maple Street Properties",
    "Northwind Mobile",
    "County Water District",
    "Fuel Stop #1182",
    "Corner Pharmacy",
    "Dr. Alvarez Dental",
    "Lakeside Youth Soccer",
    "Bookshop on 5th",
    "Hometown Department Store",
    "Riverside Hardware & Garden",
    "Skyway Airlines",
    "Harbor View Hotel",
    "Sunrise Bakery",
    "Pine Ridge Veterinary Clinic",
    "Metro Transit Pass",
    "Blue Sky Internet",
    "Valley Auto Insurance",
    "St. Mark's Church",
    "Main St ATM",
    "Oak Lane Elementary PTA",
    "Summit Fitness Club",
    "Golden Dragon Restaurant",
};
const char *const IncomePayees[] = {
    "Riverside Clinic Payroll",
    "Transfer from paycheck",
    "Tax refund",
    "Interest",
    "Birthday money",
    "Garage sale",
    "Dividend",
    "Expense reimbursement",
};
const char *const Memos[] = {
    "",
    "",
    "Weekly groceries",
    "Paid in full, confirmation 88213-0457",
    "Split with Dana; she owes half of this one",
    "Monthly plan, autopay on the 6th",
    "School supplies for both kids, receipt in the blue folder",
    "Deductible - keep the receipt for taxes",
    "Refill and vitamins",
    "Gift for Grandma's 80th birthday party next Saturday afternoon",
    "Quarterly",
    "Late fee waived after calling customer service (talked to Pat, ticket 5521)",
};

// Draws from a fixed sequence so that every build of the data is identical.
class Dice
{
public:
    explicit Dice(std::uint32_t variant) : m_rng(variant) {}
    std::uint32_t below(std::uint32_t n) { return m_rng() % n; }
    qint64 cents(int low, int high) { return low + qint64(below(std::uint32_t(high - low + 1))); }

private:
    std::mt19937 m_rng;
};

// Long dates of every day the registers cover, converted once.
const std::vector<FixedText<15>> &dayTexts()
{
    static const std::vector<FixedText<15>> days = [] {
        std::vector<FixedText<15>> v;
        const QDate first(1994, 1, 3);
        for (int d = 0; d < 12'500; ++d)
            v.emplace_back(EntryChecks::formatLongDate(first.addDays(d)));
        return v;
    }();
    return days;
}

template<int N, std::size_t M> std::vector<FixedText<N>> texts(const char *const (&list)[M])
{
    std::vector<FixedText<N>> v;
    for (const char *s : list)
        v.emplace_back(QString::fromLatin1(s));
    return v;
}

struct Account
{
    const char *name;
    int kind; // index into AccountKinds::Codes
};

// Card names are also budget category names, so they stay within 20 characters.
constexpr std::array<Account, BenchData::AccountCount> Accounts = {{
    {"Main Street Checking", 0},    {"Household Bills Checking", 0}, {"Payroll Checking", 0},
    {"Kids Allowance Checking", 0}, {"Harbor Bank Checking", 0},     {"Old Town Checking", 0},
    {"Online Checking", 0},         {"Side Business Checking", 0},   {"Vacation Checking", 0},
    {"Grandma Care Checking", 0},   {"Emergency Savings", 1},        {"College Fund Savings", 1},
    {"Holiday Club Savings", 1},    {"Retirement Money Market", 2},  {"Lakeshore Money Market", 2},
    {"House Fund Money Market", 2}, {"Blue Rewards Visa", 3},        {"Gas Station Card", 3},
    {"Cash Back Mastercard", 3},    {"Outdoor Store Card", 3},
}};
constexpr std::array<const char *, 4> KindCodes = {"CH", "SV", "MM", "CC"};

std::vector<std::string> &noteLines()
{
    static std::vector<std::string> lines;
    return lines;
}

} // namespace

namespace BenchData {

QString scratchDir()
{
    static QTemporaryDir dir(QDir::tempPath() + QStringLiteral("/quillmere-bench-XXXXXX"));
    if (!dir.isValid())
        fail(QStringLiteral("cannot create a scratch folder: %1").arg(dir.errorString()));
    return dir.path();
}

Register makeRegister(int records, std::uint32_t variant, const QString &accountName, bool card,
                      int bankNum, int budNum)
{
    static const auto payees = texts<70>(Payees);
    static const auto incomePayees = texts<70>(IncomePayees);
    static const auto memos = texts<100>(Memos);
    const auto &days = dayTexts();
    const FixedText<30> ownName(accountName);

    Dice dice(variant);
    Register out;
    out.bytes = QByteArray(qsizetype(records) * TransRecord::Size, '\0');
    char *dst = out.bytes.data();

    // The opening entry, as an added account starts with it.
    TransRecord opening = TransactionTemplate::blank();
    opening.Tranno = 1;
    opening.Type = TransactionTemplate::StartingBalance;
    opening.TypeNum = TransactionTypes::TypeNum::StartingBalance;
    opening.Date = days[0];
    opening.DateClear = days[0];
    opening.Status = TransactionTemplate::Cleared;
    opening.Description = TransactionTemplate::NewAccountPayee;
    opening.Memo = QStringLiteral("Ending balance of last statement");
    opening.BudName = TransactionTemplate::NoCategory;
    opening.TransClass = card ? TransactionClasses::CCTrans : TransactionClasses::NormTrans;
    opening.CCBankName = card ? ownName : FixedText<30>(TransactionTemplate::NoCategory);
    opening.CCBankNum = static_cast<std::int16_t>(card ? bankNum : 0);
    opening.CCBudNum = static_cast<std::int16_t>(budNum);
    opening.Amount = Currency::fromCents(card ? -(250'00 + qint64(dice.below(2'000'00)))
                                              : 500'00 + qint64(dice.below(5'000'00)));
    opening.encode(dst);
    Currency balance = opening.Amount;

    TransRecord t = TransactionTemplate::blank();
    t.BudName = TransactionTemplate::NoCategory;
    t.TransClass = card ? TransactionClasses::CCTrans : TransactionClasses::NormTrans;
    t.CCBankName = TransactionTemplate::NoCategory;
    int day = 0;
    int checkNo = 1001;
    for (int n = 2; n <= records; ++n) {
        // About three entries a day, so a full register spans some thirty years.
        if (dice.below(3) == 0 && day + 12 < int(days.size()))
            ++day;
        Kind kind;
        bool income;
        if (card) {
            // Charges until the card owes a good deal, then a payment.
            income = balance < Currency::fromUnits(-6'000) || dice.below(9) == 0;
            kind = income ? Kind{"Credit", 25'00, 2'500'00}
                          : CardSpending[dice.below(CardSpending.size())];
        } else {
            // Money comes in when it runs low, and now and then anyway.
            income = balance < Currency::fromUnits(800) || dice.below(6) == 0;
            kind = income ? BankIncome[dice.below(BankIncome.size())]
                          : BankSpending[dice.below(BankSpending.size())];
        }
        const QString type = QString::fromLatin1(kind.type);
        t.TypeNum = static_cast<std::int16_t>(TransactionTypes::typeNum(type));
        if (t.TypeNum == 6)
            t.Type = QString::number(checkNo++);
        else
            t.Type = type;
        t.Tranno = static_cast<std::int16_t>(n);
        t.Date = days[day];
        // Everything but the last few weeks has been through a statement.
        if (n < records - 60) {
            t.Status = TransactionTemplate::Cleared;
            t.DateClear = days[day + 2 + dice.below(10)];
        } else {
            t.Status = TransactionTemplate::Open;
            t.DateClear = FixedText<15>();
        }
        t.Description = income ? incomePayees[dice.below(incomePayees.size())]
                               : payees[dice.below(payees.size())];
        t.Memo = memos[dice.below(memos.size())];
        t.Amount = TransactionTypes::signedAmount(
            t.TypeNum, Currency::fromCents(dice.cents(kind.lowCents, kind.highCents)));
        balance += t.Amount;
        t.encode(dst + qsizetype(n - 1) * TransRecord::Size);
    }
    out.balance = balance;
    return out;
}

QString fullRegisterFile()
{
    static const QString path = [] {
        const QString p = scratchDir() + QStringLiteral("/trans Main Street Checking.Dat");
        writeFile(p,
                  makeRegister(FullRegister, 7, QStringLiteral("Main Street Checking"), false, 1, 0)
                      .bytes);
        return p;
    }();
    return path;
}

QString twentyAccountsAppFolder()
{
    static const QString app = [] {
        const QString appPath = scratchDir() + QStringLiteral("/twenty");
        const QString data = AppPaths::dataDir(appPath);
        if (!QDir().mkpath(data))
            fail(QStringLiteral("cannot create %1").arg(data));
        const DataFiles files(data, false);

        QByteArray accountList(qsizetype(Accounts.size()) * BankAcctRecord::Size, '\0');
        QByteArray budget;
        int budNum = 0;
        for (std::size_t i = 0; i < Accounts.size(); ++i) {
            const Account &a = Accounts[i];
            const QString name = QString::fromLatin1(a.name);
            const bool card = a.kind == 3;
            const int bankNum = int(i) + 1;
            if (card) {
                // Every card has its own category, as adding it creates one.
                BudgetRecord cat;
                cat.BudNum = static_cast<std::int16_t>(++budNum);
                cat.BudName = name;
                cat.CCBankName = name;
                cat.CCBankRecnum = static_cast<std::int16_t>(bankNum);
                cat.AmountText = QStringLiteral("0");
                budget.append(QByteArray(BudgetRecord::Size, '\0'));
                cat.encode(budget.data() + budget.size() - BudgetRecord::Size);
            }
            const Register reg = makeRegister(FullRegister, 1000 + std::uint32_t(i), name, card,
                                              bankNum, card ? budNum : 0);
            writeFile(files.registerFile(name), reg.bytes);

            BankAcctRecord acct;
            acct.BankNum = static_cast<std::int16_t>(bankNum);
            acct.Type = QString::fromLatin1(KindCodes[a.kind]);
            acct.BankName = name;
            acct.Balance = reg.balance;
            acct.NextCheckNum = -1;
            acct.ViewFromDate = QStringLiteral("All");
            acct.ViewOption = 0;
            acct.encode(accountList.data() + i * BankAcctRecord::Size);
        }
        writeFile(files.accountList(), accountList);
        writeFile(files.budget(), budget);
        return appPath;
    }();
    return app;
}

void note(const std::string &line)
{
    noteLines().push_back(line);
}

const std::vector<std::string> &notes()
{
    return noteLines();
}

} // namespace BenchData
