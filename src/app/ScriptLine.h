#pragma once

#include <QString>

#include <optional>

// One line of a scenario script, read piece by piece: words separated by
// blanks, or "quoted" strings with the escapes \" \\ \t \n \r. Also the
// escaping used for every string the transcript prints.
class ScriptLine
{
public:
    explicit ScriptLine(QString text);

    // The next word, or a quoted string. Empty at the end of the line.
    // A bad quoted string sets error() and gives an empty result.
    QString word();
    // Everything left: one quoted string, or the rest of the line as written
    // (without leading and trailing blanks).
    QString rest();
    // True when only blanks are left.
    bool atEnd() const;
    // The next character that is not a blank, without taking it; null at the end.
    QChar peek();
    // What was wrong with the last quoted string, empty when nothing was.
    const QString &error() const { return m_error; }

    // The transcript form of a string: escaped and put in double quotes.
    static QString quote(const QString &text);
    // Escapes backslashes, line breaks (a CR LF pair is one line break), tabs,
    // lone CRs and other control characters; also double quotes when asked to.
    static QString escape(const QString &text, bool quotes);

private:
    void skipBlanks();
    std::optional<QString> quoted();

    QString m_text;
    qsizetype m_pos = 0;
    QString m_error;
};
