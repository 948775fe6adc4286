#include "app/AboutForm.h"

#include "app/SystemInfo.h"
#include "app/TipForm.h"
#include "core/Interaction.h"
#include "ui/Named.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

AboutForm::AboutForm(Interaction &interaction, QWidget *parent)
    : QDialog(parent), m_interaction(interaction),
      m_info(named(new QPlainTextEdit(this), "txtSysInfo")),
      m_copy(named(new QPushButton(tr("Copy"), this), "cmdCopyInfo"))
{
    setObjectName(QStringLiteral("frmAbout"));
    setWindowTitle(tr("About Quillmere"));

    auto *product = named(new QLabel(QStringLiteral("Quillmere"), this), "lblProduct");
    product->setStyleSheet(QStringLiteral("font-size: 20px; font-weight: bold;"));
    auto *version
        = named(new QLabel(tr("Version %1").arg(SystemInfo::version()), this), "lblVersion");
    auto *description = named(new QLabel(SystemInfo::description(), this), "lblDescription");
    description->setWordWrap(true);

    m_info->setReadOnly(true);
    m_info->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_info->hide();
    m_copy->setToolTip(tr("Copies the system information to the clipboard"));
    m_copy->hide();
    connect(m_copy, &QPushButton::clicked, this,
            [this] { m_interaction.setClipboard(infoLines().join(QLatin1Char('\n'))); });

    auto *sysInfo = named(new QPushButton(tr("System Info..."), this), "cmdSysInfo");
    sysInfo->setToolTip(tr("Shows the versions, the screen and where your data is kept"));
    connect(sysInfo, &QPushButton::clicked, this, &AboutForm::showInfo);
    auto *ok = named(new QPushButton(tr("OK"), this), "cmdOK");
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(sysInfo);
    buttons->addWidget(m_copy);
    buttons->addStretch();
    buttons->addWidget(ok);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(product);
    layout->addWidget(version);
    layout->addWidget(description);
    layout->addWidget(m_info, 1);
    layout->addLayout(buttons);
    setMinimumWidth(420);
}

QStringList AboutForm::infoLines() const
{
    SystemInfo::Facts facts = SystemInfo::gather(m_files);
    if (const QScreen *s = screen()) {
        facts.screen = s->size();
        facts.scale = s->devicePixelRatio();
    }
    facts.settingsFile = TipForm::settingsFile();
    return SystemInfo::lines(facts);
}

void AboutForm::showInfo()
{
    m_info->setPlainText(infoLines().join(QLatin1Char('\n')));
    m_info->show();
    m_copy->show();
    m_info->setMinimumHeight(m_info->fontMetrics().lineSpacing() * 10);
    adjustSize();
}
