#pragma once

#include "records/BankAcctRecord.h"
#include "records/DataFiles.h"
#include "records/TransRecord.h"

#include <QFile>
#include <QTemporaryDir>

#include <vector>

// A data folder with accounts and their registers, written record by record.
struct ReportsFixture
{
    QTemporaryDir dir;
    DataFiles files{dir.path(), false};
    std::vector<BankAcctRecord> accounts;

    BankAcctRecord &addAccount(const QString &name, const QString &type, qint64 balanceCents)
    {
        BankAcctRecord a;
        a.BankNum = std::int16_t(accounts.size() + 1);
        a.BankName = name;
        a.Type = type;
        a.Balance = Currency::fromCents(balanceCents);
        accounts.push_back(a);
        return accounts.back();
    }

    static TransRecord record(const QString &date, const QString &type, const QString &payee,
                              qint64 cents, const QString &status = QStringLiteral("OP"))
    {
        TransRecord r;
        r.Date = date;
        r.Type = type;
        r.Description = payee;
        r.Amount = Currency::fromCents(cents);
        r.Status = status;
        r.TransClass = QStringLiteral("Norm Trans");
        r.BudName = QStringLiteral("none");
        return r;
    }

    void writeRegister(const QString &account, const std::vector<TransRecord> &records)
    {
        QFile f(files.registerFile(account));
        f.open(QIODevice::WriteOnly);
        QByteArray bytes(qsizetype(records.size()) * TransRecord::Size, '\0');
        for (std::size_t i = 0; i < records.size(); ++i) {
            TransRecord r = records[i];
            r.Tranno = std::int16_t(i + 1);
            r.encode(bytes.data() + qsizetype(i) * TransRecord::Size);
        }
        f.write(bytes);
    }
};
