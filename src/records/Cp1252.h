#pragma once

#include <QByteArray>
#include <QString>

// Text on disk is single-byte Windows-1252. Characters outside the code page
// are written as "?".
namespace Cp1252 {

QByteArray encode(const QString &text);
// Whether the code page has a byte for this character ("?" included).
bool holds(char32_t c);
QString decode(const char *bytes, int length);

} // namespace Cp1252
