// SPDX-License-Identifier: MIT
#include "SlideShow.h"

#include <QApplication>

/// A full-screen slide show of three slides that has the keyboard focus and obeys the keys of a presentation
/// program: what the pen is tried on where no presentation program is at hand.
int main(int argc, char *argv[]) {
    QApplication application(argc, argv);
    vexa::SlideShow show;
    show.showFullScreen();
    show.activateWindow();
    return QApplication::exec();
}
