// SPDX-License-Identifier: MIT
#include "qml/PanelView.h"
#include "support/TestMain.h"

#include <QFont>

namespace {

const QString white = QStringLiteral("#ffffff");
const QString grey = QStringLiteral("#7d7d7d");
constexpr int fitting = -1; ///< a size that the text itself decides

/// Where the views stand, and the button that opens each.
struct Place {
    QPoint corner;
    QSize size;
    QPoint button;
};
const Place key1{{712, 87}, {257, 500}, {679, 457}};
const Place key2{{30, 321}, {257, 188}, {296, 457}};
const Place key3{{712, 87}, {257, 188}, {679, 196}};
const Place key4{{30, 87}, {257, 500}, {296, 196}};
const Place settings{{722, 207}, {247, 390}, {951, 598}};
const Place overview{{0, 0}, {999, 650}, {}};

void texts() {
    QTest::addColumn<QPoint>("button");
    QTest::addColumn<QPoint>("corner");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("pixels");
    QTest::addColumn<QString>("color");
}

/// A row of the table: the view, the text's place in it, and its looks.
void text(const char *name, const Place &view, const QPoint &corner, const QSize &size, const QString &words,
          int pixels = 13, const QString &color = white) {
    QTest::newRow(name) << view.button << view.corner + corner << size << words << pixels << color;
}

/// Width and colour of a rectangle's border.
std::pair<int, QString> border(const QQuickItem *rectangle) {
    const auto *pen = rectangle->property("border").value<QObject *>();
    return {pen->property("width").toInt(), pen->property("color").value<QColor>().name()};
}

} // namespace

/// Every place, size, font and colour of the panel.
class PanelLayoutTest : public QObject {
    Q_OBJECT

private slots:
    void init() { m_view = std::make_unique<PanelView>(); }
    void cleanup() { m_view.reset(); }

    void panelIsARectangleWithAPicture() {
        PanelView view(PanelView::Unseen); // before its first frame, which shows this picture and no other
        QCOMPARE(view.root()->size(), QSizeF(999, 650));
        QCOMPARE(view.root()->property("color").value<QColor>(), QColor(0x33, 0x33, 0x33));
        QStringList pictures;
        for (const QQuickItem *picture : view.items(QStringLiteral("QQuickImage"))) {
            if (qml::corner(picture) != QPointF(0, 0) || picture->size() != QSizeF(999, 650))
                continue;
            pictures.append(picture->property("source").toString());
            QCOMPARE(picture->property("progress").toReal(), 1.0);
        }
        QCOMPARE(pictures, QStringList("qrc:/bg@3x.png"));
    }

    void buttonsStandAtTheirPlaces_data() {
        QTest::addColumn<QPoint>("corner");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QString>("normal");
        QTest::addColumn<QString>("selected");
        const auto left = QStringLiteral("qrc:/icon-left@3x.png");
        const auto leftSelected = QStringLiteral("qrc:/icon-left-selected@3x.png");
        const auto right = QStringLiteral("qrc:/icon-right@3x.png");
        const auto rightSelected = QStringLiteral("qrc:/icon-right-selected@3x.png");
        const auto gear = QStringLiteral("qrc:/icon-setting@3x.png");
        QTest::newRow("settings") << settings.button << QSize(18, 18) << gear << gear;
        QTest::newRow("key 1") << key1.button << QSize(24, 24) << right << rightSelected;
        QTest::newRow("key 2") << key2.button << QSize(24, 24) << left << leftSelected;
        QTest::newRow("key 3") << key3.button << QSize(24, 24) << right << rightSelected;
        QTest::newRow("key 4") << key4.button << QSize(24, 24) << left << leftSelected;
    }
    void buttonsStandAtTheirPlaces() {
        QFETCH(QPoint, corner);
        QFETCH(QSize, size);
        QFETCH(QString, normal);
        QFETCH(QString, selected);
        QQuickItem *button = m_view->item(QStringLiteral("KeyButton"), corner);
        QVERIFY(button != nullptr);
        QCOMPARE(button->size(), QSizeF(size));
        QQuickItem *icon = m_view->item(QStringLiteral("QQuickImage"), corner);
        QVERIFY(icon != nullptr);
        QCOMPARE(icon->property("source").toString(), normal);
        QCOMPARE(icon->size(), QSizeF(size)); // a third of the picture's pixels: drawn as it is
        constexpr int pad = 6;
        QCOMPARE(icon->property("fillMode").toInt(), pad);

        open(corner);
        QVERIFY(button->property("checked").toBool());
        QCOMPARE(icon->property("source").toString(), selected);
    }

