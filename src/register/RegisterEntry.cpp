#include "register/RegisterEntry.h"

#include "accounts/AccountBook.h"
#include "budget/BudgetBook.h"
#include "budget/BudgetCheck.h"
#include "budget/BudgetPosting.h"
#include "records/AccountKinds.h"
#include "records/BudgetRecord.h"
#include "records/RecordFile.h"
#include "records/TransactionClasses.h"
#include "records/TransactionTemplate.h"
#include "register/CardPayments.h"
#include "register/LinkedRecords.h"
#include "register/RegisterRefusals.h"
#include "register/RegisterService.h"

#include <utility>

Confirmations::Confirmations(Interaction &interaction, Notice notice)
    : m_interaction(interaction), m_notice(std::move(notice))
{
}

bool Confirmations::goOn(const QString &title, const QString &text)
{
    m_interaction.beep();
    return m_interaction.fund(title, text) != 1;
}

void Confirmations::notice(const QString &text)
{
    if (m_notice)
        m_notice(text);
}

RegisterEntry::RegisterEntry(DataFiles files, BankAcctRecord account)
    : m_files(std::move(files)), m_account(std::move(account))
{
}

int RegisterEntry::cardBudNum() const
{
    if (!AccountKinds::isCard(m_account.Type.text()))
        return 0;
    for (const BudgetRecord &c : RecordFile<BudgetRecord>(m_files.budget()).readAll())
        if (!c.isDeleted() && c.CCBankRecnum == m_account.BankNum)
            return c.BudNum;
    return 0;
}

RegisterEntry::Parsed RegisterEntry::parse(const EntryRequest &request) const
{
    Parsed parsed;
    // The card's side of a payment keeps its type: it is checked as a credit.
    EntryRules::Input checked = request.entry;
    if (request.isChange() && request.loaded.TransClass.is(TransactionClasses::PayCard))
        checked.typeText = QStringLiteral("Credit");
    EntryRules::Parsed row = EntryRules::parse(m_account.Type.text().trimmed(), checked);
    if (const auto &refusal = row.refusal) {
        Outcome out;
        out.text = refusal->text;
        out.title = refusal->title;
        out.messageBox = refusal->where == EntryRules::Refusal::Where::MessageBox;
        parsed.refused = out;
        return parsed;
    }
    static_cast<EntryTarget &>(parsed.request) = request;
    parsed.request.entry = std::move(row.entry);
    parsed.request.budgetIncoming = BudgetCheck::isIncoming(request.entry.typeText);
    parsed.request.budgetCategory
        = parsed.request.entry.category && !request.entry.typeText.isEmpty();
    return parsed;
}

RegisterEntry::Outcome RegisterEntry::enter(const EntryRequest &request,
                                            Confirmations &confirmations) const
{
    const Parsed parsed = parse(request);
    return parsed.refused ? *parsed.refused : enter(parsed.request, confirmations);
}

RegisterEntry::Outcome RegisterEntry::enter(const ParsedEntry &request,
                                            Confirmations &confirmations) const
{
    const EntryRules::Entry &in = request.entry;
    const QString kind = m_account.Type.text().trimmed();
    const bool change = request.isChange();
    Outcome out;

    const TransRecord record = EntryRules::fillRecord(
        change ? request.loaded : TransactionTemplate::blank(), in, m_account, cardBudNum());

    // Once a budget is set up, the category's warning comes first, then the account's.
    BudgetBook budget(m_files);
    if (budget.totals().monthly > Currency()) {
        BudgetCheck::Request check;
        check.amount = in.amount;
        check.incoming = request.budgetIncoming;
        check.category = request.budgetCategory;
        check.budNum = in.budNum;
        check.budName = in.budName;
        check.card = in.card;
        if (in.card) {
            check.cardBudNum = budget.cardCategory(request.cardBankNum);
            check.cardName = request.cardName;
        }
        check.mode = change ? 1 : 0;
        check.tranno = request.loaded.Tranno;
        check.oldTransAmount = request.oldAmount;
        check.oldBudNum = request.oldBudNum;
        check.oldAmountApplies = request.oldAmountApplies;
        const BudgetCheck::Result result = BudgetCheck::budgetcheck(m_files, check);
        if (result.warning && !confirmations.goOn(BudgetCheck::Title, *result.warning)) {
            out.result = Outcome::Result::Cancelled;
            return out;
        }
    }
    // Credit cards get no balance warning.
    if (!AccountKinds::isCard(kind)) {
        const auto check = EntryRules::checkAccountBalance(
            in, m_account.BankName.text(), m_account.Balance, change, request.oldAmount);
        bool cancel = check.warning
                      && !confirmations.goOn(EntryRules::BalanceExceededTitle, *check.warning);
        if (check.incorrectPaymentType) {
            // A notice only: the entry goes ahead, even past a Cancel above.
            confirmations.notice(EntryRules::IncorrectPaymentType);
            out.paymentNotice = true;
            cancel = false;
        }
        if (cancel) {
            out.result = Outcome::Result::Cancelled;
            return out;
        }
    }

    Outcome stored = store(request, record);
    stored.paymentNotice = out.paymentNotice;
    return stored;
}

