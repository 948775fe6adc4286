#include "reports/PrintedReports.h"

#include "accounts/AccountSummary.h"
#include "budget/BudgetBook.h"
#include "core/EntryChecks.h"
#include "records/RecordFile.h"
#include "register/ViewRange.h"
#include "reports/ReportPages.h"
#include "reports/SearchCriteria.h"

#include <QFileInfo>

namespace PrintedReports {

namespace {

constexpr int DateWidth = 10;
constexpr int TypeWidth = 17;
constexpr int PayeeWidth = 22;
constexpr int CategoryWidth = 14;
constexpr int AmountWidth = 14;
constexpr int BalanceWidth = 15;
constexpr int PayeeColumn = DateWidth + 1 + TypeWidth + 1;
constexpr int RegisterWidth
    = PayeeColumn + PayeeWidth + 1 + CategoryWidth + AmountWidth + BalanceWidth + 4;

// Text columns are cut to their width; money never is (the line grows instead).
QString column(const QString &text, int width)
{
    return text.left(width).leftJustified(width);
}

QString registerRow(const QString &date, const QString &type, const QString &payee,
                    const QString &category, const QString &amount, const QString &balance,
                    const QString &mark)
{
    QString row = column(date, DateWidth) + QLatin1Char(' ') + column(type, TypeWidth)
                  + QLatin1Char(' ') + column(payee, PayeeWidth) + QLatin1Char(' ')
                  + column(category, CategoryWidth) + amount.rightJustified(AmountWidth)
                  + balance.rightJustified(BalanceWidth) + QStringLiteral("  ") + mark;
    // No blanks are left at the end of a line.
    while (row.endsWith(QLatin1Char(' ')))
        row.chop(1);
    return row;
}

QString category(const TransRecord &r)
{
    const QString c = r.BudName.text().trimmed();
    return c.contains(QStringLiteral("none")) || c == QStringLiteral("na") ? QString() : c;
}

} // namespace

QString registerHeading()
{
    return registerRow(QStringLiteral("Date"), QStringLiteral("Number/Type"),
                       QStringLiteral("Payee"), QStringLiteral("Category"),
                       QStringLiteral("Amount"), QStringLiteral("Balance"), QStringLiteral("CL"));
}

QString registerLine(const TransRecord &r, Currency balance)
{
    const bool cleared = r.Status.text().trimmed() == QStringLiteral("CL");
    return registerRow(r.Date.text().trimmed(), r.Type.text().trimmed(),
                       r.Description.text().trimmed(), category(r), r.Amount.toCurrencyText(),
                       balance.toCurrencyText(), cleared ? QStringLiteral("CL") : QString());
}

QString memoLine(const QString &memo)
{
    return QString(PayeeColumn, QLatin1Char(' ')) + memo.trimmed() + QStringLiteral(" (Memo)");
}

QStringList registerLines(const QString &accountName, const std::vector<TransRecord> &records,
                          int first, int last, const QDate &printed, int linesPerPage)
{
    ReportPages pages(accountName, printed, RegisterWidth, {registerHeading()}, linesPerPage);
    const std::vector<Currency> balances = ViewRange::runningBalances(records);
    for (int n = first; n <= last; ++n) {
        const TransRecord &r = records[std::size_t(n - 1)];
        QStringList together{registerLine(r, balances[std::size_t(n - 1)])};
        if (!r.Memo.isBlank())
            together << memoLine(r.Memo.text());
        pages.addTogether(together);
    }
    return pages.lines();
}

RegisterReport registerReport(const DataFiles &files, const std::vector<BankAcctRecord> &accounts,
                              const RegisterChoice &choice, const QDate &printed, int linesPerPage)
{
    RegisterReport out;
    const BankAcctRecord *account = nullptr;
    for (const BankAcctRecord &a : accounts)
        if (a.BankNum == choice.bankNum && choice.bankNum != 0 && !a.isDeleted())
            account = &a;
    if (!account) {
        out.error = SelectAccount;
        return out;
    }
    out.accountName = account->BankName.text().trimmed();

    qint64 fromDay = 0, toDay = 0;
    int count = 0;
    if (choice.byDates) {
        const QString from = choice.from.trimmed(), to = choice.to.trimmed();
        if (from.isEmpty() || to.isEmpty()) {
            out.error = SelectTwoDates;
            return out;
        }
        const auto f = EntryChecks::parseDate(from), t = EntryChecks::parseDate(to);
        if (!f || !t) {
            out.badDate = true;
            return out;
        }
        if (*f > *t) {
            out.error = DatesReversed;
            return out;
        }
        fromDay = f->toJulianDay();
        toDay = t->toJulianDay();
    } else {
        bool ok = false;
        count = choice.count.trimmed().toInt(&ok);
        if (!ok || count <= 0) {
            out.error = CountNotAboveZero;
            return out;
        }
    }

    RecordFile<TransRecord> file(files.registerFile(out.accountName));
    if (!QFileInfo::exists(file.path()) || !file.open()) {
        out.error = QStringLiteral(" The register of ") + out.accountName
                    + QStringLiteral(" could not be read");
        return out;
    }
    std::vector<TransRecord> records = file.readAll();
    const int total = int(records.size());
    if (!choice.byDates) {
        out.lines = registerLines(out.accountName, records, std::max(1, total - count + 1), total,
                                  printed, linesPerPage);
        return out;
    }
    // Between two dates: the records dated inside them, in entry order.
    ReportPages pages(out.accountName, printed, RegisterWidth, {registerHeading()}, linesPerPage);
    const std::vector<Currency> balances = ViewRange::runningBalances(records);
    for (int i = 0; i < total; ++i) {
        const TransRecord &r = records[std::size_t(i)];
        const qint64 d = SearchDates::day(r.Date.bytes(), r.Date.width());
        if (d == 0 || d < fromDay || d > toDay)
            continue;
        QStringList together{registerLine(r, balances[std::size_t(i)])};
        if (!r.Memo.isBlank())
            together << memoLine(r.Memo.text());
        pages.addTogether(together);
    }
    out.lines = pages.lines();
    return out;
}

QStringList accountsReport(const std::vector<BankAcctRecord> &accounts, const QDate &printed,
                           int linesPerPage)
{
    const int balanceColumn = int(AccountsHeading.indexOf(QStringLiteral("Balance")));
    ReportPages pages(AccountsTitle, printed, 43, {AccountsHeading, QString(43, QLatin1Char('_'))},
                      linesPerPage);
    const AccountSummary summary = AccountSummary::build(accounts);
    for (const AccountSummary::Row &row : summary.rows) {
        if (row.heading)
            pages.add(row.name);
        else if (row.bankNum != 0)
            pages.add(row.name.leftJustified(balanceColumn, QLatin1Char('.')) + row.balance);
    }
    const QString date = ReportPages::dateText(printed);
    pages.addTogether(
        {QString(), QStringLiteral("Accounts Summary") + date, QString(16, QLatin1Char('_')),
         QStringLiteral("Total Bank Accounts..........  ") + summary.bankTotal.toCurrencyText(),
         QStringLiteral("- Credit Card Debts..........  ")
             + summary.creditCardTotal.toCurrencyText(),
         QString(31, QLatin1Char(' ')) + QString(15, QLatin1Char('_')),
         QStringLiteral("Net Balance..................  ") + summary.netTotal().toCurrencyText()});
    return pages.lines();
}

QStringList budgetReport(const std::vector<BudgetRecord> &categories,
                         const std::vector<BankAcctRecord> &accounts, const QDate &printed,
                         int linesPerPage)
{
    ReportPages pages(BudgetTitle, printed, 55, {BudgetHeading, QString(55, QLatin1Char('_'))},
                      linesPerPage);
    // "Monthly" and "Balance" end at these columns; the figures end there too.
    const int monthlyEnd = int(BudgetHeading.indexOf(QStringLiteral("Monthly"))) + 7;
    const int balanceEnd = int(BudgetHeading.indexOf(QStringLiteral("Balance"))) + 7;
    const auto line = [&](const BudgetRecord &c) {
        const QString name = c.BudName.text().trimmed();
        const QString monthly = BudgetBook::amountValue(c.AmountText.text()).toCurrencyText();
        QString text = name + QLatin1Char(' ');
        text += monthly.rightJustified(std::max(0, monthlyEnd - int(text.size())));
        text += QLatin1Char(' ');
        text += c.Balance.toCurrencyText().rightJustified(
            std::max(0, balanceEnd - int(text.size())));
        return text;
    };
    bool cards = false, others = false;
    for (const BudgetRecord &c : categories)
        if (!c.isDeleted() && !c.BudName.isBlank()) {
            if (c.CCBankRecnum == 0)
                pages.add(line(c));
            cards = cards || c.CCBankRecnum != 0;
            others = others || c.CCBankRecnum == 0;
        }
    if (cards) {
        if (others)
            pages.add(QString());
        pages.add(QStringLiteral("Credit Cards"));
        for (const BudgetRecord &c : categories)
            if (!c.isDeleted() && !c.BudName.isBlank() && c.CCBankRecnum != 0)
                pages.add(line(c));
    }
    const BudgetBook::Totals totals = BudgetBook::totals(categories, accounts);
    pages.addTogether(
        {QString(), QStringLiteral("Budget Summary") + ReportPages::dateText(printed),
         QString(24, QLatin1Char('_')),
         QStringLiteral("Monthly Budget...............  ") + totals.monthly.toCurrencyText(),
         QStringLiteral("Total Bank Accounts..........  ") + totals.bankAccounts.toCurrencyText(),
         QStringLiteral("-Total Budget Balance........  ") + totals.balance.toCurrencyText(),
         QString(30, QLatin1Char(' ')) + QString(14, QLatin1Char('_')),
         QStringLiteral("Disposable Cash................") + totals.disposable().toCurrencyText()});
    return pages.lines();
}

} // namespace PrintedReports
