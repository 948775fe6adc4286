#include "calculator/CalculatorForm.h"

#include "core/Clock.h"
#include "core/EntryChecks.h"
#include "core/Interaction.h"
#include "ui/WindowReport.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

using Op = CalculatorEngine::Op;
using Outcome = CalculatorEngine::Outcome;

const QString Title = QStringLiteral("Calculator");

const char *Style = R"(
#CalculatorForm { background: #e9eef4; }
#lblResult { background: white; border: 1px solid #8aa0b8; border-radius: 3px; padding: 2px 6px;
             font-size: 20px; font-family: monospace; }
#lblMemory { color: #1f4e79; font-weight: bold; }
#lblCalcMessage { color: #c0392b; }
#lstTape { background: #fffdf2; font-family: monospace; }
QPushButton[role="operator"] { font-weight: bold; color: #1f4e79; }
QPushButton[role="memory"] { color: #7a3d00; }
QPushButton[role="clear"] { color: #a02020; }
)";

Outcome done(const std::function<void()> &f)
{
    f();
    return Outcome::Done;
}

} // namespace

CalculatorForm::CalculatorForm(Interaction &interaction, QWidget *parent)
    : QWidget(parent, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      m_interaction(interaction)
{
    setObjectName(QStringLiteral("CalculatorForm"));
    setWindowTitle(Title);
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet(QString::fromLatin1(Style));
    setFocusPolicy(Qt::StrongFocus);
    WindowReport::watch(this, m_interaction);

    m_result = new QLabel(this);
    m_result->setObjectName(QStringLiteral("lblResult"));
    m_result->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_result->setMinimumWidth(250);
    m_memory = new QLabel(QStringLiteral("M"), this);
    m_memory->setObjectName(QStringLiteral("lblMemory"));
    m_memory->setToolTip(tr("A figure is kept in memory"));
    m_memory->setFixedWidth(16);
    m_message = new QLabel(this);
    m_message->setObjectName(QStringLiteral("lblCalcMessage"));
    // The messages are laid out with leading blanks: keep them.
    m_message->setTextFormat(Qt::PlainText);
    m_message->setMinimumHeight(m_message->fontMetrics().height());

    auto *display = new QHBoxLayout;
    display->setSpacing(4);
    display->addWidget(m_memory);
    display->addWidget(m_result, 1);

    auto *left = new QVBoxLayout;
    left->setSpacing(6);
    left->addLayout(display);
    left->addWidget(m_message);
    left->addWidget(buildKeypad());

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(10, 10, 10, 10);
    layout->setSpacing(10);
    layout->addLayout(left);
    layout->addWidget(buildTape(), 1);

    m_places[CalculatorEngine::StartPlaces]->setChecked(true);
    refresh();
    setFixedSize(sizeHint());
}

QPushButton *CalculatorForm::key(const QString &caption, const QString &name, Action action)
{
    auto *b = new QPushButton(caption, this);
    b->setObjectName(name);
    // The window keeps the keyboard: Enter means "=", not a click on a button.
    b->setFocusPolicy(Qt::NoFocus);
    b->setAutoDefault(false);
    // Keys as small as a desk calculator's, whatever the style's button width.
    b->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    b->setMinimumSize(46, 28);
    connect(b, &QPushButton::clicked, this, [this, action] { press(action); });
    return b;
}

QWidget *CalculatorForm::buildKeypad()
{
    auto *pad = new QWidget(this);
    auto *grid = new QGridLayout(pad);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(4);

    for (int d = 0; d <= 9; ++d)
        m_digits << key(QString::number(d), QStringLiteral("cmdNumber(%1)").arg(d),
                        [this, d] { return m_engine.digit(d); });
    m_decimal = key(QStringLiteral("."), QStringLiteral("cmdDecimal"),
                    [this] { return m_engine.decimalPoint(); });
    const Op ops[] = {Op::Divide, Op::Add, Op::Multiply, Op::Subtract, Op::Equals};
    for (int i = 0; i < 5; ++i) {
        const Op op = ops[i];
        auto *b = key(CalculatorEngine::symbol(op), QStringLiteral("cmdOperator(%1)").arg(i),
                      [this, op] { return m_engine.applyOperator(op); });
        b->setProperty("role", QStringLiteral("operator"));
        m_operators << b;
    }
    m_percent = key(QStringLiteral("%"), QStringLiteral("cmdPercent"),
                    [this] { return m_engine.percent(); });
    auto *reciprocal = key(QStringLiteral("1/x"), QStringLiteral("cmd1OverX"),
                           [this] { return m_engine.reciprocal(); });
    auto *root = key(QStringLiteral("sqrt"), QStringLiteral("cmdSqrt"),
                     [this] { return m_engine.squareRoot(); });
    auto *negate = key(QStringLiteral("+/-"), QStringLiteral("cmdNegitive"),
                       [this] { return done([this] { m_engine.negate(); }); });
    m_percent->setToolTip(tr("Percent: the figure as a percentage of the one before it"));
    reciprocal->setToolTip(tr("One divided by the figure"));
    root->setToolTip(tr("Square root"));
    negate->setToolTip(tr("Change the sign"));
    m_backspace = key(QStringLiteral("Back"), QStringLiteral("cmdBackspace"),
                      [this] { return m_engine.backspace(); });
    m_cancelEntry = key(QStringLiteral("CE"), QStringLiteral("cmdCancelEntry"),
                        [this] { return done([this] { m_engine.clearEntry(); }); });
    auto *cancel = key(QStringLiteral("C"), QStringLiteral("cmdCancel"),
                       [this] { return done([this] { m_engine.clearCalculation(); }); });
    auto *clear = key(QStringLiteral("AC"), QStringLiteral("cmdClear"),
                      [this] { return done([this] { m_engine.clearAll(); }); });
    cancel->setToolTip(tr("Clear the calculation"));
    clear->setToolTip(tr("Clear the calculation and the tape"));
    m_backspace->setToolTip(tr("Remove the last digit typed (Backspace)"));
    m_cancelEntry->setToolTip(tr("Clear the number being typed (Delete)"));
    for (QPushButton *b : {m_backspace, m_cancelEntry, cancel, clear})
        b->setProperty("role", QStringLiteral("clear"));

    const struct
    {
        const char *caption;
        const char *tip;
        void (CalculatorEngine::*action)();
    } memoryKeys[4]
        = {{"M+", "Add the display to the memory", &CalculatorEngine::memoryAdd},
           {"M-", "Subtract the display from the memory", &CalculatorEngine::memorySubtract},
           {"MR", "Show the memory", &CalculatorEngine::memoryRecall},
           {"MC", "Clear the memory", &CalculatorEngine::memoryClear}};
    for (int i = 0; i < 4; ++i) {
        const auto action = memoryKeys[i].action;
        auto *b = key(QString::fromLatin1(memoryKeys[i].caption),
                      QStringLiteral("cmdMemory(%1)").arg(i),
                      [this, action] { return done([this, action] { (m_engine.*action)(); }); });
        b->setToolTip(tr(memoryKeys[i].tip));
        b->setProperty("role", QStringLiteral("memory"));
        m_memoryKeys << b;
    }

    // Row by row, as on a desk calculator.
    grid->addWidget(m_memoryKeys[3], 0, 0);
    grid->addWidget(m_backspace, 0, 1, 1, 2);
    grid->addWidget(m_cancelEntry, 0, 3);
    grid->addWidget(cancel, 0, 4);
    grid->addWidget(clear, 0, 5);
    grid->addWidget(m_memoryKeys[2], 1, 0);
    grid->addWidget(m_digits[7], 1, 1);
    grid->addWidget(m_digits[8], 1, 2);
    grid->addWidget(m_digits[9], 1, 3);
    grid->addWidget(m_operators[0], 1, 4);
    grid->addWidget(root, 1, 5);
    grid->addWidget(m_memoryKeys[1], 2, 0);
    grid->addWidget(m_digits[4], 2, 1);
    grid->addWidget(m_digits[5], 2, 2);
    grid->addWidget(m_digits[6], 2, 3);
    grid->addWidget(m_operators[2], 2, 4);
    grid->addWidget(m_percent, 2, 5);
    grid->addWidget(m_memoryKeys[0], 3, 0);
    grid->addWidget(m_digits[1], 3, 1);
    grid->addWidget(m_digits[2], 3, 2);
    grid->addWidget(m_digits[3], 3, 3);
    grid->addWidget(m_operators[3], 3, 4);
    grid->addWidget(reciprocal, 3, 5);
    grid->addWidget(negate, 4, 0);
    grid->addWidget(m_digits[0], 4, 1);
    grid->addWidget(m_decimal, 4, 2);
    grid->addWidget(m_operators[4], 4, 3);
    grid->addWidget(m_operators[1], 4, 4, 1, 2);

    auto *placesRow = new QHBoxLayout;
    placesRow->setSpacing(6);
    placesRow->addWidget(new QLabel(tr("Decimal places"), pad));
    auto *group = new QButtonGroup(pad);
    for (int p = 0; p <= CalculatorEngine::MaxPlaces; ++p) {
        auto *option = new QRadioButton(QString::number(p), pad);
        option->setObjectName(QStringLiteral("optDecPlace(%1)").arg(p));
        option->setFocusPolicy(Qt::NoFocus);
        group->addButton(option, p);
        placesRow->addWidget(option);
        m_places << option;
        connect(option, &QRadioButton::toggled, this, [this, p](bool on) {
            if (on)
                press([this, p] { return done([this, p] { m_engine.setPlaces(p); }); });
        });
    }
    placesRow->addStretch();
    grid->addLayout(placesRow, 5, 0, 1, 6);
    return pad;
}

QWidget *CalculatorForm::buildTape()
{
    auto *box = new QWidget(this);
    m_tape = new QListWidget(box);
    m_tape->setObjectName(QStringLiteral("lstTape"));
    m_tape->setFocusPolicy(Qt::NoFocus);
    m_tape->setSelectionMode(QAbstractItemView::NoSelection);
    m_tape->setMinimumWidth(m_tape->fontMetrics().horizontalAdvance(
                                QString(CalculatorEngine::TapeNumberWidth + 5, QLatin1Char('0')))
                            + 24);

    auto *print = key(tr("Print"), QStringLiteral("cmdPrint"), [this] {
        printTape();
        return Outcome::Done;
    });
    print->setToolTip(tr("Print the tape"));
    auto *ok = key(tr("OK"), QStringLiteral("cmdSave"), [this] {
        save();
        return Outcome::Done;
    });
    ok->setToolTip(tr("Put the figure in the amount box"));
    m_close = key(tr("Close"), QStringLiteral("cmdClose"), [this] {
        close();
        return Outcome::Done;
    });
    m_close->setToolTip(tr("Close without changing the amount box (Esc)"));

    for (QPushButton *b : {print, ok, m_close})
        b->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    auto *buttons = new QHBoxLayout;
    buttons->setSpacing(4);
    buttons->addWidget(print);
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(m_close);

    auto *caption = new QLabel(tr("Tape"), box);
    auto *layout = new QVBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addWidget(caption);
    layout->addWidget(m_tape, 1);
    layout->addLayout(buttons);
    return box;
}

void CalculatorForm::SetStartValue(double value)
{
    m_engine.setStartValue(value);
    refresh();
}

void CalculatorForm::press(const Action &action)
{
    m_message->clear();
    switch (action()) {
    case Outcome::Done:
        break;
    case Outcome::Refused:
        m_interaction.beep();
        break;
    case Outcome::DivideByZero:
        m_interaction.message(CalculatorEngine::DivideByZeroText, Title,
                              Interaction::Icon::Exclamation);
        break;
    }
    refresh();
}

void CalculatorForm::refresh()
{
    m_result->setText(m_engine.display());
    m_memory->setVisible(m_engine.hasMemory());
    const QStringList &lines = m_engine.tape();
    while (m_tape->count() > lines.size())
        delete m_tape->takeItem(m_tape->count() - 1);
    for (int i = 0; i < lines.size(); ++i) {
        if (i < m_tape->count()) {
            if (m_tape->item(i)->text() != lines[i])
                m_tape->item(i)->setText(lines[i]);
        } else {
            m_tape->addItem(lines[i]);
        }
    }
    if (m_tape->count() > 0)
        m_tape->scrollToBottom();
}

void CalculatorForm::printTape()
{
    if (m_engine.tape().isEmpty()) {
        m_interaction.beep();
        return;
    }
    const QString heading = QStringLiteral("Calculator Tape (")
                            + EntryChecks::formatLongDate(Clock::today()) + QLatin1Char(')');
    QStringList lines{heading, QString(heading.size(), QLatin1Char('_')), QString()};
    lines << m_engine.tape();
    m_interaction.print(QStringLiteral("Calculator Tape"), lines);
}

void CalculatorForm::save()
{
    const QString problem = m_engine.handBackProblem(m_negativesAllowed);
    if (!problem.isEmpty()) {
        m_message->setText(problem);
        return;
    }
    Q_EMIT valueSaved(m_engine.handBackText());
    close();
}

void CalculatorForm::keyPressEvent(QKeyEvent *event)
{
    QPushButton *button = nullptr;
    if (event->matches(QKeySequence::Copy)) {
        m_interaction.setClipboard(m_engine.handBackText());
        return;
    }
    if (event->matches(QKeySequence::Paste)) {
        const QString text = m_interaction.clipboardText();
        press([this, text] { return m_engine.paste(text); });
        return;
    }
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        button = m_operators[4];
        break;
    case Qt::Key_Backspace:
        button = m_backspace;
        break;
    case Qt::Key_Delete:
        button = m_cancelEntry;
        break;
    case Qt::Key_Escape:
        button = m_close;
        break;
    default:
        break;
    }
    const QString text = event->text();
    if (!button && text.size() == 1
        && !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier))) {
        const QChar c = text[0];
        if (c.isDigit() && c.unicode() < 128)
            button = m_digits[c.digitValue()];
        else if (c == QLatin1Char('.') || c == QLatin1Char(','))
            button = m_decimal;
        else if (c == QLatin1Char('/'))
            button = m_operators[0];
        else if (c == QLatin1Char('+'))
            button = m_operators[1];
        else if (c == QLatin1Char('*') || c == QLatin1Char('x') || c == QLatin1Char('X'))
            button = m_operators[2];
        else if (c == QLatin1Char('-'))
            button = m_operators[3];
        else if (c == QLatin1Char('='))
            button = m_operators[4];
        else if (c == QLatin1Char('%'))
            button = m_percent;
    }
    if (!button) {
        QWidget::keyPressEvent(event);
        return;
    }
    button->click();
}

void CalculatorForm::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    setFocus(Qt::ActiveWindowFocusReason);
}