    void viewsStandAtTheirPlaces_data() {
        QTest::addColumn<QString>("type");
        QTest::addColumn<QPoint>("corner");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QPoint>("button");
        QTest::addColumn<QString>("frame");
        const auto row = [](const char *type, const Place &place, const char *frame) {
            QTest::newRow(type) << QString::fromLatin1(type) << place.corner << place.size << place.button
                                << QString::fromLatin1(frame);
        };
        row("Key1Window", key1, "qrc:/frame-key1.png");
        row("Key2Window", key2, "qrc:/frame-key2.png");
        row("Key3Window", key3, "qrc:/frame-key3.png");
        row("Key4Window", key4, "qrc:/frame-key4.png");
        row("SetWindow", settings, "qrc:/frame-setting.png");
    }
    void viewsStandAtTheirPlaces() {
        QFETCH(QString, type);
        QFETCH(QPoint, corner);
        QFETCH(QSize, size);
        QFETCH(QPoint, button);
        QFETCH(QString, frame);
        QVERIFY2(m_view->items(type).isEmpty(), "shown before its button was clicked");
        open(button);
        const QQuickItem *view = m_view->item(type, corner);
        QVERIFY(view != nullptr);
        QCOMPARE(view->size(), QSizeF(size));
        QCOMPARE(view->property("color").value<QColor>().alpha(), 0);
        const QQuickItem *picture = m_view->item(QStringLiteral("QQuickImage"), corner);
        QVERIFY(picture != nullptr);
        QCOMPARE(picture->property("source").toString(), frame);
        QCOMPARE(picture->size(), QSizeF(size));
        constexpr int preserveAspectFit = 1;
        if (type != QStringLiteral("SetWindow"))
            QCOMPARE(picture->property("fillMode").toInt(), preserveAspectFit);
    }

