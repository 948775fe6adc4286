#include "app/MainForm.h"

#include "accounts/AccountBook.h"
#include "accounts/AccountEditor.h"
#include "accounts/AccountsPanel.h"
#include "app/AboutForm.h"
#include "app/GeneralSettings.h"
#include "app/HelpPanel.h"
#include "app/WindowUtils.h"
#include "budget/BudgetBook.h"
#include "budget/BudgetPanel.h"
#include "budget/BudgetTransferPanel.h"
#include "charts/ChartsPanel.h"
#include "core/Interaction.h"
#include "core/UserManual.h"
#include "exchange/ExportCommand.h"
#include "exchange/ImportForm.h"
#include "reconcile/BalancingPanel.h"
#include "register/ArchivePanel.h"
#include "register/RegisterPanel.h"
#include "reports/PrintPanel.h"
#include "reports/SearchPanel.h"
#include "transfers/TransferPanel.h"
#include "ui/GridScrollButtons.h"
#include "ui/PictureButton.h"
#include "ui/SwatchCombo.h"
#include "ui/ThemeStyle.h"

#include "ui/FlowLayout.h"
#include "ui/WindowReport.h"
#include <QApplication>
#include <QComboBox>
#include <QGridLayout>

#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QShortcut>
#include <QStackedWidget>
#include <QTableView>
#include <QVBoxLayout>

namespace {

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
    setMinimumSize(780, 560);

    m_accounts = new AccountsPanel(m_interaction, this);
    connect(m_accounts, &AccountsPanel::accountClicked, this, &MainForm::pickAccount);
    connect(m_accounts, &AccountsPanel::accountOpened, this, [this](int bankNum) {
        if (pickAccount(bankNum))
            showPanel(QStringLiteral("register"));
    });

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

    // The colour scheme's pictures stand behind these.
    const QList<QWidget *> pictured = {
        this, m_accounts, m_register, m_register->findChild<QWidget *>(QStringLiteral("picEntry"))};
    for (QWidget *w : pictured)
        if (w)
            w->setAttribute(Qt::WA_StyledBackground);
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

    // A small "?" keeps the title readable at 800 x 600.
    auto *about = titleButton(QStringLiteral("?"), QStringLiteral("cmdAbout"), bar);
    about->setToolTip(tr("About Quillmere: its version and the system information"));
    connect(about, &QPushButton::clicked, this, &MainForm::showAbout);

    m_theme = new SwatchCombo(bar);
    m_theme->setObjectName(QStringLiteral("cmbTheme"));
    m_theme->setIconSize(QSize(28, 16));
    for (const ThemeCatalogue::Theme &theme : ThemeCatalogue::all())
        m_theme->addItem(ThemeStyle::swatch(theme), theme.name);
    connect(m_theme, &QComboBox::activated, this,
            [this](int index) { setTheme(m_theme->itemText(index)); });

    const QString pictures = ThemeStyle::imagesFolder();
    auto *minimise = new PictureButton(FramePictures::Kind::Min, pictures, bar);
    minimise->setObjectName(QStringLiteral("cmdMin"));
    minimise->setToolTip(tr("Minimise"));
    connect(minimise, &QAbstractButton::clicked, this, &QWidget::showMinimized);
    m_maximise = new PictureButton(FramePictures::Kind::Max, pictures, bar);
    m_maximise->setObjectName(QStringLiteral("cmdMax"));
    m_maximise->setToolTip(tr("Maximise"));
    connect(m_maximise, &QAbstractButton::clicked, this, &MainForm::toggleMaximised);
    auto *close = new PictureButton(FramePictures::Kind::Close, pictures, bar);
    close->setObjectName(QStringLiteral("cmdExit"));
    close->setToolTip(tr("Close Quillmere"));
    connect(close, &QAbstractButton::clicked, this, &QWidget::close);

    auto *period = new QLabel(tr("Budget period"), bar);
    m_periodLabel = period;
    m_period->setToolTip(tr("Budget period"));
    period->setStyleSheet(QStringLiteral("font-weight: normal; font-size: 12px;"));
    // On a narrow window the caption takes two lines, leaving the title whole.
    period->setWordWrap(true);
    auto *layout = new QHBoxLayout(bar);
    layout->setContentsMargins(10, 6, 6, 6);
    layout->addWidget(m_title);
    layout->addStretch();
    layout->addWidget(period);
    layout->addWidget(m_period);
    layout->addSpacing(12);
    layout->addWidget(m_sampleButton);
    layout->addWidget(m_helpButton);
    layout->addWidget(about);
    layout->addWidget(m_theme);
    layout->addSpacing(12);
    layout->addWidget(minimise);
    layout->addWidget(m_maximise);
    layout->addWidget(close);
    m_titleBar = bar;
    return bar;
}

