#include "exchange/CsvReader.h"

#include "exchange/TextDecoding.h"

#include <algorithm>

namespace CsvReader {

namespace {

QString at(int line)
{
    return QStringLiteral("Line %1: ").arg(line);
}

std::optional<Currency> amountOf(QString text, bool decimalComma)
{
    text = text.trimmed();
    if (decimalComma) {
        text.remove(QLatin1Char('.'));
        text.remove(QLatin1Char(' '));
        text.replace(QLatin1Char(','), QLatin1Char('.'));
    }
    // A trailing minus ("12.50-") as some banks write it.
    if (text.endsWith(QLatin1Char('-')) && !text.startsWith(QLatin1Char('-')))
        text = QLatin1Char('-') + text.chopped(1);
    const auto a = Currency::parse(text);
    if (!a || exceedsMaxAmount(*a))
        return std::nullopt;
    return a;
}

int column(const QStringList &titles, std::initializer_list<const char *> words)
{
    for (const char *w : words)
        for (int i = 0; i < titles.size(); ++i)
            if (titles[i].trimmed().compare(QLatin1String(w), Qt::CaseInsensitive) == 0)
                return i;
    for (const char *w : words)
        for (int i = 0; i < titles.size(); ++i)
            if (titles[i].contains(QLatin1String(w), Qt::CaseInsensitive))
                return i;
    return -1;
}

QString field(const Record &r, int c)
{
    return c >= 0 && c < r.fields.size() ? r.fields[c].trimmed() : QString();
}

} // namespace

QString Mapping::toText() const
{
    const QChar order
        = dateOrder == ImportDates::Order::DayFirst ? QLatin1Char('D') : QLatin1Char('M');
    return QStringLiteral("%1|%2|%3|%4|%5,%6,%7,%8,%9,%10,%11")
        .arg(QString::number(delimiter.unicode()),
             header ? QStringLiteral("1") : QStringLiteral("0"),
             decimalComma ? QStringLiteral("1") : QStringLiteral("0"), QString(order),
             QString::number(date), QString::number(payee), QString::number(memo),
             QString::number(amount), QString::number(debit))
        .arg(credit)
        .arg(number);
}

Mapping Mapping::fromText(const QString &text, bool *ok)
{
    Mapping m;
    const QStringList parts = text.split(QLatin1Char('|'));
    const QStringList cols = parts.value(4).split(QLatin1Char(','));
    bool good = parts.size() == 5 && cols.size() == 7;
    if (good) {
        m.delimiter = QChar(parts[0].toInt());
        m.header = parts[1] == QLatin1String("1");
        m.decimalComma = parts[2] == QLatin1String("1");
        m.dateOrder = parts[3] == QLatin1String("D") ? ImportDates::Order::DayFirst
                                                     : ImportDates::Order::MonthFirst;
        int *targets[] = {&m.date, &m.payee, &m.memo, &m.amount, &m.debit, &m.credit, &m.number};
        for (int i = 0; i < 7; ++i)
            *targets[i] = std::max(-1, cols[i].toInt());
        good = m.usable();
    }
    if (ok)
        *ok = good;
    return good ? m : Mapping();
}

Split split(const QStringList &lines, QChar delimiter)
{
    Split out;
    Record current;
    QString fieldText;
    bool quoted = false;
    bool afterQuote = false; // a quoted field closed: only a delimiter may follow
    for (int i = 0; i < lines.size(); ++i) {
        const QString &l = lines[i];
        if (!quoted) {
            if (l.trimmed().isEmpty())
                continue;
            current = Record();
            current.line = i + 1;
            fieldText.clear();
            afterQuote = false;
        } else {
            fieldText += QLatin1Char('\n');
        }
        for (qsizetype k = 0; k < l.size(); ++k) {
            const QChar c = l[k];
            if (quoted) {
                if (c == QLatin1Char('"')) {
                    if (k + 1 < l.size() && l[k + 1] == QLatin1Char('"')) {
                        fieldText += c;
                        ++k;
                    } else {
                        quoted = false;
                        afterQuote = true;
                    }
                } else {
                    fieldText += c;
                }
            } else if (c == delimiter) {
                current.fields << fieldText;
                fieldText.clear();
                afterQuote = false;
            } else if (c == QLatin1Char('"') && fieldText.trimmed().isEmpty() && !afterQuote) {
                quoted = true;
                fieldText.clear();
            } else if (afterQuote && !c.isSpace()) {
                out.error
                    = at(i + 1) + QStringLiteral("text follows the closing quote of a field.");
                return out;
            } else if (c == QLatin1Char('"')) {
                out.error = at(i + 1)
                            + QStringLiteral("a quote in the middle of a field that "
                                             "does not start with one.");
                return out;
            } else if (!afterQuote) {
                fieldText += c;
            }
        }
        if (!quoted) {
            current.fields << fieldText;
            out.records << current;
        }
    }
    if (quoted)
        out.error = QStringLiteral("The quoted field that starts at line %1 never ends: the file "
                                   "seems cut short.")
                        .arg(current.line);
    return out;
}

Mapping guess(const QStringList &lines)
{
    Mapping m;
    const QString first = lines.value(0);
    int best = -1;
    for (const QChar d : {QLatin1Char(','), QLatin1Char(';'), QLatin1Char('\t')}) {
        const int n = int(first.count(d));
        if (n > best) {
            best = n;
            m.delimiter = d;
        }
    }
    const Split s = split(lines.mid(0, 50), m.delimiter);
    if (s.records.isEmpty())
        return m;
    const QStringList titles = s.records.first().fields;
    m.header = std::none_of(titles.begin(), titles.end(), [](const QString &t) {
        return ImportDates::read(t, ImportDates::Order::MonthFirst)
               || ImportDates::read(t, ImportDates::Order::DayFirst);
    });
    if (m.header) {
        m.date = column(titles, {"date", "posted", "datum"});
        m.amount = column(titles, {"amount", "betrag", "value"});
        m.debit = m.amount >= 0 ? -1 : column(titles, {"debit", "withdrawal", "money out"});
        m.credit = m.amount >= 0 ? -1 : column(titles, {"credit", "deposit", "money in"});
        m.payee = column(titles, {"payee", "description", "name", "merchant"});
        m.memo = column(titles, {"memo", "notes", "note", "reference"});
        m.number = column(titles, {"check number", "check", "number", "no."});
        if (m.number == m.date || m.number == m.amount || m.number == m.payee)
            m.number = -1;
    } else {
        // No heading: the first column of dates, the last of amounts, the
        // widest text for the payee.
        const QStringList &f = titles;
        int widest = 0;
        for (int i = 0; i < f.size(); ++i) {
            if (m.date < 0 && ImportDates::read(f[i], ImportDates::Order::MonthFirst))
                m.date = i;
            else if (amountOf(f[i], false))
                m.amount = i;
            else if (f[i].size() > widest) {
                widest = int(f[i].size());
                m.payee = i;
            }
        }
    }
    // The dates of the file settle their order when they can.
    QStringList dates;
    for (qsizetype r = m.header ? 1 : 0; r < s.records.size(); ++r)
        dates << field(s.records[r], m.date);
    if (ImportDates::detect(dates) == ImportDates::Order::DayFirst)
        m.dateOrder = ImportDates::Order::DayFirst;
    // "1.234,56" and "12,50" are amounts with a decimal comma.
    if (m.delimiter != QLatin1Char(',') && m.amount >= 0 && s.records.size() > (m.header ? 1 : 0)) {
        const QString sample = field(s.records[m.header ? 1 : 0], m.amount);
        const qsizetype comma = sample.lastIndexOf(QLatin1Char(','));
        m.decimalComma = comma >= 0 && comma > sample.lastIndexOf(QLatin1Char('.'));
    }
    return m;
}

QStringList columnTitles(const QStringList &lines, const Mapping &mapping)
{
    const Split s = split(lines.mid(0, 20), mapping.delimiter);
    QStringList titles;
    const QStringList first = s.records.isEmpty() ? QStringList() : s.records.first().fields;
    for (int i = 0; i < first.size(); ++i)
        titles << (mapping.header ? first[i].trimmed() : QStringLiteral("Column %1").arg(i + 1));
    return titles;
}

namespace {

ImportFile readAll(const QStringList &lines, const Mapping &mapping)
{
    ImportFile file;
    file.format = QStringLiteral("CSV");
    if (!mapping.usable()) {
        file.error = QStringLiteral("Choose the columns of the date and of the amount (or of "
                                    "money out and money in).");
        return file;
    }
    const Split s = split(lines, mapping.delimiter);
    if (!s.error.isEmpty()) {
        file.error = s.error;
        return file;
    }
    for (qsizetype r = mapping.header ? 1 : 0; r < s.records.size(); ++r) {
        const Record &rec = s.records[r];
        if (rec.fields.size() == 1 && rec.fields[0].trimmed().isEmpty())
            continue;
        ImportRow row;
        row.line = rec.line;
        const QString dateText = field(rec, mapping.date);
        const auto d = ImportDates::read(dateText, mapping.dateOrder);
        if (!d) {
            file.error = at(rec.line) + QStringLiteral("\"%1\" is not a date.").arg(dateText);
            return file;
        }
        row.date = *d;
        auto amountIn = [&](int c, Currency *out) {
            const QString t = field(rec, c);
            if (c < 0 || t.isEmpty())
                return true;
            const auto a = amountOf(t, mapping.decimalComma);
            if (!a) {
                file.error = at(rec.line) + QStringLiteral("\"%1\" is not an amount.").arg(t);
                return false;
            }
            *out = *a;
            return true;
        };
        Currency amount, debit, credit;
        if (!amountIn(mapping.amount, &amount) || !amountIn(mapping.debit, &debit)
            || !amountIn(mapping.credit, &credit))
            return file;
        row.amount = mapping.amount >= 0 ? amount : credit.abs() - debit.abs();
        row.payee = field(rec, mapping.payee);
        row.memo = field(rec, mapping.memo);
        const QString number = field(rec, mapping.number);
        if (!number.isEmpty()
            && std::all_of(number.begin(), number.end(), [](QChar c) { return c.isDigit(); }))
            row.number = number;
        file.rows.push_back(row);
    }
    if (file.rows.empty())
        file.error = QStringLiteral("The file holds no transactions.");
    return file;
}

} // namespace

ImportFile read(const QStringList &lines, const Mapping &mapping)
{
    ImportFile file = readAll(lines, mapping);
    if (!file.ok())
        file.rows.clear(); // nothing of a refused file is entered
    return file;
}

ImportFile read(const QByteArray &bytes, const Mapping &mapping)
{
    const TextDecoding::Lines text = TextDecoding::decode(bytes);
    if (!text.error.isEmpty()) {
        ImportFile file;
        file.format = QStringLiteral("CSV");
        file.error = text.error;
        return file;
    }
    return read(text.lines, mapping);
}

} // namespace CsvReader
