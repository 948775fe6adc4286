#pragma once

#include <QDate>
#include <QString>
#include <QStringList>

// Lays report lines out on pages. Every page starts with the same header:
// "Page " and its number, the title with the printing date " (mm/dd/yyyy)",
// a rule of underscores, and the report's column heading lines. A page break
// is a line holding only a form feed, which the printing side turns into a
// new sheet.
class ReportPages
{
public:
    inline static const QString PageBreak = QStringLiteral("\f");

    ReportPages(QString title, QDate printed, int ruleWidth, QStringList columnHeading,
                int linesPerPage);

    // One body line; a new page (with its header) when this one is full.
    void add(const QString &line);
    // Lines that stay together on one page (a transaction and its memo).
    void addTogether(const QStringList &lines);
    // Every page, page breaks between them.
    QStringList lines() const;
    int pageCount() const { return m_pages; }

    static QString dateText(const QDate &d); // " (mm/dd/yyyy)"

private:
    void startPage();
    int headerLines() const { return 3 + int(m_heading.size()); }

    QString m_title;
    QDate m_printed;
    int m_ruleWidth;
    QStringList m_heading;
    int m_linesPerPage;
    QStringList m_lines;
    int m_onPage = 0; // lines on the current page, header included
    int m_pages = 0;
};
