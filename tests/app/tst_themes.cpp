// The colour schemes: every scheme has its pictures and readable colours, the
// stored choice is kept or falls back, and the whole program follows a choice;
// the main window's remembered place is used only when it can be seen.

#include "app/GeneralSettings.h"
#include "app/MainForm.h"
#include "app/ScriptInteraction.h"
#include "app/WindowPlacement.h"
#include "core/ThemeCatalogue.h"
#include "ui/FramePictures.h"
#include "ui/ThemeStyle.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QImage>
#include <QTemporaryDir>
#include <QtTest>

using namespace ThemeCatalogue;

class ThemesTest : public QObject
{
    Q_OBJECT

    const QDir m_images{QStringLiteral(QUILL_IMAGES_DIR)};

private Q_SLOTS:
    void contrastArithmetic()
    {
        QCOMPARE(contrast(0x000000, 0xFFFFFF), 21.0);
        QCOMPARE(contrast(0x336699, 0x336699), 1.0);
        // The grey that just misses 4.5:1 on white, and the one that makes it.
        QVERIFY(contrast(0x777777, 0xFFFFFF) < 4.5);
        QVERIFY(contrast(0x767676, 0xFFFFFF) >= 4.5);
        QCOMPARE(mix(0x000000, 0xFFFFFF, 0.5), Rgb(0x808080));
    }

    void catalogue()
    {
        QCOMPARE(all().size(), 20);
        QCOMPARE(defaultName(), QStringLiteral("Blue"));
        QStringList names;
        for (const Theme &t : all())
            names << t.name;
        QCOMPARE(QSet<QString>(names.begin(), names.end()).size(), 20);
        for (const char *wanted : {"Blue", "Blue Burst", "Classic", "Platinum", "Rainbow"})
            QVERIFY2(names.contains(QLatin1String(wanted)), wanted);
        for (const auto &[stored, used] :
             QList<std::pair<QString, QString>>{{"Blue Burst", "Blue Burst"},
                                                {"  Rainbow   ", "Rainbow"},
                                                {"", "Blue"},
                                                {"rainbow", "Blue"},
                                                {"No Such Theme", "Blue"}})
            QCOMPARE(resolve(stored), used);
    }

    void framePictures()
    {
        for (const FramePictures::Kind kind : FramePictures::Kinds)
            for (const bool high : {false, true})
                for (const int scale : {1, 2}) {
                    const QString name = FramePictures::fileName(kind, high, scale);
                    const QImage image(m_images.filePath(name));
                    QVERIFY2(!image.isNull(), qPrintable(name));
                    QCOMPARE(image.width(), FramePictures::width(kind) * scale);
                }
        QVERIFY(QFileInfo::exists(m_images.filePath(QStringLiteral("MinNorm.bmp"))));
        QVERIFY(QFileInfo::exists(m_images.filePath(QStringLiteral("MinHigh.bmp"))));
    }

    // Every text on every filling of the scheme, and its body text over every
    // pixel of its pictures, reads at 4.5:1 or better; amounts below zero are
    // told apart from the rest.
    void schemeIsLegible_data()
    {
        QTest::addColumn<QString>("name");
        for (const Theme &t : all())
            QTest::newRow(qPrintable(t.name)) << t.name;
    }
    void schemeIsLegible()
    {
        QFETCH(QString, name);
        const Theme &t = *find(name);
        for (const TextPair &pair : textPairs(t))
            QVERIFY2(contrast(pair.text, pair.background) >= 4.5, pair.what);
        int apart = 0;
        for (int shift = 0; shift <= 16; shift += 8)
            apart += std::abs(int((t.negative >> shift) & 0xFF) - int((t.text >> shift) & 0xFF));
        QVERIFY2(apart >= 120, "negative amounts look like the other text");

        for (const Picture picture : Pictures) {
            const QString file = pictureFile(picture, name);
            const QImage image(m_images.filePath(file));
            QVERIFY2(!image.isNull(), qPrintable(file));
            double worst = 21;
            for (int y = 0; y < image.height(); y += 3)
                for (int x = 0; x < image.width(); x += 3)
                    worst = std::min(worst, contrast(t.text, image.pixel(x, y) & 0xFFFFFF));
            QVERIFY2(worst >= 4.5, qPrintable(file));
        }
    }

    // A stored name no scheme has falls back to "Blue" and is written back; a
    // choice is written at once and dresses the whole program.
    void storedChoice()
    {
        QTemporaryDir dir;
        ScriptInteraction ui{[](const QString &) {}};
        GeneralSettings settings(dir.path());
        GenInfoRecord r = settings.load();
        r.ThemeName = QStringLiteral("Tartan");
        QVERIFY(settings.save(r).isEmpty());

        MainForm form(ui, dir.path());
        form.load();
        QCOMPARE(settings.load().ThemeName.text().trimmed(), QStringLiteral("Blue"));
        auto *chooser = form.findChild<QComboBox *>(QStringLiteral("cmbTheme"));
        QCOMPARE(chooser->currentText(), QStringLiteral("Blue"));

        chooser->setCurrentIndex(chooser->findText(QStringLiteral("Rainbow")));
        Q_EMIT chooser->activated(chooser->currentIndex());
        QCOMPARE(settings.load().ThemeName.text().trimmed(), QStringLiteral("Rainbow"));
        const Theme &rainbow = *find(QStringLiteral("Rainbow"));
        QCOMPARE(QApplication::palette().color(QPalette::Base), ThemeStyle::colour(rainbow.base));
        QCOMPARE(ThemeStyle::negative(), ThemeStyle::colour(rainbow.negative));

        // The pictures are used where they are, and no picture that is missing.
        const QString dressed = ThemeStyle::styleSheet(rainbow, m_images.path());
        const QString bare = ThemeStyle::styleSheet(rainbow, dir.path());
        for (const Picture picture : Pictures) {
            QVERIFY(dressed.contains(pictureFile(picture, rainbow.name)));
            QVERIFY(!bare.contains(pictureFile(picture, rainbow.name)));
        }
    }

    void rememberedPlace()
    {
        const QList<QRect> screens = {{0, 0, 1024, 768}, {1024, 0, 1280, 1024}};
        QVERIFY(placementUsable({100, 50, 800, 600}, screens));
        QVERIFY(placementUsable({1500, 200, 800, 600}, screens)); // on the second screen
        QVERIFY(placementUsable({-700, 10, 800, 600}, screens));  // 100 pixels still on
        QVERIFY(!placementUsable({-750, 10, 800, 600}, screens));
        QVERIFY(!placementUsable({3000, 100, 800, 600}, screens)); // a screen since unplugged
        QVERIFY(!placementUsable({100, 760, 800, 600}, screens));  // its top below the screen
        QVERIFY(!placementUsable({}, screens));                    // never kept
    }
};

QTEST_MAIN(ThemesTest)
#include "tst_themes.moc"