    void textsStandAtTheirPlaces_data() {
        texts();
        const auto click = QStringLiteral("单击");
        const auto longPress = QStringLiteral("长按");
        const QSize any(fitting, fitting);

        text("key 1 title", overview, {657, 491}, {46, fitting}, QStringLiteral("Key 1"), 16);
        text("key 1 click", overview, {608, 518}, {95, fitting}, click);
        text("key 1 click value", overview, {608, 535}, {95, fitting}, QStringLiteral("切换画笔颜色"), 13,
             grey);
        text("key 1 long", overview, {579, 556}, {124, fitting}, longPress);
        text("key 1 long value", overview, {579, 573}, {124, fitting}, QStringLiteral("开启/关闭批注"), 13,
             grey);
        text("key 2 title", overview, {296, 491}, any, QStringLiteral("Key 2"), 16);
        text("key 2 click", overview, {296, 518}, any, click);
        text("key 2 click value", overview, {296, 535}, any, QStringLiteral("上一页"), 13, grey);
        text("key 2 long", overview, {296, 556}, any, longPress);
        text("key 2 long value", overview, {296, 573}, any, QStringLiteral("PPT放映：开始/结束"), 13, grey);
        text("key 3 title", overview, {646, 89}, {57, fitting}, QStringLiteral("Key 3"), 16);
        text("key 3 click", overview, {608, 116}, {95, fitting}, click);
        text("key 3 click value", overview, {608, 133}, {95, fitting}, QStringLiteral("下一页"), 13, grey);
        text("key 3 long", overview, {506, 154}, {197, fitting}, longPress);
        text("key 3 long value", overview, {506, 171}, {197, fitting}, QStringLiteral("黑板"), 13, grey);
        text("key 4 title", overview, {296, 89}, any, QStringLiteral("Key 4"), 16);
        text("key 4 click", overview, {296, 116}, any, click);
        text("key 4 click value", overview, {296, 133}, any, QStringLiteral("屏幕截屏"), 13, grey);
        text("key 4 long", overview, {296, 154}, any, longPress);
        text("key 4 long value", overview, {296, 171}, any, QStringLiteral("聚光灯"), 13, grey);

        text("key 1 view, click", key1, {30, 22}, any, click);
        text("key 1 view, color", key1, {30, 94}, any, QStringLiteral("颜色设置"));
        text("key 1 view, palette", key1, {30 + 16, 114 + 17}, any, QStringLiteral("颜色"));
        text("key 1 view, width", key1, {30 + 16, 114 + 205}, any, QStringLiteral("画笔粗细"));
        text("key 1 view, long", key1, {30, 430}, any, longPress);
        text("key 2 view, click", key2, {20, 22}, {72, 12}, click);
        text("key 2 view, long", key2, {20, 116}, {104, 12}, longPress);
        text("key 3 view, click", key3, {20, 22}, {72, 12}, click);
        text("key 3 view, long", key3, {20, 116}, {104, 12}, longPress);
        text("key 4 view, click", key4, {20, 22}, {72, 12}, click);
        text("key 4 view, long", key4, {20, 116}, {104, 12}, longPress);
        text("key 4 view, tool", key4, {20, 188}, {104, 12}, QStringLiteral("聚光灯设置"));
        text("spotlight, darkness", key4, {20 + 16, 208 + 155}, {71, 12}, QStringLiteral("透明度"));
        text("spotlight, size", key4, {20 + 16, 208 + 207}, {71, 12}, QStringLiteral("大小"));

        text("settings, title", settings, {20, 23}, any, QStringLiteral("设置"), 16);
        text("settings, start", settings, {20, 78}, any, QStringLiteral("开机自启动"));
        text("settings, language", settings, {20, 136}, any, QStringLiteral("语言"));
        text("settings, version", settings, {20, 198}, any, QStringLiteral("版本"));
        text("settings, number", settings, {127, 199}, {100, fitting}, QStringLiteral("2.0.0.0"), 13, grey);
        text("settings, link", settings, {19, 326}, {210, 12}, QStringLiteral("请访问Vexa官网以获得更多支持"),
             9, grey);
        text("settings, maker", settings, {19, 345}, {210, 21},
             QStringLiteral("版权所有 © 2019-2021 维克萨科技有限公司"), 9, grey);
    }
    void textsStandAtTheirPlaces() {
        QFETCH(QPoint, button);
        QFETCH(QPoint, corner);
        QFETCH(QSize, size);
        QFETCH(QString, text);
        QFETCH(int, pixels);
        QFETCH(QString, color);
        open(button);
        const QQuickItem *item = m_view->text(corner);
        QVERIFY(item != nullptr);
        QCOMPARE(item->property("text").toString(), text);
        const auto font = item->property("font").value<QFont>();
        QCOMPARE(font.family(), QStringLiteral("Arial"));
        QCOMPARE(font.pixelSize(), pixels);
        QCOMPARE(font.bold(), text == QStringLiteral("设置") || text.contains(QStringLiteral("官网")));
        QCOMPARE(font.underline(), text.contains(QStringLiteral("官网")));
        QCOMPARE(item->property("color").value<QColor>().name(), color);
        if (size.width() != fitting)
            QCOMPARE(item->width(), static_cast<double>(size.width()));
        if (size.height() != fitting)
            QCOMPARE(item->height(), static_cast<double>(size.height()));
        QVERIFY2(!item->property("truncated").toBool(), "does not fit");
    }

