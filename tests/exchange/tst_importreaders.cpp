// The three readers of bank downloads on good files and on each kind of bad
// one: what comes out of a good file, and which line a bad one is refused at.

#include "exchange/CsvReader.h"
#include "exchange/OfxReader.h"
#include "exchange/QifReader.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

const QByteArray Qif = "!Type:Bank\n"
                       "D11/03/2026\nT-42.17\nPCorner Grocery\nMweekly shop\nLFood\n^\n"
                       "D11/15/2026\nT1,250.00\nPPayroll\nCX\n^\n"
                       "D11/16/2026\nU-80.00\nN1001\nPCity Water\nL[Savings]\n^\n"
                       "D11/17/2026\nT-30.00\nPSplit Store\nSFood\n$-20.00\nSHome\n$-10.00\n^\n";

QByteArray ofx(const QByteArray &transactions, const QByteArray &end = "</OFX>\n")
{
    return "OFXHEADER:100\nDATA:OFXSGML\nVERSION:102\nSECURITY:NONE\nENCODING:USASCII\n"
           "CHARSET:1252\nCOMPRESSION:NONE\nOLDFILEUID:NONE\nNEWFILEUID:NONE\n\n<OFX>\n"
           "<SIGNONMSGSRSV1><SONRS><STATUS><CODE>0<SEVERITY>INFO</STATUS>"
           "<DTSERVER>20261120<LANGUAGE>ENG</SONRS></SIGNONMSGSRSV1>\n"
           "<BANKMSGSRSV1><STMTTRNRS><TRNUID>1<STATUS><CODE>0<SEVERITY>INFO</STATUS>\n"
           "<STMTRS><CURDEF>USD<BANKACCTFROM><BANKID>123456789<ACCTID>00012345"
           "<ACCTTYPE>CHECKING</BANKACCTFROM>\n<BANKTRANLIST><DTSTART>20261101<DTEND>20261120\n"
           + transactions
           + "</BANKTRANLIST><LEDGERBAL><BALAMT>100.00<DTASOF>20261120</LEDGERBAL>"
             "</STMTRS></STMTTRNRS></BANKMSGSRSV1>\n"
           + end;
}

const QByteArray OfxRows
    = "<STMTTRN><TRNTYPE>POS<DTPOSTED>20261103120000<TRNAMT>-42.17<FITID>A1"
      "<NAME>CORNER GROCERY<MEMO>card 1234</STMTTRN>\n"
      "<STMTTRN><TRNTYPE>CHECK<DTPOSTED>20261104<TRNAMT>-80.10<FITID>A2<CHECKNUM>1001"
      "<NAME>CITY WATER</STMTTRN>\n"
      "<STMTTRN><TRNTYPE>DIRECTDEP<DTPOSTED>20261115<TRNAMT>1250.00<FITID>A3"
      "<NAME>PAYROLL</STMTTRN>\n";

ImportFile readOfx(const QByteArray &bytes)
{
    QTemporaryDir dir;
    QFile f(dir.filePath(QStringLiteral("statement.ofx")));
    f.open(QIODevice::WriteOnly);
    f.write(bytes);
    f.close();
    return OfxReader::read(f.fileName());
}

} // namespace

