#include "app/ScriptLine.h"

#include <utility>

ScriptLine::ScriptLine(QString text) : m_text(std::move(text)) {}

void ScriptLine::skipBlanks()
{
    while (m_pos < m_text.size() && m_text[m_pos].isSpace())
        ++m_pos;
}

bool ScriptLine::atEnd() const
{
    for (qsizetype i = m_pos; i < m_text.size(); ++i)
        if (!m_text[i].isSpace())
            return false;
    return true;
}

QChar ScriptLine::peek()
{
    skipBlanks();
    return m_pos < m_text.size() ? m_text[m_pos] : QChar();
}

std::optional<QString> ScriptLine::quoted()
{
    // m_pos is on the opening quote.
    QString out;
    for (qsizetype i = m_pos + 1; i < m_text.size(); ++i) {
        const QChar c = m_text[i];
        if (c == QLatin1Char('"')) {
            m_pos = i + 1;
            if (m_pos < m_text.size() && !m_text[m_pos].isSpace()) {
                m_error = QStringLiteral("a quoted string must be followed by a blank");
                return std::nullopt;
            }
            return out;
        }
        if (c != QLatin1Char('\\')) {
            out += c;
            continue;
        }
        if (++i >= m_text.size())
            break;
        switch (m_text[i].unicode()) {
        case '"':
            out += QLatin1Char('"');
            break;
        case '\\':
            out += QLatin1Char('\\');
            break;
        case 't':
            out += QLatin1Char('\t');
            break;
        case 'n':
            out += QLatin1Char('\n');
            break;
        case 'r':
            out += QLatin1Char('\r');
            break;
        default:
            m_error = QStringLiteral("unknown escape \\%1 (use \\\" \\\\ \\t \\n or \\r)")
                          .arg(m_text[i]);
            return std::nullopt;
        }
    }
    m_error = QStringLiteral("a quoted string has no closing \"");
    return std::nullopt;
}

QString ScriptLine::word()
{
    skipBlanks();
    if (m_pos >= m_text.size())
        return QString();
    if (m_text[m_pos] == QLatin1Char('"'))
        return quoted().value_or(QString());
    const qsizetype start = m_pos;
    while (m_pos < m_text.size() && !m_text[m_pos].isSpace())
        ++m_pos;
    return m_text.mid(start, m_pos - start);
}

QString ScriptLine::rest()
{
    skipBlanks();
    if (m_pos < m_text.size() && m_text[m_pos] == QLatin1Char('"')) {
        const auto text = quoted();
        if (text && !atEnd()) {
            m_error = QStringLiteral("nothing may follow the quoted string");
            return QString();
        }
        return text.value_or(QString());
    }
    const QString text = m_text.mid(m_pos).trimmed();
    m_pos = m_text.size();
    return text;
}

QString ScriptLine::escape(const QString &text, bool quotes)
{
    QString out;
    out.reserve(text.size() + 8);
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        switch (c.unicode()) {
        case '\\':
            out += QStringLiteral("\\\\");
            break;
        case '\t':
            out += QStringLiteral("\\t");
            break;
        case '\n':
            out += QStringLiteral("\\n");
            break;
        case '\r':
            if (i + 1 < text.size() && text[i + 1] == QLatin1Char('\n')) {
                out += QStringLiteral("\\n");
                ++i;
            } else {
                out += QStringLiteral("\\r");
            }
            break;
        case '"':
            out += quotes ? QStringLiteral("\\\"") : QStringLiteral("\"");
            break;
        default:
            if (c.unicode() < 0x20 || c.unicode() == 0x7F)
                out += QStringLiteral("\\x%1").arg(c.unicode(), 2, 16, QLatin1Char('0'));
            else
                out += c;
        }
    }
    return out;
}

QString ScriptLine::quote(const QString &text)
{
    return QLatin1Char('"') + escape(text, true) + QLatin1Char('"');
}
