#include "exchange/ImportPlan.h"

#include "budget/BudgetBook.h"
#include "core/EntryChecks.h"
#include "records/AccountKinds.h"
#include "records/Cp1252.h"
#include "records/RawRecordFile.h"
#include "records/TransactionTypes.h"
#include "register/CheckNumbers.h"
#include "register/EntryRules.h"
#include "register/RegisterService.h"

#include <algorithm>
#include <utility>

namespace {

// The text as the register's field will hold it: Windows-1252, cut to width.
QString fitted(const QString &text, int width)
{
    const QByteArray bytes = Cp1252::encode(text.simplified()).left(width);
    return Cp1252::decode(bytes.constData(), int(bytes.size())).trimmed();
}

// A stored "mm/dd/yyyy" as a day number, read without building a QDate for
// each of a full register's records.
qint64 dayOf(const FixedText<15> &date)
{
    const char *p = date.bytes();
    auto digits = [p](int from, int n) {
        int v = 0;
        for (int i = from; i < from + n; ++i) {
            if (p[i] < '0' || p[i] > '9')
                return -1;
            v = v * 10 + (p[i] - '0');
        }
        return v;
    };
    const int m = digits(0, 2), d = digits(3, 2), y = digits(6, 4);
    if (m < 0 || d < 0 || y < 0 || p[2] != '/' || p[5] != '/')
        return EntryChecks::parseDate(date.text()).value_or(QDate()).toJulianDay();
    return QDate(y, m, d).toJulianDay();
}

QString key(const QString &payee)
{
    return payee.simplified().toLower();
}

} // namespace

ImportPlan::ImportPlan(DataFiles files, BankAcctRecord account)
    : m_files(std::move(files)), m_account(std::move(account))
{
    const RegisterService::Loaded loaded = RegisterService(m_files).load(m_account);
    readCategories(BudgetBook(m_files).readAll());
    remember(loaded.records);
    m_ids = ImportedIds::read(m_files, m_account.BankName.text());
}

ImportPlan::ImportPlan(DataFiles files, BankAcctRecord account,
                       const std::vector<TransRecord> &records, std::vector<BudgetRecord> budget)
    : m_files(std::move(files)), m_account(std::move(account))
{
    readCategories(std::move(budget));
    remember(records);
    m_ids = ImportedIds::read(m_files, m_account.BankName.text());
}

void ImportPlan::readCategories(std::vector<BudgetRecord> budget)
{
    // The categories an entry may take: a card's own category moves with the
    // card only.
    for (const BudgetRecord &c : budget)
        if (!c.isDeleted() && !c.BudName.isBlank() && c.CCBankRecnum == 0)
            m_categories.emplace_back(c.BudNum, c.BudName.text().trimmed());
}

void ImportPlan::remember(const std::vector<TransRecord> &records)
{
    m_registerCount = int(records.size());
    QSet<int> known;
    for (const auto &c : m_categories)
        known.insert(c.first);
    m_existing.reserve(records.size());
    for (const TransRecord &r : records) {
        if (!r.Amount.isZero())
            m_existing.push_back({r.Amount.raw(), dayOf(r.Date)});
        if (r.TypeNum == TransactionTypes::TypeNum::Check)
            if (const auto n = CheckNumbers::numericValue(r.Type.text()))
                m_checkNumbers.insert(*n);
        if (r.BudNum != 0 && known.contains(r.BudNum))
            m_payeeCategory.insert(key(r.Description.text()), r.BudNum);
    }
    std::sort(m_existing.begin(), m_existing.end(), [](const Existing &a, const Existing &b) {
        return a.amount != b.amount ? a.amount < b.amount : a.day < b.day;
    });
}

