#pragma once

#include "core/Interaction.h"
#include "records/BankAcctRecord.h"
#include "records/BudgetRecord.h"
#include "records/Currency.h"
#include "records/DataFiles.h"
#include "records/TransRecord.h"
#include "register/EntryRules.h"

#include <QString>

#include <functional>
#include <optional>
#include <vector>

// Where an entry goes: a new entry, or a change of a register row that was
// loaded, and the card chosen for a payment.
struct EntryTarget
{
    int cardBankNum = 0; // the card chosen in the card list (0: none)
    QString cardName;

    // A change: the record number and the record loaded from the register
    // (record number 0: a new entry at the end of the register).
    int recordNumber = 0;
    TransRecord loaded;
    Currency oldAmount;       // OldTransAmount: the loaded record's signed amount
    int oldBudNum = 0;        // OldBudNum: its category, or its card's for a payment
    int oldAmountApplies = 0; // OldAmountApplies, as the budget check takes it

    bool isChange() const { return recordNumber > 0; }
};

// The entry row's texts as read from its controls when Enter or quick entry
// is pressed.
struct EntryRequest : EntryTarget
{
    EntryRules::Input entry;
};

// The same entry with its values read once (RegisterEntry::parse): what the
// checks and the write take.
struct ParsedEntry : EntryTarget
{
    EntryRules::Entry entry;
    // How the budget check takes the row's own type: the card's side of a
    // payment is checked as a credit but budgeted by the type it shows, and
    // its category counts only with a type.
    bool budgetIncoming = false;
    bool budgetCategory = false;
};

// The questions an entry asks before it is written (frmFund, after a beep)
// and the notice it may give on the way. Both go through the interaction
// seam; the notice is shown by whoever owns the entry row.
class Confirmations
{
public:
    using Notice = std::function<void(const QString &text)>;
    Confirmations(Interaction &interaction, Notice notice);
    virtual ~Confirmations() = default;

    // True for Continue, false for Cancel or closing the window.
    virtual bool goOn(const QString &title, const QString &text);
    // A notice that does not stop the entry.
    virtual void notice(const QString &text);

private:
    Interaction &m_interaction;
    Notice m_notice;
};

// The one way an entry gets into a register, for the register's Enter and
// quick entry and for every later caller: validation, the budget check, the
// account's balance check with its payment-type notice, in that order; then
// the write to the register, to both ledgers of a card payment, or a refusal.
class RegisterEntry
{
public:
    RegisterEntry(DataFiles files, BankAcctRecord account);

    struct Outcome
    {
        enum class Result { Written, Cancelled, Refused };
        Result result = Result::Refused;

        // Refused: shown in the error label, or in a message box with `title`
        // and `icon`.
        bool messageBox = false;
        QString text;
        QString title;
        Interaction::Icon icon = Interaction::Icon::None;
        // The register's file was gone and has been started again, empty.
        bool registerMissing = false;

        // Written: what changed, for the views to refresh.
        int recordNumber = 0;                 // the entry's record in this register
        TransRecord record;                   // that record as stored
        bool appended = false;                // a new record after the last one
        int otherBankNum = 0;                 // a card payment: the card's register changed too
        bool paymentNotice = false;           // the payment-type notice was given
        BankAcctRecord account;               // the account as stored now
        BankAcctRecord otherAccount;          // a card payment: the card as stored now
        std::vector<BudgetRecord> categories; // the categories the entry moved, as stored now

        bool written() const { return result == Result::Written; }
    };

    // The row's texts read once, or the refusal of the entry row.
    struct Parsed
    {
        std::optional<Outcome> refused;
        ParsedEntry request; // only when not refused
    };
    Parsed parse(const EntryRequest &request) const;

    Outcome enter(const ParsedEntry &request, Confirmations &confirmations) const;
    // parse() and enter() in one.
    Outcome enter(const EntryRequest &request, Confirmations &confirmations) const;

    inline static const QString TransferElsewhere
        = QStringLiteral("Change a transfer on the Transfers panel");
    inline static const QString VoidToPay
        = QStringLiteral("To make this entry a card payment, void it and enter the payment");
    inline static const QString VoidToUnpay
        = QStringLiteral("To make this payment an ordinary entry, void it and enter it again");

private:
    Outcome store(const ParsedEntry &request, const TransRecord &record) const;
    int cardBudNum() const;

    DataFiles m_files;
    BankAcctRecord m_account;
};
