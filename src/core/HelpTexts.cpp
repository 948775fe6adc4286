#include "core/HelpTexts.h"

#include <QCoreApplication>
#include <QMap>

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("HelpTexts", text);
}

QMap<QString, HelpTexts::Text> builtIn()
{
    QMap<QString, HelpTexts::Text> texts;
    texts.insert(
        QStringLiteral("register"),
        {tr("The Register"),
         {tr("Choose the Type, Date, Payee and Amount below the register and press Enter. "
             "Amounts are typed without a sign: the type gives it."),
          tr("Pick a Category to take the money out of a budget category (a deposit puts it "
             "in)."),
          QStringLiteral("Selecting None will take the money from disposable cash."), QString(),
          QStringLiteral("Selecting Credit Card Payment will automatically enter the "
                         "transaction into the"),
          QStringLiteral("Credit Card Register."), QString(),
          tr("Click a row to change it; Void keeps it in place with no amount. Escape goes "
             "back to a new entry. Quick Entry enters a copy of the row. View From lists the "
             "entries from a date on; + and - keep or remove a payee; Ctrl+C copies the "
             "selected rows. Import (Ctrl+I) brings in a file from your bank (OFX, QFX, QIF "
             "or CSV); Export (Ctrl+E) writes the register to a CSV, QIF or journal file.")}});
    texts.insert(
        QStringLiteral("transfer"),
        {tr("Transfers"),
         {tr("Pick the account the money comes From and the one it goes To, how it leaves, the "
             "Amount and the Date, and press Enter."),
          tr("Both registers get an entry and both balances move together. Click either entry "
             "in a register to change or void the transfer.")}});
    texts.insert(
        QStringLiteral("budget"),
        {tr("The Budget"),
         {tr("1.  Type a category name and its monthly amount and press Enter."),
          tr("2.  Pick a category in the list to load it; Enter saves it again, Rename gives it "
             "the name typed, Remove frees it."),
          tr("3.  Click a cell of the sub-category grid to itemise a category: the monthly "
             "amount becomes the total of its items."),
          QStringLiteral("4.  15 sub-categories are available for each Budget Category."),
          QStringLiteral("5.  If a categrory with a balance is deleted, the money will be "
                         "transferred to "),
          QStringLiteral("disposable cash."), QString(),
          QStringLiteral("The category balance (money left to spend) is reduced by the "
                         "transaction amount."),
          QStringLiteral("Selecting None will take the money from disposable cash."), QString(),
          QStringLiteral("Your budget entries should be consistent with the "),
          QStringLiteral("period selected.")}});
    texts.insert(
        QStringLiteral("budgettransfer"),
        {tr("Budget Transfers"),
         {QStringLiteral("Transferring money into budget categories is the budgeting process."),
          tr("The periodic transfer moves every category's budget amount out of disposable "
             "cash at once; its opposite takes it back. A single transfer moves an amount "
             "between two categories or to and from disposable cash."),
          tr("Click a single transfer in the list to change it."), QString(),
          QStringLiteral("The actions below do not change the original budget transfers"),
          tr("Select transfers in the list and press Delete (or use the right-button menu) to "
             "remove them from the list.")}});
    texts.insert(
        QStringLiteral("balancing"),
        {tr("Balancing a Statement"),
         {tr("Type the statement's date, starting balance and ending balance, then tick every "
             "transaction that is on the statement. At a difference of 0.00 press OK: the "
             "ticked transactions are marked cleared."),
          QStringLiteral("To see a prior Bank Statement select the Bank and the Bank Statement "
                         "date."),
          tr("See Quillmere Buttons/Balance Accounts in the user manual.")}});
    texts.insert(
        QStringLiteral("accounts"),
        {tr("Accounts"),
         {tr("Pick the Account Type, type a name, choose the Balance Type and type the Starting "
             "Balance, then press Enter."),
          tr("Last Statement: the ending balance of your last bank statement (the opening "
             "entry is cleared). Initial Deposit: the first deposit of a new account."),
          tr("Credit cards start as a Debit: the money you owe."),
          tr("To rename, click the account, press Rename, change the name and press Rename "
             "again.")}});
    texts.insert(
        QStringLiteral("archive"),
        {tr("Archive"),
         {tr("Archive takes an account out of the list and keeps its register to read; Delete "
             "removes the register for good. A card's budget category goes with the card."),
          tr("Show Archived Accounts lists the archived registers; Remove from Archive deletes "
             "one.")}});
    texts.insert(
        QStringLiteral("search"),
        {tr("Search"),
         {tr("Pick an account or All, set any criteria (those left at Any are not used) and "
             "press Search."),
          tr("Amounts are compared by their size, text is found anywhere in the field. Click a "
             "transaction found to open it in its register; Copy puts the results on the "
             "clipboard.")}});
    texts.insert(
        QStringLiteral("print"),
        {tr("Printing"),
         {tr("Choose Printer, Preview first or Save as PDF, then print the last transactions or "
             "a range of dates of a register, the account summary or the budget summary.")}});
    texts.insert(
        QStringLiteral("charts"),
        {tr("Charts"),
         {tr("Pick a Period (or From and To dates) and an Account, or All Accounts. The tabs show "
             "spending by category, income against spending, the balance over time and the "
             "budget against what was spent, each with its figures in the table beneath."),
          tr("Click a spending bar or its row to search for its transactions in the period. "
             "Print, Save as PNG and Save as PDF keep the chart shown.")}});
    return texts;
}

QMap<QString, HelpTexts::Text> &table()
{
    static QMap<QString, HelpTexts::Text> texts = builtIn();
    return texts;
}

} // namespace

namespace HelpTexts {

Text forPanel(const QString &panelId)
{
    return table().value(panelId);
}

QStringList panelIds()
{
    return table().keys();
}

void add(const QString &panelId, const Text &text)
{
    table().insert(panelId, text);
}

} // namespace HelpTexts
