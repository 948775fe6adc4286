#pragma once

#include "exchange/ExportSet.h"

#include <QByteArray>

// Transactions in the interchange format other finance programs read: a
// "!Type:Bank" or "!Type:CCard" list per account (an "!Account" block names
// each when there are several), dates as mm/dd/yyyy, transfers and card
// payments with the other account as category in brackets, cleared as "CX".
// Void entries carry no money and are left out. UTF-8, CRLF line ends.
namespace QifExport {

struct Output
{
    QByteArray bytes;
    int written = 0;
    int skipped = 0; // entries whose date could not be read
};

Output write(const ExportSet &set);

} // namespace QifExport
