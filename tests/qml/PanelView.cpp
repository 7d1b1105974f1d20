// SPDX-License-Identifier: MIT
#include "qml/PanelView.h"

#include <QImage>
#include <QQmlProperty>
#include <QQuickWindow>
#include <QTest>

namespace {

constexpr int boxHeight = 30;

QtMessageHandler testsHandler = nullptr;

void failOnViewWarning(QtMsgType type, const QMessageLogContext &context, const QString &text) {
    if (type != QtDebugMsg && type != QtInfoMsg && text.contains(QStringLiteral(".qml:")))
        QTest::qFail(qPrintable(text), context.file, context.line);
    testsHandler(type, context, text);
}

std::unique_ptr<QQuickWidget> load(const QString &document) {
    qml::failOnWarnings();
    return std::make_unique<QQuickWidget>(QUrl(document));
}

} // namespace

PanelView::PanelView(const QString &document) : m_own(load(document)), m_widget(*m_own) {
    m_widget.show();
    listen();
}

PanelView::PanelView(NotShown /*unseen*/)
    : m_own(load(QStringLiteral("qrc:/MainWindow.qml"))), m_widget(*m_own) {
    listen();
}

PanelView::PanelView(QQuickWidget &hosted) : m_widget(hosted) {
    qml::failOnWarnings();
    listen();
}

void PanelView::listen() {
    if (root() != nullptr && root()->metaObject()->indexOfSignal("qmlSignal1(int,int,int)") >= 0)
        connect(root(), SIGNAL(qmlSignal1(int, int, int)), this, SLOT(record(int, int, int)));
}

void PanelView::push(ViewMessage id, vexa::test::Number value, vexa::test::Number var2) {
    QVERIFY(QMetaObject::invokeMethod(root(), "setvalue", Q_ARG(QVariant, int(id)),
                                      Q_ARG(QVariant, int(value)), Q_ARG(QVariant, int(var2))));
}

void PanelView::pushAll(const QList<int> &values) {
    int id = int(vexa::firstSettingMessage);
    for (const int value : values)
        push(ViewMessage(id++), value);
}

void PanelView::click(const QPoint &place) {
    press(place);
    release(place);
}

void PanelView::press(const QPoint &place) {
    moveTo(place);
    QTest::mousePress(m_widget.window()->windowHandle(), Qt::LeftButton, {}, place);
}

void PanelView::moveTo(const QPoint &place) {
    QTest::mouseMove(m_widget.window()->windowHandle(), place);
}

void PanelView::jiggle(const QPoint &place) {
    moveTo(place + QPoint(1, 0));
    moveTo(place);
}

void PanelView::release(const QPoint &place) {
    QTest::mouseRelease(m_widget.window()->windowHandle(), Qt::LeftButton, {}, place);
}

QObject *PanelView::openList(const QPoint &box) {
    auto *popup = list(box) ? list(box)->property("popup").value<QObject *>() : nullptr;
    click(box + QPoint(20, boxHeight / 2));
    if (!popup || !QTest::qWaitFor([popup] { return popup->property("opened").toBool(); }))
        QTest::qFail("no list opens", __FILE__, __LINE__);
    return popup;
}

void PanelView::pick(const QPoint &box, vexa::test::Number row) {
    constexpr int rowHeight = 30;
    const QObject *popup = openList(box);
    QVERIFY(popup != nullptr);
    const QPoint place = box + QPoint(20, boxHeight + 1 + row * rowHeight + rowHeight / 2);
    QTRY_VERIFY(rowAt(place) != nullptr); // rows come with the next frame
    click(place);
    QTRY_VERIFY(!popup->property("visible").toBool());
}

void PanelView::activate() {
    m_widget.activateWindow();
    QTRY_VERIFY(m_widget.isActiveWindow());
}

void PanelView::type(Qt::Key key) {
    QTest::keyClick(&m_widget, key);
}

QQuickItem *PanelView::rowAt(const QPoint &place) {
    for (QQuickItem *candidate : qml::tree(root()->window()->contentItem()))
        if (candidate->isVisible() && qml::isOfType(candidate, QStringLiteral("QQuickItemDelegate")) &&
            candidate->contains(candidate->mapFromScene(place)))
            return candidate;
    return nullptr;
}

QQuickItem *PanelView::item(const QString &type, const QPointF &corner) {
    for (QQuickItem *candidate : items(type))
        if (qml::corner(candidate) == corner)
            return candidate;
    return nullptr;
}

QQuickItem *PanelView::text(const QPointF &corner) {
    return item("PanelText", corner);
}

QString PanelView::textAt(const QPointF &corner) {
    return shown("PanelText", corner, "text").toString();
}

QVariant PanelView::shown(const char *type, const QPointF &corner, const char *property) {
    const QQuickItem *found = item(type, corner);
    return found ? found->property(property) : QVariant();
}

QList<QQuickItem *> PanelView::items(const QString &type) {
    QList<QQuickItem *> found;
    for (QQuickItem *candidate : qml::tree(root()))
        if (candidate->isVisible() && qml::isOfType(candidate, type))
            found.append(candidate);
    return found;
}

QStringList PanelView::visibleTexts() {
    QStringList texts;
    for (const QQuickItem *item : items(QStringLiteral("QQuickText")))
        texts.append(item->property("text").toString());
    return texts;
}

QColor PanelView::pixel(const QPoint &place) {
    return m_widget.grabFramebuffer().pixelColor(place);
}

void PanelView::record(int id, int var1, int var2) {
    messages.append({ViewMessage(id), var1, var2});
}

void qml::failOnWarnings() {
    const QtMessageHandler present = qInstallMessageHandler(failOnViewWarning);
    if (present != failOnViewWarning)
        testsHandler = present;
}

bool qml::isOfType(const QQuickItem *item, const QString &type) {
    for (const QMetaObject *meta = item->metaObject(); meta != nullptr; meta = meta->superClass()) {
        const QString name = QString::fromLatin1(meta->className());
        if (name == type || name.startsWith(type + QStringLiteral("_QML")))
            return true;
    }
    return false;
}

QList<QQuickItem *> qml::tree(QQuickItem *top) {
    QList<QQuickItem *> all{top};
    for (QQuickItem *child : top->childItems())
        all.append(tree(child));
    return all;
}

QPointF qml::corner(const QQuickItem *item) {
    return item->mapToScene({});
}

bool qml::is(QObject *object, const QString &expected) {
    for (const QString &property : expected.split("; ")) {
        const QString name = property.section(": ", 0, 0);
        const QString value = property.section(": ", 1);
        const QVariant actual = object ? QQmlProperty::read(object, name) : QVariant();
        bool isNumber = false;
        const double number = value.toDouble(&isNumber);
        const bool same = actual.type() == QVariant::Color ? actual.value<QColor>() == QColor(value)
                          : isNumber                       ? actual.toDouble() == number
                                                           : actual.toString() == value;
        if (!actual.isValid() || !same) {
            qWarning() << name << "is" << actual;
            return false;
        }
    }
    return true;
}
