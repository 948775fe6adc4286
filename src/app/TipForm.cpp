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
        tr("Switch to the sample accounts with the Sample Accts button to try things out; "
           "your own accounts are not touched."),
        tr("Start a new account with the ending balance of your last bank statement, "
           "so that balancing against the next statement works out."),
        tr("Renaming an account renames its register and every payee and category that names it."),
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
