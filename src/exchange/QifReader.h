#pragma once

#include "exchange/ImportDates.h"
#include "exchange/ImportRow.h"

#include <QByteArray>

// Reads the bank, card and cash sections of a QIF file. Other sections (the
// category list, investments) are passed over with a warning, and so are
// split lines: a split transaction comes in whole, with its own category.
namespace QifReader {

struct Result
{
    ImportFile file;
    // Every date of the file reads both ways: ask the user and read again
    // with the order chosen.
    bool dateOrderUnknown = false;
};

Result read(const QByteArray &bytes, ImportDates::Order order = ImportDates::Order::Unknown);

} // namespace QifReader
