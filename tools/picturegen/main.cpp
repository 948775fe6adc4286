// Writes the pictures of every colour scheme and the frame's picture buttons
// into the folder named on the command line ("1024 x 768 Images" beside the
// program). The build runs it whenever it changes.

#include "ThemePictures.h"
#include "core/ThemeCatalogue.h"
#include "ui/FramePictures.h"

#include <QDir>
#include <QGuiApplication>
#include <QTextStream>

#include <cstdio>

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    QTextStream err(stderr);
    const QStringList args = QCoreApplication::arguments();
    if (args.size() != 2) {
        err << "usage: quill_picturegen FOLDER\n";
        return 2;
    }
    const QDir folder(args[1]);
    if (!folder.mkpath(QStringLiteral("."))) {
        err << "cannot make " << args[1] << "\n";
        return 1;
    }
    int failed = 0;
    const auto save = [&](const QImage &image, const QString &name, const char *format) {
        if (!image.save(folder.filePath(name), format, 90)) {
            err << "cannot write " << folder.filePath(name) << "\n";
            ++failed;
        }
    };
    for (const ThemeCatalogue::Theme &theme : ThemeCatalogue::all())
        for (const ThemeCatalogue::Picture picture : ThemeCatalogue::Pictures)
            save(ThemePictures::draw(theme, picture),
                 ThemeCatalogue::pictureFile(picture, theme.name), "JPG");
    for (const FramePictures::Kind kind : FramePictures::Kinds)
        for (const bool highlighted : {false, true})
            for (const int scale : {1, 2})
                save(FramePictures::draw(kind, highlighted, scale),
                     FramePictures::fileName(kind, highlighted, scale), "BMP");
    return failed ? 1 : 0;
}
