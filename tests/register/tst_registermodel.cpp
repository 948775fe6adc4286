#include "core/TransactionText.h"
#include "register/RegisterModel.h"
#include "ui/PaddedRowsProxy.h"

#include <QAbstractItemModelTester>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QtTest>

namespace {

TransRecord record(const char *status, const char *type, const char *date, qint64 cents,
                   const char *category = "na", const char *cleared = "")
{
    TransRecord r;
    r.Status = QString::fromLatin1(status);
    r.Type = QString::fromLatin1(type);
    r.Date = QString::fromLatin1(date);
    r.DateClear = QString::fromLatin1(cleared);
    r.Description = QStringLiteral("Corner Grocer ");
    r.Memo = QStringLiteral(" weekly");
    r.BudName = QString::fromLatin1(category);
    r.Amount = Currency::fromCents(cents);
    return r;
}

// Starting balance 100.00, a withdrawal of 30.25, a deposit of 5.00.
std::vector<TransRecord> threeRecords()
{
    return {record("CL", "Starting Balance", "01/01/2025", 10000, "na", "01/31/2025"),
            record("OP", "Withdrawal", "2/3/2025", -3025, "Groceries"),
            record("XX", "1001", "not a date", 500, "none")};
}

QList<QVariant> column(const QAbstractItemModel &model, int col, int role)
{
    QList<QVariant> values;
    for (int row = 0; row < model.rowCount(); ++row)
        values << model.index(row, col).data(role);
    return values;
}

} // namespace

class TestRegisterModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Every field as the register and its clipboard copy show it.
    void transactionText()
    {
        using enum TransactionText::Field;
        const std::vector<TransRecord> r = threeRecords();
        const auto shown = [](const TransRecord &record) {
            QStringList out;
            for (const auto f :
                 {Status, Date, DateCleared, Payee, Memo, Category, Deposit, Withdrawal})
                out << TransactionText::field(record, f);
            return out.join(QLatin1Char('|'));
        };
        QCOMPARE(shown(r[0]),
                 QStringLiteral("\u2714|01/01/25|01/31/25|Corner Grocer|weekly||$100.00|"));
        QCOMPARE(shown(r[1]),
                 QStringLiteral("\u25CB|02/03/25||Corner Grocer|weekly|Groceries||$30.25"));
        QCOMPARE(shown(r[2]), QStringLiteral("|not a date||Corner Grocer|weekly||$5.00|"));
        QCOMPARE(TransactionText::date(r[1].Date), QDate(2025, 2, 3));
        QVERIFY(!TransactionText::date(r[2].Date).isValid());
    }

    // One row per listed record, nothing else; the raw roles carry the values
    // a sorting or searching proxy needs.
    void rolesAndRows()
    {
        RegisterModel model;
        QAbstractItemModelTester tester(&model);
        model.setRegister(threeRecords(), 2, false);
        QCOMPARE(model.rowCount(), 2);
        QCOMPARE(column(model, RegisterModel::Type, RegisterModel::RecordNumberRole),
                 (QList<QVariant>{2, 3}));
        QCOMPARE(model.rowOfRecord(3), 1);
        QCOMPARE(model.rowOfRecord(1), -1);
        QCOMPARE(column(model, RegisterModel::Memo, RegisterModel::AmountRole),
                 (QList<QVariant>{qint64(-302500), qint64(50000)}));
        QCOMPARE(column(model, RegisterModel::Withdrawal, RegisterModel::RawValueRole),
                 (QList<QVariant>{qint64(302500), QVariant()}));
        QCOMPARE(column(model, RegisterModel::Deposit, RegisterModel::RawValueRole),
                 (QList<QVariant>{QVariant(), qint64(50000)}));
        // The running balance starts from the records before the first listed.
        QCOMPARE(column(model, RegisterModel::Balance, RegisterModel::RawValueRole),
                 (QList<QVariant>{qint64(697500), qint64(747500)}));
        QCOMPARE(column(model, RegisterModel::Balance, Qt::DisplayRole),
                 (QList<QVariant>{QStringLiteral("$69.75"), QStringLiteral("$74.75")}));
        QCOMPARE(column(model, RegisterModel::Date, RegisterModel::RawValueRole),
                 (QList<QVariant>{QDate(2025, 2, 3), QDate()}));
        QCOMPARE(model.index(0, RegisterModel::Payee).data(RegisterModel::DateRole),
                 QVariant(QDate(2025, 2, 3)));
        QCOMPARE(model.index(1, RegisterModel::Category).data(RegisterModel::RawValueRole),
                 QVariant(QStringLiteral("none")));

        // The clipboard copy uses the same texts, header first.
        QCOMPARE(model.tabSeparated({0}),
                 QStringLiteral("Type\tDate\tPayee\tCategory\tMemo\tDeposit\tWithdrawal\tBalance\t"
                                "Date Cleared\r\nWithdrawal\t02/03/25\tCorner Grocer\tGroceries\t"
                                "weekly\t\t$30.25\t$69.75\t\r\n"));

        model.setRegister({}, 1, true);
        QCOMPARE(model.rowCount(), 0);
        QCOMPARE(model.headerData(RegisterModel::Withdrawal, Qt::Horizontal, Qt::DisplayRole),
                 QVariant(QStringLiteral("Charge")));
    }

    // Sorting by amount is a proxy over the raw values, not over the texts
    // ("$5.00" would come after "$30.25" as text).
    void sortsByRawValue()
    {
        RegisterModel model;
        model.setRegister(threeRecords(), 1, false);
        QSortFilterProxyModel sorted;
        sorted.setSourceModel(&model);
        sorted.setSortRole(RegisterModel::AmountRole);
        sorted.sort(RegisterModel::Memo);
        QCOMPARE(column(sorted, RegisterModel::Memo, RegisterModel::RecordNumberRole),
                 (QList<QVariant>{2, 3, 1}));
        sorted.setSortRole(RegisterModel::RawValueRole);
        sorted.sort(RegisterModel::Date, Qt::DescendingOrder);
        QCOMPARE(column(sorted, RegisterModel::Date, RegisterModel::RecordNumberRole).first(),
                 QVariant(2));
    }

    // An entry written by the register's own Enter joins the model without a
    // reset: a new row at the end, or one row rewritten with every running
    // balance after it moved; rows before the view range stay unlisted.
    void keptInStepWithOneEntry()
    {
        RegisterModel model;
        QAbstractItemModelTester tester(&model);
        model.setRegister(threeRecords(), 2, false);
        QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
        QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        const auto balances = [&model] {
            return column(model, RegisterModel::Balance, RegisterModel::RawValueRole);
        };

        model.appendRecord(record("OP", "Deposit", "2/9/2025", 1'00));
        QCOMPARE(model.shownCount(), 3);
        QCOMPARE(model.recordNumberAt(2), 4);
        QCOMPARE(balances(),
                 (QList<QVariant>{qint64(69'75'00), qint64(74'75'00), qint64(75'75'00)}));
        QCOMPARE(inserted.size(), 1);

        // The starting balance is not listed, but the balances after it move.
        model.replaceRecord(1, record("CL", "Starting Balance", "01/01/2025", 200'00));
        QCOMPARE(balances(),
                 (QList<QVariant>{qint64(169'75'00), qint64(174'75'00), qint64(175'75'00)}));
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed[0][0].toModelIndex().row(), 0);
        QCOMPARE(changed[0][1].toModelIndex().row(), 2);

        // Same amount: only its own row changes.
        model.replaceRecord(3, record("OP", "1002", "2/4/2025", 5'00));
        QCOMPARE(changed.size(), 2);
        QCOMPARE(changed[1][0].toModelIndex().row(), 1);
        QCOMPARE(changed[1][1].toModelIndex().row(), 1);
        QCOMPARE(model.index(1, RegisterModel::Type).data().toString(), QStringLiteral("1002"));
        QCOMPARE(resets.size(), 0);
    }

    // The empty rows below a short table come and go as its rows do, with the
    // signals a view needs (the tester checks each one).
    void paddingFollowsTheSource()
    {
        QStandardItemModel source(2, 3);
        source.setHorizontalHeaderLabels(
            {QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")});
        source.setItem(1, 2, new QStandardItem(QStringLiteral("x")));
        PaddedRowsProxy padded(4);
        QAbstractItemModelTester tester(&padded);
        padded.setSourceModel(&source);
        QCOMPARE(padded.rowCount(), 4);
        QCOMPARE(padded.index(1, 2).data(), QVariant(QStringLiteral("x")));
        QVERIFY(padded.isPadding(2));
        QVERIFY(!padded.index(3, 0).data().isValid());
        QCOMPARE(padded.flags(padded.index(3, 0)), Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        QCOMPARE(padded.headerData(2, Qt::Horizontal), QVariant(QStringLiteral("C")));

        source.insertRows(1, 3);
        QCOMPARE(padded.rowCount(), 5);
        QCOMPARE(padded.index(4, 2).data(), QVariant(QStringLiteral("x")));
        QVERIFY(!padded.isPadding(4));
        source.removeRows(0, 4);
        QCOMPARE(padded.rowCount(), 4);
        QCOMPARE(padded.index(0, 2).data(), QVariant(QStringLiteral("x")));

        QSignalSpy changed(&padded, &QAbstractItemModel::dataChanged);
        source.setItem(0, 1, new QStandardItem(QStringLiteral("y")));
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed.first().first().toModelIndex(), padded.index(0, 1));

        // A register that fills the grid has no empty rows at all.
        RegisterModel model;
        PaddedRowsProxy grid(2);
        grid.setSourceModel(&model);
        QCOMPARE(grid.rowCount(), 2);
        model.setRegister(threeRecords(), 1, false);
        QCOMPARE(grid.rowCount(), 3);
        QCOMPARE(grid.index(2, 0).data(RegisterModel::RecordNumberRole), QVariant(3));
    }
};

QTEST_MAIN(TestRegisterModel)
#include "tst_registermodel.moc"
