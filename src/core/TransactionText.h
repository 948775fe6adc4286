#pragma once

#include "records/Currency.h"
#include "records/TransRecord.h"

#include <QDate>
#include <QString>

// How a transaction is shown wherever transactions are listed (the register
// grid, its clipboard copy, and every later list of transactions): one
// function per record and field, so each list words an entry the same way.
namespace TransactionText {

enum class Field { Status, Type, Date, Payee, Category, Memo, Deposit, Withdrawal, DateCleared };

inline const QString ClearedMark = QStringLiteral("\u2714");
inline const QString OpenMark = QStringLiteral("\u25CB");

// The text of one field: the status as a mark, dates as "mm/dd/yy" (a stored
// text that is no date is shown as it is), amounts as "$1,234.56" on the
// deposit or the withdrawal side by their sign, no category for "none"/"na".
QString field(const TransRecord &record, Field which);

// A money figure as listed, such as a running balance: "$1,234.56", "($5.00)".
QString money(Currency amount);

// A stored date field as a date; invalid when it holds none.
QDate date(const FixedText<15> &stored);

} // namespace TransactionText
