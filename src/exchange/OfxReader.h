#pragma once

#include "exchange/ImportRow.h"

#include <QString>

// Reads an OFX 1.x (SGML) or 2.x (XML) statement, QFX included. The file is
// checked here first, element by element, so that a bad one is refused with
// the line and element at fault; libofx then reads it.
namespace OfxReader {

ImportFile read(const QString &path);

} // namespace OfxReader