QString ImportPlan::typeFor(const QString &kindCode, const ImportRow &row)
{
    const bool in = !row.amount.isNegative();
    const QString &t = row.bankType;
    QString type;
    if (AccountKinds::isCard(kindCode)) {
        if (!in && (t == QLatin1String("FEE") || t == QLatin1String("SRVCHG")))
            type = QStringLiteral("Bank Fee");
        else if (!in && t == QLatin1String("INT"))
            type = QStringLiteral("Interest Charge");
        else
            type = in ? QStringLiteral("Credit") : QStringLiteral("Charge");
        return type;
    }
    if (!in && !row.number.isEmpty() && AccountKinds::keepsCheckNumbers(kindCode))
        return CheckNumbers::typedText(row.number);
    if (in) {
        if (t == QLatin1String("INT") || t == QLatin1String("DIV"))
            type = QStringLiteral("Interest Received");
        else if (t == QLatin1String("DIRECTDEP"))
            type = QStringLiteral("Direct Deposit");
        else if (t == QLatin1String("ATM"))
            type = QStringLiteral("ATM Deposit");
    } else {
        if (t == QLatin1String("ATM") || t == QLatin1String("POS") || t == QLatin1String("DEBIT"))
            type = QStringLiteral("Debit Card");
        else if (t == QLatin1String("FEE") || t == QLatin1String("SRVCHG"))
            type = QStringLiteral("Bank Fee");
        else if (t == QLatin1String("DIRECTDEBIT") || t == QLatin1String("REPEATPMT"))
            type = QStringLiteral("Auto Payment");
    }
    // A word this kind of account does not offer falls back to the plain one.
    if (type.isEmpty() || !EntryRules::isEnterableType(kindCode, type))
        type = in ? QStringLiteral("Deposit") : QStringLiteral("Withdrawal");
    return type;
}

void ImportPlan::build(const ImportFile &file)
{
    m_file = file;
    m_rows.clear();
    m_rows.reserve(file.rows.size());
    const QString kind = m_account.Type.text().trimmed();
    for (const ImportRow &source : file.rows) {
        Row row;
        row.source = source;
        row.amount = source.amount;
        const QString type = typeFor(kind, source);
        row.typeText = type;
        if (const auto n = CheckNumbers::numberOfTypeText(type)) {
            row.typeText = QStringLiteral("Check");
            row.number = CheckNumbers::typedNumber(type)->digits;
        }
        row.payee = fitted(source.payee, decltype(TransRecord::Description)::width());
        if (row.payee.isEmpty())
            row.payee = fitted(source.memo, decltype(TransRecord::Description)::width());
        if (row.payee.isEmpty())
            row.payee = row.typeText;
        row.memo = fitted(source.memo, decltype(TransRecord::Memo)::width());
        row.note = source.note;
        if (!source.category.isEmpty() && !source.transfer) {
            for (const auto &[num, name] : m_categories)
                if (name.compare(source.category, Qt::CaseInsensitive) == 0)
                    row.budNum = num;
            if (row.budNum == 0)
                row.note = QStringLiteral("the category \"%1\" is not in the budget")
                               .arg(source.category);
        }
        if (row.budNum == 0 && !source.transfer)
            row.budNum = m_payeeCategory.value(key(row.payee), 0);
        for (const auto &[num, name] : m_categories)
            if (num == row.budNum)
                row.budName = name;
        m_rows.push_back(row);
    }
    markDuplicates();
    checkEntries();
}

void ImportPlan::markDuplicates()
{
    // One existing transaction answers for at most one row: the nearest in
    // date within three days, of the same amount, not yet taken.
    std::vector<char> taken(m_existing.size(), 0);
    auto take = [&](const Row &row) {
        const qint64 amount = row.amount.raw();
        const qint64 day = row.source.date.toJulianDay();
        auto it = std::lower_bound(m_existing.begin(), m_existing.end(), Existing{amount, day - 3},
                                   [](const Existing &a, const Existing &b) {
                                       return a.amount != b.amount ? a.amount < b.amount
                                                                   : a.day < b.day;
                                   });
        std::ptrdiff_t best = -1;
        for (; it != m_existing.end() && it->amount == amount && it->day <= day + 3; ++it) {
            const auto i = it - m_existing.begin();
            if (!taken[i]
                && (best < 0 || std::abs(it->day - day) < std::abs(m_existing[best].day - day)))
                best = i;
        }
        if (best >= 0)
            taken[best] = 1;
        return best >= 0;
    };
    for (Row &row : m_rows) {
        const bool known = !row.source.fitId.isEmpty() && m_ids.contains(row.source.fitId);
        // A row whose id was imported before takes its transaction too, so that
        // no other row of the file is matched to it.
        if (take(row) || known)
            row.status = Status::Duplicate;
    }
}

