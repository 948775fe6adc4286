#pragma once

#include "records/BankAcctRecord.h"
#include "records/Currency.h"
#include "records/TransRecord.h"

#include <QDate>
#include <QHash>
#include <QSet>
#include <QString>

#include <optional>
#include <vector>

// The transactions an export writes, each with the account it belongs to, and
// what every export format reads the same way from a record: its date, its
// category, the account at the other end of a transfer or card payment.
class ExportSet
{
public:
    struct Row
    {
        QString account; // the name of the account whose register holds it
        int recordNumber = 0;
        TransRecord record;
    };

    // The whole register of one account; `accounts` tells which of the other
    // accounts named by transfers are credit cards.
    static ExportSet ofRegister(const BankAcctRecord &account,
                                const std::vector<TransRecord> &records,
                                const std::vector<BankAcctRecord> &accounts);

    void addAccount(const BankAcctRecord &account);
    void addRow(const QString &account, int recordNumber, const TransRecord &record);

    const std::vector<Row> &rows() const { return m_rows; }
    // The accounts of the rows, in the order they first appear.
    const QStringList &accountsShown() const { return m_shown; }
    bool isCard(const QString &account) const;

    static bool isVoid(const TransRecord &r);
    static bool isStartingBalance(const TransRecord &r);
    static QDate date(const TransRecord &r);
    static QDate clearedDate(const TransRecord &r);
    static bool isCleared(const TransRecord &r);
    // The category's name, or empty for an entry without one.
    static QString category(const TransRecord &r);
    // The type as a word: "Check" for a check, else the stored type.
    static QString typeText(const TransRecord &r);
    // The number of a check; nothing for any other entry.
    static std::optional<qint64> checkNumber(const TransRecord &r);
    // The account at the other end of a transfer or a card payment, seen from
    // the register that holds `r`; empty for any other entry.
    static QString otherAccount(const TransRecord &r);
    // A transfer or card payment whose paying side is in this set too, so that
    // a format writing each movement once leaves this side out.
    bool isSecondSide(const Row &row) const;
    // An amount as a plain number with a dot and at least two decimals:
    // "1234.50", "-0.0125".
    static QString amountText(Currency amount);

private:
    std::vector<Row> m_rows;
    QStringList m_shown;
    QHash<QString, bool> m_cards; // account name -> is a credit card
    QSet<QString> m_keys;         // account and record number of every row
};
