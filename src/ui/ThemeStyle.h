#pragma once

#include "core/ThemeCatalogue.h"

#include <QColor>
#include <QIcon>
#include <QPalette>

class QWidget;

// Dresses the whole program in a colour scheme: the application's palette
// (which every widget drawing its own colours reads, and follows on
// QEvent::PaletteChange) and the style sheet of its windows (the pictures,
// the title bar, the group boxes and grids), both made from the scheme's
// colours.
namespace ThemeStyle {

// "1024 x 768 Images" beside the executable.
QString imagesFolder();

// Makes the scheme the program's; pictures missing from the folder leave
// their places in the plain colours.
void apply(const ThemeCatalogue::Theme &theme, const QString &folder = imagesFolder());
// Puts a window (the main window, and each window of its own made later) in
// the current scheme's style sheet, and in each scheme applied from now on.
void dress(QWidget *window);
// The scheme applied last ("Blue" before any).
const ThemeCatalogue::Theme &current();
// The current scheme's colour of amounts below zero.
QColor negative();

QColor colour(ThemeCatalogue::Rgb rgb);
QPalette palette(const ThemeCatalogue::Theme &theme);
QString styleSheet(const ThemeCatalogue::Theme &theme, const QString &folder);
// A small picture of the scheme for its entry in the chooser.
QIcon swatch(const ThemeCatalogue::Theme &theme);

} // namespace ThemeStyle
