#pragma once

#include "exchange/ExportSet.h"
#include "records/BankAcctRecord.h"
#include "records/TransRecord.h"

#include <vector>

// A checking account and a card with one entry of every kind: opening
// balances, a deposit, a check, a purchase, both sides of transfers with a
// savings account, both sides of a card payment, a void and a card charge.
struct ExportFixture
{
    struct Entry
    {
        const char *type;
        int typeNum;
        const char *date, *payee, *category, *memo;
        qint64 cents;
        const char *cls;
        const char *cleared; // date cleared, "" for an open entry
        const char *from = "", *to = "";
        int fromRecord = 0;
    };

    static TransRecord record(const Entry &e)
    {
        TransRecord r;
        r.Type = QString::fromUtf8(e.type);
        r.TypeNum = std::int16_t(e.typeNum);
        r.Date = QString::fromUtf8(e.date);
        r.Description = QString::fromUtf8(e.payee);
        r.BudName = QString::fromUtf8(e.category);
        r.Memo = QString::fromUtf8(e.memo);
        r.Amount = Currency::fromCents(e.cents);
        r.TransClass = QString::fromUtf8(e.cls);
        r.DateClear = QString::fromUtf8(e.cleared);
        r.Status = *e.cleared ? QStringLiteral("CL") : QStringLiteral("OP");
        r.PaidFromBankName = QString::fromUtf8(e.from);
        r.PaidToBankName = QString::fromUtf8(e.to);
        r.PaidFromBankTransRecNum = std::int16_t(e.fromRecord);
        return r;
    }

    static BankAcctRecord account(int num, const char *name, const char *type, qint64 cents)
    {
        BankAcctRecord a;
        a.BankNum = std::int16_t(num);
        a.BankName = QString::fromUtf8(name);
        a.Type = QString::fromUtf8(type);
        a.Balance = Currency::fromCents(cents);
        return a;
    }

    std::vector<BankAcctRecord> accounts
        = {account(1, "Main Checking", "CH", 292240), account(2, "Rainy Day", "SV", 15000),
           account(3, "Visa; Gold", "CC", 15000)};

    std::vector<TransRecord> checking = build({
        {"Starting Balance", 15, "01/01/2026", "New Account", "na", "Initial deposit", 100000,
         "Norm Trans", "01/31/2026"},
        {"Deposit", 1, "01/02/2026", "Acme, Inc.", "Salary", "Pay \"January\"", 250000,
         "Norm Trans", ""},
        {" 1001", 6, "01/03/2026", "City  Water", "Utilities", "", -4550, "Norm Trans",
         "01/31/2026"},
        {"Debit Card", 8, "01/04/2026", "Café Grocer", "Food", "", -8210, "Norm Trans", ""},
        {"Withdrawal", 7, "01/05/2026", "To savings", "", "", -20000, "Transfer From", "",
         "Main Checking", "Rainy Day", 5},
        {"Deposit", 1, "01/06/2026", "From savings", "", "", 5000, "Transfer To", "", "Rainy Day",
         "Main Checking", 2},
        {"Payment", 0, "01/07/2026", "Visa payment", "Visa; Gold", "", -30000, "PayCC BankLedger",
         "", "Main Checking", "Visa; Gold", 7},
        {"Void", 0, "01/08/2026", "Void", "na", "", 0, "Norm Trans", ""},
    });

    std::vector<TransRecord> card = build({
        {"Starting Balance", 15, "01/01/2026", "New Account", "na", "", -12000, "CC Trans", ""},
        {"Charge", 14, "01/09/2026", "Cafe", "Dining", "", -3000, "CC Trans", ""},
        {"Payment", 5, "01/07/2026", "Visa payment", "na", "", 30000, "PayCC CCLedger", "",
         "Main Checking", "Visa; Gold", 7},
    });

    static std::vector<TransRecord> build(const std::vector<Entry> &entries)
    {
        std::vector<TransRecord> out;
        for (const Entry &e : entries)
            out.push_back(record(e));
        return out;
    }

    ExportSet checkingSet() const { return ExportSet::ofRegister(accounts[0], checking, accounts); }
    ExportSet cardSet() const { return ExportSet::ofRegister(accounts[2], card, accounts); }
    // Both registers, as a search of every account finds them.
    ExportSet bothSet() const
    {
        ExportSet both = checkingSet();
        for (std::size_t i = 0; i < card.size(); ++i)
            both.addRow("Visa; Gold", int(i) + 1, card[i]);
        return both;
    }
};
