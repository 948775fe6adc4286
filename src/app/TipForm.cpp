#include "app/TipForm.h"

#include "core/Clock.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QVBoxLayout>

namespace {
const QString Section = QStringLiteral("Options/Show Tips at Startup");

// The per-user settings file: ~/.config/quillmere.conf on Linux.
QSettings userSettings()
{
    return QSettings(QStringLiteral("quillmere"));
}
} // namespace

QStringList TipForm::tips()
{
    return {
        tr("Every account keeps its own register. Click an account in the list to make it "
           "current."),
        tr("Credit card balances are shown as negative amounts while money is owed on the card."),
        tr("Switch to the sample accounts with the Sample Accts button to try things out; your own "
           "accounts are not touched."),
        tr("Start a new account with the ending balance of your last bank statement, so that "
           "balancing against the next statement works out."),
        tr("Renaming an account renames its register and every payee and category that names it."),
        tr("Type amounts without a sign: the transaction type says whether money comes in or goes "
           "out."),
        tr("Next Check # offers the number after your last check. Enter Check # takes any number "
           "not used yet."),
        tr("Click a row of the register to change it. Escape lets it go and gives you a new, empty "
           "entry row."),
        tr("Press + beside the payee box to keep a payee for next time, and - to remove one from "
           "the list."),
        tr("View From lists the register from a date on; the balance still counts every earlier "
           "entry."),
        tr("Select rows of the register and press Ctrl+C: a spreadsheet pastes them as a table."),
        tr("Pay a credit card from the bank account's register: choose the card under Credit Card "
           "and both registers are written."),
        tr("Transfers moves money between two of your accounts and writes both registers at once."),
        tr("On the Budget panel, each category is an envelope: its balance is the money left to "
           "spend on it."),
        tr("Itemise a budget category in the sub-category grid: its monthly amount becomes the "
           "total of the items."),
        tr("The periodic budget transfer on Budget Transfers fills every envelope with its budget "
           "amount in one step."),
        tr("Disposable cash is the money in your bank accounts that no budget category holds."),
        tr("Balance lets you tick off a bank statement: at a difference of 0.00 the ticked "
           "transactions are marked cleared."),
        tr("Pick an earlier date in the balancing panel's Statement list to see what was cleared "
           "on that statement."),
        tr("Search finds transactions in one account or in all of them; amounts are compared by "
           "their size, without a sign."),
        tr("Print can show a preview first or save a report as a PDF file when no printer is "
           "installed."),
        tr("An account you no longer use can be archived: it leaves the list and its register can "
           "still be read."),
        tr("Click the small arrow at the end of any amount box (or press F4) for a calculator with "
           "a paper tape."),
        tr("Export (Ctrl+E) beside the register's title writes the whole register to a file a "
           "spreadsheet or another finance program can read."),
        tr("Show Help in the title bar explains the panel in front of you; F1 opens the whole user "
           "manual."),
    };
}

int TipForm::showTipsSetting()
{
    return userSettings().value(Section, 1).toInt();
}

void TipForm::setShowTipsSetting(int value)
{
    userSettings().setValue(Section, value);
}

QString TipForm::settingsFile()
{
    return userSettings().fileName();
}

TipForm::TipForm(QWidget *parent)
    : QDialog(parent), m_tip(new QLabel(this)),
      m_showAtStart(new QCheckBox(tr("Show Tips at Startup"), this))
{
    setObjectName(QStringLiteral("frmTip"));
    setWindowTitle(tr("Tip of the Day"));
    m_tip->setObjectName(QStringLiteral("lblTipText"));
    m_tip->setWordWrap(true);
    m_tip->setMinimumSize(360, 80);
    m_showAtStart->setObjectName(QStringLiteral("chkLoadTipsAtStartup"));
    m_showAtStart->setChecked(showTipsSetting() == 1);
    connect(m_showAtStart, &QCheckBox::toggled, this,
            [](bool on) { setShowTipsSetting(on ? 1 : 0); });

    auto *next = new QPushButton(tr("Next Tip"), this);
    next->setObjectName(QStringLiteral("cmdNextTip"));
    auto *ok = new QPushButton(tr("OK"), this);
    ok->setObjectName(QStringLiteral("cmdOK"));
    connect(next, &QPushButton::clicked, this, [this] { showTip(m_index + 1); });
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    // Return closes the window; Next Tip is a click (or Space on it) away.
    next->setAutoDefault(false);
    ok->setDefault(true);
    ok->setFocus();

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_showAtStart);
    buttons->addStretch();
    buttons->addWidget(next);
    buttons->addWidget(ok);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_tip);
    layout->addLayout(buttons);
    showTip(Clock::today().dayOfYear());
}

void TipForm::showTip(int index)
{
    const QStringList all = tips();
    m_index = index % all.size();
    m_tip->setText(all[m_index]);
}
