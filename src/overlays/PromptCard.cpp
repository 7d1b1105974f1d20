// SPDX-License-Identifier: MIT
#include "overlays/PromptCard.h"

#include "overlays/PenPalette.h"
#include "platform/OverlayWindow.h"
#include "settings/ZrToolXmlClass.h"

#include <QEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QPalette>
#include <QScreen>
#include <QTimerEvent>

namespace vexa {
namespace {

constexpr int noTimer = -1;
constexpr int cardStep = 60;
constexpr double opacityStep = 0.05;
constexpr QSize cardSize(380, 180);

constexpr const std::int32_t *penOfSlot[] = {&ZrToolXmlClass::PenColor0, &ZrToolXmlClass::PenColor1,
                                             &ZrToolXmlClass::PenColor2};

} // namespace

PromptCard::PromptCard(QWidget *parent, Qt::WindowFlags flags, int delay)
    : QWidget(parent, flags), m_delay(delay) {}

void PromptCard::dress(QLabel *text, QLabel *swatch) {
    m_text = text;
    m_swatch = swatch;
    QPalette card = palette();
    card.setBrush(QPalette::All, QPalette::Window, QBrush(QPixmap(QStringLiteral(":/capturebg@1080p.png"))));
    setPalette(card);
}

void PromptCard::setText(const QString &text) {
    m_text->setText(text);
}

void PromptCard::setCurcolor(int slot) {
    m_colourSlot = slot;
    if (slot < 0 || slot >= int(std::size(penOfSlot)))
        return;
    const QString colour = penColourName(*penOfSlot[slot]);
    if (!colour.isEmpty())
        m_swatch->setStyleSheet(swatchStyle(slot, colour));
}

void PromptCard::showWithTimer() {
    showAndFade(cardSize, cardStep);
}

void PromptCard::showWithTransperent() {
    stopFade();
    showCentred(cardSize, 0.0);
}

void PromptCard::showAndFade(const QSize &size, int stepInterval) {
    stopFade();
    showCentred(size, 1.0);
    m_fadeTimer = startTimer(stepInterval);
}

void PromptCard::showCentred(const QSize &size, double opacity) {
    const QSize screen = QGuiApplication::primaryScreen()->size();
    const QPoint origin = QGuiApplication::primaryScreen()->geometry().topLeft();
    const QPoint middle((screen.width() - size.width()) / 2, (screen.height() - size.height()) / 2);
    setGeometry(QRect(origin + middle, size));
    m_opacity = opacity;
    platform::setOverlayOpacity(*this, m_opacity);
    platform::showAboveAll(*this);
}

void PromptCard::hideWindow() {
    stopFade();
    platform::setOverlayOpacity(*this, 0.0);
}

void PromptCard::delayShow() {
    if (m_delayTimer != noTimer)
        killTimer(m_delayTimer);
    m_delayTimer = startTimer(m_delay);
}

void PromptCard::stopFade() {
    if (m_fadeTimer != noTimer)
        killTimer(m_fadeTimer);
    m_fadeTimer = noTimer;
}

void PromptCard::timerEvent(QTimerEvent *event) {
    if (event->timerId() == m_delayTimer) {
        killTimer(m_delayTimer);
        m_delayTimer = noTimer;
        showWithTimer();
        return;
    }
    m_opacity -= opacityStep;
    platform::setOverlayOpacity(*this, m_opacity);
    // Twenty steps from 1 do not meet 0 in binary, so a fade from there goes on unseen until the next show.
    if (m_opacity == 0.0)
        stopFade();
}

void PromptCard::changeEvent(QEvent *event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

} // namespace vexa
