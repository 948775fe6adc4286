#pragma once

#include <QString>

class BankAcctRecord;
class DataFiles;
class QComboBox;

// The entry row's payee box and the account's saved payees (item data: the
// payee's record number). Each function returns the refusal, or "" when done.
namespace PayeeCombo {

// Lists the account's payees, keeping what is typed in the box.
void fill(QComboBox *box, const DataFiles &files, int bankNum);
// Saves the typed payee for the account and chooses it.
QString addTyped(QComboBox *box, const DataFiles &files, const BankAcctRecord &account);
// Removes the chosen saved payee from the file and the box.
QString removeChosen(QComboBox *box, const DataFiles &files);

} // namespace PayeeCombo
