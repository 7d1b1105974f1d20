// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QWidget>

namespace vexa {

/// Space and a click turn to the next slide, behind the last one to a black end; page up turns to the one
/// before, F5 starts at the first and escape blacks the screen out until the next F5. As strict as the
/// presentation programs that are strictest: a key is dropped that comes while a button is held or right
/// after a button's change, or is read right after it. Each slide shown is told on the standard output. GUI
/// thread only.
class SlideShow : public QWidget {
public:
    SlideShow();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void showSlide(int number);

    bool comesWithAButton(const QKeyEvent *event) const;

    int m_slide = 0;
    ulong m_buttonChanged = 0;   ///< milliseconds of the server's clock
    QElapsedTimer m_sinceButton; ///< since a release was read
    bool m_running = true;
};

} // namespace vexa