QWidget *MainForm::buildWorkArea()
{
    auto *area = new QWidget(this);
    auto *buttons = new QWidget(area);
    buttons->setObjectName(QStringLiteral("picPanelButtons"));
    // The panel buttons wrap onto a second row when the window is too narrow
    // for one, so no caption is cut at 800 x 600.
    m_buttonRow = new FlowLayout(buttons);
    m_work = new QStackedWidget(area);
    m_work->setObjectName(QStringLiteral("picWorkArea"));

    m_register = new RegisterPanel(m_interaction, area);
    // Bank downloads come in from the register's own command.
    auto *importButton = new QPushButton(tr("Import…"));
    importButton->setObjectName(QStringLiteral("cmdImport"));
    importButton->setToolTip(tr("Bring in a file downloaded from your bank: OFX, QFX, QIF or CSV "
                                "(Ctrl+I)"));
    connect(importButton, &QPushButton::clicked, this, [this] {
        if (m_current.BankNum == 0 || !m_register->mayLeave())
            return m_interaction.beep();
        if (auto *form = ImportForm::start(m_interaction, m_files, m_current, this))
            connect(form, &ImportForm::dataChanged, this, &MainForm::dataChanged);
    });
    m_register->addCommand(importButton);
    // Ctrl+I works wherever the button can be seen, and clicks it at once.
    auto *importKey = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_I), importButton);
    connect(importKey, &QShortcut::activated, importButton, &QPushButton::click);
    m_register->addCommand(new ExportCommand(m_interaction, [this] {
        return ExportCommand::registerSource(m_files, m_register->account());
    }));
    m_register->addCommand(new GridScrollButtons(m_register->grid(), ThemeStyle::imagesFolder()));
    m_transfers = new TransferPanel(m_interaction, area);
    m_budget = new BudgetPanel(m_interaction, area);
    m_budgetTransfers = new BudgetTransferPanel(m_interaction, area);
    m_balancing = new BalancingPanel(m_interaction, area);
    m_editor = new AccountEditor(m_interaction, area);
    m_editor->setObjectName(QStringLiteral("fraNewAccount"));

    // The panels, in button order. PanelState keeps the work panel in place 0
    // (0 register, 1 transfers, 2 budget, 3 budget transfers) and 1 in place 1
    // while the account form is shown over it; files written before this table
    // hold the same values.
    addPanel(
        {QStringLiteral("register"),
         tr("Register"),
         QStringLiteral("cmdRegister"),
         nullptr,
         {0, 0},
         [this](const DataSnapshot &d) { m_register->setDataFiles(d.files); },
         [this](const DataChange &c, const DataSnapshot &d) {
             if (c.has(DataChange::Categories))
                 m_register->reloadCategories(d.budget);
         },
         [this](const BankAcctRecord &a, const DataSnapshot &d) { m_register->setAccount(a, d); }},
        m_register);
    addPanel({QStringLiteral("transfer"),
              tr("Transfers"),
              QStringLiteral("cmdTransfer"),
              nullptr,
              {0, 1},
              [this](const DataSnapshot &d) { m_transfers->setDataFiles(d.files); },
              {},
              [this](const BankAcctRecord &a, const DataSnapshot &d) {
                  m_transfers->reloadAccounts(a.BankNum, d.accountList());
              }},
             m_transfers);
    addPanel({QStringLiteral("budget"),
              tr("Budget"),
              QStringLiteral("cmdBudget"),
              nullptr,
              {0, 2},
              [this](const DataSnapshot &d) { m_budget->setDataFiles(d); },
              [this](const DataChange &c, const DataSnapshot &d) {
                  if (c.inPlace)
                      m_budget->updateFigures(c.categories, c.accounts);
                  // Disposable cash follows the bank accounts.
                  else if (c.parts
                           & (DataChange::Accounts | DataChange::Budget | DataChange::Categories))
                      m_budget->showBudget(d);
              },
              {}},
             m_budget);
    addPanel({QStringLiteral("budgettransfer"),
              tr("Budget Transfers"),
              QStringLiteral("cmdBudgetTransfer"),
              nullptr,
              {0, 3},
              [this](const DataSnapshot &d) {
                  m_budgetTransfers->setDataFiles(d);
                  m_budgetTransfers->setPeriodName(m_period->currentText());
              },
              [this](const DataChange &c, const DataSnapshot &d) {
                  if (c.has(DataChange::Categories))
                      m_budgetTransfers->reloadCategories(d.budget);
              },
              {}},
             m_budgetTransfers);

    addPanel(
        {QStringLiteral("balancing"),
         tr("Balance"),
         QStringLiteral("cmdBalance"),
         nullptr,
         {},
         [this](const DataSnapshot &d) { m_balancing->setDataFiles(d.files); },
         [this](const DataChange &c, const DataSnapshot &) {
             // The register's own entries reach the list one by one.
             if (c.has(DataChange::Registers) && c.source != m_register)
                 for (int bankNum : c.registers)
                     m_balancing->registerChanged(bankNum);
         },
         [this](const BankAcctRecord &a, const DataSnapshot &) { m_balancing->setAccount(a); }},
        m_balancing);

    auto *accountsPage = new QWidget(area);
    auto *accountsLayout = new QVBoxLayout(accountsPage);
    accountsLayout->setContentsMargins(0, 0, 0, 0);
    accountsLayout->addWidget(m_editor);
    accountsLayout->addStretch();
    addPanel({QStringLiteral("accounts"),
              tr("Accounts"),
              QStringLiteral("cmdAccounts"),
              accountsPage,
              {1, 1},
              [this](const DataSnapshot &d) { m_editor->setDataFiles(d.files); },
              {},
              [this](const BankAcctRecord &a, const DataSnapshot &) {
                  m_editor->setCurrentAccount(a.BankNum);
              }});
    // The archive is not remembered: a start never opens on it.
    m_archive = new ArchivePanel(m_interaction, area);
    addPanel({QStringLiteral("archive"),
              tr("Archive"),
              QStringLiteral("cmdArchiveAccts"),
              nullptr,
              {},
              [this](const DataSnapshot &d) { m_archive->setDataFiles(d.files); },
              [this](const DataChange &c, const DataSnapshot &) {
                  if (c.has(DataChange::Accounts))
                      m_archive->reload();
              },
              {}},
             m_archive);
    m_search = new SearchPanel(m_interaction, area);
    m_search->addCommand(new ExportCommand(
        m_interaction, [this] { return ExportCommand::searchSource(m_files, m_search->hits()); },
        QStringLiteral("cmdSrchExport")));
    addPanel({QStringLiteral("search"),
              tr("Search"),
              QStringLiteral("cmdShowSearch"),
              nullptr,
              {},
              [this](const DataSnapshot &d) { m_search->setData(d); },
              [this](const DataChange &c, const DataSnapshot &d) { m_search->follow(c, d); },
              {}},
             m_search);
    m_print = new PrintPanel(m_interaction, area);
    addPanel({QStringLiteral("print"),
              tr("Print"),
              QStringLiteral("cmdShowPrint"),
              nullptr,
              {},
              [this](const DataSnapshot &d) { m_print->setData(d); },
              [this](const DataChange &c, const DataSnapshot &d) { m_print->follow(c, d); },
              [this](const BankAcctRecord &a, const DataSnapshot &) {
                  m_print->setCurrentAccount(a.BankNum);
              }},
             m_print);
    m_charts = new ChartsPanel(m_interaction, area);
    addPanel({QStringLiteral("charts"),
              tr("Charts"),
              QStringLiteral("cmdShowCharts"),
              nullptr,
              {},
              [this](const DataSnapshot &d) { m_charts->setData(d); },
              [this](const DataChange &c, const DataSnapshot &d) { m_charts->follow(c, d); },
              {}},
             m_charts);

    reportChanges();
    // A removed account leaves every list of accounts and categories, and the
    // first live account left becomes current: the data set is opened afresh.
    connect(m_archive, &ArchivePanel::accountRemoved, this, &MainForm::openDataSet);
    connect(m_archive, &ArchivePanel::closeRequested, this,
            [this] { showPanel(QStringLiteral("register")); });
    connect(this, &MainForm::dataChanged, this, &MainForm::applyChange);
    // A transfer picked in the register is changed on the transfer panel.
    connect(m_register, &RegisterPanel::transferChangeRequested, this,
            [this](int bankNum, int record) {
                const QString problem = m_transfers->loadForChange(bankNum, record);
                if (problem.isEmpty())
                    showPanel(QStringLiteral("transfer"));
                else
                    m_register->showNotice(problem);
            });

    connect(m_register, &RegisterPanel::entryWritten, m_balancing, &BalancingPanel::entryWritten);
    // A transaction picked in the balancing list is changed in the register.
    connect(m_balancing, &BalancingPanel::changeRequested, this, [this](int bankNum, int record) {
        if (bankNum == m_current.BankNum && m_register->pickForChange(record))
            showPanel(QStringLiteral("register"));
    });
    connect(m_balancing, &BalancingPanel::correctionEntered, this, [this](int bankNum, int) {
        if (bankNum == m_current.BankNum)
            m_register->showLastRow();
    });
    connect(m_balancing, &BalancingPanel::editLockChanged, this, &MainForm::setEditLock);
    // A transaction found by a search is shown in its account's register.
    connect(m_search, &SearchPanel::transactionChosen, this, [this](int bankNum, int record) {
        setCurrentAccount(bankNum);
        showPanel(QStringLiteral("register"));
        m_register->showRecord(record);
    });

    // A category picked on a chart is searched for over the chart's period.
    connect(m_charts, &ChartsPanel::categoryChosen, this,
            [this](int bankNum, const QString &category, const QString &from, const QString &to) {
                showPanel(QStringLiteral("search"));
                m_search->searchCategory(bankNum, category, from, to);
            });

    auto *layout = new QVBoxLayout(area);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);
    layout->addWidget(buttons);
    layout->addWidget(m_work, 1);
    return area;
}

