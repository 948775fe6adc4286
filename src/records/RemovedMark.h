#pragma once

#include <QString>

// "Deleted" in the name field of an account, a budget category or an archive
// entry, or in the description of a budget transfer, marks a free record that
// every reader skips. A text typed into such a field must never be that word.
namespace RemovedMark {

inline const QString Text = QStringLiteral("Deleted");

// Whether a text, once stored (trimmed), would read as the mark. Upper and
// lower case count alike, so that "DELETED" is refused as well.
inline bool marks(const QString &text)
{
    return text.trimmed().compare(Text, Qt::CaseInsensitive) == 0;
}

} // namespace RemovedMark
