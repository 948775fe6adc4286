#pragma once

#include "records/Currency.h"
#include "records/DataFiles.h"
#include "records/TransRecord.h"

#include <QDate>
#include <QString>

#include <optional>

// A payment from a bank account to a credit card, kept in both ledgers: the
// bank side in the paying register, a "Payment" in the card's register. Both
// balances and the card's budget category move in the same unit of work.
class CardPayments
{
public:
    explicit CardPayments(DataFiles files);

    struct Result
    {
        bool ok = false;
        QString error;
        QString title; // set when the error is a message box
        int bankRecord = 0;
        int cardRecord = 0;
    };

    // `bankSide` is the entry as the register fills it; the card is an account number.
    Result add(int bankNum, TransRecord bankSide, int cardBankNum);
    // Rewrites both sides of the payment whose bank side is record n of the
    // bank register, giving back the old amounts before applying the new.
    Result change(int bankNum, int bankRecord, TransRecord bankSide, int cardBankNum);
    // The same, started from the card side: amount (positive), date,
    // description and memo as the card's register shows them.
    Result changeFromCard(int cardBankNum, int cardRecord, Currency amount, const QDate &date,
                          const QString &description, const QString &memo);
    Result changeFromCard(int cardBankNum, int cardRecord, const QString &amountText,
                          const QString &date, const QString &description, const QString &memo);

private:
    Result changeFromCardSide(int cardBankNum, int cardRecord, std::optional<Currency> amount,
                              std::optional<QDate> date, const QString &description,
                              const QString &memo);
    Result refuse(const QString &error, const QString &title = {}) const;

    DataFiles m_files;
};
