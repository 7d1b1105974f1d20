// SPDX-License-Identifier: MIT
#include "fakes/Desktop.h"

#include "platform/ScreenCapture.h"

#include <QWidget>

namespace vexa {

FakeDesktop &fakeDesktop() {
    static FakeDesktop desktop;
    return desktop;
}

namespace platform {

void showOverPrimaryScreen(QWidget &overlay, Cover cover) {
    fakeDesktop().covers[overlay.metaObject()->className()] = cover;
    overlay.show();
}

void fitToPrimaryScreen(QWidget & /*overlay*/) {}

void fitToScale(QWidget & /*widget*/) {}

void showAboveAll(QWidget &card) {
    fakeDesktop().done += "shown";
    card.show();
}

void setOverlayOpacity(QWidget &card, double opacity) {
    const bool wasSeen = card.windowOpacity() > 0;
    card.setWindowOpacity(opacity);
    if ((opacity > 0) != wasSeen)
        fakeDesktop().done += opacity > 0 ? "seen" : "unseen";
}

QPixmap capturePrimaryScreen() {
    return {};
}

bool prepareCapture() {
    return false;
}

QPixmap captureScreenRect(const QRect & /*rect*/) {
    ++fakeDesktop().looks;
    return QPixmap::fromImage(fakeDesktop().screen);
}

CursorPicture currentCursorPicture() {
    return {};
}

void openScreenRecordingSettings() {
    ++fakeDesktop().openedPanes;
}

} // namespace platform
} // namespace vexa
