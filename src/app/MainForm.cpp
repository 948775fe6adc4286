#include "app/MainForm.h"

#include "accounts/AccountBook.h"
#include "accounts/AccountEditor.h"
#include "accounts/AccountsPanel.h"
#include "app/GeneralSettings.h"
#include "app/WindowUtils.h"
#include "budget/BudgetPanel.h"
#include "budget/BudgetTransferPanel.h"
#include "core/Interaction.h"
#include "register/RegisterPanel.h"
#include "transfers/TransferPanel.h"

#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QScreen>
#include <QStackedWidget>
#include <QTableView>
#include <QVBoxLayout>

namespace {

const char *Style = R"(
#MainForm { background: #eef3f8; }
#picTitleBar { background: #1f4e79; }
#picTitleBar QLabel { color: white; font-weight: bold; font-size: 15px; }
#picTitleBar QPushButton { color: white; background: #2e6aa3; border: 1px solid #5b8fc4;
                           padding: 3px 10px; border-radius: 3px; }
#picTitleBar QPushButton:hover { background: #3a7fc2; }
#picTitleBar QComboBox { min-width: 100px; }
QGroupBox { font-weight: bold; border: 1px solid #b8c7d6; border-radius: 4px; margin-top: 10px;
            background: #f8fbfd; }
QGroupBox::title { subcontrol-origin: margin; left: 8px; padding: 0 3px; }
QTableView { background: white; gridline-color: #d5dee8; selection-background-color: #cfe3f7;
             selection-color: black; }
#lblNewBkError { color: #c0392b; }
#picHelp { background: #fffbe6; border: 1px solid #e6d892; border-radius: 4px; }
#picPanelButtons QPushButton { padding: 4px 14px; }
#picPanelButtons QPushButton:checked { background: #1f4e79; color: white; border: 1px solid #1f4e79;
                                       border-radius: 3px; }
#picEntry { background: #f8fbfd; border: 1px solid #b8c7d6; border-radius: 4px; }
)";

QPushButton *titleButton(const QString &text, const QString &name, QWidget *parent)
{
    auto *b = new QPushButton(text, parent);
    b->setObjectName(name);
    b->setFocusPolicy(Qt::NoFocus);
    return b;
}

} // namespace

MainForm::MainForm(Interaction &interaction, const QString &dataDir, QWidget *parent)
    : QWidget(parent, Qt::Window | Qt::FramelessWindowHint), m_interaction(interaction),
      m_dataDir(dataDir), m_files(dataDir, false)
{
    setObjectName(QStringLiteral("MainForm"));
    setWindowTitle(QStringLiteral("Quillmere"));
    setStyleSheet(QString::fromLatin1(Style));
    setMinimumSize(780, 560);

    m_accounts = new AccountsPanel(m_interaction, this);
    m_accounts->setMinimumWidth(230);
    m_accounts->setMaximumWidth(280);
    connect(m_accounts, &AccountsPanel::accountClicked, this, &MainForm::setCurrentAccount);

    auto *right = new QVBoxLayout;
    right->addWidget(buildWorkArea(), 1);
    right->addWidget(buildHelpPanel());

    auto *body = new QHBoxLayout;
    body->setContentsMargins(10, 8, 10, 10);
    body->setSpacing(10);
    body->addWidget(m_accounts, 3);
    body->addLayout(right, 7);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(buildTitleBar());
    layout->addLayout(body, 1);

    // Laid out for 1024 x 768; on a smaller screen it takes what there is.
    QSize size(1024, 768);
    if (const QScreen *s = screen())
        size = size.boundedTo(s->availableGeometry().size());
    resize(size);
}

