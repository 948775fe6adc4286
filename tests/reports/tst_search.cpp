#include "ReportsFixture.h"

#include "records/TransactionTypes.h"
#include "reports/FollowedData.h"
#include "reports/SearchSummary.h"
#include "reports/TransactionSearch.h"

#include <QTest>

using namespace TransactionSearch;

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

    void textIsFoundInAnyCaseInsideWords()
    {
        Request q;
        q.description = QStringLiteral("market");
        QCOMPARE(payees(search(q)), QStringList({QStringLiteral("Greenfield SUPERMARKET"),
                                                 QStringLiteral("Market Street")}));
        q = {};
        q.category = QStringLiteral("ROCER");
        QCOMPARE(search(q).size(), std::size_t(1));
        q = {};
        q.memo = QStringLiteral("kly sh");
        QCOMPARE(search(q).size(), std::size_t(1));
        q = {};
        q.description = QStringLiteral("nothing like it");
        QVERIFY(search(q).empty());
    }

    void datesCompareAsDatesAcrossYearsWithInclusiveBounds()
    {
        Request q;
        q.dateFrom = QStringLiteral("12/31/2025");
        q.dateTo = QStringLiteral("01/01/2026");
        QCOMPARE(payees(search(q)), QStringList({QStringLiteral("Greenfield SUPERMARKET"),
                                                 QStringLiteral("Payroll")}));
        q = {};
        q.dateTo = QStringLiteral("12/31/25");
        QCOMPARE(payees(search(q)), QStringList({QStringLiteral("Greenfield SUPERMARKET")}));
        q = {};
        // A two-digit year in the register reads as a date too.
        q.dateFrom = QStringLiteral("1/20/2026");
        QCOMPARE(payees(search(q)),
                 QStringList({QStringLiteral("Monthly fee"), QStringLiteral("Market Street")}));
    }

    void amountsCompareBySizeWithInclusiveBounds()
    {
        Request q;
        q.amountFrom = QStringLiteral("10");
        q.amountTo = QStringLiteral("42.50");
        QCOMPARE(payees(search(q)), QStringList({QStringLiteral("Greenfield SUPERMARKET"),
                                                 QStringLiteral("Monthly fee")}));
        q = {};
        q.amountFrom = QStringLiteral("$1,500.00");
        QCOMPARE(payees(search(q)), QStringList({QStringLiteral("Payroll")}));
        // Not a number: counts as 0, and the panel is told.
        q = {};
        q.amountTo = QStringLiteral("abc");
        const Checked c = check(q);
        QCOMPARE(c.amountsAsZero, QStringList({QStringLiteral("abc")}));
        QVERIFY(search(q).empty());
    }

    void typeWordsAndChecks()
    {
        Request q;
        q.type = QStringLiteral("Check");
        QCOMPARE(payees(search(q)), QStringList({QStringLiteral("Greenfield SUPERMARKET"),
                                                 QStringLiteral("Market Street")}));
        q.type = QStringLiteral("Bank Fee");
        QCOMPARE(payees(search(q)), QStringList({QStringLiteral("Monthly fee")}));
        q.type = QStringLiteral("bank fee"); // the type word matches exactly
        QVERIFY(search(q).empty());
        QVERIFY(typeWords().contains(QStringLiteral("Interest Charge")));
    }

    void clearedStatementClassAndPaidTo()
    {
        Request q;
        q.cleared = QStringLiteral("CL");
        QCOMPARE(search(q).size(), std::size_t(1));
        q.cleared = QStringLiteral("OP");
        QCOMPARE(search(q).size(), std::size_t(4));
        q = {};
        q.bankNum = 1;
        q.statement = QStringLiteral("1/15/26");
        QCOMPARE(payees(search(q)), QStringList({QStringLiteral("Greenfield SUPERMARKET")}));
        q = {};
        q.transClass = QStringLiteral("Transfer To");
        q.paidTo = QStringLiteral("Savings");
        QCOMPARE(payees(search(q)), QStringList({QStringLiteral("From Checking")}));
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
        const auto none = SearchSummary::of({}).rows();
        QCOMPARE(none[2].amount, QStringLiteral("0"));
        QCOMPARE(none[5].amount, QStringLiteral("$0.00"));
        QCOMPARE(none[6].amount, QStringLiteral("-"));
        QCOMPARE(none[7].amount, QStringLiteral("-"));
        QCOMPARE(SearchSummary::average(Currency::fromRaw(-5), 2)->raw(), -3);
    }
};

QTEST_GUILESS_MAIN(TestSearch)
#include "tst_search.moc"
