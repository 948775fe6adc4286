#include "exchange/OfxReader.h"

#include "exchange/TextDecoding.h"

#include <QDateTime>
#include <QFile>
#include <QHash>
#include <QRegularExpression>

#include <libofx/libofx.h>

#include <cctype>
#include <cmath>
#include <fcntl.h>
#include <unistd.h>

namespace OfxReader {

namespace {

// What the file itself says about one transaction, read as text: its date
// and amount exactly as written (libofx hands amounts over as floating point,
// which money never passes through here).
struct Written
{
    QString date;
    QString amount;
    int line = 0;
};

struct Scan
{
    QString error;
    QHash<QString, Written> byId;
    int transactions = 0;
};

std::optional<QDate> ofxDate(const QString &text)
{
    static const QRegularExpression form(QStringLiteral("^(\\d{4})(\\d{2})(\\d{2})"));
    const auto m = form.match(text.trimmed());
    if (!m.hasMatch())
        return std::nullopt;
    const QDate d(m.captured(1).toInt(), m.captured(2).toInt(), m.captured(3).toInt());
    return d.isValid() ? std::optional(d) : std::nullopt;
}

std::optional<Currency> ofxAmount(QString text)
{
    text = text.trimmed();
    // Some banks write a decimal comma.
    if (!text.contains(QLatin1Char('.')))
        text.replace(QLatin1Char(','), QLatin1Char('.'));
    static const QRegularExpression form(QStringLiteral("^[+-]?(\\d+\\.?\\d*|\\.\\d+)$"));
    if (!form.match(text).hasMatch())
        return std::nullopt;
    const auto a = Currency::parse(text.startsWith(QLatin1Char('+')) ? text.mid(1) : text);
    if (!a || exceedsMaxAmount(*a))
        return std::nullopt;
    return a;
}

Scan scan(const QByteArray &bytes)
{
    Scan s;
    const auto contains = [&bytes](const char *tag) {
        return bytes.contains(tag) || bytes.toUpper().contains(tag);
    };
    if (!contains("<OFX>")) {
        s.error = QStringLiteral("The file has no <OFX> element: it is not an OFX or QFX file.");
        return s;
    }
    if (!contains("</OFX>")) {
        s.error = QStringLiteral("The file ends before its closing </OFX>: it seems cut short.");
        return s;
    }
    // One pass over the bytes: each element's name and the text after it up
    // to the next element or line end, with the line it is on.
    Written current;
    QString fitId;
    bool inTransaction = false;
    auto finish = [&]() {
        if (!fitId.isEmpty())
            s.byId.insert(fitId, current);
        ++s.transactions;
        inTransaction = false;
    };
    const char *p = bytes.constData();
    const qsizetype n = bytes.size();
    int line = 1;
    for (qsizetype i = 0; i < n; ++i) {
        if (p[i] == '\n') {
            ++line;
            continue;
        }
        if (p[i] != '<')
            continue;
        qsizetype k = i + 1;
        const bool closing = k < n && p[k] == '/';
        if (closing)
            ++k;
        const qsizetype nameStart = k;
        while (k < n && (std::isalnum(static_cast<unsigned char>(p[k])) || p[k] == '.'))
            ++k;
        if (k >= n || p[k] != '>' || k == nameStart)
            continue;
        const QByteArray name = QByteArray(p + nameStart, k - nameStart).toUpper();
        qsizetype v = k + 1;
        while (v < n && p[v] != '<' && p[v] != '\n' && p[v] != '\r')
            ++v;
        i = v - 1;
        if (name == "STMTTRN") {
            if (inTransaction)
                finish(); // a closing tag, or SGML leaving it out before the next
            if (!closing) {
                inTransaction = true;
                current = Written();
                current.line = line;
                fitId.clear();
            }
            continue;
        }
        if (closing || !inTransaction)
            continue;
        if (name == "BANKTRANLIST") {
            finish();
            continue;
        }
        const bool date = name == "DTPOSTED";
        const bool amount = name == "TRNAMT";
        const bool id = name == "FITID";
        if (!date && !amount && !id)
            continue;
        const QString value = QString::fromLatin1(p + k + 1, v - k - 1).trimmed();
        const QString where
            = QStringLiteral("Line %1, <%2>: ").arg(line).arg(QString::fromLatin1(name));
        if (date && !ofxDate(value)) {
            s.error = where + QStringLiteral("\"%1\" is not a date.").arg(value);
            return s;
        }
        if (amount && !ofxAmount(value)) {
            s.error = where + QStringLiteral("\"%1\" is not an amount.").arg(value);
            return s;
        }
        (date ? current.date : amount ? current.amount : fitId) = value;
    }
    if (inTransaction)
        finish();
    return s;
}

struct Collected
{
    ImportFile *file = nullptr;
    const Scan *scan = nullptr;
};

QString text(const char *s, int valid)
{
    return valid ? QString::fromUtf8(s).trimmed() : QString();
}

QString bankType(TransactionType t)
{
    switch (t) {
    case OFX_CREDIT:
        return QStringLiteral("CREDIT");
    case OFX_DEBIT:
        return QStringLiteral("DEBIT");
    case OFX_INT:
        return QStringLiteral("INT");
    case OFX_DIV:
        return QStringLiteral("DIV");
    case OFX_FEE:
        return QStringLiteral("FEE");
    case OFX_SRVCHG:
        return QStringLiteral("SRVCHG");
    case OFX_DEP:
        return QStringLiteral("DEP");
    case OFX_ATM:
        return QStringLiteral("ATM");
    case OFX_POS:
        return QStringLiteral("POS");
    case OFX_XFER:
        return QStringLiteral("XFER");
    case OFX_CHECK:
        return QStringLiteral("CHECK");
    case OFX_PAYMENT:
        return QStringLiteral("PAYMENT");
    case OFX_CASH:
        return QStringLiteral("CASH");
    case OFX_DIRECTDEP:
        return QStringLiteral("DIRECTDEP");
    case OFX_DIRECTDEBIT:
        return QStringLiteral("DIRECTDEBIT");
    case OFX_REPEATPMT:
        return QStringLiteral("REPEATPMT");
    default:
        return QStringLiteral("OTHER");
    }
}

int onAccount(const OfxAccountData data, void *user)
{
    auto *c = static_cast<Collected *>(user);
    if (data.account_id_valid && c->file->accountId.isEmpty())
        c->file->accountId = QString::fromUtf8(data.account_id).trimmed();
    if (data.account_type_valid && data.account_type == OfxAccountData::OFX_CREDITCARD)
        c->file->cardOrBank = QStringLiteral("CCard");
    return 0;
}

int onTransaction(const OfxTransactionData data, void *user)
{
    auto *c = static_cast<Collected *>(user);
    ImportRow row;
    row.fitId = text(data.fi_id, data.fi_id_valid);
    row.payee = text(data.name, data.name_valid);
    row.memo = text(data.memo, data.memo_valid);
    if (data.check_number_valid) {
        const QString n = QString::fromUtf8(data.check_number).trimmed();
        if (!n.isEmpty() && std::all_of(n.begin(), n.end(), [](QChar ch) { return ch.isDigit(); }))
            row.number = n;
    }
    if (data.transactiontype_valid)
        row.bankType = bankType(data.transactiontype);
    const auto written = c->scan->byId.constFind(row.fitId);
    if (!row.fitId.isEmpty() && written != c->scan->byId.constEnd()) {
        row.line = written->line;
        row.date = ofxDate(written->date).value_or(QDate());
        row.amount = ofxAmount(written->amount).value_or(Currency());
    } else {
        // No id to find the written text by: the library's figures, rounded
        // to the ten-thousandth once here.
        if (data.date_posted_valid)
            row.date = QDateTime::fromSecsSinceEpoch(data.date_posted).date();
        if (data.amount_valid)
            row.amount = Currency::fromRaw(std::llround(data.amount * double(Currency::Scale)));
    }
    if (!row.date.isValid())
        return 0;
    c->file->rows.push_back(row);
    return 0;
}

// libofx writes its progress and complaints to standard error; they are
// nobody's business but its own.
class QuietStderr
{
public:
    QuietStderr() : m_saved(::dup(2))
    {
        const int null = ::open("/dev/null", O_WRONLY);
        if (null >= 0) {
            ::dup2(null, 2);
            ::close(null);
        }
    }
    ~QuietStderr()
    {
        if (m_saved >= 0) {
            ::dup2(m_saved, 2);
            ::close(m_saved);
        }
    }
    QuietStderr(const QuietStderr &) = delete;
    QuietStderr &operator=(const QuietStderr &) = delete;

private:
    int m_saved;
};

} // namespace

ImportFile read(const QString &path)
{
    ImportFile file;
    file.format = QStringLiteral("OFX");
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) {
        file.error = QStringLiteral("The file cannot be read (%1).").arg(f.errorString());
        return file;
    }
    const QByteArray bytes = f.readAll();
    f.close();
    if (const QString problem = TextDecoding::problemWith(bytes); !problem.isEmpty()) {
        file.error = problem;
        return file;
    }
    const Scan s = scan(bytes);
    if (!s.error.isEmpty()) {
        file.error = s.error;
        return file;
    }
    Collected collected{&file, &s};
    int status = 0;
    {
        const QuietStderr quiet;
        LibofxContextPtr context = libofx_get_new_context();
        ofx_set_account_cb(context, onAccount, &collected);
        ofx_set_transaction_cb(context, onTransaction, &collected);
        status = libofx_proc_file(context, QFile::encodeName(path).constData(), OFX);
        libofx_free_context(context);
    }
    if (file.rows.empty()) {
        file.error
            = s.transactions == 0
                  ? QStringLiteral("The statement holds no transactions (no <STMTTRN>).")
                  : QStringLiteral("The statement's %1 transaction(s) could not be read%2.")
                        .arg(s.transactions)
                        .arg(status != 0 ? QStringLiteral(": the file is damaged") : QString());
        return file;
    }
    if (int(file.rows.size()) < s.transactions)
        file.warnings << QStringLiteral("%1 of the statement's %2 transactions could not be read "
                                        "and were left out.")
                             .arg(s.transactions - int(file.rows.size()))
                             .arg(s.transactions);
    std::stable_sort(file.rows.begin(), file.rows.end(),
                     [](const ImportRow &a, const ImportRow &b) { return a.line < b.line; });
    return file;
}

} // namespace OfxReader