RegisterEntry::Outcome RegisterEntry::store(const ParsedEntry &request,
                                            const TransRecord &record) const
{
    const EntryRules::Entry &in = request.entry;
    const TransRecord &loaded = request.loaded;
    const bool change = request.isChange();
    const bool payment = !AccountKinds::isCard(m_account.Type.text()) && in.card;
    QList<int> moved; // categories moved besides those of the records as stored
    const int bankNum = m_account.BankNum;
    Outcome out;
    out.recordNumber = request.recordNumber;
    out.appended = !change;
    if (change && LinkedRecords::isLinked(loaded)
        && LinkedRecords::otherAccountRemoved(m_files, bankNum, loaded)) {
        out.text = LinkedRecords::find(m_files, loaded).problem;
    } else if (change && LinkedRecords::isTransfer(loaded)) {
        out.text = TransferElsewhere;
    } else if (change && loaded.TransClass.is(TransactionClasses::PayCard)) {
        moved << cardBudNum();
        const auto r = CardPayments(m_files).changeFromCard(bankNum, request.recordNumber,
                                                            in.amount, in.date, in.payee, in.memo);
        out.text = r.error;
        out.title = r.title;
        out.otherBankNum = loaded.PaidFromBankNum;
    } else if (change && (payment != loaded.TransClass.is(TransactionClasses::PayBank))) {
        out.text = payment ? VoidToPay : VoidToUnpay;
    } else if (payment) {
        const auto r = change ? CardPayments(m_files).change(bankNum, request.recordNumber, record,
                                                             request.cardBankNum)
                              : CardPayments(m_files).add(bankNum, record, request.cardBankNum);
        out.text = r.error;
        out.title = r.title;
        if (r.ok)
            out.recordNumber = r.bankRecord;
        out.otherBankNum = request.cardBankNum;
    } else {
        RegisterService service(m_files);
        const RegisterService::Result r
            = change ? service.change(bankNum, request.recordNumber, record)
                     : service.add(bankNum, record);
        out.text = r.error;
        out.title = r.title;
        if (r.ok)
            out.recordNumber = r.recordNumber;
    }
    if (!out.text.isEmpty() || !out.title.isEmpty()) {
        out.result = Outcome::Result::Refused;
        out.messageBox = !out.title.isEmpty();
        out.icon = out.messageBox ? Interaction::Icon::Exclamation : Interaction::Icon::None;
        out.registerMissing = out.title == RegisterRefusals::MissingTitle;
        out.otherBankNum = 0;
        return out;
    }
    out.result = Outcome::Result::Written;
    out.record = RecordFile<TransRecord>(m_files.registerFile(m_account.BankName.text()))
                     .read(out.recordNumber);
    const AccountBook accounts(m_files);
    out.account = accounts.read(bankNum);
    if (out.otherBankNum != 0)
        out.otherAccount = accounts.read(out.otherBankNum);
    for (const int n : BudgetPosting::categories(change ? &loaded : nullptr, &out.record))
        if (!moved.contains(n))
            moved << n;
    const BudgetBook budget(m_files);
    for (const int n : moved)
        out.categories.push_back(budget.read(n));
    return out;
}
