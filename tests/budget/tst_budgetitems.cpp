#include "RecordingInteraction.h"
#include "budget/BudgetItemDelegate.h"
#include "budget/BudgetItemModel.h"
#include "core/EntryChecks.h"

#include <QLineEdit>
#include <QTableView>
#include <QtTest>

namespace {

const QString Refusal = EntryChecks::MaxAmountTitle + QLatin1Char('|') + EntryChecks::MaxAmountText;

} // namespace

// The item grid of a budget category, edited in its cells.
class TestBudgetItems : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void modelTakesNamesAndAmounts()
    {
        BudgetItemModel model;
        model.setRows({});
        const QModelIndex fixed = model.index(0, BudgetItemModel::Fixed);
        const QModelIndex amount = model.index(0, BudgetItemModel::Amount);
        QVERIFY(!(model.flags(fixed) & Qt::ItemIsEditable));
        QVERIFY(model.flags(amount) & Qt::ItemIsEditable);
        QVERIFY(!model.setData(fixed, QStringLiteral("x")));
        QVERIFY(model.setData(amount, QStringLiteral("12.50")));
        QVERIFY(model.setData(model.index(0, BudgetItemModel::Name), QStringLiteral("Soap")));
        QCOMPARE(model.rows()[0].amount, QStringLiteral("12.50"));
        QCOMPARE(model.rows()[0].name, QStringLiteral("Soap"));
        // Just under the limit is taken, the limit itself is not, of either sign.
        QVERIFY(model.setData(amount, QStringLiteral("89999999999.99")));
        QVERIFY(!model.setData(amount, QStringLiteral("90000000000")));
        QVERIFY(!model.setData(amount, QStringLiteral("-90000000000")));
        QCOMPARE(model.rows()[0].amount, QStringLiteral("89999999999.99"));
        // A name that is no number counts as 0.
        QVERIFY(model.setData(amount, QStringLiteral("lots")));
    }

    // What is typed reaches the cell at once; a refused amount is wiped from
    // the editor with a message, and the cell keeps its value when the editor closes.
    void editorAppliesTheLimit()
    {
        RecordingInteraction ui;
        BudgetItemModel model;
        model.setRows({});
        QTableView view;
        view.setModel(&model);
        auto *delegate = new BudgetItemDelegate(ui, &view);
        view.setItemDelegate(delegate);
        view.show();

        const QModelIndex cell = model.index(4, BudgetItemModel::Amount);
        view.edit(cell);
        QLineEdit *editor = delegate->openEditor();
        QVERIFY(editor);
        QCOMPARE(editor->objectName(), QStringLiteral("txtEditor"));
        QCOMPARE(view.findChildren<QLineEdit *>(QStringLiteral("txtEditor")).size(), 1);
        editor->setText(QStringLiteral("7.5"));
        QCOMPARE(model.rows()[4].amount, QStringLiteral("7.5"));
        QVERIFY(ui.said.isEmpty());

        editor->setText(QStringLiteral("90000000000"));
        QCOMPARE(ui.said, QStringList{Refusal});
        QCOMPARE(editor->text(), QString());
        QCOMPARE(model.rows()[4].amount, QStringLiteral("7.5"));
        delegate->closeOpenEditor();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!delegate->openEditor());
        QCOMPARE(model.rows()[4].amount, QStringLiteral("7.5"));

        // Moving to another cell closes the editor without touching the cell.
        view.setCurrentIndex(cell);
        view.edit(cell);
        QCOMPARE(delegate->openEditor()->text(), QStringLiteral("7.5"));
        delegate->openEditor()->setText(QStringLiteral("-90000000000"));
        QCOMPARE(ui.said.size(), 2);
        view.setCurrentIndex(model.index(5, BudgetItemModel::Name));
        QCOMPARE(model.rows()[4].amount, QStringLiteral("7.5"));
        QVERIFY(view.findChildren<QLineEdit *>(QStringLiteral("txtEditor")).isEmpty());
    }
};

QTEST_MAIN(TestBudgetItems)
#include "tst_budgetitems.moc"
