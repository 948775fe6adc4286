#pragma once

#include <QPixmap>
#include <QString>

// The two pictures of the balancing list's tick column, "Checked.bmp" and
// "UnChecked.bmp" from the "1024 x 768 Images" folder beside the program.
// When a picture cannot be read, a mark of the same size is drawn instead.
class TickPictures
{
public:
    // Reads the pictures from `folder` (by default the one beside the program).
    explicit TickPictures(const QString &folder = QString());

    const QPixmap &ticked() const { return m_ticked; }
    const QPixmap &unticked() const { return m_unticked; }
    // True when both pictures came from their files.
    bool fromFiles() const { return m_fromFiles; }

    static QString defaultFolder();
    inline static const QString FolderName = QStringLiteral("1024 x 768 Images");
    inline static const QString TickedFile = QStringLiteral("Checked.bmp");
    inline static const QString UntickedFile = QStringLiteral("UnChecked.bmp");

private:
    static QPixmap drawn(bool ticked);

    QPixmap m_ticked;
    QPixmap m_unticked;
    bool m_fromFiles = false;
};
