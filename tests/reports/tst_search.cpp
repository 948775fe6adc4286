#include "ReportsFixture.h"

#include "records/TransactionTypes.h"
#include "reports/FollowedData.h"
#include "reports/SearchSummary.h"
#include "reports/TransactionSearch.h"

#include <QTest>

using namespace TransactionSearch;
Q_DECLARE_METATYPE(Request)

class TestSearch : public QObject
{
    Q_OBJECT

private:
    ReportsFixture *m_fx = nullptr;

    std::vector<Hit> search(const Request &q)
    {
        const Checked c = check(q);
        if (c.refusal != Refusal::None)
            return {};
        return run(m_fx->files, m_fx->accounts, q.bankNum, c.criteria).hits;
    }
    static QStringList payees(const std::vector<Hit> &hits)
    {
        QStringList out;
        for (const Hit &h : hits)
            out << h.record.Description.text().trimmed();
        return out;
    }

private Q_SLOTS:
    void init()
    {
        m_fx = new ReportsFixture;
        m_fx->addAccount(QStringLiteral("Checking"), QStringLiteral("CH"), 0);
        m_fx->addAccount(QStringLiteral("Savings"), QStringLiteral("SV"), 0);
        auto check = ReportsFixture::record(QStringLiteral("12/31/2025"), QStringLiteral("1001"),
                                            QStringLiteral("Greenfield SUPERMARKET"), -4250,
                                            QStringLiteral("CL"));
        check.TypeNum = TransactionTypes::TypeNum::Check;
        check.BudName = QStringLiteral("Groceries");
        check.Memo = QStringLiteral("Weekly shop");
        check.DateClear = QStringLiteral("01/15/2026");
        auto pay = ReportsFixture::record(QStringLiteral("01/01/2026"), QStringLiteral("Deposit"),
                                          QStringLiteral("Payroll"), 150000);
        pay.TypeNum = TransactionTypes::TypeNum::Deposit;
        auto fee = ReportsFixture::record(QStringLiteral("01/20/26"), QStringLiteral("Bank Fee"),
                                          QStringLiteral("Monthly fee"), -1000);
        fee.TypeNum = TransactionTypes::TypeNum::BankFee;
        // A check entered with the word, not the number: still a check.
        auto word = ReportsFixture::record(QStringLiteral("02/03/2026"), QStringLiteral("Check"),
                                           QStringLiteral("Market Street"), -500);
        word.TypeNum = TransactionTypes::TypeNum::Check;
        m_fx->writeRegister(QStringLiteral("Checking"), {check, pay, fee, word});
        auto transfer
            = ReportsFixture::record(QStringLiteral("01/02/2026"), QStringLiteral("Transfer"),
                                     QStringLiteral("From Checking"), 20000);
        transfer.TransClass = QStringLiteral("Transfer To");
        transfer.PaidToBankName = QStringLiteral("Savings");
        m_fx->writeRegister(QStringLiteral("Savings"), {transfer});
    }
    void cleanup() { delete m_fx; }

    void everyCriterionAnyListsEverything()
    {
        Request q;
        q.type = q.dateFrom = q.dateTo = q.amountFrom = q.amountTo = Any;
        const auto all = search(q);
        QCOMPARE(all.size(), std::size_t(5));
        QCOMPARE(all.back().accountName, QStringLiteral("Savings"));
        QCOMPARE(all.back().recordNumber, 1);
        QCOMPARE(all[2].recordNumber, 3);
        q.bankNum = 2;
        QCOMPARE(search(q).size(), std::size_t(1));
    }

