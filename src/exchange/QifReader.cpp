#include "exchange/QifReader.h"

#include "exchange/TextDecoding.h"

#include <algorithm>

namespace QifReader {

namespace {

QString at(int line)
{
    return QStringLiteral("Line %1: ").arg(line);
}

bool isRegisterSection(const QString &header, QString *kind)
{
    const QString h = header.trimmed();
    for (const QString &k :
         {QStringLiteral("Bank"), QStringLiteral("CCard"), QStringLiteral("Cash")})
        if (h.compare(QStringLiteral("!Type:") + k, Qt::CaseInsensitive) == 0) {
            *kind = k;
            return true;
        }
    return false;
}

} // namespace

namespace {

Result readAll(const QByteArray &bytes, ImportDates::Order order)
{
    Result result;
    ImportFile &file = result.file;
    file.format = QStringLiteral("QIF");
    const TextDecoding::Lines text = TextDecoding::decode(bytes);
    if (!text.error.isEmpty()) {
        file.error = text.error;
        return result;
    }
    const QStringList &lines = text.lines;
    int first = 0;
    while (first < lines.size() && lines[first].trimmed().isEmpty())
        ++first;
    if (first == lines.size() || !lines[first].trimmed().startsWith(QLatin1Char('!'))) {
        file.error = at(first + 1)
                     + QStringLiteral("a QIF file starts with a \"!Type:\" line; "
                                      "this is not a QIF file.");
        return result;
    }

    // First pass: the dates, to settle their order.
    QStringList dates;
    for (const QString &l : lines)
        if (l.startsWith(QLatin1Char('D')))
            dates << l.mid(1);
    bool conflict = false;
    if (order == ImportDates::Order::Unknown) {
        order = ImportDates::detect(dates, &conflict);
        if (order == ImportDates::Order::Unknown && !conflict && !dates.isEmpty()) {
            result.dateOrderUnknown = true;
            return result;
        }
        // Dates that contradict each other: the first that cannot be a
        // month-first date is named as the bad one.
        if (conflict)
            order = ImportDates::Order::MonthFirst;
    }

    bool inRegister = false;
    bool inSplit = false;
    int splitLines = 0;
    ImportRow row;
    bool open = false; // a transaction has begun and not yet ended with "^"
    bool hasDate = false;
    bool hasAmount = false;
    for (int i = first; i < lines.size(); ++i) {
        const int lineNo = i + 1;
        const QString &l = lines[i];
        if (l.trimmed().isEmpty())
            continue;
        if (l.startsWith(QLatin1Char('!'))) {
            if (open) {
                file.error = at(lineNo)
                             + QStringLiteral("a new section starts before the "
                                              "transaction of line %1 ended with \"^\".")
                                   .arg(row.line);
                return result;
            }
            if (l.trimmed().startsWith(QStringLiteral("!Option"), Qt::CaseInsensitive)
                || l.trimmed().startsWith(QStringLiteral("!Clear"), Qt::CaseInsensitive))
                continue;
            QString kind;
            inRegister = isRegisterSection(l, &kind);
            if (inRegister && file.cardOrBank.isEmpty())
                file.cardOrBank = kind;
            if (!inRegister)
                file.warnings << at(lineNo)
                                     + QStringLiteral("the section \"%1\" is not a bank, card or "
                                                      "cash register and was left out.")
                                           .arg(l.trimmed());
            continue;
        }
        if (!inRegister)
            continue;
        const QChar code = l.at(0);
        const QString value = l.mid(1).trimmed();
        if (!open) {
            row = ImportRow();
            row.line = lineNo;
            open = true;
            hasDate = hasAmount = inSplit = false;
        }
        switch (code.unicode()) {
        case 'D': {
            const auto d = ImportDates::read(value, order);
            if (!d) {
                file.error = at(lineNo) + QStringLiteral("\"%1\" is not a date.").arg(value);
                return result;
            }
            row.date = *d;
            hasDate = true;
            break;
        }
        case 'T':
        case 'U': {
            const auto a = Currency::parse(value);
            if (!a || exceedsMaxAmount(*a)) {
                file.error = at(lineNo) + QStringLiteral("\"%1\" is not an amount.").arg(value);
                return result;
            }
            row.amount = *a;
            hasAmount = true;
            break;
        }
        case 'P':
            row.payee = value;
            break;
        case 'M':
            row.memo = value;
            break;
        case 'N':
            if (!value.isEmpty()
                && std::all_of(value.begin(), value.end(), [](QChar c) { return c.isDigit(); }))
                row.number = value;
            break;
        case 'L':
            if (value.startsWith(QLatin1Char('[')) && value.endsWith(QLatin1Char(']'))) {
                row.transfer = true;
                row.category = value.mid(1, value.size() - 2).trimmed();
                row.note = QStringLiteral("a transfer with \"%1\" in the file: entered as a "
                                          "plain entry")
                               .arg(row.category);
            } else {
                row.category = value.section(QLatin1Char(':'), 0, 0).trimmed();
            }
            break;
        case 'C':
            row.cleared = value == QLatin1String("X") || value == QLatin1String("*")
                          || value == QLatin1String("R");
            break;
        case 'S':
        case 'E':
        case '$':
            if (!inSplit)
                ++splitLines;
            inSplit = true;
            break;
        case '^':
            if (!hasDate || !hasAmount) {
                file.error
                    = at(row.line)
                      + QStringLiteral("the transaction has no %1.")
                            .arg(hasDate ? QStringLiteral("amount") : QStringLiteral("date"));
                return result;
            }
            if (inSplit && row.note.isEmpty())
                row.note = QStringLiteral("split in the file: entered whole");
            file.rows.push_back(row);
            open = false;
            break;
        default:
            break; // addresses and other fields a register has no place for
        }
    }
    if (open) {
        file.error = QStringLiteral("The file ends in the middle of the transaction that starts "
                                    "at line %1: it seems cut short.")
                         .arg(row.line);
        return result;
    }
    if (splitLines > 0)
        file.warnings << QStringLiteral("%1 split transaction(s): their split lines were ignored "
                                        "and each comes in whole.")
                             .arg(splitLines);
    if (file.rows.empty())
        file.error = QStringLiteral("The file holds no bank, card or cash transactions.");
    return result;
}

} // namespace

Result read(const QByteArray &bytes, ImportDates::Order order)
{
    Result r = readAll(bytes, order);
    if (!r.file.ok())
        r.file.rows.clear(); // nothing of a refused file is entered
    return r;
}

} // namespace QifReader