    void textsRightOfThePenEndWhereTheArrowsEnd() {
        int lines = 0;
        for (const QQuickItem *line : m_view->items(QStringLiteral("PanelText"))) {
            const bool rightOfThePen = qml::corner(line).x() > 500;
            QCOMPARE(line->property("horizontalAlignment").toInt(),
                     static_cast<int>(rightOfThePen ? Qt::AlignRight : Qt::AlignLeft));
            if (rightOfThePen)
                QCOMPARE(qml::corner(line).x() + line->width(), 679.0 + 24.0);
            ++lines;
        }
        QCOMPARE(lines, 4 * 5);
    }

    void piecesStandAtTheirPlaces_data() {
        QTest::addColumn<QPoint>("button");
        QTest::addColumn<QString>("type");
        QTest::addColumn<QPoint>("corner");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QString>("color");
        const auto row = [](const char *name, const Place &view, const char *type, const QPoint &corner,
                            const QSize &size, const char *color = "") {
            QTest::newRow(name) << view.button << QString::fromLatin1(type) << view.corner + corner << size
                                << QString::fromLatin1(color);
        };
        const char *line = "#707070";
        row("key 1 click box", key1, "MyTextBox", {30, 42}, {207, 30});
        row("key 1 pen page", key1, "PizhuSetPenColor", {30, 114}, {207, 272});
        row("key 1 line", key1, "Separator", {31, 408}, {206, 1}, line);
        row("key 1 long box", key1, "MyTextBox", {30, 450}, {207, 30});
        row("key 2 click box", key2, "MyTextBox", {20, 42}, {207, 30});
        row("key 2 line", key2, "Separator", {21, 94}, {206, 1}, line);
        row("key 2 list", key2, "ComboxControl", {20, 136}, {207, 30});
        row("key 3 click box", key3, "MyTextBox", {20, 42}, {207, 30});
        row("key 3 line", key3, "Separator", {21, 94}, {206, 1}, line);
        row("key 3 list", key3, "ComboxControl", {20, 136}, {207, 30});
        row("key 4 click list", key4, "ComboxControl", {20, 42}, {207, 30});
        row("key 4 line", key4, "Separator", {21, 94}, {206, 1}, line);
        row("key 4 long list", key4, "ComboxControl", {20, 136}, {207, 30});
        row("spotlight settings", key4, "SportLightSetWindow", {20, 208}, {207, 272});
        row("spotlight darkness", key4, "LightLevelSet", {20 + 16, 208 + 176}, {175, 6}, "#444444");
        row("spotlight size", key4, "LightLevelSet", {20 + 16, 208 + 228}, {175, 6}, "#444444");
        row("settings line 1", settings, "Separator", {20, 54}, {207, 1}, line);
        row("settings line 2", settings, "Separator", {20, 114}, {207, 1}, line);
        row("settings line 3", settings, "Separator", {20, 174}, {207, 1}, line);
        row("settings line 4", settings, "Separator", {20, 234}, {207, 1}, line);
        row("settings switch", settings, "SwitchControl", {189, 74}, {38, 20}, "#4d4d4d");
        row("settings list", settings, "ComboxControl", {87, 129}, {140, 30});
    }
    void piecesStandAtTheirPlaces() {
        QFETCH(QPoint, button);
        QFETCH(QString, type);
        QFETCH(QPoint, corner);
        QFETCH(QSize, size);
        QFETCH(QString, color);
        open(button);
        const QQuickItem *item = m_view->item(type, corner);
        QVERIFY(item != nullptr);
        QCOMPARE(item->size(), QSizeF(size));
        if (!color.isEmpty())
            QCOMPARE(item->property("color").value<QColor>().name(), color);
    }

