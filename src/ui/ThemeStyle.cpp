#include "ui/ThemeStyle.h"

#include <QPointer>
#include <QWidget>

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QPainter>
#include <QPixmap>

namespace ThemeStyle {

namespace {

using namespace ThemeCatalogue;

const Theme *g_current = nullptr;
// The sheet of the current scheme, and the windows wearing it. The sheet is
// set on each window rather than on the application: an application sheet
// is worked through again for every widget made or moved under it, which
// doubled the time to start.
QString g_sheet;
QList<QPointer<QWidget>> g_dressed;

QString css(Rgb rgb)
{
    return QStringLiteral("#%1").arg(rgb, 6, 16, QLatin1Char('0'));
}

// A stretched picture as a widget's background, or nothing when it is missing.
QString picture(const QString &folder, Picture which, const QString &theme)
{
    const QString path = QDir(folder).filePath(pictureFile(which, theme));
    if (!QFileInfo::exists(path))
        return {};
    return QStringLiteral("border-image: url(\"%1\") 0 0 0 0 stretch stretch;").arg(path);
}

} // namespace

QString imagesFolder()
{
    return QDir(QCoreApplication::applicationDirPath())
        .filePath(QStringLiteral("1024 x 768 Images"));
}

QColor colour(Rgb rgb)
{
    return QColor::fromRgb(QRgb(rgb));
}

QPalette palette(const Theme &t)
{
    QPalette p(colour(t.button), colour(t.window));
    p.setColor(QPalette::WindowText, colour(t.text));
    p.setColor(QPalette::Base, colour(t.base));
    p.setColor(QPalette::AlternateBase, colour(alternate(t)));
    p.setColor(QPalette::Text, colour(t.text));
    p.setColor(QPalette::ButtonText, colour(textOn(t, t.button)));
    p.setColor(QPalette::Highlight, colour(t.selection));
    p.setColor(QPalette::HighlightedText, colour(textOn(t, t.selection)));
    p.setColor(QPalette::ToolTipBase, colour(t.panel));
    p.setColor(QPalette::ToolTipText, colour(t.text));
    p.setColor(QPalette::PlaceholderText, colour(mix(t.text, t.base, 0.45)));
    p.setColor(QPalette::Link, colour(t.heading));
    p.setColor(QPalette::BrightText, colour(t.negative));
    // Greyed text stays readable, only fainter.
    p.setColor(QPalette::Disabled, QPalette::WindowText, colour(mix(t.text, t.window, 0.45)));
    p.setColor(QPalette::Disabled, QPalette::Text, colour(mix(t.text, t.base, 0.45)));
    p.setColor(QPalette::Disabled, QPalette::ButtonText, colour(mix(t.text, t.button, 0.45)));
    return p;
}

QString styleSheet(const Theme &t, const QString &folder)
{
    QString sheet = QStringLiteral(R"(
#MainForm { background: %window; %fullForm }
#picTitleBar { background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 %title, stop:1 %titleEnd); }
#picTitleBar QLabel { color: %titleText; font-weight: bold; font-size: 15px; }
#picTitleBar QPushButton { color: %titleText; background: %titleButton; border: 1px solid %titleEdge;
                           padding: 3px 10px; border-radius: 3px; }
#picTitleBar QPushButton:hover { background: %titleHover; }
#picTitleBar #cmbPeriod { min-width: 100px; }
#picAccounts { %accts }
#picRegister { %transactions }
QGroupBox { font-weight: bold; border: 1px solid %gridLine; border-radius: 4px; margin-top: 10px;
            background: %panel; }
QGroupBox::title { subcontrol-origin: margin; left: 8px; padding: 0 3px; color: %heading; }
QTableView { background: %base; alternate-background-color: %alternate; color: %text;
             gridline-color: %gridLine; selection-background-color: %selection;
             selection-color: %selectionText; }
#picHelp { background: %panel; border: 1px solid %gridLine; border-left: 3px solid %accent;
           border-radius: 4px; }
#picPanelButtons QPushButton { padding: 4px 7px; }
#picPanelButtons QPushButton:checked { background: %accent; color: %accentText;
                                       border: 1px solid %accent; border-radius: 3px; }
#picEntry { background: %panel; %check }
QToolTip { color: %text; background: %panel; border: 1px solid %gridLine; }
)");
    // Longer names first, so "%titleText" is not taken for "%title".
    const QList<std::pair<QString, QString>> values = {
        {QStringLiteral("%fullForm"), picture(folder, Picture::FullForm, t.name)},
        {QStringLiteral("%accts"), picture(folder, Picture::Accounts, t.name)},
        {QStringLiteral("%transactions"), picture(folder, Picture::Transactions, t.name)},
        {QStringLiteral("%check"), picture(folder, Picture::Check, t.name)},
        {QStringLiteral("%titleButton"), css(titleButton(t))},
        {QStringLiteral("%titleHover"), css(titleButtonHover(t))},
        {QStringLiteral("%titleEdge"), css(mix(t.title, t.titleText, 0.35))},
        {QStringLiteral("%titleText"), css(t.titleText)},
        {QStringLiteral("%titleEnd"), css(titleEnd(t))},
        {QStringLiteral("%title"), css(t.title)},
        {QStringLiteral("%window"), css(t.window)},
        {QStringLiteral("%panel"), css(t.panel)},
        {QStringLiteral("%heading"), css(t.heading)},
        {QStringLiteral("%gridLine"), css(gridLine(t))},
        {QStringLiteral("%base"), css(t.base)},
        {QStringLiteral("%alternate"), css(alternate(t))},
        {QStringLiteral("%selectionText"), css(textOn(t, t.selection))},
        {QStringLiteral("%selection"), css(t.selection)},
        {QStringLiteral("%accentText"), css(textOn(t, t.accent))},
        {QStringLiteral("%accent"), css(t.accent)},
        {QStringLiteral("%text"), css(t.text)},
    };
    for (const auto &[name, value] : values)
        sheet.replace(name, value);
    return sheet;
}

void apply(const Theme &theme, const QString &folder)
{
    g_current = find(theme.name);
    QApplication::setPalette(palette(theme));
    g_sheet = styleSheet(theme, folder);
    g_dressed.removeAll(nullptr);
    for (const QPointer<QWidget> &window : std::as_const(g_dressed))
        window->setStyleSheet(g_sheet);
}

void dress(QWidget *window)
{
    if (!g_dressed.contains(window))
        g_dressed << QPointer<QWidget>(window);
    if (window->styleSheet() != g_sheet)
        window->setStyleSheet(g_sheet);
}

const Theme &current()
{
    return g_current ? *g_current : all().front();
}

QColor negative()
{
    return colour(current().negative);
}

QIcon swatch(const Theme &t)
{
    // The title bar's colour over the body's, with the accent as a stripe;
    // drawn at twice the size as well for screens of twice the density.
    QIcon icon;
    for (const int scale : {1, 2}) {
        QPixmap pixmap(28 * scale, 16 * scale);
        pixmap.setDevicePixelRatio(scale);
        pixmap.fill(colour(t.window));
        QPainter p(&pixmap);
        p.fillRect(QRectF(0, 0, 28, 7), colour(t.title));
        p.fillRect(QRectF(3, 10, 22, 3), colour(t.accent));
        p.setPen(QPen(colour(gridLine(t)), 1.0 / scale));
        p.drawRect(QRectF(0.5 / scale, 0.5 / scale, 28 - 1.0 / scale, 16 - 1.0 / scale));
        p.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

} // namespace ThemeStyle
