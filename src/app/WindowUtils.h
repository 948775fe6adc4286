#pragma once

class QWidget;

// Lets the window manager move a caption-less window, as if its caption had
// been grabbed. Call from a left-button press on the window's body.
void DragWindow(QWidget *window);
// Places a window on its screen by centredPosition().
void CentreWindow(QWidget *window);
