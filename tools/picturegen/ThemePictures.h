#pragma once

#include "core/ThemeCatalogue.h"

#include <QImage>

// Draws a colour scheme's background pictures: soft gradients, patterns and
// shapes kept close to the scheme's body colour, so text on them stays legible.
namespace ThemePictures {

QSize size(ThemeCatalogue::Picture picture);
QImage draw(const ThemeCatalogue::Theme &theme, ThemeCatalogue::Picture picture);

} // namespace ThemePictures