void MainForm::addPanel(Panel panel)
{
    const int page = m_panels.size();
    auto *b = new QPushButton(panel.caption, m_buttonRow->parentWidget());
    b->setObjectName(panel.buttonName);
    b->setCheckable(true);
    connect(b, &QPushButton::clicked, this, [this, page] { showWorkPage(page); });
    // Ctrl+1 to Ctrl+9, then Ctrl+0, press the panel buttons in their order.
    if (page < 10) {
        const QKeySequence key(Qt::CTRL | Qt::Key(Qt::Key_0 + (page + 1) % 10));
        connect(new QShortcut(key, this), &QShortcut::activated, b, &QPushButton::click);
        b->setToolTip(tr("%1 (%2)").arg(panel.caption, key.toString(QKeySequence::NativeText)));
    }
    m_buttonRow->addWidget(b);
    m_panelButtons << b;
    m_work->addWidget(panel.widget);
    m_panels << std::move(panel);
}

// What each panel's operations change, as one dataChanged signal.
void MainForm::reportChanges()
{
    connect(m_transfers, &TransferPanel::transferred, this, [this](int from, int to) {
        Q_EMIT dataChanged({DataChange::Accounts | DataChange::Budget | DataChange::Registers,
                            {from, to},
                            0,
                            m_transfers});
    });
    connect(m_budget, &BudgetPanel::categoriesChanged, this, [this] {
        Q_EMIT dataChanged({DataChange::Categories, {}, 0, m_budget});
    });
    connect(m_budgetTransfers, &BudgetTransferPanel::budgetChanged, this, [this] {
        Q_EMIT dataChanged({DataChange::Budget, {}, 0, m_budgetTransfers});
    });
    // Adding a card adds its category; renaming an account renames its categories.
    auto accountsChanged = [this](int bankNum) {
        Q_EMIT dataChanged(
            {DataChange::Accounts | DataChange::Categories, {bankNum}, bankNum, m_editor});
    };
    connect(m_editor, &AccountEditor::accountAdded, this, accountsChanged);
    connect(m_editor, &AccountEditor::accountRenamed, this, accountsChanged);
}

