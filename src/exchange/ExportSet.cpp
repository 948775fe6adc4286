#include "exchange/ExportSet.h"

#include "core/TransactionText.h"
#include "records/AccountKinds.h"
#include "records/TransactionClasses.h"
#include "records/TransactionTemplate.h"
#include "records/TransactionTypes.h"
#include "register/CheckNumbers.h"

#include <algorithm>

namespace {

QString rowKey(const QString &account, int recordNumber)
{
    return account.trimmed() + QLatin1Char('\n') + QString::number(recordNumber);
}

} // namespace

ExportSet ExportSet::ofRegister(const BankAcctRecord &account,
                                const std::vector<TransRecord> &records,
                                const std::vector<BankAcctRecord> &accounts)
{
    ExportSet set;
    for (const BankAcctRecord &a : accounts)
        if (!a.isDeleted())
            set.addAccount(a);
    set.addAccount(account);
    const QString name = account.BankName.text().trimmed();
    for (std::size_t i = 0; i < records.size(); ++i)
        set.addRow(name, int(i) + 1, records[i]);
    return set;
}

void ExportSet::addAccount(const BankAcctRecord &account)
{
    m_cards.insert(account.BankName.text().trimmed(), AccountKinds::isCard(account.Type.text()));
}

void ExportSet::addRow(const QString &account, int recordNumber, const TransRecord &record)
{
    const QString name = account.trimmed();
    if (!m_shown.contains(name))
        m_shown << name;
    m_rows.push_back({name, recordNumber, record});
    m_keys.insert(rowKey(name, recordNumber));
}

bool ExportSet::isCard(const QString &account) const
{
    return m_cards.value(account.trimmed(), false);
}

bool ExportSet::isVoid(const TransRecord &r)
{
    return r.Type.is(QStringLiteral("Void"));
}

bool ExportSet::isStartingBalance(const TransRecord &r)
{
    return r.TypeNum == TransactionTypes::TypeNum::StartingBalance
           || r.Type.is(TransactionTemplate::StartingBalance);
}

QDate ExportSet::date(const TransRecord &r)
{
    return TransactionText::date(r.Date);
}

QDate ExportSet::clearedDate(const TransRecord &r)
{
    return TransactionText::date(r.DateClear);
}

bool ExportSet::isCleared(const TransRecord &r)
{
    return r.Status.is(TransactionTemplate::Cleared);
}

QString ExportSet::category(const TransRecord &r)
{
    if (!otherAccount(r).isEmpty())
        return QString();
    return TransactionText::field(r, TransactionText::Field::Category);
}

QString ExportSet::typeText(const TransRecord &r)
{
    return checkNumber(r) ? QStringLiteral("Check") : r.Type.text().trimmed();
}

std::optional<qint64> ExportSet::checkNumber(const TransRecord &r)
{
    // A check keeps its number, and nothing else, in the type field.
    const QString type = r.Type.text().trimmed();
    if (type.isEmpty()
        || !std::all_of(type.begin(), type.end(), [](QChar c) { return c.isDigit(); }))
        return std::nullopt;
    return CheckNumbers::numericValue(type);
}

QString ExportSet::otherAccount(const TransRecord &r)
{
    const QString cls = r.TransClass.text().trimmed();
    if (cls == TransactionClasses::TransferFrom || cls == TransactionClasses::PayBank)
        return r.PaidToBankName.text().trimmed();
    if (cls == TransactionClasses::TransferTo || cls == TransactionClasses::PayCard)
        return r.PaidFromBankName.text().trimmed();
    return QString();
}

bool ExportSet::isSecondSide(const Row &row) const
{
    const QString cls = row.record.TransClass.text().trimmed();
    if (cls != TransactionClasses::TransferTo && cls != TransactionClasses::PayCard)
        return false;
    return m_keys.contains(
        rowKey(row.record.PaidFromBankName.text(), row.record.PaidFromBankTransRecNum));
}

QString ExportSet::amountText(Currency amount)
{
    QString text = amount.toPlainText();
    const qsizetype dot = text.indexOf(QLatin1Char('.'));
    if (dot < 0)
        return text + QStringLiteral(".00");
    if (text.size() - dot == 2)
        text += QLatin1Char('0');
    return text;
}
