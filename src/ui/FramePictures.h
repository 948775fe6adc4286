#pragma once

#include <QImage>
#include <QString>

// The picture buttons of the window frame and of the grids: minimise,
// maximise, restore, close and grid scrolling, each normal and highlighted
// (under the mouse). The build writes them as "MinNorm.bmp", "MinHigh.bmp" and
// so on into the "1024 x 768 Images" folder, and "MinNorm@2x.bmp" for screens
// of twice the density; a button whose file is missing draws its picture here.
namespace FramePictures {

enum class Kind { Min, Max, Restore, Close, Up, Down };
inline constexpr Kind Kinds[]
    = {Kind::Min, Kind::Max, Kind::Restore, Kind::Close, Kind::Up, Kind::Down};

// A bitmap keeps no transparency: its corners are painted in this colour,
// which the button leaves out when it shows the picture.
inline constexpr unsigned KeyColour = 0xFF00FF;

// The size at scale 1.
int width(Kind kind);
int height(Kind kind);
// "MinNorm.bmp", "CloseHigh@2x.bmp".
QString fileName(Kind kind, bool highlighted, int scale = 1);
QImage draw(Kind kind, bool highlighted, int scale);
// The picture as a button shows it: the key colour made transparent.
QImage keyedOut(const QImage &picture);

} // namespace FramePictures
