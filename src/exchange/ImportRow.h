#pragma once

#include "records/Currency.h"

#include <QDate>
#include <QString>
#include <QStringList>

#include <vector>

// One transaction as a bank download gives it, before it is matched against
// the register: the same shape whichever format it came from.
struct ImportRow
{
    QDate date;
    Currency amount; // signed: money in is positive
    QString payee;
    QString memo;
    QString number;        // a check number, digits only
    QString category;      // a category named by the file (QIF "L")
    bool transfer = false; // the file names another account as the category
    bool cleared = false;  // the bank marks it cleared
    QString fitId;         // the bank's id of the transaction (OFX)
    QString bankType;      // the bank's kind of transaction (OFX TRNTYPE), upper case
    QString note;          // what the reader wants the user to know about this row
    int line = 0;          // where it starts in the file (1-based), 0 when unknown
};

// A whole file as read: its rows, or the reason it cannot be read.
struct ImportFile
{
    QString format;     // "QIF", "OFX", "CSV"
    QString accountId;  // the bank's account id (OFX), empty when the file has none
    QString cardOrBank; // QIF "!Type:" as written: "Bank", "CCard", "Cash"
    std::vector<ImportRow> rows;
    QStringList warnings; // things left out that the user should hear of
    QString error;        // set when nothing can be imported from the file
    bool ok() const { return error.isEmpty(); }
};
