#pragma once

#include <QList>
#include <QString>

#include <cstdint>

// The colour schemes the window can wear. Each scheme names the colours of
// the window, its panels, grids, headings and buttons, and how its background
// pictures are drawn ("Full Form Blue.jpg" and the like, made at build time).
// Colours are 0xRRGGBB; what is worked out from them (the title bar's buttons,
// the grid's alternate rows, which text stands on a filled colour) is worked
// out here, so the style, the pictures and the checks of contrast agree.
namespace ThemeCatalogue {

using Rgb = std::uint32_t;

// How a scheme's background pictures are drawn.
enum class Pattern { Plain, Waves, Burst, Brushed, Rainbow, Bubbles, Diagonal, Dots, Rings };

struct Theme
{
    QString name;
    Rgb title;     // title bar
    Rgb titleText; // its text
    Rgb window;    // the window's body
    Rgb panel;     // group boxes and other surfaces of the panels
    Rgb text;      // text on the body, the panels and the grids
    Rgb heading;   // captions of the group boxes
    Rgb header;    // grid column headings
    Rgb base;      // grids and entry boxes
    Rgb selection; // the selected grid row
    Rgb button;    // push buttons
    Rgb accent;    // the shown panel's button
    Rgb negative;  // amounts below zero
    Pattern pattern;
};

// The picture files of a scheme, in the "1024 x 768 Images" folder.
enum class Picture { FullForm, Accounts, Check, Transactions };
inline constexpr Picture Pictures[]
    = {Picture::FullForm, Picture::Accounts, Picture::Check, Picture::Transactions};
QString pictureFile(Picture picture, const QString &themeName);

// Every scheme, "Blue" first.
const QList<Theme> &all();
QString defaultName();
// The scheme of that name (exact, as stored); nullptr for none.
const Theme *find(const QString &name);
// The name to use for a stored ThemeName: trimmed, or the default when no
// scheme has it.
QString resolve(const QString &stored);

// Colour arithmetic.
Rgb mix(Rgb from, Rgb to, double amount); // amount 0 = from, 1 = to
double luminance(Rgb colour);             // relative luminance, 0..1
double contrast(Rgb a, Rgb b);            // 1..21
// Of the scheme's text and white, the one that stands out more on a filling.
Rgb textOn(const Theme &theme, Rgb filling);

// Colours worked out from a scheme's own.
Rgb titleButton(const Theme &theme);
Rgb titleButtonHover(const Theme &theme);
Rgb titleEnd(const Theme &theme); // the far end of the title bar's gradient
Rgb alternate(const Theme &theme);
Rgb gridLine(const Theme &theme);

// Every text the window shows on a filled colour of the scheme: what, the
// text's colour and the filling's.
struct TextPair
{
    const char *what;
    Rgb text;
    Rgb background;
};
QList<TextPair> textPairs(const Theme &theme);

} // namespace ThemeCatalogue
