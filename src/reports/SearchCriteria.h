#pragma once

#include "records/Currency.h"
#include "records/TransRecord.h"

#include <QByteArray>
#include <QDate>
#include <QString>

#include <optional>

// What a transaction search asks for: every criterion that is set must hold
// (they are joined with AND); one that is not set lets every record through.
class SearchCriteria
{
public:
    // "Check" picks every check, whatever its number; another word must equal
    // the record's type exactly.
    inline static const QString CheckWord = QStringLiteral("Check");

    void setType(const QString &word) { m_type = word; }
    // Inclusive bounds; either may be left open.
    void setDates(std::optional<QDate> from, std::optional<QDate> to);
    // Compared with the size of the amount, so a withdrawal of $5.00 lies in
    // 1..10 just as a deposit of $5.00 does. Inclusive bounds.
    void setAmounts(std::optional<Currency> from, std::optional<Currency> to);
    // Looked for anywhere in the field, ignoring letter case.
    void setDescription(const QString &text) { m_description = Needle(text); }
    void setCategory(const QString &text) { m_category = Needle(text); }
    void setMemo(const QString &text) { m_memo = Needle(text); }
    // Equal to the field (blanks at either end aside).
    void setTransferClass(const QString &text) { m_transClass = text.trimmed(); }
    void setPaidTo(const QString &accountName) { m_paidTo = accountName.trimmed(); }
    void setCleared(const QString &status) { m_cleared = status.trimmed(); }
    void setStatementDate(const QString &date);

    bool matches(const TransRecord &r) const;

private:
    // A text looked for without regard to letter case. Plain ASCII text is
    // looked for in the stored bytes directly, which keeps a search of every
    // register fast; other text is compared as decoded text.
    class Needle
    {
    public:
        Needle() = default;
        explicit Needle(const QString &text);
        bool isSet() const { return !m_text.isEmpty(); }
        bool foundIn(const char *bytes, int length) const;

    private:
        QString m_text;
        QByteArray m_lowerAscii; // set when the text is plain ASCII
    };

    QString m_type;
    qint64 m_fromDay = 0; // Julian days; 0: open
    qint64 m_toDay = 0;
    std::optional<Currency> m_amountFrom;
    std::optional<Currency> m_amountTo;
    Needle m_description;
    Needle m_category;
    Needle m_memo;
    QString m_transClass;
    QString m_paidTo;
    QString m_cleared;
    qint64 m_statementDay = 0;
    QString m_statementText;
};

namespace SearchDates {
// The Julian day of a stored date ("mm/dd/yyyy" or "mm/dd/yy"), 0 when the
// field holds no date. Reads the bytes directly for the usual forms.
qint64 day(const char *bytes, int length);
} // namespace SearchDates
