#include "FolderSnapshot.h"
#include "records/ArchiveRecord.h"
#include "records/BankAcctRecord.h"
#include "records/BudgetRecord.h"
#include "records/BudgetTransRecord.h"
#include "records/DataFiles.h"
#include "records/GenInfoRecord.h"
#include "records/PayeeRecord.h"
#include "records/RecordFile.h"
#include "records/TransRecord.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

template<typename R> QByteArray encode(const R &r)
{
    QByteArray b(R::Size, '\0');
    r.encode(b.data());
    return b;
}

// Sets the fields of a record one by one, noting the bytes each must become at
// its offset; then checks an encoding of the record against them, and that the
// noted fields cover every byte of the record exactly once.
class Layout
{
public:
    template<typename Int> void integer(int offset, int width, Int &field, qint64 value)
    {
        field = Int(value);
        QByteArray want(width, '\0');
        for (int i = 0; i < width; ++i)
            want[i] = char((quint64(value) >> (8 * i)) & 0xFF);
        m_expected.append({offset, want});
    }
    void money(int offset, Currency &field, qint64 raw)
    {
        qint64 plain = 0;
        integer(offset, 8, plain, raw); // an amount is its raw count, little-endian
        field = Currency::fromRaw(raw);
    }
    template<int N> void text(int offset, int width, FixedText<N> &field, const QByteArray &value)
    {
        field = QString::fromLatin1(value);
        m_expected.append({offset, value.leftJustified(width, ' ', true)});
    }

    // Empty when the encoded record holds the noted bytes, every byte is noted
    // exactly once, and decoding then encoding gives back any bytes read: the
    // encoded record, or arbitrary ones (NULs, code-page bytes, reserved areas).
    template<typename R> QString problems(const R &record) const
    {
        QByteArray want(R::Size, '\x55');
        QList<int> seen(R::Size, 0);
        for (const auto &[offset, field] : m_expected) {
            want.replace(offset, field.size(), field);
            for (int i = offset; i < offset + field.size() && i < R::Size; ++i)
                ++seen[i];
        }
        if (seen.count(1) != R::Size)
            return QStringLiteral("fields overlap or leave gaps");
        QByteArray got(R::Size, '\x55'); // every byte must be overwritten
        record.encode(got.data());
        const auto [g, w] = std::mismatch(got.begin(), got.end(), want.begin());
        if (g != got.end())
            return QStringLiteral("first difference at byte %1: got %2")
                .arg(g - got.begin())
                .arg(QString::fromLatin1(got.toHex(' ')));
        QByteArray arbitrary(R::Size, '\0');
        for (int i = 0; i < R::Size; ++i)
            arbitrary[i] = char((i * 37 + 11) & 0xFF);
        for (const QByteArray &read : {got, arbitrary})
            if (encode(R::decode(read.constData())) != read)
                return QStringLiteral("decoding and encoding changes the bytes");
        return QString();
    }

private:
    QList<std::pair<int, QByteArray>> m_expected;
};

const qint64 BigRaw = 0x0102030405060708LL;
const qint64 NegativeRaw = -1234567890123LL;

} // namespace

class RecordLayoutTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void genInfo()
    {
        GenInfoRecord r;
        Layout l;
        l.integer(0, 2, r.PeriodIndex, 0x0102);
        l.integer(2, 2, r.SamplePeriodIndex, -3);
        l.text(4, 50, r.ThemeName, "Blue Burst");
        l.integer(54, 2, r.SampleMode, 1);
        l.integer(56, 2, r.HelpShown, 0x0A0B);
        for (int i = 0; i < 4; ++i)
            l.integer(58 + 2 * i, 2, r.PanelState[i], 0x0301 + i);
        l.text(66, 150, r.Reserved1, QByteArray(150, 'r'));
        l.text(216, 20, r.Reserved2, "second reserve");
        QVERIFY2(l.problems(r).isEmpty(), qPrintable(l.problems(r)));
    }

    void bankAcct()
    {
        BankAcctRecord r;
        Layout l;
        l.integer(0, 2, r.BankNum, 0x0102);
        l.text(2, 2, r.Type, "MM");
        l.text(4, 30, r.BankName, "Harbor Money Market");
        l.money(34, r.Balance, NegativeRaw);
        l.integer(42, 4, r.NextCheckNum, 0x01020304);
        l.text(46, 15, r.ViewFromDate, "01/31/2026");
        l.integer(61, 2, r.ViewOption, 0x0506);
        QVERIFY2(l.problems(r).isEmpty(), qPrintable(l.problems(r)));
    }

    void trans()
    {
        TransRecord r;
        Layout l;
        l.integer(0, 2, r.Tranno, 0x0102);
        l.text(2, 4, r.Status, "CL");
        l.text(6, 20, r.Type, "Interest Received");
        l.integer(26, 2, r.TypeNum, 0x0304);
        l.text(28, 15, r.Date, "02/28/2026");
        l.text(43, 15, r.DateClear, "03/05/2026");
        l.text(58, 70, r.Description, QByteArray(70, 'd'));
        l.text(128, 100, r.Memo, "memo text");
        l.integer(228, 2, r.BudNum, 0x0506);
        l.text(230, 20, r.BudName, "Groceries");
        l.text(250, 20, r.TransClass, "PayCC BankLedger");
        l.text(270, 30, r.CCBankName, "Travel Visa");
        l.integer(300, 2, r.CCBankNum, 0x0708);
        l.integer(302, 2, r.CCBudNum, 0x090A);
        l.text(304, 30, r.PaidFromBankName, "First Checking");
        l.integer(334, 2, r.PaidFromBankNum, 0x0B0C);
        l.integer(336, 2, r.PaidFromBankTransRecNum, 0x0D0E);
        l.text(338, 30, r.PaidToBankName, "Rainy Day Savings");
        l.integer(368, 2, r.PaidToBankNum, 0x0F10);
        l.integer(370, 2, r.PaidToBankTransRecNum, -2);
        l.money(372, r.Amount, BigRaw);
        QVERIFY2(l.problems(r).isEmpty(), qPrintable(l.problems(r)));
    }

    void budget()
    {
        BudgetRecord r;
        Layout l;
        l.integer(0, 2, r.BudNum, 0x0102);
        l.text(2, 20, r.BudName, "Travel Visa");
        l.text(22, 30, r.CCBankName, "Travel Visa card");
        l.integer(52, 2, r.CCBankRecnum, 0x0304);
        l.text(54, 15, r.AmountText, "125.50");
        l.money(69, r.Balance, NegativeRaw);
        l.integer(77, 2, r.ItemCount, 15);
        for (int i = 0; i < 15; ++i) {
            l.text(79 + 20 * i, 20, r.ItemNames[i], "Item " + QByteArray::number(i + 1));
            l.text(381 + 15 * i, 15, r.ItemAmounts[i], QByteArray::number(i + 1) + ".25");
        }
        l.integer(379, 2, r.Flag, 0x0506);
        QVERIFY2(l.problems(r).isEmpty(), qPrintable(l.problems(r)));
    }

    void budgetTrans()
    {
        BudgetTransRecord r;
        Layout l;
        l.text(0, 15, r.Date, "12/31/2025");
        l.text(15, 150, r.Description, "Move to groceries");
        l.text(165, 50, r.Memo, QByteArray(50, 'm'));
        l.integer(215, 2, r.FromBudNum, 0x0102);
        l.integer(217, 2, r.ToBudNum, 0x0304);
        l.money(219, r.Amount, BigRaw);
        QVERIFY2(l.problems(r).isEmpty(), qPrintable(l.problems(r)));
    }

    void payeeAndArchive()
    {
        PayeeRecord p;
        Layout pl;
        pl.integer(0, 2, p.PayeeNum, 0x0102);
        pl.integer(2, 2, p.BankNum, 0x0304);
        pl.text(4, 60, p.BankName, "Joint Household Checking");
        pl.text(64, 100, p.Payee, "Green Basket Grocery");
        QVERIFY2(pl.problems(p).isEmpty(), qPrintable(pl.problems(p)));

        ArchiveRecord a;
        Layout al;
        al.integer(0, 2, a.ArchNum, 0x0102);
        al.text(2, 2, a.Type, "SV");
        al.text(4, 30, a.BankName, QByteArray(30, 'n'));
        QVERIFY2(al.problems(a).isEmpty(), qPrintable(al.problems(a)));
    }

    void fixedText()
    {
        FixedText<6> cut(QStringLiteral(" ab cdef"));
        QCOMPARE(QByteArray(cut.bytes(), 6), QByteArray(" ab cd"));
        QCOMPARE(FixedText<6>(QStringLiteral(" ab")).text(),
                 QStringLiteral(" ab")); // leading blanks stay
        QVERIFY(FixedText<6>(QStringLiteral(" ab")).is(QStringLiteral("ab  ")));
        FixedText<6> neverWritten;
        neverWritten.load("ab\0\0\0\0");
        QCOMPARE(neverWritten.text(), QStringLiteral("ab"));
    }

    void codePage()
    {
        QCOMPARE(Cp1252::encode(QStringLiteral("Caf\u00e9 \u20ac5\u2122")),
                 QByteArray("Caf\xe9 \x80"
                            "5\x99"));
        QCOMPARE(Cp1252::decode("\xe9\x80\x99", 3), QStringLiteral("\u00e9\u20ac\u2122"));
        // One "?" per character outside the code page, surrogate pairs included.
        QCOMPARE(Cp1252::encode(QStringLiteral("a\u4e2d\U0001F600b")), QByteArray("a??b"));
        FixedText<3> f(QStringLiteral("\U0001F600\U0001F600xy"));
        QCOMPARE(QByteArray(f.bytes(), 3), QByteArray("??x"));
    }

    void recordCount_data()
    {
        QTest::addColumn<qint64>("bytes");
        QTest::addColumn<int>("length");
        QTest::addColumn<int>("count");
        QTest::newRow("just under half") << qint64(31) << 63 << 0;
        QTest::newRow("just over half") << qint64(32) << 63 << 1;
        QTest::newRow("half, rounds to even 0") << qint64(17) << 34 << 0;
        QTest::newRow("one and a half, to 2") << qint64(51) << 34 << 2;
        QTest::newRow("two and a half, to 2") << qint64(85) << 34 << 2;
        QTest::newRow("full file") << qint64(32767) * 34 << 34 << 32767;
        QTest::newRow("beyond 16 bits") << qint64(40000) * 34 << 34 << 32767;
    }
    void recordCount()
    {
        QFETCH(qint64, bytes);
        QFETCH(int, length);
        QFETCH(int, count);
        QCOMPARE(RawRecordFile::countFor(bytes, length), count);
    }

    void shortAndMissingFiles()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("Archive.Dat"));
        RecordFile<ArchiveRecord> missing(path);
        QCOMPARE(missing.count(), 0);
        QVERIFY(!QFileInfo::exists(path)); // counting and reading create nothing

        // One whole record and half of the next: 51 bytes count as 2 records.
        writeBytes(path, encode(ArchiveRecord{1, QStringLiteral("CH"),
                                              QStringLiteral("Half recorded name here")})
                             + encode(ArchiveRecord{2, QStringLiteral("CH"),
                                                    QStringLiteral("Half recorded name here")})
                                   .left(17));
        RecordFile<ArchiveRecord> file(path);
        QVERIFY(file.open());
        QCOMPARE(file.count(), 2);
        QCOMPARE(file.read(2).ArchNum, std::int16_t(2));
        QCOMPARE(file.read(2).BankName.text(), QStringLiteral("Half recorded"));
        const ArchiveRecord past = file.read(3);
        QVERIFY(past.ArchNum == 0 && past.BankName.isBlank() && past.Type.isBlank());
    }

    void dataFileNames_data()
    {
        QTest::addColumn<bool>("sample");
        QTest::addColumn<QStringList>("names");
        QTest::newRow("own") << false << QStringList{"Geninfo.dat", "BankAcctName.Dat",
                                                     "Budget.Dat",  "trans Budget.Dat",
                                                     "Payee.Dat",   "Archive.Dat",
                                                     "Period"};
        QTest::newRow("sample") << true
                                << QStringList{"Geninfo.dat",       "Sample BankAcctName.Dat",
                                               "Sample Budget.Dat", "Sample trans Budget.Dat",
                                               "Sample Payee.Dat",  "Sample Archive.Dat",
                                               "Sample Period"};
    }
    void dataFileNames()
    {
        QFETCH(bool, sample);
        QFETCH(QStringList, names);
        const DataFiles f(QStringLiteral("/d/Data"), sample);
        const QStringList got = {f.genInfo(),
                                 f.accountList(),
                                 f.budget(),
                                 f.budgetTransfers(),
                                 f.payees(),
                                 f.archiveList(),
                                 QStringLiteral("/d/Data/") + f.periodBase()};
        for (int i = 0; i < got.size(); ++i)
            QCOMPARE(got[i], QStringLiteral("/d/Data/") + names[i]);
        QCOMPARE(f.other().isSample(), !sample);
        // Registers carry no data-set prefix; trailing blanks of the name are dropped.
        QCOMPARE(f.registerFile(QStringLiteral("Travel Visa   ")),
                 QStringLiteral("/d/Data/trans Travel Visa.Dat"));
        QCOMPARE(f.archivedRegisterFile(QStringLiteral("Old Savings ")),
                 QStringLiteral("/d/Data/Archive Old Savings.Dat"));
    }
};

QTEST_GUILESS_MAIN(RecordLayoutTest)
#include "tst_recordlayouts.moc"