QWidget *MainForm::buildTitleBar()
{
    auto *bar = new QWidget(this);
    bar->setObjectName(QStringLiteral("picTitleBar"));
    bar->setAttribute(Qt::WA_StyledBackground);
    m_title = new QLabel(QStringLiteral("Quillmere"), bar);
    m_title->setObjectName(QStringLiteral("lblTitle"));

    m_period = new QComboBox(bar);
    m_period->setObjectName(QStringLiteral("cmbPeriod"));
    m_period->addItems(
        {QStringLiteral("Monthly"), QStringLiteral("Bi-Monthly"), QStringLiteral("Weekly")});
    connect(m_period, &QComboBox::activated, this, [this](int index) {
        (m_sample ? m_settings.SamplePeriodIndex : m_settings.PeriodIndex)
            = static_cast<std::int16_t>(index);
        saveSettings();
        m_budgetTransfers->setPeriodName(m_period->itemText(index));
    });

    m_sampleButton
        = titleButton(QStringLiteral("Sample Accts"), QStringLiteral("cmdSampleMode"), bar);
    connect(m_sampleButton, &QPushButton::clicked, this, &MainForm::switchDataSet);
    m_helpButton = titleButton(QStringLiteral("Show Help"), QStringLiteral("cmdHC"), bar);
    connect(m_helpButton, &QPushButton::clicked, this,
            [this] { setHelpShown(m_settings.HelpShown == 0); });

    auto *minimise = titleButton(QStringLiteral("_"), QStringLiteral("cmdMin"), bar);
    connect(minimise, &QPushButton::clicked, this, &QWidget::showMinimized);
    auto *maximise = titleButton(QStringLiteral("\u25A1"), QStringLiteral("cmdMax"), bar);
    connect(maximise, &QPushButton::clicked, this,
            [this] { isMaximized() ? showNormal() : showMaximized(); });
    auto *close = titleButton(QStringLiteral("\u2715"), QStringLiteral("cmdExit"), bar);
    connect(close, &QPushButton::clicked, this, &QWidget::close);

    auto *period = new QLabel(tr("Budget period"), bar);
    period->setStyleSheet(QStringLiteral("font-weight: normal; font-size: 12px;"));
    auto *layout = new QHBoxLayout(bar);
    layout->setContentsMargins(10, 6, 6, 6);
    layout->addWidget(m_title);
    layout->addStretch();
    layout->addWidget(period);
    layout->addWidget(m_period);
    layout->addSpacing(12);
    layout->addWidget(m_sampleButton);
    layout->addWidget(m_helpButton);
    layout->addSpacing(12);
    layout->addWidget(minimise);
    layout->addWidget(maximise);
    layout->addWidget(close);
    return bar;
}

namespace {

// The panels of the work area, in page order, as scripts and buttons name them.
const char *const PanelNames[] = {"register", "transfer", "budget", "budgettransfer", "accounts"};
constexpr int PanelCount = 5;

} // namespace

