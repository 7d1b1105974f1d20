// SPDX-License-Identifier: MIT
#include "overlays/PromptCard.h"

#include "overlays/BrushPicture.h"
#include "overlays/PenPalette.h"
#include "platform/OverlayWindow.h"
#include "settings/ZrToolXmlClass.h"

#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QPalette>
#include <QScreen>
#include <QTimerEvent>

namespace vexa {
namespace {

constexpr int cardStep = 60;
constexpr double opacityStep = 0.05;
constexpr QSize cardSize(380, 180);

constexpr const std::int32_t *penOfSlot[] = {&ZrToolXmlClass::PenColor0, &ZrToolXmlClass::PenColor1,
                                             &ZrToolXmlClass::PenColor2};

} // namespace

PromptCard::PromptCard(QWidget *parent, Qt::WindowFlags flags, int delay)
    : QWidget(parent, flags), m_delay(delay), m_follower([this] {
        setBackgroundPicture();
        if (!isVisible())
            return;
        centre();
        platform::fitToScale(*this);
    }) {
    // When a card gets its native window, the toolkit would make native windows of its sibling widgets, too,
    // and those keep the scale of the screen on which they were made.
    QCoreApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings);
    setBackgroundPicture();
}

void PromptCard::setBackgroundPicture() {
    QPalette card = palette();
    card.setBrush(QPalette::All, QPalette::Window, brushPicture(QStringLiteral(":/capturebg@1080p.png")));
    setPalette(card);
}

void PromptCard::setText(const QString &text) {
    textLabel().setText(text);
}

void PromptCard::setCurcolor(int slot) {
    m_colourSlot = slot;
    if (slot < 0 || slot >= int(std::size(penOfSlot)))
        return;
    const QString colour = penColourName(*penOfSlot[slot]);
    if (!colour.isEmpty())
        swatchLabel().setStyleSheet(swatchStyle(slot, colour));
}

void PromptCard::showWithTimer() {
    showAndFade(cardSize, cardStep);
}

void PromptCard::showWithTransperent() {
    m_fade.stop();
    showCentred(cardSize, 0.0);
}

void PromptCard::showAndFade(const QSize &size, int stepInterval) {
    showCentred(size, 1.0);
    m_fade.start(stepInterval, this);
}

/// Not by size(): an earlier change of place that the server confirms after the scale has become another one
/// tells the toolkit of as many pixels as before, which are other points.
void PromptCard::centre() {
    const QSize screen = QGuiApplication::primaryScreen()->size();
    const QPoint origin = QGuiApplication::primaryScreen()->geometry().topLeft();
    const QPoint middle((screen.width() - m_size.width()) / 2, (screen.height() - m_size.height()) / 2);
    setGeometry(QRect(origin + middle, m_size));
}

void PromptCard::showCentred(const QSize &size, double opacity) {
    m_size = size;
    centre();
    setOpacity(opacity);
    platform::showAboveAll(*this);
}

void PromptCard::setOpacity(double opacity) {
    m_opacity = opacity;
    platform::setOverlayOpacity(*this, m_heldBack ? 0.0 : m_opacity);
}

void PromptCard::holdBack() {
    m_heldBack = true;
    setOpacity(m_opacity);
}

void PromptCard::letOut() {
    m_heldBack = false;
    setOpacity(m_opacity);
}

void PromptCard::hideWindow() {
    m_fade.stop();
    setOpacity(0.0);
}

void PromptCard::delayShow() {
    m_delayed.start(m_delay, this);
}

void PromptCard::timerEvent(QTimerEvent *event) {
    if (event->timerId() == m_delayed.timerId()) {
        m_delayed.stop();
        showWithTimer();
        return;
    }
    if (m_heldBack)
        return; // its time begins when it can be seen
    setOpacity(m_opacity - opacityStep);
    // Twenty steps of 0.05 from 1 do not meet 0 in binary: a fade goes on unseen until the next show.
    if (m_opacity == 0.0)
        m_fade.stop();
}

void PromptCard::changeEvent(QEvent *event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

} // namespace vexa