    // Each criterion with the others left empty: the payees found, in register order.
    void criteria_data()
    {
        QTest::addColumn<Request>("request");
        QTest::addColumn<QStringList>("found");
        auto row = [](const char *name, auto edit, const QStringList &found) {
            Request q;
            edit(q);
            QTest::newRow(name) << q << found;
        };
        using Q = Request &;
        const QString market = "Greenfield SUPERMARKET", street = "Market Street",
                      fee = "Monthly fee";
        row("payee in any case inside words", [](Q q) { q.description = "market"; },
            {market, street});
        row("category", [](Q q) { q.category = "ROCER"; }, {market});
        row("memo", [](Q q) { q.memo = "kly sh"; }, {market});
        row("text found nowhere", [](Q q) { q.description = "nothing like it"; }, {});
        row("dates across a year, bounds inclusive",
            [](Q q) { q.dateFrom = "12/31/2025", q.dateTo = "01/01/2026"; }, {market, "Payroll"});
        row("short year typed", [](Q q) { q.dateTo = "12/31/25"; }, {market});
        row("short year in the register", [](Q q) { q.dateFrom = "1/20/2026"; }, {fee, street});
        row("amounts by size, bounds inclusive",
            [](Q q) { q.amountFrom = "10", q.amountTo = "42.50"; }, {market, fee});
        row("amount with dollar and commas", [](Q q) { q.amountFrom = "$1,500.00"; }, {"Payroll"});
        row("amount not a number counts as 0", [](Q q) { q.amountTo = "abc"; }, {});
        row("checks by number or by word", [](Q q) { q.type = "Check"; }, {market, street});
        row("type word", [](Q q) { q.type = "Bank Fee"; }, {fee});
        row("type word matches exactly", [](Q q) { q.type = "bank fee"; }, {});
        row("cleared", [](Q q) { q.cleared = "CL"; }, {market});
        row("open", [](Q q) { q.cleared = "OP"; }, {"Payroll", fee, street, "From Checking"});
        row("statement", [](Q q) { q.bankNum = 1, q.statement = "1/15/26"; }, {market});
        row("class and paid to", [](Q q) { q.transClass = "Transfer To", q.paidTo = "Savings"; },
            {"From Checking"});
    }
    void criteria()
    {
        QFETCH(Request, request);
        QTEST(payees(search(request)), "found");
    }

    void refusals()
    {
        Request q;
        q.statement = QStringLiteral("01/15/2026");
        QCOMPARE(check(q).refusal, Refusal::StatementWithAll);
        q.dateFrom = QStringLiteral("13/45/2026");
        QCOMPARE(check(q).refusal, Refusal::BadDate); // dates are checked first
        q = {};
        q.dateFrom = QStringLiteral("02/01/2026");
        q.dateTo = QStringLiteral("01/01/2026");
        QCOMPARE(check(q).refusal, Refusal::DatesReversed);
        q = {};
        q.amountTo = QStringLiteral("abc"); // searched as 0, and the panel is told
        QCOMPARE(check(q).amountsAsZero, QStringList({QStringLiteral("abc")}));
        QCOMPARE(heading(QStringLiteral("All")),
                 QStringLiteral("Transactions Found for All Account(s)"));
    }

    void vanishedRegisterIsNamed()
    {
        QFile::remove(m_fx->files.registerFile(QStringLiteral("Savings")));
        const Result r = run(m_fx->files, m_fx->accounts, 0, SearchCriteria());
        QCOMPARE(r.unreadable, QStringList({QStringLiteral("Savings")}));
        QCOMPARE(r.hits.size(), std::size_t(4));
    }

    void keptListsFollowChanges()
    {
        DataSnapshot kept;
        kept.accounts = m_fx->accounts;
        // In place: the records written replace theirs, a next one is added.
        DataChange change;
        change.inPlace = true;
        BankAcctRecord moved = m_fx->accounts[1];
        moved.Balance = Currency::fromUnits(7);
        BankAcctRecord added;
        added.BankNum = 3;
        added.BankName = QStringLiteral("Visa");
        change.accounts = {moved, added};
        FollowedData::follow(kept, change, DataSnapshot{});
        QCOMPARE(kept.accountList().size(), std::size_t(3));
        QCOMPARE(kept.account(2).Balance, Currency::fromUnits(7));
        QCOMPARE(kept.account(1).BankName.text(), QStringLiteral("Checking"));
        // Otherwise the set read again is taken whole.
        DataSnapshot read;
        read.accounts = std::vector<BankAcctRecord>{m_fx->accounts[0]};
        FollowedData::follow(kept, DataChange{}, read);
        QCOMPARE(kept.accountList().size(), std::size_t(1));
    }

    void summaryOfMixedAndEmptyResults()
    {
        const auto all = search({});
        const auto rows = SearchSummary::of(all).rows();
        QStringList texts;
        for (const auto &row : rows)
            texts << row.item + QLatin1Char('=') + row.amount;
        QCOMPARE(texts, QStringList({QStringLiteral("# of Deposits=2"),
                                     QStringLiteral("# of Withdrawals=3"),
                                     QStringLiteral("          Total Transactions=5"),
                                     QStringLiteral("Sum of Deposits=$1,700.00"),
                                     QStringLiteral("Sum of Withdrawals=$57.50"),
                                     QStringLiteral("                  Net Amount=$1,642.50"),
                                     QStringLiteral("Average Deposit=$850.00"),
                                     QStringLiteral("Average Withdrawal=$19.17")}));
        QCOMPARE(SearchSummary::average(Currency::fromRaw(-5), 2)->raw(), -3);
    }
};

QTEST_GUILESS_MAIN(TestSearch)
#include "tst_search.moc"