QWidget *MainForm::buildWorkArea()
{
    auto *area = new QWidget(this);
    auto *buttons = new QWidget(area);
    buttons->setObjectName(QStringLiteral("picPanelButtons"));
    auto *buttonRow = new QHBoxLayout(buttons);
    buttonRow->setContentsMargins(0, 0, 0, 0);
    const struct
    {
        const char *name;
        QString caption;
    } panelButtons[PanelCount] = {{"cmdRegister", tr("Register")},
                                  {"cmdTransfer", tr("Transfers")},
                                  {"cmdBudget", tr("Budget")},
                                  {"cmdBudgetTransfer", tr("Budget Transfers")},
                                  {"cmdAccounts", tr("Accounts")}};
    for (int page = 0; page < PanelCount; ++page) {
        auto *b = new QPushButton(panelButtons[page].caption, buttons);
        b->setObjectName(QString::fromLatin1(panelButtons[page].name));
        b->setCheckable(true);
        connect(b, &QPushButton::clicked, this, [this, page] { showWorkPage(page); });
        buttonRow->addWidget(b);
        m_panelButtons << b;
    }
    buttonRow->addStretch();

    m_register = new RegisterPanel(m_interaction, area);
    m_transfers = new TransferPanel(m_interaction, area);
    m_budget = new BudgetPanel(m_interaction, area);
    m_budgetTransfers = new BudgetTransferPanel(m_interaction, area);
    m_editor = new AccountEditor(m_interaction, area);
    m_editor->setObjectName(QStringLiteral("fraNewAccount"));

    // Every change of a balance refreshes the account list and the budget's
    // totals (disposable cash follows the bank accounts).
    connect(m_register, &RegisterPanel::balancesChanged, this, [this] {
        m_current = m_register->account();
        m_accounts->ShowAcctsForm();
        m_budget->RefreshBudgetList();
    });
    // A transfer picked in the register is changed on the transfer panel.
    connect(m_register, &RegisterPanel::transferChangeRequested, this,
            [this](int bankNum, int record) {
                const QString problem = m_transfers->loadForChange(bankNum, record);
                if (problem.isEmpty())
                    showPanel(QStringLiteral("transfer"));
                else
                    m_register->showNotice(problem);
            });
    connect(m_transfers, &TransferPanel::transferred, this, [this] {
        m_accounts->ShowAcctsForm();
        m_budget->RefreshBudgetList();
        setCurrentAccount(m_current.BankNum);
    });
    connect(m_budget, &BudgetPanel::categoriesChanged, this, [this] {
        m_register->reloadCategories();
        m_budgetTransfers->reloadCategories();
    });
    connect(m_budgetTransfers, &BudgetTransferPanel::budgetChanged, m_budget,
            &BudgetPanel::RefreshBudgetList);
    auto accountsChanged = [this](int bankNum) {
        m_accounts->ShowAcctsForm();
        m_budget->RefreshBudgetList();
        m_budgetTransfers->reloadCategories();
        setCurrentAccount(bankNum);
    };
    connect(m_editor, &AccountEditor::accountAdded, this, accountsChanged);
    connect(m_editor, &AccountEditor::accountRenamed, this, accountsChanged);

    auto *accountsPage = new QWidget(area);
    auto *accountsLayout = new QVBoxLayout(accountsPage);
    accountsLayout->setContentsMargins(0, 0, 0, 0);
    accountsLayout->addWidget(m_editor);
    accountsLayout->addStretch();

    m_work = new QStackedWidget(area);
    m_work->setObjectName(QStringLiteral("picWorkArea"));
    m_work->addWidget(m_register);
    m_work->addWidget(m_transfers);
    m_work->addWidget(m_budget);
    m_work->addWidget(m_budgetTransfers);
    m_work->addWidget(accountsPage);

    auto *layout = new QVBoxLayout(area);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);
    layout->addWidget(buttons);
    layout->addWidget(m_work, 1);
    return area;
}

QWidget *MainForm::buildHelpPanel()
{
    m_help = new QFrame(this);
    m_help->setObjectName(QStringLiteral("picHelp"));
    auto *text = new QLabel(
        tr("<b>Getting started</b><br>"
           "Add each of your accounts on the <i>Accounts</i> panel: pick its type, "
           "give it a name, and enter the ending balance of your last bank statement "
           "(or the first deposit of a new account).<br><br>"
           "Credit cards start as a <i>Debit</i>: the money you owe.<br><br>"
           "Click an account to open its register. Pick a type, date, payee and amount under "
           "the register and press <i>Enter</i>; click a row to change it, or use "
           "<i>Quick Entry</i> to enter a copy of it.<br><br><i>Sample Accts</i> opens a "
           "ready-made set of accounts to try "
           "things out with; <i>My Account</i> brings you back to your own."),
        m_help);
    text->setObjectName(QStringLiteral("lblHelpText"));
    text->setWordWrap(true);
    auto *layout = new QVBoxLayout(m_help);
    layout->addWidget(text);
    m_help->hide();
    return m_help;
}

void MainForm::load()
{
    GeneralSettings general(m_dataDir);
    m_settings = general.load();
    m_sample = m_settings.SampleMode == 1;

    const QString theme = m_settings.ThemeName.text().trimmed();
    const QString wanted = theme.isEmpty() ? GeneralSettings::defaultTheme() : theme;
    const bool themeChanged = wanted != m_settings.ThemeName.text();
    m_settings.ThemeName = wanted;

    // Panel states outside 0..3 are not ours to apply.
    for (auto &state : m_settings.PanelState)
        if (state < 0 || state > GeneralSettings::MaxPanelState)
            state = 0;
    showWorkPage(m_settings.PanelState[1] == 1 ? PanelCount - 1 : m_settings.PanelState[0]);
    setHelpShown(m_settings.HelpShown == 1);
    if (themeChanged)
        saveSettings();
    openDataSet();
}

