#pragma once

#include "records/BankAcctRecord.h"
#include "records/DataFiles.h"

#include <QDate>
#include <QString>

// Adding and renaming accounts. Each operation checks everything first, then
// writes all of its records in one unit of work.
class AccountService
{
public:
    struct NewAccount
    {
        int kind = 0; // 0 "CH", 1 "SV", 2 "MM", 3 "CC"
        QString name;
        bool lastStatement = true; // balance type: last statement or initial deposit
        QString startBalance;      // as typed, without sign
        bool debit = false;        // sign of the opening entry: debit stores it negative
        QDate date;                // date of the opening entry
    };

    struct Result
    {
        bool ok = false;
        QString error;   // for the panel's error label
        int bankNum = 0; // the account added or renamed
    };

    explicit AccountService(DataFiles files);

    Result add(const NewAccount &account);
    Result rename(int bankNum, const QString &newName);

    // Whether a live account of either data set, or an archived account, or a
    // register file left on disk already bears the name.
    bool nameInUse(const QString &name, int exceptBankNum = 0) const;

    inline static const QString SelectToRename = QStringLiteral("Select an Account to rename ");

private:
    Result refuse(const QString &error) const { return {false, error, 0}; }
    std::optional<QString> checkName(const QString &name, int exceptBankNum) const;

    DataFiles m_files;
};
