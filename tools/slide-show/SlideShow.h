// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace vexa {

/// Space turns to the next slide, page up to the one before, F5 starts at the first and escape blacks the
/// screen out until the next F5. GUI thread only.
class SlideShow : public QWidget {
public:
    SlideShow();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void showSlide(int number);

    int m_slide = 0;
    bool m_running = true;
};

} // namespace vexa
