#include "records/Currency.h"

#include <QtTest>

class CurrencyTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void parse_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("valid");
        QTest::addColumn<qint64>("raw");
        auto ok = [](const char *name, const char *text, qint64 raw) {
            QTest::newRow(name) << QString::fromUtf8(text) << true << raw;
        };
        auto bad = [](const char *name, const char *text) {
            QTest::newRow(name) << QString::fromUtf8(text) << false << qint64(0);
        };
        ok("half stays even", "1.00005", 10000);
        ok("half goes to even", "1.00015", 10002);
        ok("half from even stays", "1.00025", 10002);
        ok("above half", "1.000051", 10001);
        ok("below half", "1.000049999", 10000);
        ok("negative half to even", "-1.00015", -10002);
        ok("parentheses and sign", "($1,234.56)", -12345600);
        ok("minus before dollar", "  -$3.5 ", -35000);
        ok("fraction only", ".5", 5000);
        ok("millions", "1,234,567.0001", 12345670001);
        bad("bad grouping", "1,23");
        bad("digits then letter", "12a");
        bad("blank", "   ");
        bad("two points", "1.2.3");
        bad("two signs", "(-5)");
        bad("blank inside", "1 000");
        bad("non-latin digit", "\u0663");
        bad("overflow at sixteen digits", "1000000000000000");
    }
    void parse()
    {
        QFETCH(QString, text);
        QFETCH(bool, valid);
        QFETCH(qint64, raw);
        const auto c = Currency::parse(text);
        QCOMPARE(c.has_value(), valid);
        if (valid)
            QCOMPARE(c->raw(), raw);
    }

    void display_data()
    {
        QTest::addColumn<qint64>("raw");
        QTest::addColumn<QString>("currency");
        QTest::addColumn<QString>("fixed");
        auto row = [](const char *name, qint64 raw, const char *currency, const char *fixed) {
            QTest::newRow(name) << raw << QString(currency) << QString(fixed);
        };
        row("half cent up", 50, "$0.01", "0.01");
        row("half cent away from zero", -50, "($0.01)", "-0.01");
        row("under half cent", 49, "$0.00", "0.00");
        row("negative rounds to zero", -49, "$0.00", "0.00");
        row("negative grouping", -12345600, "($1,234.56)", "-1234.56");
        row("carry into thousands", 9999950, "$1,000.00", "1000.00");
        row("three groups", 12345678912, "$1,234,567.89", "1234567.89");
        row("largest", 899999999999999, "$90,000,000,000.00", "90000000000.00");
    }
    void display()
    {
        QFETCH(qint64, raw);
        QFETCH(QString, currency);
        QFETCH(QString, fixed);
        QCOMPARE(Currency::fromRaw(raw).toCurrencyText(), currency);
        QCOMPARE(Currency::fromRaw(raw).toFixedText(), fixed);
    }

    void maximumAmount()
    {
        const Currency below = *Currency::parse(QStringLiteral("89,999,999,999.9999"));
        QVERIFY(!exceedsMaxAmount(below) && !exceedsMaxAmount(-below));
        QVERIFY(exceedsMaxAmount(Currency::fromUnits(-90'000'000'000LL)));
        // A fifth decimal that rounds up reaches the limit.
        QVERIFY(exceedsMaxAmount(*Currency::parse(QStringLiteral("89999999999.99995"))));
    }
};

QTEST_GUILESS_MAIN(CurrencyTest)
#include "tst_currency.moc"
