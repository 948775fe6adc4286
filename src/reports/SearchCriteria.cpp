#include "reports/SearchCriteria.h"

#include "core/EntryChecks.h"
#include "records/Cp1252.h"
#include "records/TransactionTypes.h"

namespace {

int trimmedLength(const char *p, int n)
{
    while (n > 0 && (p[n - 1] == ' ' || p[n - 1] == '\0'))
        --n;
    return n;
}

template<int N> QString trimmedText(const FixedText<N> &f)
{
    return f.text().trimmed();
}

char lowerAscii(char c)
{
    return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c;
}

} // namespace

namespace SearchDates {

qint64 day(const char *bytes, int length)
{
    const int n = trimmedLength(bytes, length);
    int start = 0;
    while (start < n && bytes[start] == ' ')
        ++start;
    int parts[3] = {0, 0, 0};
    int digits[3] = {0, 0, 0};
    int part = 0;
    bool plain = true;
    for (int i = start; i < n && plain; ++i) {
        const char c = bytes[i];
        if (c >= '0' && c <= '9') {
            parts[part] = parts[part] * 10 + (c - '0');
            plain = ++digits[part] <= 4;
        } else if (c == '/' && part < 2) {
            ++part;
        } else {
            plain = false;
        }
    }
    if (plain && part == 2 && digits[0] >= 1 && digits[0] <= 2 && digits[1] >= 1 && digits[1] <= 2
        && (digits[2] == 4 || digits[2] == 2)) {
        int year = parts[2];
        if (digits[2] == 2)
            year += year < 50 ? 2000 : 1900;
        const QDate d(year, parts[0], parts[1]);
        return d.isValid() ? d.toJulianDay() : 0;
    }
    // Anything unusual is read by the same test every entry uses.
    const auto d = EntryChecks::parseDate(Cp1252::decode(bytes, n).trimmed());
    return d ? d->toJulianDay() : 0;
}

} // namespace SearchDates

SearchCriteria::Needle::Needle(const QString &text) : m_text(text.trimmed())
{
    bool ascii = true;
    for (QChar c : m_text)
        ascii = ascii && c.unicode() < 0x80;
    if (ascii)
        m_lowerAscii = m_text.toLower().toLatin1();
}

bool SearchCriteria::Needle::foundIn(const char *bytes, int length) const
{
    const int n = trimmedLength(bytes, length);
    if (m_lowerAscii.isEmpty() && !m_text.isEmpty())
        return Cp1252::decode(bytes, n).contains(m_text, Qt::CaseInsensitive);
    const int k = int(m_lowerAscii.size());
    const char *needle = m_lowerAscii.constData();
    for (int i = 0; i + k <= n; ++i) {
        int j = 0;
        while (j < k && lowerAscii(bytes[i + j]) == needle[j])
            ++j;
        if (j == k)
            return true;
    }
    return false;
}

void SearchCriteria::setDates(std::optional<QDate> from, std::optional<QDate> to)
{
    m_fromDay = from ? from->toJulianDay() : 0;
    m_toDay = to ? to->toJulianDay() : 0;
}

void SearchCriteria::setAmounts(std::optional<Currency> from, std::optional<Currency> to)
{
    m_amountFrom = from;
    m_amountTo = to;
}

void SearchCriteria::setStatementDate(const QString &date)
{
    m_statementText = date.trimmed();
    const auto d = EntryChecks::parseDate(m_statementText);
    m_statementDay = d ? d->toJulianDay() : 0;
}

bool SearchCriteria::matches(const TransRecord &r) const
{
    // The cheap tests first: most records of a large register fail on a date.
    if (m_fromDay != 0 || m_toDay != 0) {
        const qint64 d = SearchDates::day(r.Date.bytes(), r.Date.width());
        if (d == 0 || (m_fromDay != 0 && d < m_fromDay) || (m_toDay != 0 && d > m_toDay))
            return false;
    }
    if (m_amountFrom || m_amountTo) {
        const Currency size = r.Amount.abs();
        if ((m_amountFrom && size < *m_amountFrom) || (m_amountTo && size > *m_amountTo))
            return false;
    }
    if (!m_type.isEmpty()) {
        if (m_type == CheckWord) {
            if (r.TypeNum != TransactionTypes::TypeNum::Check)
                return false;
        } else if (trimmedText(r.Type) != m_type) {
            return false;
        }
    }
    if (!m_cleared.isEmpty() && trimmedText(r.Status) != m_cleared)
        return false;
    if (!m_statementText.isEmpty()) {
        const qint64 d = SearchDates::day(r.DateClear.bytes(), r.DateClear.width());
        if (m_statementDay != 0 ? d != m_statementDay : trimmedText(r.DateClear) != m_statementText)
            return false;
    }
    if (!m_transClass.isEmpty() && trimmedText(r.TransClass) != m_transClass)
        return false;
    if (!m_paidTo.isEmpty() && trimmedText(r.PaidToBankName) != m_paidTo)
        return false;
    if (m_description.isSet()
        && !m_description.foundIn(r.Description.bytes(), r.Description.width()))
        return false;
    if (m_category.isSet() && !m_category.foundIn(r.BudName.bytes(), r.BudName.width()))
        return false;
    if (m_memo.isSet() && !m_memo.foundIn(r.Memo.bytes(), r.Memo.width()))
        return false;
    return true;
}