EntryRules::Input ImportPlan::entryInput(const Row &row)
{
    EntryRules::Input in;
    in.typeText = row.number.isEmpty() ? row.typeText : CheckNumbers::typedText(row.number);
    in.payee = row.payee;
    in.amountText = row.amount.abs().toPlainText();
    in.dateText = EntryChecks::formatLongDate(row.source.date);
    in.memo = row.memo;
    in.budgetIndex = row.budNum > 0 ? 1 : 0;
    in.budNum = row.budNum;
    in.budName = row.budName;
    return in;
}

void ImportPlan::checkEntries()
{
    const QString kind = m_account.Type.text().trimmed();
    QSet<qint64> numbers = m_checkNumbers;
    for (Row &row : m_rows) {
        const EntryRules::Parsed parsed = EntryRules::parse(kind, ImportPlan::entryInput(row));
        if (parsed.refusal)
            row.refusal = parsed.refusal->text.trimmed();
        else if (parsed.entry.checkNumber) {
            if (numbers.contains(*parsed.entry.checkNumber))
                row.refusal = CheckNumbers::Duplicate;
            numbers.insert(*parsed.entry.checkNumber);
        }
        if (row.status == Status::New && !row.refusal.isEmpty())
            row.status = Status::Refused;
        row.included = row.status == Status::New;
    }
}

bool ImportPlan::setIncluded(int i, bool included)
{
    if (i < 0 || i >= int(m_rows.size()))
        return false;
    Row &row = m_rows[std::size_t(i)];
    if (included && !row.refusal.isEmpty())
        return false;
    row.included = included;
    return true;
}

std::vector<std::pair<int, QString>> ImportPlan::categories() const
{
    return m_categories;
}

bool ImportPlan::setCategory(int i, int budNum)
{
    if (i < 0 || i >= int(m_rows.size()))
        return false;
    Row &row = m_rows[std::size_t(i)];
    if (budNum == 0) {
        row.budNum = 0;
        row.budName.clear();
        return true;
    }
    for (const auto &[num, name] : m_categories)
        if (num == budNum) {
            // The same payee further down, still without one, learns it too.
            for (Row &other : m_rows)
                if (&other == &row || (other.budNum == 0 && key(other.payee) == key(row.payee))) {
                    other.budNum = num;
                    other.budName = name;
                }
            return true;
        }
    return false;
}

ImportPlan::Summary ImportPlan::summary() const
{
    Summary s;
    for (const Row &row : m_rows)
        if (row.included) {
            ++s.count;
            s.total += row.amount;
        }
    s.balanceAfter = m_account.Balance + s.total;
    s.belowZero = !AccountKinds::isCard(m_account.Type.text()) && s.balanceAfter.isNegative();
    s.text = QStringLiteral("%1 of %2 to enter, total %3; balance after %4")
                 .arg(s.count)
                 .arg(m_rows.size())
                 .arg(s.total.toCurrencyText(), s.balanceAfter.toCurrencyText());
    if (s.belowZero)
        s.text += QStringLiteral(" (below zero)");
    const int room = std::max(0, RawRecordFile::MaxRecords - m_registerCount);
    if (s.count > room)
        s.refusal = QStringLiteral("The register of %1 holds %2 transactions and has room for %3 "
                                   "more: untick %4 row(s) or archive the register first.")
                        .arg(m_account.BankName.text().trimmed())
                        .arg(m_registerCount)
                        .arg(room)
                        .arg(s.count - room);
    return s;
}

QString ImportPlan::otherAccountWarning() const
{
    if (m_file.accountId.isEmpty() || m_ids.accountId().isEmpty()
        || ImportedIds::key(m_file.accountId) == m_ids.accountId())
        return QString();
    return QStringLiteral("This statement is for bank account %1, but the last statement "
                          "imported into %2 was for bank account %3.")
        .arg(m_file.accountId, m_account.BankName.text().trimmed(), m_ids.accountId());
}

QString ImportPlan::statusText(const Row &row)
{
    switch (row.status) {
    case Status::New:
        return QStringLiteral("new");
    case Status::Duplicate:
        return QStringLiteral("already in register");
    case Status::Refused:
        break;
    }
    return QStringLiteral("refused: ") + row.refusal;
}
