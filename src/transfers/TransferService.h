#pragma once

#include "core/EntryChecks.h"
#include "records/Currency.h"
#include "records/DataFiles.h"

#include <QString>
#include <QStringList>

#include <optional>

// Moving money between two accounts: two linked records, one in each
// register, and both balances, in one unit of work.
class TransferService
{
public:
    explicit TransferService(DataFiles files);

    struct Request
    {
        int fromBankNum = 0;
        int toBankNum = 0;
        QString typeText; // "Withdrawal", "Charge", or "Check #" + number
        QString amountText;
        QString date;        // cmbDate(2)
        QString date3;       // cmbDate(3), checked like the date
        QString fromCleared; // cmbDate(14): the from side's cleared date
        QString toCleared;   // cmbDate(13): the to side's cleared date (change mode)
        QString description;
        QString memo;
    };

    struct Result
    {
        bool ok = false;
        QString error; // for lblErrorTrans
        QString title; // set when the error is a message box
        int fromRecord = 0;
        int toRecord = 0;
    };

    // The types offered for a from-account kind.
    static QStringList typesFor(const QString &kindCode);
    // "Transfer $X from A to B" (the amount part only when there is one).
    static QString description(const QString &amountText, const QString &from, const QString &to);

    // Dates and entries, in that order.
    std::optional<Result> validate(const Request &request) const;
    // The "Account Balance exceeded" text, when the from-account (not a card)
    // would go below zero. In change mode `oldFromAmount` is given back first.
    std::optional<QString> balanceWarning(const Request &request,
                                          Currency oldFromAmount = {}) const;

    Result enter(const Request &request);
    // Rewrites both records of the transfer whose from record is given, and
    // moves both balances by the difference. The accounts stay as they were.
    Result change(int fromBankNum, int fromRecord, const Request &request);

    inline static const QString &WarningTitle = EntryChecks::TransferBalanceTitle;
    inline static const QString SameAccounts = QStringLiteral("Select two Different Accounts");
    inline static const QString Incomplete = QStringLiteral("Some entries are not complete");

private:
    Result refuse(const QString &error, const QString &title = {}) const;

    DataFiles m_files;
};
