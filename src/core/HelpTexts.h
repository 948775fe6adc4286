#pragma once

#include <QString>
#include <QStringList>

// The help panel's texts, one for each panel of the work area, kept here so
// that every panel's help is written (and checked) in one place. A text is a
// list of lines; an empty line starts a new paragraph.
namespace HelpTexts {

struct Text
{
    QString title;
    QStringList lines;

    bool isEmpty() const { return lines.isEmpty(); }
    // The lines as the help panel shows them.
    QString body() const { return lines.join(QLatin1Char('\n')); }
};

// The text of a panel by its id ("register", "budget", ...); an empty Text
// for a panel that has none.
Text forPanel(const QString &panelId);
// Every panel id that has a text.
QStringList panelIds();
// A panel that joins the work area gives its text here (a later call for
// the same id replaces it).
void add(const QString &panelId, const Text &text);

} // namespace HelpTexts
