#include "exchange/QifExport.h"

namespace QifExport {

namespace {

// A value on one line: line breaks inside it become blanks.
QString oneLine(QString text)
{
    text.replace(QLatin1Char('\r'), QLatin1Char(' '));
    text.replace(QLatin1Char('\n'), QLatin1Char(' '));
    return text.trimmed();
}

void field(QString &out, QChar code, const QString &value)
{
    out += code + oneLine(value) + QStringLiteral("\r\n");
}

QString categoryOf(const ExportSet::Row &row)
{
    // An opening balance names its own account, as these files mark one.
    if (ExportSet::isStartingBalance(row.record))
        return QLatin1Char('[') + row.account + QLatin1Char(']');
    const QString other = ExportSet::otherAccount(row.record);
    if (!other.isEmpty())
        return QLatin1Char('[') + other + QLatin1Char(']');
    return ExportSet::category(row.record);
}

} // namespace

Output write(const ExportSet &set)
{
    Output result;
    QString out;
    const bool several = set.accountsShown().size() > 1;
    for (const QString &account : set.accountsShown()) {
        const QString type = set.isCard(account) ? QStringLiteral("CCard") : QStringLiteral("Bank");
        if (several)
            out += QStringLiteral("!Account\r\nN%1\r\nT%2\r\n^\r\n").arg(oneLine(account), type);
        out += QStringLiteral("!Type:") + type + QStringLiteral("\r\n");
        for (const ExportSet::Row &row : set.rows()) {
            if (row.account != account || ExportSet::isVoid(row.record))
                continue;
            const TransRecord &r = row.record;
            const QDate date = ExportSet::date(r);
            if (!date.isValid()) {
                ++result.skipped;
                continue;
            }
            field(out, u'D', date.toString(QStringLiteral("MM/dd/yyyy")));
            field(out, u'T', ExportSet::amountText(r.Amount));
            if (ExportSet::isCleared(r))
                field(out, u'C', QStringLiteral("X"));
            if (const auto number = ExportSet::checkNumber(r))
                field(out, u'N', QString::number(*number));
            field(out, u'P', r.Description.text());
            if (!r.Memo.isBlank())
                field(out, u'M', r.Memo.text());
            const QString category = categoryOf(row);
            if (!category.isEmpty())
                field(out, u'L', category);
            out += QStringLiteral("^\r\n");
            ++result.written;
        }
    }
    result.bytes = out.toUtf8();
    return result;
}

} // namespace QifExport
