#include "SampleData.h"

#include "AccountBook.h"
#include "AccountService.h"
#include "BudgetRecord.h"
#include "PayeeBook.h"
#include "RecordFile.h"
#include "EntryChecks.h"
#include "RegisterService.h"
#include "TransactionTemplate.h"
#include "TransactionTypes.h"

#include <QFileInfo>

namespace {

struct Entry
{
    int month;
    int day;
    const char *type;
    const char *payee;
    qint64 cents;
    const char *memo = "";
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

    void post(int bankNum, bool card, const Entry &e)
    {
        if (bankNum == 0)
            return;
        TransRecord t = TransactionTemplate::blank();
        const QString type = QString::fromLatin1(e.type);
        t.Type = type.startsWith(QStringLiteral("Check #")) ? type.mid(7) : type;
        t.TypeNum = static_cast<std::int16_t>(TransactionTypes::typeNum(type));
        t.Date = EntryChecks::formatLongDate(QDate(2026, e.month, e.day));
        t.Description = QString::fromLatin1(e.payee);
        t.Memo = QString::fromLatin1(e.memo);
        t.BudName = TransactionTemplate::NoCategory;
        t.TransClass = card ? TransactionTemplate::CCTrans : TransactionTemplate::NormTrans;
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
        const auto r = PayeeBook(m_files).add(bankNum, QString::fromLatin1(name), QString::fromLatin1(text));
        if (!r.ok && m_error.isEmpty())
            m_error = r.error;
    }

    const QString &error() const { return m_error; }

private:
    DataFiles m_files;
    QString m_error;
};

} // namespace

namespace SampleData {

QString ensure(const QString &dataDir)
{
    const DataFiles files(dataDir, true);
    if (QFileInfo::exists(files.accountList()))
        return QString();

    Builder b(files);
    const QDate opened(2026, 8, 1);
    const int checking = b.account(0, "First Community Checking", 2'450'00, true, opened);
    const int joint = b.account(0, "Joint Household Checking", 1'180'25, true, opened);
    const int savings = b.account(1, "Rainy Day Savings", 8'200'00, true, opened);
    const int market = b.account(2, "Harbor Money Market", 15'000'00, false, opened);
    const int visa = b.account(3, "Travel Visa", -642'18, true, opened);
    const int store = b.account(3, "Hometown Store Card", -89'99, true, opened);

    const Entry checkingEntries[] = {
        {8, 1, "Direct Deposit", "Riverside Clinic Payroll", 2'140'00},
        {8, 3, "Check #1001", "Maple Street Properties", 1'350'00, "August rent"},
        {8, 5, "Debit Card", "Green Basket Grocery", 86'42},
        {8, 9, "Auto Payment", "City Power & Light", 94'17},
        {8, 12, "ATM Withdrawal", "Main St ATM", 60'00},
        {8, 15, "Direct Deposit", "Riverside Clinic Payroll", 2'140'00},
        {8, 18, "Check #1002", "Dr. Alvarez Dental", 145'00},
        {8, 22, "Debit Card", "Green Basket Grocery", 112'08},
        {8, 28, "Bank Fee", "Monthly Service Fee", 5'00},
        {9, 1, "Direct Deposit", "Riverside Clinic Payroll", 2'140'00},
        {9, 3, "Check #1003", "Maple Street Properties", 1'350'00, "September rent"},
        {9, 7, "Debit Card", "Corner Pharmacy", 23'57},
        {9, 10, "Auto Payment", "City Power & Light", 88'41},
        {9, 15, "Direct Deposit", "Riverside Clinic Payroll", 2'140'00},
        {9, 19, "Debit Card", "Green Basket Grocery", 97'66},
        {9, 24, "Withdrawal", "Cash for school trip", 40'00},
        {10, 1, "Direct Deposit", "Riverside Clinic Payroll", 2'140'00},
        {10, 3, "Check #1004", "Maple Street Properties", 1'350'00, "October rent"},
        {10, 8, "Auto Payment", "City Power & Light", 79'90},
        {10, 14, "Debit Card", "Green Basket Grocery", 104'33},
        {10, 15, "Direct Deposit", "Riverside Clinic Payroll", 2'140'00},
        {10, 21, "Check #1005", "Lakeside Youth Soccer", 75'00, "Fall season"},
        {10, 29, "ATM Deposit", "Birthday money", 50'00},
    };
    for (const Entry &e : checkingEntries)
        b.post(checking, false, e);

    const Entry jointEntries[] = {
        {8, 2, "Deposit", "Transfer from paycheck", 600'00},
        {8, 6, "Auto Payment", "Northwind Mobile", 64'99},
        {8, 20, "Debit Card", "Fuel Stop", 48'12},
        {9, 2, "Deposit", "Transfer from paycheck", 600'00},
        {9, 6, "Auto Payment", "Northwind Mobile", 64'99},
        {9, 17, "Check #501", "County Water District", 58'20},
        {10, 2, "Deposit", "Transfer from paycheck", 600'00},
        {10, 6, "Auto Payment", "Northwind Mobile", 64'99},
        {10, 23, "Debit Card", "Fuel Stop", 51'77},
    };
    for (const Entry &e : jointEntries)
        b.post(joint, false, e);

    const Entry savingsEntries[] = {
        {8, 31, "Interest Received", "Interest", 6'83},
        {9, 12, "Deposit", "Tax refund", 412'00},
        {9, 30, "Interest Received", "Interest", 7'21},
        {10, 31, "Interest Received", "Interest", 7'24},
    };
    for (const Entry &e : savingsEntries)
        b.post(savings, false, e);

    const Entry marketEntries[] = {
        {8, 31, "Interest Received", "Dividend", 41'10},
        {9, 30, "Interest Received", "Dividend", 40'02},
        {10, 15, "Withdrawal", "Car repair", 780'00},
        {10, 31, "Interest Received", "Dividend", 39'87},
    };
    for (const Entry &e : marketEntries)
        b.post(market, false, e);

    const Entry visaEntries[] = {
        {8, 4, "Charge", "Skyway Airlines", 389'40, "Flight to see Grandma"},
        {8, 16, "Charge", "Harbor View Hotel", 254'00},
        {8, 25, "Credit", "Harbor View Hotel refund", 54'00},
        {9, 8, "Charge", "Green Basket Grocery", 73'25},
        {9, 26, "Interest Charge", "Finance charge", 11'62},
        {10, 11, "Charge", "Bookshop on 5th", 42'19},
    };
    for (const Entry &e : visaEntries)
        b.post(visa, true, e);

    const Entry storeEntries[] = {
        {8, 14, "Charge", "Hometown Department Store", 129'99, "School clothes"},
        {9, 20, "Charge", "Hometown Department Store", 35'50},
        {10, 5, "Credit", "Returned jacket", 49'99},
    };
    for (const Entry &e : storeEntries)
        b.post(store, true, e);

    // Payees saved for the everyday accounts and the travel card.
    for (const char *p : {"Maple Street Properties", "Green Basket Grocery", "City Power & Light",
                          "Riverside Clinic Payroll", "Corner Pharmacy"})
        b.payee(checking, "First Community Checking", p);
    for (const char *p : {"Northwind Mobile", "County Water District", "Fuel Stop"})
        b.payee(joint, "Joint Household Checking", p);
    b.payee(visa, "Travel Visa", "Skyway Airlines");
    return b.error();
}

} // namespace SampleData
