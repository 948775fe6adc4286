#include "budget/BudgetBook.h"

#include "accounts/AccountBook.h"
#include "records/AccountKinds.h"
#include "records/RecordFile.h"

#include <utility>

BudgetBook::BudgetBook(DataFiles files) : m_files(std::move(files)) {}

std::vector<BudgetRecord> BudgetBook::readAll() const
{
    return RecordFile<BudgetRecord>(m_files.budget()).readAll();
}

BudgetRecord BudgetBook::read(int budNum) const
{
    return RecordFile<BudgetRecord>(m_files.budget()).read(budNum);
}

int BudgetBook::count() const
{
    return RecordFile<BudgetRecord>(m_files.budget()).count();
}

BudgetBook::Totals BudgetBook::totals() const
{
    return totals(readAll(),
                  AccountBook(m_files).readAll().value_or(std::vector<BankAcctRecord>{}));
}

BudgetBook::Totals BudgetBook::totals(const std::vector<BudgetRecord> &categories,
                                      const std::vector<BankAcctRecord> &accounts)
{
    Totals t;
    for (const BudgetRecord &c : categories) {
        if (c.isDeleted() || c.BudName.isBlank())
            continue;
        t.monthly += amountValue(c.AmountText.text());
        t.balance += c.Balance;
    }
    for (const BankAcctRecord &a : accounts)
        if (!a.isDeleted() && !AccountKinds::isCard(a.Type.text()))
            t.bankAccounts += a.Balance;
    return t;
}

int BudgetBook::cardCategory(int cardBankNum) const
{
    const std::vector<BudgetRecord> all = readAll();
    for (const BudgetRecord &c : all)
        if (!c.isDeleted() && c.CCBankRecnum == cardBankNum && cardBankNum != 0)
            return c.BudNum;
    return 0;
}

QString BudgetBook::amountText(Currency value)
{
    const auto withSign = [&value](const QString &digits) {
        return value.isNegative() ? digits : QLatin1Char(' ') + digits;
    };
    // The field holds 15 characters: a large amount keeps its cents rather
    // than losing its last digits.
    const QString full = withSign(value.toPlainText());
    return full.size() <= 15 ? full : withSign(value.toFixedText());
}

QString BudgetBook::itemAmountText(const QString &typed)
{
    const QString trimmed = typed.trimmed();
    const auto value = Currency::parse(trimmed);
    if (trimmed.size() <= 15 || !value)
        return trimmed;
    return amountText(*value).trimmed();
}

Currency BudgetBook::amountValue(const QString &text)
{
    return Currency::parse(text).value_or(Currency());
}