void MainForm::applyChange(const DataChange &change)
{
    // An operation that names every record it changed is followed in place:
    // nothing is read again.
    if (change.inPlace && !change.has(DataChange::Categories)) {
        for (const BankAcctRecord &a : change.accounts)
            if (a.BankNum == m_current.BankNum)
                m_current = a;
        m_accounts->updateAccounts(change.accounts);
        DataSnapshot unread;
        unread.files = m_files;
        for (const Panel &panel : m_panels)
            if (panel.refresh && panel.widget != change.source)
                panel.refresh(change, unread);
        if (change.makeCurrent != 0
            || (change.has(DataChange::Registers) && change.source != m_register))
            setCurrentAccount(change.makeCurrent != 0 ? change.makeCurrent : m_current.BankNum);
        return;
    }
    DataChange full = change;
    full.inPlace = false;
    const DataSnapshot data = readSnapshot();
    if (change.has(DataChange::Accounts)) {
        if (m_current.BankNum != 0)
            m_current = data.account(m_current.BankNum);
        m_accounts->showAccounts(data.accounts);
    }
    for (const Panel &panel : m_panels)
        if (panel.refresh && panel.widget != change.source)
            panel.refresh(full, data);
    // The register on screen was written by another panel: it is read again.
    if (change.makeCurrent != 0)
        setCurrentAccount(change.makeCurrent, data);
    else if (change.has(DataChange::Registers) && change.source != m_register)
        setCurrentAccount(m_current.BankNum, data);
}

