// SPDX-License-Identifier: MIT
#include "annotation/DrawingForm.h"

#include "annotation/ToolCursors.h"
#include "overlays/BrushPicture.h"
#include "overlays/PenPalette.h"
#include "overlays/promptwindow2.h"
#include "platform/OverlayWindow.h"
#include "platform/Screens.h"
#include "settings/ZrToolXmlClass.h"

#include <QGuiApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QScreen>

namespace vexa {

namespace {

constexpr int eraserSize = 50;
constexpr int settlingInterval = 50; // milliseconds

constexpr auto exitLook = "QPushButton{border:0px;background:transparent;border-image: url(:/icon-exit.png)}";
constexpr auto eraserLook =
    "QPushButton{border:0px;background:transparent;border-image: url(:/icon-eraser.png)}"
    "QPushButton:checked{border:0px;background:transparent;border-image: "
    "url(:/icon-eraser-selected.png);}";
constexpr auto penLook = "QPushButton{border:0px;background:transparent;border-image: url(:/icon-pen.png)}"
                         "QPushButton:checked{border:0px;background:transparent;border-image: "
                         "url(:/icon-pen-selected.png);}";

/// The setting of one of the three pens; outside of any palette for another index.
int penSetting(int index) {
    switch (index) {
    case 0:
        return ZrToolXmlClass::PenColor0;
    case 1:
        return ZrToolXmlClass::PenColor1;
    case 2:
        return ZrToolXmlClass::PenColor2;
    default:
        return -1;
    }
}

const QScreen &primaryScreen() {
    return *QGuiApplication::primaryScreen();
}

} // namespace

DrawingForm::DrawingForm(QWidget *parent)
    : QWidget(parent)
    , m_ink(platform::coveringPoints(primaryScreen()), primaryScreen().devicePixelRatio())
    , m_follower([this] { followScreen(); }) {
    m_settling.setSingleShot(true);
    m_settling.setInterval(settlingInterval);
    m_settling.callOnTimeout(this, [this] { update(m_ink.takeSettling()); });
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    setAttribute(Qt::WA_MouseTracking);
    setAttribute(Qt::WA_DeleteOnClose);
    setPenInit();
    buildCursors();
    m_prompt = std::make_unique<promptwindow2>(this);
}

DrawingForm::~DrawingForm() = default;

void DrawingForm::place() const {
    constexpr int side = 60;
    constexpr int pitch = 80;
    const QSize screen = primaryScreen().size();
    const int middle = (screen.width() - side) / 2;
    const int top = screen.height() - 100;
    const Controls all = controls();
    all.exit->setGeometry(middle + pitch, top, side, side);
    all.eraser->setGeometry(middle, top, side, side);
    all.pen->setGeometry(middle - pitch, top, side, side);
    all.title->setGeometry((screen.width() - 280) / 2, 0, 280, 40);
}

void DrawingForm::setUpControls(const QString &title) {
    place();
    const Controls all = controls();
    all.exit->setStyleSheet(QLatin1String(exitLook));
    all.exit->installEventFilter(this);
    all.eraser->setStyleSheet(QLatin1String(eraserLook));
    all.pen->setStyleSheet(QLatin1String(penLook));
    all.pen->setChecked(true);

    QLabel &label = *all.title;
    label.setFont(QFont(QStringLiteral("Arial"), 25, QFont::Bold));
    label.setAlignment(Qt::AlignCenter);
    label.setText(title);
    label.setAutoFillBackground(true);
    setTitleColours();
}

void DrawingForm::setTitleColours() const {
    QLabel &label = *controls().title;
    QPalette colours = label.palette();
    colours.setBrush(QPalette::Window, brushPicture(QStringLiteral(":/annotatebg@1080p.png")));
    colours.setColor(QPalette::WindowText, Qt::white);
    label.setPalette(colours);
}

/// Picture and ink are stretched alike, so that what was drawn stays where it was in the picture.
void DrawingForm::followScreen() {
    const QSize points = platform::coveringPoints(primaryScreen());
    const qreal ratio = primaryScreen().devicePixelRatio();
    if (m_pressed)
        penUp();
    m_ink = m_ink.stretchedTo(points, ratio);
    if (m_background) {
        auto stretched = std::make_unique<QPixmap>(m_background->scaled(
            (QSizeF(points) * ratio).toSize(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        stretched->setDevicePixelRatio(ratio);
        Setbackground(stretched.release());
    }
    buildCursors();
    setTitleColours();
    place();
    if (isVisible())
        platform::fitToPrimaryScreen(*this);
}

void DrawingForm::Setbackground(QPixmap *picture) {
    setBackgroundBrush(picture ? QBrush(*picture) : QBrush(Qt::NoBrush));
    if (picture != m_background.get())
        m_background.reset(picture);
}

void DrawingForm::setBackgroundBrush(const QBrush &brush) {
    QPalette colours = palette();
    colours.setBrush(QPalette::All, QPalette::Window, brush);
    setPalette(colours);
    update();
}

void DrawingForm::setPenInit() {
    m_erasing = false;
    m_penColour = penColour(penSetting(m_colourIndex));
    m_penWidth = penWidth(ZrToolXmlClass::PenThickness);
    m_ink.setPen(QPen(m_penColour, m_penWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

void DrawingForm::ChangePenColorID() {
    if (m_erasing || m_pressed)
        return;
    m_colourIndex = m_colourIndex == 2 ? 0 : m_colourIndex + 1;
    m_prompt->setCurcolor(m_colourIndex);
    m_prompt->showWithTimer();
    setPenInit();
    buildCursors();
}

void DrawingForm::buildCursors() {
    const qreal ratio = primaryScreen().devicePixelRatio();
    m_penCursor = cursorFromPicture(penPicture(m_penWidth, m_penColour, ratio));
    m_eraserCursor = cursorFromPicture(eraserPicture(eraserSize, ratio));
    setCursor(m_erasing ? m_eraserCursor : m_penCursor);
}

void DrawingForm::takeEraser() {
    m_erasing = true;
    setCursor(m_eraserCursor);
}

void DrawingForm::takePen() {
    m_erasing = false;
    setCursor(m_penCursor);
}

void DrawingForm::mousePressEvent(QMouseEvent *event) {
    m_pressed = true;
    m_buttonSeenDown = QGuiApplication::mouseButtons() != Qt::NoButton;
    const QPoint point = event->localPos().toPoint();
    if (m_erasing) {
        update(m_ink.erase(point, eraserSize, false));
        return;
    }
    m_prompt->hideWindow();
    update(m_ink.begin(point));
    setCursor(Qt::BlankCursor);
}

void DrawingForm::mouseMoveEvent(QMouseEvent *event) {
    if (!m_pressed)
        return;
    // Another window took the mouse during the stroke, and the release with it.
    if (m_buttonSeenDown && QGuiApplication::mouseButtons() == Qt::NoButton) {
        penUp();
        return;
    }
    const QPoint point = event->localPos().toPoint();
    update(m_erasing ? m_ink.erase(point, eraserSize, true) : m_ink.extend(point));
    if (!m_settling.isActive())
        m_settling.start();
}

void DrawingForm::mouseReleaseEvent(QMouseEvent * /*event*/) {
    penUp();
}

void DrawingForm::penUp() {
    if (!m_erasing)
        setCursor(m_penCursor);
    m_pressed = false;
    m_ink.end();
    m_settling.stop();
    update(m_ink.takeSettling());
}

void DrawingForm::paintEvent(QPaintEvent *event) {
    if (m_ink.isBlank()) // as it is when the window opens, which must not wait for a screen of nothing
        return;
    QPainter painter(this);
    const qreal ratio = m_ink.image().devicePixelRatio();
    for (const QRect &area : event->region())
        painter.drawImage(area, m_ink.image(),
                          QRectF(QPointF(area.topLeft()) * ratio, QSizeF(area.size()) * ratio));
}

void DrawingForm::timerEvent(QTimerEvent * /*event*/) {
    update();
}

bool DrawingForm::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() != QEvent::MouseButtonPress)
        return QWidget::eventFilter(watched, event);
    // The window outlives its closing until the event loop turns; a second press must not report again.
    if (!m_leaving) {
        m_leaving = true;
        const QPointer<DrawingForm> alive(this);
        reportExit();
        if (alive)
            close();
    }
    return true;
}

} // namespace vexa