    void penPageStandsAsDrawn() {
        open(key1.button);
        const QPoint page = key1.corner + QPoint(30, 114);
        const QQuickItem *item = m_view->item(QStringLiteral("PizhuSetPenColor"), page);
        QVERIFY(item != nullptr);
        QCOMPARE(item->property("radius").toReal(), 4.0);
        QCOMPARE(item->property("borderColor").toString(), QStringLiteral("#606060"));
        QCOMPARE(item->property("color").value<QColor>().alpha(), 0);
        QCOMPARE(border(item), std::pair(1, QStringLiteral("#606060")));

        const QList<QPoint> swatches{{31, 40},   {91, 40},  {151, 40}, {33, 100},  {73, 100}, {111, 100},
                                     {153, 100}, {33, 143}, {73, 143}, {113, 143}, {153, 143}};
        const QStringList colors{"#000000", "#000000", "#000000", "#000000", "#FFFFFF", "#FF0000",
                                 "#009EF8", "#82FF20", "#FFCC0D", "#ED18FF", "#9C1FFF"};
        for (int i = 0; i < swatches.size(); ++i) {
            const QQuickItem *swatch = m_view->item(QStringLiteral("PizhuSetButton1"), page + swatches.at(i));
            QVERIFY2(swatch != nullptr, qPrintable(QString::number(i)));
            QCOMPARE(swatch->size(), QSizeF(26, 26));
            QCOMPARE(swatch->property("radius").toReal(), 13.0);
            QCOMPARE(swatch->property("btncolor").toString(), colors.at(i));
        }
        QCOMPARE(m_view->items(QStringLiteral("PizhuSetButton1")).size(), swatches.size());

        const QList<int> widthPlaces{16, 67, 117, 167};
        for (int i = 0; i < widthPlaces.size(); ++i) {
            const QPoint place = page + QPoint(widthPlaces.at(i), 228);
            const QQuickItem *button = m_view->item(QStringLiteral("PizhuSetButton2"), place);
            QVERIFY2(button != nullptr, qPrintable(QString::number(i)));
            QCOMPARE(button->size(), QSizeF(22, 22));
            const double dot = 2.0 * (i + 1);
            const QPointF dotPlace = QPointF(place) + QPointF((22 - dot) / 2, (22 - dot) / 2);
            const QQuickItem *disc = m_view->item(QStringLiteral("QQuickRectangle"), dotPlace);
            QVERIFY2(disc != nullptr, qPrintable(QString::number(i)));
            QCOMPARE(disc->size(), QSizeF(dot, dot));
            QCOMPARE(disc->property("color").value<QColor>(), QColor(Qt::white));
        }
    }

    void markOfTheEditedSlotHasItsPlace() {
        open(key1.button);
        m_view->push(8, 3);
        const QPoint page = key1.corner + QPoint(30, 114);
        const QQuickItem *mark = m_view->item(QStringLiteral("QQuickImage"), page + QPoint(16, 67));
        QVERIFY(mark != nullptr);
        QCOMPARE(mark->property("source").toString(), QStringLiteral("qrc:/frame-1.png"));
        QCOMPARE(mark->size(), QSizeF(175, 122));
    }

