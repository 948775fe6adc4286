#include "app/HelpPanel.h"

#include "core/HelpTexts.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

HelpPanel::HelpPanel(QWidget *parent)
    : QFrame(parent), m_title(new QLabel(this)), m_text(new QPlainTextEdit(this))
{
    setObjectName(QStringLiteral("picHelp"));
    m_title->setObjectName(QStringLiteral("lblHelpTitle"));
    m_title->setStyleSheet(QStringLiteral("font-weight: bold;"));
    // A long text scrolls instead of squeezing the panel above it.
    m_text->setObjectName(QStringLiteral("txtHelp"));
    m_text->setReadOnly(true);
    m_text->setFrameShape(QFrame::NoFrame);
    m_text->setFocusPolicy(Qt::NoFocus);
    m_text->setStyleSheet(QStringLiteral("background: transparent;"));
    m_text->setMaximumHeight(110);

    auto *manual = new QPushButton(tr("User Manual"), this);
    manual->setObjectName(QStringLiteral("cmdUserManual"));
    manual->setToolTip(tr("Opens the user manual in your browser (F1)"));
    connect(manual, &QPushButton::clicked, this, &HelpPanel::manualRequested);

    auto *top = new QHBoxLayout;
    top->addWidget(m_title, 1);
    top->addWidget(manual);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 6, 8, 6);
    layout->setSpacing(4);
    layout->addLayout(top);
    layout->addWidget(m_text);
    qApp->installEventFilter(this);
}

bool HelpPanel::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress && watched->isWidgetType()
        && static_cast<QKeyEvent *>(event)->key() == Qt::Key_F1
        && static_cast<QKeyEvent *>(event)->modifiers() == Qt::NoModifier) {
        Q_EMIT manualRequested();
        return true;
    }
    return QFrame::eventFilter(watched, event);
}

void HelpPanel::follow(const QString &panelId)
{
    const HelpTexts::Text help = HelpTexts::forPanel(panelId);
    m_title->setText(help.isEmpty() ? tr("Quillmere") : help.title);
    m_text->setPlainText(help.isEmpty() ? tr("Press F1 or User Manual for the whole manual.")
                                        : help.body());
}
