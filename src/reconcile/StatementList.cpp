#include "reconcile/StatementList.h"

#include "records/TransactionTemplate.h"

#include <algorithm>
#include <unordered_set>

namespace {

StatementList::Row heading(StatementList::Group group)
{
    StatementList::Row r;
    r.group = group;
    return r;
}

StatementList::Group groupOf(const TransRecord &record)
{
    return record.Amount.isNegative() ? StatementList::Group::Withdrawals
                                      : StatementList::Group::Deposits;
}

} // namespace

bool StatementList::isListed(const TransRecord &record)
{
    if (!record.Status.is(TransactionTemplate::Open))
        return false;
    return !(record.Type.is(QStringLiteral("Void")) && record.Amount.isZero());
}

void StatementList::fill(const std::vector<TransRecord> &records)
{
    if (m_rows.empty())
        m_firstNew = int(records.size()) + 1;
    std::unordered_set<int> ticked;
    for (const Row &r : m_rows)
        if (r.ticked)
            ticked.insert(r.recordNumber);

    std::vector<Row> deposits;
    std::vector<Row> withdrawals;
    std::vector<Row> added;
    for (std::size_t i = 0; i < records.size(); ++i) {
        const TransRecord &t = records[i];
        if (!isListed(t))
            continue;
        Row row;
        row.recordNumber = int(i + 1);
        row.record = t;
        row.ticked = ticked.count(row.recordNumber) > 0;
        if (row.recordNumber >= m_firstNew) {
            row.group = Group::New;
            added.push_back(std::move(row));
        } else {
            row.group = groupOf(t);
            (row.group == Group::Deposits ? deposits : withdrawals).push_back(std::move(row));
        }
    }
    m_rows.clear();
    m_rows.reserve(deposits.size() + withdrawals.size() + added.size() + 3);
    m_rows.push_back(heading(Group::Deposits));
    m_rows.insert(m_rows.end(), deposits.begin(), deposits.end());
    m_rows.push_back(heading(Group::Withdrawals));
    m_rows.insert(m_rows.end(), withdrawals.begin(), withdrawals.end());
    m_rows.push_back(heading(Group::New));
    m_rows.insert(m_rows.end(), added.begin(), added.end());
}

void StatementList::fillCleared(const std::vector<TransRecord> &records,
                                const std::vector<int> &recordNumbers)
{
    m_rows.clear();
    m_firstNew = 0;
    for (Group g : {Group::Deposits, Group::Withdrawals}) {
        m_rows.push_back(heading(g));
        for (int n : recordNumbers) {
            if (n < 1 || n > int(records.size()) || groupOf(records[std::size_t(n - 1)]) != g)
                continue;
            Row row;
            row.recordNumber = n;
            row.group = g;
            row.record = records[std::size_t(n - 1)];
            row.ticked = true;
            m_rows.push_back(std::move(row));
        }
    }
}

void StatementList::reset()
{
    m_firstNew = 0;
    m_rows.clear();
}

int StatementList::rowOf(int recordNumber) const
{
    if (recordNumber <= 0)
        return -1;
    for (int i = 0; i < size(); ++i)
        if (m_rows[std::size_t(i)].recordNumber == recordNumber)
            return i;
    return -1;
}

bool StatementList::toggle(int row)
{
    if (row < 0 || row >= size() || m_rows[std::size_t(row)].isHeading())
        return false;
    m_rows[std::size_t(row)].ticked = !m_rows[std::size_t(row)].ticked;
    return true;
}

bool StatementList::setTicked(int row, bool ticked)
{
    if (row < 0 || row >= size() || m_rows[std::size_t(row)].isHeading())
        return false;
    m_rows[std::size_t(row)].ticked = ticked;
    return true;
}

int StatementList::tickedCount() const
{
    return int(std::count_if(m_rows.begin(), m_rows.end(),
                             [](const Row &r) { return r.ticked && !r.isHeading(); }));
}

std::vector<int> StatementList::tickedRecords() const
{
    std::vector<int> out;
    for (const Row &r : m_rows)
        if (r.ticked && !r.isHeading())
            out.push_back(r.recordNumber);
    return out;
}

Currency StatementList::clearedSum() const
{
    Currency sum;
    for (const Row &r : m_rows)
        if (r.ticked && !r.isHeading())
            sum += r.record.Amount;
    return sum;
}

int StatementList::enter(int recordNumber, const TransRecord &record)
{
    const int at = rowOf(recordNumber);
    if (!isListed(record)) {
        remove(recordNumber);
        return -1;
    }
    if (at >= 0) {
        m_rows[std::size_t(at)].record = record;
        return at;
    }
    Row row;
    row.recordNumber = recordNumber;
    row.group = recordNumber >= m_firstNew ? Group::New : groupOf(record);
    row.record = record;
    // After the last row of its group with a lower record number.
    int at2 = 0;
    bool inGroup = false;
    for (int i = 0; i < size(); ++i) {
        const Row &r = m_rows[std::size_t(i)];
        if (r.isHeading()) {
            if (inGroup)
                break;
            inGroup = r.group == row.group;
            at2 = i + 1;
        } else if (inGroup && r.recordNumber < recordNumber) {
            at2 = i + 1;
        }
    }
    m_rows.insert(m_rows.begin() + at2, std::move(row));
    return at2;
}

void StatementList::remove(int recordNumber)
{
    const int at = rowOf(recordNumber);
    if (at >= 0)
        m_rows.erase(m_rows.begin() + at);
}