    void toolViewsShareTheirPlace_data() {
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("first");
        QTest::addColumn<QString>("firstSlider");
        QTest::addColumn<QString>("secondSlider");
        const auto level = QStringLiteral("LightLevelSet");
        const auto color = QStringLiteral("ColorSet");
        const auto size = QStringLiteral("SizeSet");
        QTest::newRow("spotlight") << 0 << QStringLiteral("SportLightSetWindow") << QStringLiteral("透明度")
                                   << level << level;
        QTest::newRow("magnifier") << 1 << QStringLiteral("MagnifierSetWindow") << QStringLiteral("颜色")
                                   << color << size;
        QTest::newRow("laser") << 2 << QStringLiteral("LightpenSetWindow") << QStringLiteral("颜色") << color
                               << size;
    }
    void toolViewsShareTheirPlace() {
        QFETCH(int, code);
        QFETCH(QString, type);
        QFETCH(QString, first);
        QFETCH(QString, firstSlider);
        QFETCH(QString, secondSlider);
        open(key4.button);
        m_view->push(15, code);
        const QPoint place = key4.corner + QPoint(20, 208);
        const QQuickItem *view = m_view->item(type, place);
        QVERIFY(view != nullptr);
        QCOMPARE(view->size(), QSizeF(207, 272));
        QCOMPARE(view->property("borderColor").toString(), QStringLiteral("#707070"));
        QCOMPARE(view->property("radius").toReal(), 5.0);
        QCOMPARE(view->property("color").value<QColor>().alpha(), 0);
        QCOMPARE(border(view), std::pair(1, QStringLiteral("#707070")));
        const QQuickItem *preview = m_view->item(QStringLiteral("QQuickImage"), place + QPoint(16, 34));
        QVERIFY(preview != nullptr);
        QCOMPARE(preview->size(), QSizeF(175, 99));
        QCOMPARE(preview->property("source").toString(), QStringLiteral("qrc:/toolbackground.png"));
        const QStringList captions{first, QStringLiteral("大小")};
        for (int i = 0; i < captions.size(); ++i) {
            const QQuickItem *caption = m_view->text(place + QPoint(16, i == 0 ? 155 : 207));
            QVERIFY(caption != nullptr);
            QCOMPARE(caption->property("text").toString(), captions.at(i));
            QCOMPARE(caption->size(), QSizeF(71, 12));
            QCOMPARE(caption->property("color").value<QColor>(), QColor(Qt::white));
            QCOMPARE(caption->property("font").value<QFont>().pixelSize(), 13);
        }
        const QQuickItem *firstItem = m_view->item(firstSlider, place + QPoint(16, 176));
        const QQuickItem *secondItem = m_view->item(secondSlider, place + QPoint(16, 228));
        QVERIFY(firstItem != nullptr && secondItem != nullptr);
        QCOMPARE(firstItem->size(), QSizeF(175, 6));
        QCOMPARE(secondItem->size(), QSizeF(175, 6));
    }

    void switchShowsItsTwoStates() {
        open(settings.button);
        const QPoint corner = settings.corner + QPoint(189, 74);
        m_view->moveTo({500, 300});
        m_view->push(17, 0);
        QTRY_COMPARE(m_view->pixel(corner + QPoint(28, 10)), QColor(0x4d, 0x4d, 0x4d));
        QTRY_COMPARE(m_view->pixel(corner + QPoint(10, 10)), QColor(0x99, 0x99, 0x99));
        QTRY_COMPARE(m_view->pixel(corner + QPoint(19, 0)), QColor(0x70, 0x70, 0x70));
        m_view->push(17, 1);
        QTRY_COMPARE(m_view->pixel(corner + QPoint(10, 10)), QColor(0x2f, 0x2f, 0x2f));
        QTRY_COMPARE(m_view->pixel(corner + QPoint(28, 10)), QColor(0xff, 0xcc, 0x0d));
        // The knob is 18 points wide, one point from the end where it stands.
        const QQuickItem *knob =
            m_view->item(QStringLiteral("QQuickRectangle"), corner + QPoint(38 - 1 - 18, 1));
        QVERIFY(knob != nullptr);
        QCOMPARE(knob->size(), QSizeF(18, 18));
        m_view->push(17, 0);
        QCOMPARE(qml::corner(knob), QPointF(corner + QPoint(1, 1)));
    }

private:
    void open(const QPoint &button) {
        if (!button.isNull())
            m_view->click(button + QPoint(5, 5));
    }

    std::unique_ptr<PanelView> m_view;
};

VEXA_WIDGET_TEST_MAIN(PanelLayoutTest)
#include "PanelLayoutTest.moc"