void MainForm::openDataSet()
{
    m_files = DataFiles(m_dataDir, m_sample);
    m_sampleButton->setText(m_sample ? QStringLiteral("My Account")
                                     : QStringLiteral("Sample Accts"));
    m_title->setText(m_sample ? tr("Quillmere \u2014 Sample Accounts") : tr("Quillmere"));
    const int period = m_sample ? m_settings.SamplePeriodIndex : m_settings.PeriodIndex;
    m_period->setCurrentIndex(period >= 0 && period < m_period->count() ? period : 0);

    m_accounts->setDataFiles(m_files);
    m_editor->setDataFiles(m_files);
    m_register->setDataFiles(m_files);
    m_budget->setDataFiles(m_files);
    m_budgetTransfers->setDataFiles(m_files);
    m_transfers->setDataFiles(m_files);
    m_budgetTransfers->setPeriodName(m_period->currentText());
    const auto first = AccountBook(m_files).firstLive();
    m_current = BankAcctRecord{};
    if (first) {
        setCurrentAccount(first->BankNum);
        return;
    }
    // No account yet: every panel shows that.
    m_register->setAccount(m_current);
    m_accounts->setCurrentAccount(0);
    m_editor->setCurrentAccount(0);
    m_transfers->reloadAccounts(0);
}

void MainForm::switchDataSet()
{
    m_sample = !m_sample;
    m_settings.SampleMode = m_sample ? 1 : 0;
    saveSettings();
    openDataSet();
}

void MainForm::setCurrentAccount(int bankNum)
{
    const BankAcctRecord r = AccountBook(m_files).read(bankNum);
    if (bankNum < 1 || r.isDeleted())
        return;
    m_current = r;
    m_accounts->setCurrentAccount(bankNum);
    m_editor->setCurrentAccount(bankNum);
    m_register->setAccount(m_current);
    m_transfers->reloadAccounts(bankNum);
}

void MainForm::setHelpShown(bool shown)
{
    const std::int16_t value = shown ? 1 : 0;
    m_help->setVisible(shown);
    m_helpButton->setText(shown ? QStringLiteral("Hide Help") : QStringLiteral("Show Help"));
    if (m_settings.HelpShown != value) {
        m_settings.HelpShown = value;
        saveSettings();
    }
}

bool MainForm::showPanel(const QString &name)
{
    for (int page = 0; page < PanelCount; ++page) {
        if (name == QLatin1String(PanelNames[page])) {
            showWorkPage(page);
            return true;
        }
    }
    return false;
}

void MainForm::showWorkPage(int page)
{
    if (page < 0 || page >= PanelCount)
        page = 0;
    m_work->setCurrentIndex(page);
    for (int i = 0; i < m_panelButtons.size(); ++i)
        m_panelButtons[i]->setChecked(i == page);
    // Panel states hold 0..3: the first remembers which of the four work
    // panels was open, the second whether the account form was.
    const bool accountsForm = page == PanelCount - 1;
    std::array<std::int16_t, 4> state = m_settings.PanelState;
    if (!accountsForm)
        state[0] = static_cast<std::int16_t>(page);
    state[1] = accountsForm ? 1 : 0;
    if (state != m_settings.PanelState) {
        m_settings.PanelState = state;
        saveSettings();
    }
}

void MainForm::saveSettings()
{
    const QString error = GeneralSettings(m_dataDir).save(m_settings);
    if (!error.isEmpty())
        m_interaction.message(error, QStringLiteral("Quillmere"), Interaction::Icon::Critical);
}

void MainForm::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        DragWindow(this);
    QWidget::mousePressEvent(event);
}