class TestImportReaders : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void qifGoodFile()
    {
        const auto r = QifReader::read(Qif);
        QVERIFY2(r.file.ok(), qPrintable(r.file.error));
        QCOMPARE(r.file.rows.size(), std::size_t(4));
        const ImportRow &shop = r.file.rows[0];
        QCOMPARE(shop.date, QDate(2026, 11, 3));
        QCOMPARE(shop.amount, Currency::fromCents(-4217));
        QCOMPARE(shop.category, QStringLiteral("Food"));
        QCOMPARE(shop.memo, QStringLiteral("weekly shop"));
        QVERIFY(r.file.rows[1].cleared);
        QCOMPARE(r.file.rows[1].amount, Currency::fromUnits(1250));
        QCOMPARE(r.file.rows[2].number, QStringLiteral("1001"));
        QVERIFY(r.file.rows[2].transfer);
        QVERIFY(!r.file.rows[3].note.isEmpty()); // splits: entered whole
        QCOMPARE(r.file.warnings.size(), 1);
    }

    void qifDateOrder()
    {
        // Day first shows in a 13 or more; both readings possible means asking.
        QCOMPARE(QifReader::read("!Type:Bank\nD25/11/2026\nT-1\n^\n").file.rows[0].date,
                 QDate(2026, 11, 25));
        QCOMPARE(QifReader::read("!Type:CCard\nD11/25'26\nT-1\n^\n").file.rows[0].date,
                 QDate(2026, 11, 25));
        const QByteArray both = "!Type:Bank\nD04/05/2026\nT-1\n^\n";
        QVERIFY(QifReader::read(both).dateOrderUnknown);
        QCOMPARE(QifReader::read(both, ImportDates::Order::DayFirst).file.rows[0].date,
                 QDate(2026, 5, 4));
    }

    void qifBadFiles_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("error");
        QTest::newRow("empty") << QByteArray("  \n") << "The file is empty.";
        QTest::newRow("not qif") << QByteArray("Date,Amount\n") << "Line 1: a QIF file starts";
        QTest::newRow("truncated") << QByteArray("!Type:Bank\nD11/03/2026\nT-1\n^\nD11/04/2026\n")
                                   << "starts at line 5: it seems cut short";
        QTest::newRow("bad date") << QByteArray("!Type:Bank\nD11/31/2026\nT-1\n^\n")
                                  << "Line 2: \"11/31/2026\" is not a date.";
        QTest::newRow("bad amount") << QByteArray("!Type:Bank\nD11/03/2026\nT12x\n^\n")
                                    << "Line 3: \"12x\" is not an amount.";
        QTest::newRow("no amount") << QByteArray("!Type:Bank\nD11/03/2026\n^\n")
                                   << "Line 2: the transaction has no amount.";
        QTest::newRow("huge field")
            << QByteArray("!Type:Bank\nP" + QByteArray(100000, 'x') + "\n^\n") << "Line 2 is";
        QTest::newRow("nul") << QByteArray("!Type:Bank\nD1\0/1/2026\n", 20) << "Line 2 holds a NUL";
        QTest::newRow("utf16") << QByteArray("\xff\xfe!\0T\0") << "UTF-16";
        QTest::newRow("no register")
            << QByteArray("!Type:Cat\nNFood\n^\n") << "no bank, card or cash transactions";
    }
    void qifBadFiles()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, error);
        const auto r = QifReader::read(bytes, ImportDates::Order::MonthFirst);
        QVERIFY(r.file.rows.empty());
        QVERIFY2(r.file.error.contains(error), qPrintable(r.file.error));
    }

    void csvQuotingAndMapping()
    {
        // RFC 4180: quoted delimiters, doubled quotes and line breaks in a field.
        const QByteArray bytes = "Date,Description,Memo,Debit,Credit\n"
                                 "11/03/2026,\"Grocer, Corner\",\"said \"\"hi\"\"\",42.17,\n"
                                 "11/15/2026,Payroll,\"two\nlines\",,\"1,250.00\"\n";
        const QStringList lines = QString::fromLatin1(bytes).split(QLatin1Char('\n'));
        const CsvReader::Mapping m = CsvReader::guess(lines);
        QVERIFY(m.header);
        QCOMPARE(m.date, 0);
        QCOMPARE(m.payee, 1);
        QCOMPARE(m.debit, 3);
        QCOMPARE(m.credit, 4);
        const ImportFile f = CsvReader::read(bytes, m);
        QVERIFY2(f.ok(), qPrintable(f.error));
        QCOMPARE(f.rows.size(), std::size_t(2));
        QCOMPARE(f.rows[0].payee, QStringLiteral("Grocer, Corner"));
        QCOMPARE(f.rows[0].memo, QStringLiteral("said \"hi\""));
        QCOMPARE(f.rows[0].amount, Currency::fromCents(-4217));
        QCOMPARE(f.rows[1].memo, QStringLiteral("two\nlines"));
        QCOMPARE(f.rows[1].amount, Currency::fromUnits(1250));
        // The mapping comes back from the settings as it went in.
        bool ok = false;
        QCOMPARE(CsvReader::Mapping::fromText(m.toText(), &ok).toText(), m.toText());
        QVERIFY(ok);
    }

    void csvEuropeanAndWindows1252()
    {
        // Semicolons, day-first dates, decimal commas, and a byte that is no UTF-8.
        const QByteArray bytes = "Datum;Name;Betrag\n25.11.2026;Caf\xe9 Nord;-1.234,50\n";
        const QStringList lines = QString::fromLatin1(bytes).split(QLatin1Char('\n'));
        const CsvReader::Mapping m = CsvReader::guess(lines);
        QCOMPARE(m.delimiter, QLatin1Char(';'));
        QVERIFY(m.decimalComma);
        QCOMPARE(m.dateOrder, ImportDates::Order::DayFirst);
        const ImportFile f = CsvReader::read(bytes, m);
        QVERIFY2(f.ok(), qPrintable(f.error));
        QCOMPARE(f.rows[0].payee, QStringLiteral("Café Nord"));
        QCOMPARE(f.rows[0].amount, Currency::fromCents(-123450));
        QCOMPARE(f.rows[0].date, QDate(2026, 11, 25));
    }

    void csvBadFiles_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("error");
        QTest::newRow("bad date") << QByteArray("Date,Amount\n02/30/2026,1\n")
                                  << "Line 2: \"02/30/2026\" is not a date.";
        QTest::newRow("bad amount") << QByteArray("Date,Amount\n02/03/2026,1.2.3\n")
                                    << "Line 2: \"1.2.3\" is not an amount.";
        QTest::newRow("open quote")
            << QByteArray("Date,Amount\n02/03/2026,\"1\n") << "starts at line 2 never ends";
        QTest::newRow("stray quote")
            << QByteArray("Date,Amount\n02/03/2026,1\"2\n") << "Line 2: a quote in the middle";
        QTest::newRow("heading only") << QByteArray("Date,Amount\n") << "no transactions";
    }
    void csvBadFiles()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, error);
        CsvReader::Mapping m;
        m.date = 0;
        m.amount = 1;
        const ImportFile f = CsvReader::read(bytes, m);
        QVERIFY2(f.error.contains(error), qPrintable(f.error));
    }

    void ofxGoodFile()
    {
        for (const bool xml : {false, true}) {
            QByteArray bytes = ofx(OfxRows);
            if (xml) // OFX 2: an XML header and every element closed
                bytes = "<?xml version=\"1.0\"?>\n<?OFX OFXHEADER=\"200\" VERSION=\"211\" "
                        "SECURITY=\"NONE\" OLDFILEUID=\"NONE\" NEWFILEUID=\"NONE\"?>\n"
                        "<OFX><BANKMSGSRSV1><STMTTRNRS><TRNUID>1</TRNUID><STATUS><CODE>0</CODE>"
                        "<SEVERITY>INFO</SEVERITY></STATUS><STMTRS><CURDEF>USD</CURDEF>"
                        "<BANKACCTFROM><BANKID>123456789</BANKID><ACCTID>00012345</ACCTID>"
                        "<ACCTTYPE>CHECKING</ACCTTYPE></BANKACCTFROM><BANKTRANLIST>"
                        "<STMTTRN><TRNTYPE>POS</TRNTYPE><DTPOSTED>20261103</DTPOSTED>"
                        "<TRNAMT>-42.17</TRNAMT><FITID>A1</FITID><NAME>CORNER GROCERY</NAME>"
                        "</STMTTRN></BANKTRANLIST></STMTRS></STMTTRNRS></BANKMSGSRSV1></OFX>\n";
            const ImportFile f = readOfx(bytes);
            QVERIFY2(f.ok(), qPrintable(f.error));
            QVERIFY(f.accountId.contains(QStringLiteral("00012345")));
            QCOMPARE(f.rows.size(), std::size_t(xml ? 1 : 3));
            QCOMPARE(f.rows[0].fitId, QStringLiteral("A1"));
            QCOMPARE(f.rows[0].bankType, QStringLiteral("POS"));
            QCOMPARE(f.rows[0].date, QDate(2026, 11, 3));
            QCOMPARE(f.rows[0].amount, Currency::fromCents(-4217));
            QCOMPARE(f.rows[0].payee, QStringLiteral("CORNER GROCERY"));
        }
        const ImportFile f = readOfx(ofx(OfxRows));
        QCOMPARE(f.rows[1].number, QStringLiteral("1001"));
        QCOMPARE(f.rows[1].amount, Currency::fromCents(-8010));
        QCOMPARE(f.rows[2].bankType, QStringLiteral("DIRECTDEP"));
    }

    void ofxBadFiles_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("error");
        QTest::newRow("not ofx") << QByteArray("!Type:Bank\n") << "no <OFX> element";
        QTest::newRow("truncated") << ofx(OfxRows, "") << "cut short";
        QTest::newRow("bad date") << ofx(
            "<STMTTRN><TRNTYPE>POS<DTPOSTED>20261341<TRNAMT>-1<FITID>X</STMTTRN>\n")
                                  << "Line 16, <DTPOSTED>: \"20261341\" is not a date.";
        QTest::newRow("bad amount")
            << ofx("<STMTTRN><TRNTYPE>POS<DTPOSTED>20261103<TRNAMT>1e5<FITID>X</STMTTRN>\n")
            << "Line 16, <TRNAMT>: \"1e5\" is not an amount.";
        QTest::newRow("no transactions") << ofx("") << "no transactions";
        QTest::newRow("nul") << QByteArray("<OFX>\0</OFX>", 12) << "NUL";
    }
    void ofxBadFiles()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, error);
        const ImportFile f = readOfx(bytes);
        QVERIFY(f.rows.empty());
        QVERIFY2(f.error.contains(error), qPrintable(f.error));
    }
};

QTEST_GUILESS_MAIN(TestImportReaders)
#include "tst_importreaders.moc"
