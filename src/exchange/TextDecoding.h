#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

// Turning the bytes of a downloaded text file into lines: UTF-8 (with or
// without its byte-order mark) when the bytes are valid UTF-8, Windows-1252
// otherwise. Files with NUL bytes or in UTF-16 are refused with the line where
// the trouble starts, and so are lines too long to be any bank's.
namespace TextDecoding {

inline constexpr int MaxLineLength = 4096;

struct Lines
{
    QStringList lines; // without their line ends
    QString encoding;  // "UTF-8" or "Windows-1252"
    QString error;     // set when the bytes are not a text file we read
};

Lines decode(const QByteArray &bytes);

// The same for a whole text (OFX hands its own file to its reader).
QString problemWith(const QByteArray &bytes);

} // namespace TextDecoding
