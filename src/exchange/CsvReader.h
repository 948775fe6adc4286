#pragma once

#include "exchange/ImportDates.h"
#include "exchange/ImportRow.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

// Bank downloads in comma-separated form. Fields are split as RFC 4180 says
// (quotes around a field, "" for a quote inside one, line breaks inside
// quotes); which column means what is the user's mapping, guessed from the
// heading line and remembered per account.
namespace CsvReader {

struct Mapping
{
    QChar delimiter = QLatin1Char(',');
    bool header = true;
    bool decimalComma = false;
    ImportDates::Order dateOrder = ImportDates::Order::MonthFirst;
    // Column numbers from 0; -1 when the file has no such column.
    int date = -1;
    int payee = -1;
    int memo = -1;
    int amount = -1; // signed amounts in one column ...
    int debit = -1;  // ... or money out and money in in two
    int credit = -1;
    int number = -1; // check numbers

    bool usable() const { return date >= 0 && (amount >= 0 || debit >= 0 || credit >= 0); }
    // One line for the user settings, and back; nothing read from a bad line.
    QString toText() const;
    static Mapping fromText(const QString &text, bool *ok = nullptr);
};

struct Record
{
    QStringList fields;
    int line = 0; // where it starts
};

struct Split
{
    QList<Record> records;
    QString error;
};

// The records of the text (already decoded) with this delimiter.
Split split(const QStringList &lines, QChar delimiter);

// The mapping a file suggests: its delimiter, whether its first line is a
// heading, and columns named by the heading (or found by their contents).
Mapping guess(const QStringList &lines);

// The headings (or "Column N") of the file's first record, for the mapping step.
QStringList columnTitles(const QStringList &lines, const Mapping &mapping);

ImportFile read(const QStringList &lines, const Mapping &mapping);
// Decoding first: the encoding is found from the bytes.
ImportFile read(const QByteArray &bytes, const Mapping &mapping);

} // namespace CsvReader
