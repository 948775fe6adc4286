#include "exchange/CsvExport.h"

namespace CsvExport {

namespace {

QString dateText(const FixedText<15> &stored, const QDate &date, DateForm form)
{
    if (!date.isValid())
        return stored.text().trimmed();
    return date.toString(form == DateForm::Iso ? QStringLiteral("yyyy-MM-dd")
                                               : QStringLiteral("MM/dd/yyyy"));
}

} // namespace

QString quoted(const QString &field)
{
    static const QString special = QStringLiteral(",\"\r\n");
    bool needs = false;
    for (QChar c : field)
        needs = needs || special.contains(c);
    if (!needs)
        return field;
    QString inner = field;
    inner.replace(QLatin1Char('"'), QStringLiteral("\"\""));
    return QLatin1Char('"') + inner + QLatin1Char('"');
}

QByteArray write(const ExportSet &set, DateForm dates)
{
    const QString crlf = QStringLiteral("\r\n");
    QString out
        = QStringLiteral("Account,Date,Type,Number,Payee,Category,Memo,Amount,Cleared,Date Cleared")
          + crlf;
    for (const ExportSet::Row &row : set.rows()) {
        const TransRecord &r = row.record;
        const auto number = ExportSet::checkNumber(r);
        const QString other = ExportSet::otherAccount(r);
        const bool cleared = ExportSet::isCleared(r);
        const QStringList fields = {
            row.account,
            dateText(r.Date, ExportSet::date(r), dates),
            ExportSet::typeText(r),
            number ? QString::number(*number) : QString(),
            r.Description.text().trimmed(),
            other.isEmpty() ? ExportSet::category(r) : QLatin1Char('[') + other + QLatin1Char(']'),
            r.Memo.text().trimmed(),
            ExportSet::amountText(r.Amount),
            cleared ? QStringLiteral("yes") : QStringLiteral("no"),
            cleared ? dateText(r.DateClear, ExportSet::clearedDate(r), dates) : QString(),
        };
        QStringList line;
        for (const QString &f : fields)
            line << quoted(f);
        out += line.join(QLatin1Char(',')) + crlf;
    }
    return out.toUtf8();
}

} // namespace CsvExport
