#include "reports/ReportPages.h"

#include <algorithm>

ReportPages::ReportPages(QString title, QDate printed, int ruleWidth, QStringList columnHeading,
                         int linesPerPage)
    : m_title(std::move(title)), m_printed(printed), m_ruleWidth(ruleWidth),
      m_heading(std::move(columnHeading)), m_linesPerPage(std::max(linesPerPage, 8))
{
}

QString ReportPages::dateText(const QDate &d)
{
    return QStringLiteral(" (") + d.toString(QStringLiteral("MM/dd/yyyy")) + QLatin1Char(')');
}

void ReportPages::startPage()
{
    if (m_pages > 0)
        m_lines << PageBreak;
    ++m_pages;
    m_lines << QStringLiteral("Page ") + QString::number(m_pages) << m_title + dateText(m_printed)
            << QString(m_ruleWidth, QLatin1Char('_'));
    m_lines << m_heading;
    m_onPage = headerLines();
}

void ReportPages::add(const QString &line)
{
    addTogether({line});
}

void ReportPages::addTogether(const QStringList &lines)
{
    if (m_pages == 0 || m_onPage + lines.size() > m_linesPerPage)
        startPage();
    m_lines << lines;
    m_onPage += int(lines.size());
}

QStringList ReportPages::lines() const
{
    if (m_pages > 0)
        return m_lines;
    // An empty report still prints its header.
    ReportPages copy = *this;
    copy.startPage();
    return copy.m_lines;
}
