#include "core/EntryChecks.h"
#include "records/TransactionTypes.h"

#include <QtTest>

class EntryChecksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dates_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QDate>("date"); // invalid: refused
        QTest::newRow("mm/dd/yyyy") << "01/31/2026" << QDate(2026, 1, 31);
        QTest::newRow("surrounding blanks") << " 3/4/2026 " << QDate(2026, 3, 4);
        QTest::newRow("yy 50 is 1950") << "12/31/50" << QDate(1950, 12, 31);
        QTest::newRow("yy 49 is 2049") << "01/01/49" << QDate(2049, 1, 1);
        QTest::newRow("yy 00 is 2000") << "2/29/00" << QDate(2000, 2, 29);
        QTest::newRow("leap day") << "02/29/2024" << QDate(2024, 2, 29);
        QTest::newRow("not a leap year") << "02/29/2025" << QDate();
        QTest::newRow("april 31") << "04/31/2025" << QDate();
        QTest::newRow("month 13") << "13/01/2025" << QDate();
        QTest::newRow("day 0") << "01/00/2025" << QDate();
        QTest::newRow("day first order") << "31/01/2025" << QDate();
        QTest::newRow("three-digit year") << "01/01/202" << QDate();
        QTest::newRow("five-digit year") << "01/01/20260" << QDate();
        QTest::newRow("sign in day") << "01/+1/2026" << QDate();
        QTest::newRow("blank inside") << "01/ 1/2026" << QDate();
    }
    void dates()
    {
        QFETCH(QString, text);
        QFETCH(QDate, date);
        const auto parsed = EntryChecks::parseDate(text);
        QCOMPARE(parsed.has_value(), date.isValid());
        QCOMPARE(EntryChecks::ValidateEntryDate(text), date.isValid());
        if (parsed)
            QCOMPARE(*parsed, date);
    }

    void typeCodes_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<int>("code");
        QTest::addColumn<qint64>("signedCents"); // of a typed 12.34
        QTest::newRow("Deposit") << "Deposit" << 1 << qint64(1234);
        QTest::newRow("check number") << "Check 123" << 6 << qint64(-1234);
        QTest::newRow("trimmed") << "  Interest Received " << 4 << qint64(1234);
        QTest::newRow("case matters") << "deposit" << 0 << qint64(0);
        QTest::newRow("Starting Balance") << "Starting Balance" << 15 << qint64(1234);
    }
    void typeCodes()
    {
        QFETCH(QString, type);
        QFETCH(int, code);
        QFETCH(qint64, signedCents);
        QCOMPARE(TransactionTypes::typeNum(type), code);
        // The sign comes from the type, whatever sign was typed.
        QCOMPARE(TransactionTypes::signedAmount(code, Currency::fromCents(1234)),
                 Currency::fromCents(signedCents));
        // Except an opening balance, which keeps the sign it was given.
        QCOMPARE(TransactionTypes::signedAmount(code, Currency::fromCents(-1234)),
                 Currency::fromCents(code == 15 ? -1234 : signedCents));
    }

    void signedAmounts_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("sign");
        for (const char *s : {"+5", "-0", " -5", "(5.00)", "+ 5", " +$1,250"})
            QTest::newRow(s) << QString::fromLatin1(s) << true;
        for (const char *s : {"5", "0", "$1,250.00", " 12x", ""})
            QTest::newRow(s) << QString::fromLatin1(s) << false;
    }
    void signedAmounts()
    {
        QFETCH(QString, text);
        QTEST(EntryChecks::hasSign(text), "sign");
    }
};

QTEST_GUILESS_MAIN(EntryChecksTest)
#include "tst_entrychecks.moc"