DataSnapshot MainForm::readSnapshot() const
{
    DataSnapshot data;
    data.files = m_files;
    data.accounts = AccountBook(m_files).readAll();
    data.budget = BudgetBook(m_files).readAll();
    return data;
}

QWidget *MainForm::buildHelpPanel()
{
    m_help = new HelpPanel(this);
    connect(m_help, &HelpPanel::manualRequested, this, [this] { UserManual::open(m_interaction); });
    m_help->hide();
    return m_help;
}

void MainForm::showAbout()
{
    if (!m_about) {
        m_about = new AboutForm(m_interaction, this);
        WindowReport::watch(m_about, m_interaction);
    }
    m_about->setDataFiles(m_files);
    m_about->show();
    m_about->raise();
}

void MainForm::load()
{
    GeneralSettings general(m_dataDir);
    m_settings = general.load();
    m_sample = m_settings.SampleMode == 1;

    // A name no scheme has (or none) falls back to the first scheme.
    const QString theme = ThemeCatalogue::resolve(m_settings.ThemeName.text());
    const bool themeChanged = theme != m_settings.ThemeName.text();
    m_settings.ThemeName = theme;
    setTheme(theme);

    // Panel states outside 0..3 are not ours to apply.
    m_settings.PanelState = PanelStates::sanitised(m_settings.PanelState);
    showWorkPage(PanelStates::restore(m_settings.PanelState, savedCodes()));
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
    fitTitleBar();
    const int period = m_sample ? m_settings.SamplePeriodIndex : m_settings.PeriodIndex;
    m_period->setCurrentIndex(period >= 0 && period < m_period->count() ? period : 0);

    // The account list and the budget are read once here and handed to every panel.
    const DataSnapshot data = readSnapshot();
    m_accounts->setDataFiles(data);
    for (const Panel &panel : m_panels)
        if (panel.open)
            panel.open(data);
    m_current = BankAcctRecord{};
    for (const BankAcctRecord &account : data.accountList()) {
        if (!account.isDeleted()) {
            setCurrentAccount(account.BankNum, data);
            return;
        }
    }
    // No account yet: every panel shows that.
    m_accounts->setCurrentAccount(0);
    for (const Panel &panel : m_panels)
        if (panel.follow)
            panel.follow(m_current, data);
}

void MainForm::switchDataSet()
{
    if (!m_register->mayLeave())
        return;
    m_sample = !m_sample;
    m_settings.SampleMode = m_sample ? 1 : 0;
    saveSettings();
    openDataSet();
}

void MainForm::setEditLock(bool locked)
{
    m_editLock = locked;
    m_budget->setEditLock(locked);
    m_budgetTransfers->setEditLock(locked);
}

void MainForm::setCurrentAccount(int bankNum)
{
    setCurrentAccount(bankNum, readSnapshot());
}

void MainForm::setCurrentAccount(int bankNum, const DataSnapshot &data)
{
    const BankAcctRecord r = data.account(bankNum);
    if (bankNum < 1 || r.isDeleted())
        return;
    m_current = r;
    m_accounts->setCurrentAccount(bankNum);
    for (const Panel &panel : m_panels)
        if (panel.follow)
            panel.follow(m_current, data);
}

