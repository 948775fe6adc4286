#include "core/ThemeCatalogue.h"

#include <algorithm>
#include <cmath>

namespace ThemeCatalogue {

namespace {

constexpr Rgb White = 0xFFFFFF;

// The bodies of every scheme are light, so the messages and marks the panels
// colour themselves (red refusals, green ticks) read on all of them; a scheme
// shows its character in the title bar, the headings and its pictures.
const QList<Theme> &catalogue()
{
    using P = Pattern;
    static const QList<Theme> themes = {
        // name, title, titleText, window, panel, text, heading, header, base, selection,
        // button, accent, negative, pattern
        {QStringLiteral("Blue"), 0x1F4E79, White, 0xE8EFF7, 0xF6F9FC, 0x1B2633, 0x1F4E79, 0xDBE6F2,
         White, 0xCFE3F7, 0xE9EEF4, 0x1F4E79, 0xB01E1E, P::Waves},
        {QStringLiteral("Blue Burst"), 0x0B5EA8, White, 0xE3EEFB, 0xF5F9FF, 0x152336, 0x0B4F8C,
         0xD3E4F8, White, 0xBFDCFB, 0xE6EEF8, 0x0B5EA8, 0xB3261E, P::Burst},
        {QStringLiteral("Classic"), 0x000080, White, 0xD4D0C8, 0xECE9E2, 0x000000, 0x000080,
         0xD4D0C8, White, 0x0A246A, 0xD4D0C8, 0x0A246A, 0xC00000, P::Plain},
        {QStringLiteral("Platinum"), 0xB8BCC4, 0x1A1A1A, 0xE4E6EA, 0xF2F3F5, 0x1A1D21, 0x3C4450,
         0xD8DBE0, White, 0xC9D3E0, 0xE1E4E8, 0x5A6470, 0xB00020, P::Brushed},
        {QStringLiteral("Rainbow"), 0x5B2C83, White, 0xF3EEFA, 0xFBF9FD, 0x241A2E, 0x6A2C91,
         0xECE2F6, White, 0xFFE3A8, 0xEFE8F6, 0xC2185B, 0xC62828, P::Rainbow},
        {QStringLiteral("Forest"), 0x2E5D34, White, 0xE6EFE4, 0xF5F9F3, 0x1B2A1C, 0x2E5D34,
         0xD6E6D2, White, 0xCFE6C5, 0xE6EEE3, 0x2E7D32, 0xB71C1C, P::Bubbles},
        {QStringLiteral("Sunset"), 0xB3472B, White, 0xFBEEE6, 0xFFF8F3, 0x2D1A12, 0x9C3B20,
         0xF8DCCD, 0xFFFDFB, 0xFDD9B5, 0xF8E9DF, 0xB3472B, 0xA4161A, P::Waves},
        {QStringLiteral("Lavender"), 0x6B5B95, White, 0xEFECF6, 0xFAF9FD, 0x231F33, 0x5A4A86,
         0xE3DEF0, White, 0xDCD3F2, 0xECE8F5, 0x6B5B95, 0xB0183C, P::Bubbles},
        {QStringLiteral("Ocean"), 0x00607A, White, 0xE2F1F4, 0xF4FAFB, 0x112A30, 0x005466, 0xCFE7EC,
         White, 0xB9E2EA, 0xE2EFF2, 0x00607A, 0xB3261E, P::Waves},
        {QStringLiteral("Slate"), 0x3D4A5C, White, 0xE7EAEE, 0xF5F6F8, 0x1C232D, 0x3D4A5C, 0xD9DEE5,
         White, 0xCDD6E2, 0xE4E8ED, 0x4A5A70, 0xB3261E, P::Diagonal},
        {QStringLiteral("Desert Sand"), 0x7A5A2C, White, 0xF4EDE0, 0xFBF8F1, 0x2E2414, 0x7A5A2C,
         0xEBDFC8, 0xFFFDF8, 0xF0DCB2, 0xF1E8D6, 0x7A5A2C, 0xA8201A, P::Diagonal},
        {QStringLiteral("Rose"), 0xA23B5A, White, 0xF8E9EE, 0xFDF6F8, 0x2E1520, 0x8F2F4C, 0xF2D7E0,
         White, 0xF7CFDC, 0xF5E6EB, 0xA23B5A, 0xC00000, P::Bubbles},
        {QStringLiteral("Mint"), 0x23705F, White, 0xE4F4EF, 0xF5FBF9, 0x13302A, 0x1F6B5C, 0xD0EBE3,
         White, 0xBFE6DA, 0xE3F1EC, 0x23705F, 0xB3261E, P::Dots},
        {QStringLiteral("Autumn"), 0x8C3B12, White, 0xF6EBDC, 0xFCF7F0, 0x2E1C0E, 0x8C3B12,
         0xEEDCC4, 0xFFFDF9, 0xF4D2A4, 0xF3E6D4, 0x9C4A17, 0xB00020, P::Bubbles},
        {QStringLiteral("Graphite"), 0x2B2F36, White, 0xE3E4E6, 0xF2F2F3, 0x17191C, 0x2B2F36,
         0xD6D8DB, White, 0xCFD4DA, 0xE2E3E5, 0x4B5563, 0xC62828, P::Brushed},
        {QStringLiteral("Teal"), 0x00695C, White, 0xE0F2EF, 0xF3FAF9, 0x0F2A27, 0x00574C, 0xCCE8E3,
         White, 0xB2DFD8, 0xE0EFEC, 0x00695C, 0xB3261E, P::Dots},
        {QStringLiteral("Cherry"), 0x8B1E3F, White, 0xF7E8EC, 0xFDF5F7, 0x2A1117, 0x8B1E3F,
         0xF0D5DC, White, 0xF5C6D3, 0xF4E4E8, 0x8B1E3F, 0xC00000, P::Burst},
        {QStringLiteral("Meadow"), 0x3F6B1C, White, 0xEEF4E2, 0xF8FBF2, 0x1E2A12, 0x3F6B1C,
         0xE0EBCC, White, 0xDCEDBF, 0xEBF1DF, 0x3F6B1C, 0xB3261E, P::Bubbles},
        {QStringLiteral("Ice"), 0x3F6D96, White, 0xEDF4FA, 0xF9FCFE, 0x15222E, 0x2F5B82, 0xDDE9F4,
         White, 0xCDE2F3, 0xEAF1F8, 0x3F6D96, 0xB3261E, P::Rings},
        {QStringLiteral("Copper"), 0x8E4A23, White, 0xF5EBE4, 0xFCF7F3, 0x2B1A10, 0x86431D,
         0xECD9CB, 0xFFFDFB, 0xF1CFB5, 0xF2E5DC, 0x8E4A23, 0xB00020, P::Diagonal},
    };
    return themes;
}

double channel(int value)
{
    const double c = value / 255.0;
    return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
}

} // namespace

QString pictureFile(Picture picture, const QString &themeName)
{
    switch (picture) {
    case Picture::FullForm:
        return QStringLiteral("Full Form ") + themeName + QStringLiteral(".jpg");
    case Picture::Accounts:
        return QStringLiteral("Accts ") + themeName + QStringLiteral(".jpg");
    case Picture::Check:
        return QStringLiteral("Check ") + themeName + QStringLiteral(".jpg");
    case Picture::Transactions:
        return QStringLiteral("Transactions ") + themeName + QStringLiteral(".jpg");
    }
    return {};
}

const QList<Theme> &all()
{
    return catalogue();
}

QString defaultName()
{
    return catalogue().front().name;
}

const Theme *find(const QString &name)
{
    for (const Theme &theme : catalogue())
        if (theme.name == name)
            return &theme;
    return nullptr;
}

QString resolve(const QString &stored)
{
    const QString name = stored.trimmed();
    return find(name) ? name : defaultName();
}

Rgb mix(Rgb from, Rgb to, double amount)
{
    Rgb out = 0;
    for (int shift = 0; shift <= 16; shift += 8) {
        const int a = int((from >> shift) & 0xFF);
        const int b = int((to >> shift) & 0xFF);
        const int c = int(std::lround(a + (b - a) * amount));
        out |= Rgb(std::clamp(c, 0, 255)) << shift;
    }
    return out;
}

double luminance(Rgb colour)
{
    return 0.2126 * channel(int((colour >> 16) & 0xFF))
           + 0.7152 * channel(int((colour >> 8) & 0xFF)) + 0.0722 * channel(int(colour & 0xFF));
}

double contrast(Rgb a, Rgb b)
{
    const double la = luminance(a);
    const double lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

Rgb textOn(const Theme &theme, Rgb filling)
{
    return contrast(theme.text, filling) >= contrast(White, filling) ? theme.text : White;
}

namespace {
// The title bar's shades move away from its text: darker under light text,
// lighter under dark, so they only ever read better.
Rgb awayFromTitleText(const Theme &theme, double amount)
{
    const bool lightText = luminance(theme.titleText) > luminance(theme.title);
    return mix(theme.title, lightText ? 0x000000 : White, amount);
}
} // namespace

Rgb titleButton(const Theme &theme)
{
    return awayFromTitleText(theme, 0.16);
}

Rgb titleButtonHover(const Theme &theme)
{
    return awayFromTitleText(theme, 0.32);
}

Rgb titleEnd(const Theme &theme)
{
    return awayFromTitleText(theme, 0.18);
}

Rgb alternate(const Theme &theme)
{
    return mix(theme.base, theme.header, 0.3);
}

Rgb gridLine(const Theme &theme)
{
    return mix(theme.header, theme.text, 0.12);
}

QList<TextPair> textPairs(const Theme &t)
{
    return {
        {"title", t.titleText, t.title},
        {"title bar's far end", t.titleText, titleEnd(t)},
        {"title bar button", t.titleText, titleButton(t)},
        {"title bar button under the mouse", t.titleText, titleButtonHover(t)},
        {"body", t.text, t.window},
        {"panel", t.text, t.panel},
        {"heading on the body", t.heading, t.window},
        {"heading on a panel", t.heading, t.panel},
        {"column heading", t.text, t.header},
        {"grid", t.text, t.base},
        {"grid's alternate row", t.text, alternate(t)},
        {"selected row", textOn(t, t.selection), t.selection},
        {"button", textOn(t, t.button), t.button},
        {"shown panel's button", textOn(t, t.accent), t.accent},
        {"negative amount", t.negative, t.base},
        {"negative amount on an alternate row", t.negative, alternate(t)},
    };
}

} // namespace ThemeCatalogue
