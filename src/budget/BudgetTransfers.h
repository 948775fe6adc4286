#pragma once

#include "records/BudgetTransRecord.h"
#include "records/DataFiles.h"

class UnitOfWork;

#include <QList>
#include <QString>
#include <optional>

#include <vector>

// Moving money into, out of and between budget categories, and the list of
// transfers made. Disposable cash is category number 0.
class BudgetTransfers
{
public:
    explicit BudgetTransfers(DataFiles files);

    // The periodic transfer is recorded with these codes instead of categories.
    static constexpr int PeriodicCode = 32000;
    static constexpr int RemovalCode = 31000;
    inline static const QString DisposableEntry = QStringLiteral("-- Disposable Cash --");

    struct Entry
    {
        int recordNumber = 0;
        BudgetTransRecord record;
    };
    // Every live transfer, in record order.
    std::vector<Entry> list() const;

    struct Request
    {
        QString date;
        QString description;
        QString memo;
        int from = -1; // category number, 0 for disposable cash, -1 for none chosen
        int to = -1;
        QString amountText;
    };

    struct Result
    {
        bool ok = false;
        QString error;   // for lblTransbudError
        QString title;   // set when the error is a message box
        QString warning; // set when the transfer needs confirming (frmFund)
        int recordNumber = 0;
    };

    // The periodic transfer: every category receives its monthly amount from
    // disposable cash. `remove` takes it back again (never below zero).
    Result periodic(const Request &request, bool remove);
    // A single transfer. When the source holds less than the amount and the
    // user has not confirmed yet, nothing is written and `warning` is set.
    Result single(const Request &request, bool confirmed);
    // Takes back the transfer in record n and applies the new one, without
    // floors or warnings, and rewrites the record in place.
    Result change(int recordNumber, const Request &request);
    // Drops transfers from the list (no money moves back). The records after
    // them move down; the freed records at the end are marked "Deleted".
    Result remove(QList<int> recordNumbers);

    static QString periodicDescription(bool remove, Currency total, const QString &period,
                                       const QString &date);

    inline static const QString CompleteAll = QStringLiteral("Complete all Entries");
    inline static const QString SetUpBudget = QStringLiteral(" Please set up a monthly budget");
    inline static const QString DifferentCategories
        = QStringLiteral("Select different budget categories");
    inline static const QString DescriptionReserved
        = QStringLiteral("\"Deleted\" cannot be the description of a transfer");
    inline static const QString ExceededTitle = QStringLiteral("Budget Balance exceeded");

private:
    Result refuse(const QString &error, const QString &title = {}) const;
    std::optional<Result> commonChecks(const Request &request) const;
    std::optional<Result> amountChecks(const QString &text) const;
    int freeSlot() const;
    // Writes the new transfer record (into the first free record) and commits.
    Result record(UnitOfWork &unit, const Request &request, int from, int to,
                  Currency amount) const;

    DataFiles m_files;
};