bool MainForm::pickAccount(int bankNum)
{
    if (!m_register->mayLeave()) {
        // The row being changed stays, and so does its account.
        m_accounts->setCurrentAccount(m_current.BankNum);
        return false;
    }
    setCurrentAccount(bankNum);
    return true;
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

bool MainForm::showPanel(const QString &id)
{
    // The calculator is no page of its own: it drops down from the register's
    // amount box.
    if (id == QLatin1String("calculator"))
        return showPanel(QStringLiteral("register")) && m_register->openAmountCalculator();
    for (int page = 0; page < m_panels.size(); ++page) {
        if (m_panels[page].id == id) {
            showWorkPage(page);
            return true;
        }
    }
    return false;
}

QString MainForm::shownPanel() const
{
    const int page = m_work->currentIndex();
    return page >= 0 && page < m_panels.size() ? m_panels[page].id : QString();
}

QList<PanelStates::Code> MainForm::savedCodes() const
{
    QList<PanelStates::Code> codes;
    for (const Panel &panel : m_panels)
        codes << panel.savedAs;
    return codes;
}

QStringList MainForm::panelIds() const
{
    QStringList ids;
    for (const Panel &panel : m_panels)
        ids << panel.id;
    return ids;
}

void MainForm::showWorkPage(int page)
{
    if (page < 0 || page >= m_panels.size())
        page = 0;
    if (m_work->currentWidget() == m_register && page != m_work->currentIndex()
        && !m_register->mayLeave())
        page = m_work->currentIndex();
    m_work->setCurrentIndex(page);
    m_help->follow(m_panels[page].id);
    for (int i = 0; i < m_panelButtons.size(); ++i)
        m_panelButtons[i]->setChecked(i == page);
    const PanelStates::Values state
        = PanelStates::store(m_settings.PanelState, m_panels[page].savedAs, savedCodes());
    if (state != m_settings.PanelState) {
        m_settings.PanelState = state;
        saveSettings();
    }
}

void MainForm::saveSettings()
{
    // A save that fails is told to the user by the unit of work's failure
    // report ("Not Saved"); a second box would only repeat it.
    GeneralSettings(m_dataDir).save(m_settings);
}

void MainForm::setTheme(const QString &name)
{
    const ThemeCatalogue::Theme *theme = ThemeCatalogue::find(name);
    if (!theme)
        return;
    m_theme->setCurrentText(name);
    m_theme->setToolTip(tr("Colour theme: %1").arg(name));
    ThemeStyle::apply(*theme);
    // Set once the panels exist; the windows the main window owns follow it.
    ThemeStyle::dress(this);
    if (m_settings.ThemeName.text() != name) {
        m_settings.ThemeName = name;
        saveSettings();
    }
}

void MainForm::fitTitleBar()
{
    // On a narrow window the period box's caption gives way (the box keeps it
    // as its tooltip) before the window's title would be cut.
    m_periodLabel->setVisible(true);
    if (m_titleBar->sizeHint().width() > width())
        m_periodLabel->setVisible(false);
}

void MainForm::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    fitTitleBar();
}

void MainForm::toggleMaximised()
{
    isMaximized() ? showNormal() : showMaximized();
}

void MainForm::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::WindowStateChange) {
        const bool maximised = isMaximized();
        m_maximise->setKind(maximised ? FramePictures::Kind::Restore : FramePictures::Kind::Max);
        m_maximise->setToolTip(maximised ? tr("Restore") : tr("Maximise"));
    }
    QWidget::changeEvent(event);
}

// The window is moved by its body and its title bar: a press that goes on to
// move the mouse hands the move to the window manager, so a click or a double
// click stays a click.
void MainForm::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        m_pressedAt = event->globalPosition().toPoint();
    QWidget::mousePressEvent(event);
}

void MainForm::mouseMoveEvent(QMouseEvent *event)
{
    if ((event->buttons() & Qt::LeftButton) && !m_pressedAt.isNull()
        && (event->globalPosition().toPoint() - m_pressedAt).manhattanLength()
               >= QApplication::startDragDistance()) {
        m_pressedAt = {};
        DragWindow(this);
    }
    QWidget::mouseMoveEvent(event);
}

void MainForm::mouseReleaseEvent(QMouseEvent *event)
{
    m_pressedAt = {};
    QWidget::mouseReleaseEvent(event);
}

void MainForm::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton
        && m_titleBar->rect().contains(m_titleBar->mapFrom(this, event->position().toPoint())))
        toggleMaximised();
    QWidget::mouseDoubleClickEvent(event);
}
