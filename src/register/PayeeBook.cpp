#include "register/PayeeBook.h"

#include "records/PayeeRecord.h"
#include "records/RecordFile.h"
#include "records/RemovedMark.h"
#include "records/UnitOfWork.h"

#include <QSet>

#include <utility>

PayeeBook::PayeeBook(DataFiles files) : m_files(std::move(files)) {}

int PayeeBook::count() const
{
    return RecordFile<PayeeRecord>(m_files.payees()).count();
}

std::vector<PayeeBook::Entry> PayeeBook::listFor(int bankNum) const
{
    const std::vector<PayeeRecord> records = RecordFile<PayeeRecord>(m_files.payees()).readAll();
    std::vector<Entry> out;
    QSet<QString> seen;
    for (const bool own : {true, false}) {
        for (std::size_t i = 0; i < records.size(); ++i) {
            const PayeeRecord &r = records[i];
            if (r.isEmpty() || (r.BankNum == bankNum) != own)
                continue;
            const QString text = r.Payee.text().trimmed();
            const QString key = text.toCaseFolded();
            if (seen.contains(key))
                continue;
            seen.insert(key);
            out.push_back({text, int(i) + 1});
        }
    }
    return out;
}

PayeeBook::Result PayeeBook::add(int bankNum, const QString &accountName, const QString &payee)
{
    const QString text = payee.trimmed();
    if (text.isEmpty())
        return {false, QStringLiteral("Type a payee first"), 0};
    if (RemovedMark::marks(text))
        return {false, QStringLiteral("\"Deleted\" cannot be a payee"), 0};
    const QString path = m_files.payees();
    const std::vector<PayeeRecord> records = RecordFile<PayeeRecord>(path).readAll();
    int slot = 0;
    for (std::size_t i = 0; i < records.size() && slot == 0; ++i) {
        if (records[i].Payee.text().trimmed().compare(text, Qt::CaseInsensitive) == 0)
            return {false, QStringLiteral("\"%1\" is in the payee list already").arg(text), 0};
        if (records[i].isEmpty())
            slot = int(i) + 1;
    }
    for (std::size_t i = slot; i < records.size(); ++i)
        if (records[i].Payee.text().trimmed().compare(text, Qt::CaseInsensitive) == 0)
            return {false, QStringLiteral("\"%1\" is in the payee list already").arg(text), 0};
    if (slot == 0)
        slot = int(records.size()) + 1;
    if (slot > RawRecordFile::MaxRecords)
        return {false, QStringLiteral("The payee list is full"), 0};
    PayeeRecord r;
    r.PayeeNum = static_cast<std::int16_t>(slot);
    r.BankNum = static_cast<std::int16_t>(bankNum);
    r.BankName = accountName;
    r.Payee = text;
    UnitOfWork unit(m_files.dataDir());
    unit.write(path, slot, r);
    if (!unit.commit())
        return {false, unit.error(), 0};
    return {true, QString(), slot};
}

PayeeBook::Result PayeeBook::remove(int recordNumber)
{
    const QString path = m_files.payees();
    RecordFile<PayeeRecord> file(path);
    if (recordNumber < 1 || recordNumber > file.count())
        return {false, QStringLiteral("That payee is no longer in the list"), 0};
    PayeeRecord r = file.read(recordNumber);
    r.PayeeNum = static_cast<std::int16_t>(recordNumber);
    r.BankNum = 0;
    r.BankName = QString();
    r.Payee = QString();
    UnitOfWork unit(m_files.dataDir());
    unit.write(path, recordNumber, r);
    if (!unit.commit())
        return {false, unit.error(), 0};
    return {true, QString(), recordNumber};
}
