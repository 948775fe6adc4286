#pragma once

class Interaction;
class QTableView;
class RegisterModel;

// "Copy Selected Transactions to Clipboard" for a grid showing a register:
// asks first, then copies the selected rows as tab-separated text; beeps when
// no transaction is selected.
void copySelectedTransactions(Interaction &interaction, const QTableView &grid,
                              const RegisterModel &model);
