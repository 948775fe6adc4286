#include "exchange/JournalExport.h"

#include <QHash>
#include <algorithm>

namespace JournalExport {

namespace {

const QString OpeningBalances = QStringLiteral("equity:opening balances");

// Text on one line with single blanks, as a description or comment.
QString simplified(const QString &text)
{
    QString s = text.simplified();
    s.replace(QLatin1Char(';'), QLatin1Char(','));
    return s;
}

QString money(Currency amount)
{
    return QStringLiteral("$") + ExportSet::amountText(amount);
}

// Income categories take in more than they pay out across the export.
QHash<QString, Currency> netByCategory(const ExportSet &set)
{
    QHash<QString, Currency> net;
    for (const ExportSet::Row &row : set.rows()) {
        const QString category = ExportSet::category(row.record);
        if (!category.isEmpty() && !ExportSet::isStartingBalance(row.record))
            net[category] += row.record.Amount;
    }
    return net;
}

QString counterpart(const ExportSet &set, const ExportSet::Row &row,
                    const QHash<QString, Currency> &net)
{
    const TransRecord &r = row.record;
    if (ExportSet::isStartingBalance(r))
        return OpeningBalances;
    const QString other = ExportSet::otherAccount(r);
    if (!other.isEmpty())
        return accountName(set, other);
    const QString category = ExportSet::category(r);
    if (category.isEmpty())
        return r.Amount.isNegative() ? QStringLiteral("expenses:uncategorized")
                                     : QStringLiteral("income:uncategorized");
    const bool income = net.value(category).raw() > 0;
    return (income ? QStringLiteral("income:") : QStringLiteral("expenses:")) + safeName(category);
}

} // namespace

QString safeName(const QString &name)
{
    QString s = name.simplified();
    s.replace(QLatin1Char(':'), QLatin1Char('-'));
    s.replace(QLatin1Char(';'), QLatin1Char(','));
    return s.isEmpty() ? QStringLiteral("unnamed") : s;
}

QString accountName(const ExportSet &set, const QString &account)
{
    return (set.isCard(account) ? QStringLiteral("liabilities:card:")
                                : QStringLiteral("assets:bank:"))
           + safeName(account);
}

Output write(const ExportSet &set)
{
    Output result;
    const QHash<QString, Currency> net = netByCategory(set);
    QString out = QStringLiteral("; %1, exported by Quillmere\n")
                      .arg(simplified(set.accountsShown().join(QStringLiteral(", "))));
    for (const ExportSet::Row &row : set.rows()) {
        const TransRecord &r = row.record;
        if (set.isSecondSide(row))
            ++result.paired;
        if (ExportSet::isVoid(r) || set.isSecondSide(row))
            continue;
        const QDate date = ExportSet::date(r);
        if (!date.isValid()) {
            ++result.skipped;
            continue;
        }
        QString head = date.toString(QStringLiteral("yyyy-MM-dd"));
        if (ExportSet::isCleared(r))
            head += QStringLiteral(" *");
        if (const auto number = ExportSet::checkNumber(r))
            head += QStringLiteral(" (%1)").arg(*number);
        QString payee = simplified(r.Description.text());
        // A description that opens with "(" would be read as a code.
        if (payee.startsWith(QLatin1Char('(')))
            payee[0] = QLatin1Char('[');
        if (!payee.isEmpty())
            head += QLatin1Char(' ') + payee;
        const QString memo = simplified(r.Memo.text());
        if (!memo.isEmpty())
            head += QStringLiteral("  ; ") + memo;
        const QString own = accountName(set, row.account);
        const QString other = counterpart(set, row, net);
        const int width = int(std::max(own.size(), other.size())) + 2;
        out += QLatin1Char('\n') + head + QLatin1Char('\n');
        out += QStringLiteral("    ") + own.leftJustified(width) + money(r.Amount)
               + QLatin1Char('\n');
        out += QStringLiteral("    ") + other.leftJustified(width) + money(-r.Amount)
               + QLatin1Char('\n');
        ++result.written;
    }
    result.bytes = out.toUtf8();
    return result;
}

} // namespace JournalExport
