#pragma once

#include "ui/FramePictures.h"

#include <QAbstractButton>
#include <QPixmap>

// A button shown as a picture from the "1024 x 768 Images" folder, its
// highlighted picture while the mouse is over it or it is held down. The
// pictures at twice the size are taken on a screen of twice the density.
class PictureButton : public QAbstractButton
{
    Q_OBJECT
public:
    PictureButton(FramePictures::Kind kind, const QString &folder, QWidget *parent = nullptr);

    // Maximise and restore share one button.
    void setKind(FramePictures::Kind kind);
    FramePictures::Kind kind() const { return m_kind; }

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    bool event(QEvent *event) override;

private:
    QPixmap load(bool highlighted, int scale) const;

    FramePictures::Kind m_kind;
    QString m_folder;
    int m_scale = 0; // of the pictures held; 0 while none are
    QPixmap m_normal;
    QPixmap m_highlighted;
};
