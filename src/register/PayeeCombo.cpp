#include "register/PayeeCombo.h"

#include "records/BankAcctRecord.h"
#include "records/DataFiles.h"
#include "register/PayeeBook.h"

#include <QComboBox>

namespace PayeeCombo {

void fill(QComboBox *box, const DataFiles &files, int bankNum)
{
    const QString typed = box->currentText();
    box->clear();
    for (const PayeeBook::Entry &p : PayeeBook(files).listFor(bankNum))
        box->addItem(p.payee, p.recordNumber);
    box->setCurrentIndex(-1);
    box->setEditText(typed);
}

QString addTyped(QComboBox *box, const DataFiles &files, const BankAcctRecord &account)
{
    const QString text = box->currentText().trimmed();
    const PayeeBook::Result result
        = PayeeBook(files).add(account.BankNum, account.BankName.text(), text);
    if (!result.ok)
        return result.error;
    fill(box, files, account.BankNum);
    box->setCurrentIndex(box->findData(result.recordNumber));
    return QString();
}

QString removeChosen(QComboBox *box, const DataFiles &files)
{
    const int index = box->currentIndex();
    const PayeeBook::Result result = PayeeBook(files).remove(box->itemData(index).toInt());
    if (!result.ok)
        return result.error;
    box->removeItem(index);
    box->setCurrentIndex(-1);
    box->setEditText(QString());
    return QString();
}

} // namespace PayeeCombo
