#include "accounts/AccountSummary.h"

#include <QtTest>

namespace {

BankAcctRecord acct(int num, const char *type, const char *name, qint64 cents)
{
    BankAcctRecord a;
    a.BankNum = std::int16_t(num);
    a.Type = QString::fromLatin1(type);
    a.BankName = QString::fromLatin1(name);
    a.Balance = Currency::fromCents(cents);
    return a;
}

QStringList names(const AccountSummary &s)
{
    QStringList out;
    for (const auto &r : s.rows)
        out << (r.heading ? QStringLiteral("# ") + r.name : r.name);
    return out;
}

} // namespace

class AccountSummaryTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noAccounts()
    {
        for (const auto &list : {std::vector<BankAcctRecord>{},
                                 std::vector<BankAcctRecord>{acct(1, "CH", "Deleted", 500'00),
                                                             acct(2, "CC", "Deleted", -20'00)}}) {
            const AccountSummary s = AccountSummary::build(list);
            QVERIFY(s.rows.empty());
            QCOMPARE(s.gridRows, 10);
            QVERIFY(s.bankTotal.isZero() && s.creditCardTotal.isZero() && s.netTotal().isZero());
            QCOMPARE(s.creditCardCaption(), QStringLiteral("- Credit Card Debts"));
        }
    }

    void creditCardsOnly()
    {
        const AccountSummary s = AccountSummary::build(
            {acct(1, "CC", "Travel Visa", -642'18), acct(2, "CC", "Store Card", -89'99)});
        QVERIFY(s.bankTotal.isZero());
        QCOMPARE(s.creditCardTotal.toCurrencyText(), QStringLiteral("($732.17)"));
        QCOMPARE(s.netTotal().toCurrencyText(), QStringLiteral("($732.17)"));
        QCOMPARE(names(s), (QStringList{"# Credit Cards", "Travel Visa", "Store Card"}));
        QCOMPARE(s.rows[1].balance, QStringLiteral("($642.18)"));
        QCOMPARE(s.rows[1].bankNum, 1);
    }

    void cardInCreditRaisesTheNet()
    {
        const AccountSummary s = AccountSummary::build(
            {acct(1, "CH", "Everyday", 1'000'00), acct(2, "CC", "Overpaid Card", 25'50)});
        QCOMPARE(s.creditCardCaption(), QStringLiteral("- Credit Card Credit"));
        QCOMPARE(s.bankTotal.toCurrencyText(), QStringLiteral("$1,000.00"));
        QCOMPARE(s.netTotal().toCurrencyText(), QStringLiteral("$1,025.50"));
    }

    void elevenOfOneKind()
    {
        std::vector<BankAcctRecord> list;
        for (int i = 1; i <= 11; ++i)
            list.push_back(acct(i, "SV", qPrintable(QStringLiteral("Savings %1").arg(i)), i * 100));
        AccountSummary s = AccountSummary::build(list);
        QCOMPARE(int(s.rows.size()), 12);
        QCOMPARE(s.gridRows, 13);
        QCOMPARE(s.bankTotal, Currency::fromCents(66 * 100));
        // Nine used rows still show ten; ten used rows need eleven.
        QCOMPARE(AccountSummary::build({list.begin(), list.begin() + 8}).gridRows, 10);
        QCOMPARE(AccountSummary::build({list.begin(), list.begin() + 9}).gridRows, 11);
    }

    void groupedByKindInRecordOrder()
    {
        const AccountSummary s = AccountSummary::build({
            acct(1, "CC", "Visa", -10'00),
            acct(2, "MM", "Harbor MM", 300'00),
            acct(3, "CH", "Joint", 50'00),
            acct(4, "SV", "Deleted", 999'00), // removed: never shown, never counted
            acct(5, "SV", "Rainy Day", 200'00),
            acct(6, "CH", "Everyday", 25'00),
            acct(7, "CC", "Deleted", -999'00),
            acct(8, "XX", "Unknown kind", 1'00),
        });
        QCOMPARE(names(s), (QStringList{"# Checking", "Joint", "Everyday", "# Savings", "Rainy Day",
                                        "# Money Market", "Harbor MM", "# Credit Cards", "Visa"}));
        QCOMPARE(s.bankTotal, Currency::fromCents(575'00));
        QCOMPARE(s.creditCardTotal, Currency::fromCents(-10'00));
        QCOMPARE(s.netTotal().toCurrencyText(), QStringLiteral("$565.00"));
        QCOMPARE(s.gridRows, 10);
    }
};

QTEST_GUILESS_MAIN(AccountSummaryTest)
#include "tst_accountsummary.moc"
