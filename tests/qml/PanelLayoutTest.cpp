// SPDX-License-Identifier: MIT
#include "qml/PanelTest.h"
#include "support/TestMain.h"

using namespace places;

namespace {

/// Where the views stand, and the button that opens each.
struct Place {
    QPoint corner;
    QSize size;
    QPoint button;
};
const Place key1{key1View, {257, 500}, {679, 457}};
const Place key2{key2View, {257, 188}, {296, 457}};
const Place key3{key3View, {257, 188}, {679, 196}};
const Place key4{key4View, {257, 500}, {296, 196}};
const Place settings{settingsView, {247, 390}, {951, 598}};
const Place overview{{0, 0}, {999, 650}, {}};

const QString maker = "width: 210; height: 21; font.pixelSize: 9; color: #7d7d7d";
const QString link =
    "width: 210; height: 12; font.pixelSize: 9; font.bold: true; font.underline: true; color: #7d7d7d";
const QString paneBorder = "color: transparent; border.width: 1; border.color: ";

} // namespace

/// Every place, size, font and colour of the panel.
class PanelLayoutTest : public PanelTest {
    Q_OBJECT

private slots:
    void panelIsARectangleWithAPicture() {
        PanelView view(PanelView::Unseen); // before its first frame, which shows this picture and no other
        QVERIFY(qml::is(view.root(), "width: 999; height: 650; color: #333333"));
        QStringList pictures;
        for (const QQuickItem *picture : view.items("QQuickImage")) {
            if (qml::corner(picture) != QPointF(0, 0) || picture->size() != QSizeF(999, 650))
                continue;
            pictures.append(picture->property("source").toString());
            QCOMPARE(picture->property("progress").toReal(), 1.0);
        }
        QCOMPARE(pictures, QStringList("qrc:/bg@3x.png"));
    }

    void buttonsStandAtTheirPlaces() {
        const struct {
            QPoint corner;
            int side;
            const char *normal, *selected;
        } rows[] = {{settings.button, 18, "setting", "setting"},
                    {key1.button, 24, "right", "right-selected"},
                    {key2.button, 24, "left", "left-selected"},
                    {key3.button, 24, "right", "right-selected"},
                    {key4.button, 24, "left", "left-selected"}};
        for (const auto &row : rows) {
            const QString size = QString("width: %1; height: %1").arg(row.side);
            QQuickItem *button = m_view->item("KeyButton", row.corner);
            QVERIFY(qml::is(button, size + "; checked: false"));
            QQuickItem *icon = m_view->item("QQuickImage", row.corner);
            // Padded: a third of the picture's pixels, drawn as it is.
            QVERIFY(
                qml::is(icon, size + QString("; fillMode: 6; source: qrc:/icon-%1@3x.png").arg(row.normal)));
            m_view->click(row.corner + QPoint(5, 5));
            QVERIFY(qml::is(button, "checked: true"));
            QVERIFY(qml::is(icon, QString("source: qrc:/icon-%1@3x.png").arg(row.selected)));
        }
    }

    void viewsStandAtTheirPlaces() {
        const struct {
            const char *type;
            const Place &place;
            const char *frame; // fitted where its proportions are kept
        } rows[] = {{"Key1Window", key1, "frame-key1.png; fillMode: 1"},
                    {"Key2Window", key2, "frame-key2.png; fillMode: 1"},
                    {"Key3Window", key3, "frame-key3.png; fillMode: 1"},
                    {"Key4Window", key4, "frame-key4.png; fillMode: 1"},
                    {"SetWindow", settings, "frame-setting.png"}};
        for (const auto &row : rows) {
            const QSize size = row.place.size;
            const QString sized = QString("width: %1; height: %2").arg(size.width()).arg(size.height());
            QVERIFY2(!m_view->has(row.type), "shown before its button was clicked");
            open(row.place);
            QVERIFY(qml::is(m_view->item(row.type, row.place.corner), sized + "; color: transparent"));
            QVERIFY(qml::is(m_view->item("QQuickImage", row.place.corner),
                            sized + "; source: qrc:/" + row.frame));
        }
    }

    void textsAndPiecesStandAtTheirPlaces() {
        struct Piece {
            Place view;
            const char *type;
            QPoint corner; // in the view
            QString looks;
        };
        QList<Piece> pieces{
            {overview, "PanelText", {657, 491}, "text: Key 1; width: 46; font.pixelSize: 16"},
            {overview, "PanelText", {608, 518}, "text: 单击; width: 95"},
            {overview, "PanelText", {608, 535}, "text: 切换画笔颜色; width: 95; color: #7d7d7d"},
            {overview, "PanelText", {579, 556}, "text: 长按; width: 124"},
            {overview, "PanelText", {579, 573}, "text: 开启/关闭批注; width: 124; color: #7d7d7d"},
            {overview, "PanelText", {296, 491}, "text: Key 2; font.pixelSize: 16"},
            {overview, "PanelText", {296, 518}, "text: 单击"},
            {overview, "PanelText", {296, 535}, "text: 上一页; color: #7d7d7d"},
            {overview, "PanelText", {296, 556}, "text: 长按"},
            {overview, "PanelText", key2Value, "text: PPT放映：开始/结束; color: #7d7d7d"},
            {overview, "PanelText", {646, 89}, "text: Key 3; width: 57; font.pixelSize: 16"},
            {overview, "PanelText", {608, 116}, "text: 单击; width: 95"},
            {overview, "PanelText", {608, 133}, "text: 下一页; width: 95; color: #7d7d7d"},
            {overview, "PanelText", {506, 154}, "text: 长按; width: 197"},
            {overview, "PanelText", key3Value, "text: 黑板; width: 197; color: #7d7d7d"},
            {overview, "PanelText", {296, 89}, "text: Key 4; font.pixelSize: 16"},
            {overview, "PanelText", {296, 116}, "text: 单击"},
            {overview, "PanelText", key4ClickValue, "text: 屏幕截屏; color: #7d7d7d"},
            {overview, "PanelText", {296, 154}, "text: 长按"},
            {overview, "PanelText", key4LongValue, "text: 聚光灯; color: #7d7d7d"},
            {key1, "PanelText", {30, 22}, "text: 单击"},
            {key1, "PanelText", {30, 94}, "text: 颜色设置"},
            {key1, "PanelText", {30 + 16, 114 + 17}, "text: 颜色"},
            {key1, "PanelText", {30 + 16, 114 + 205}, "text: 画笔粗细"},
            {key1, "PanelText", {30, 430}, "text: 长按"},
            {key1, "MyTextBox", {30, 42}, "width: 207; height: 30"},
            {key1, "PizhuSetPenColor", {30, 114}, "width: 207; height: 272"},
            {key1, "Separator", {31, 408}, "width: 206; height: 1; color: #707070"},
            {key1, "MyTextBox", {30, 450}, "width: 207; height: 30"},
            {key2, "MyTextBox", {20, 42}, "width: 207; height: 30"},
            {key3, "MyTextBox", {20, 42}, "width: 207; height: 30"},
            {key4, "PanelText", {20, 188}, "text: 聚光灯设置; width: 104; height: 12"},
            {key4, "ComboxControl", {20, 42}, "width: 207; height: 30"},
            {settings, "PanelText", {20, 23}, "text: 设置; font.pixelSize: 16; font.bold: true"},
            {settings, "PanelText", {20, 78}, "text: 开机自启动"},
            {settings, "PanelText", {20, 136}, "text: 语言"},
            {settings, "PanelText", {20, 198}, "text: 版本"},
            {settings, "PanelText", {127, 199}, "text: 2.0.0.0; width: 100; color: #7d7d7d"},
            {settings, "PanelText", {19, 326}, "text: 请访问Vexa官网以获得更多支持; " + link},
            {settings, "PanelText", {19, 345}, "text: 版权所有 © 2019-2021 维克萨科技有限公司; " + maker},
            {settings, "Separator", {20, 54}, "width: 207; height: 1; color: #707070"},
            {settings, "Separator", {20, 114}, "width: 207; height: 1; color: #707070"},
            {settings, "Separator", {20, 174}, "width: 207; height: 1; color: #707070"},
            {settings, "Separator", {20, 234}, "width: 207; height: 1; color: #707070"},
            {settings, "SwitchControl", {189, 74}, "width: 38; height: 20; color: #4d4d4d"},
            {settings, "ComboxControl", {87, 129}, "width: 140; height: 30"}};
        for (const Place &view : {key2, key3, key4})
            pieces += {{view, "PanelText", {20, 22}, "text: 单击; width: 72; height: 12"},
                       {view, "PanelText", {20, 116}, "text: 长按; width: 104; height: 12"},
                       {view, "Separator", {21, 94}, "width: 206; height: 1; color: #707070"},
                       {view, "ComboxControl", {20, 136}, "width: 207; height: 30"}};
        for (const Piece &piece : qAsConst(pieces)) {
            open(piece.view);
            QString looks = piece.looks;
            if (looks.startsWith("text"))
                for (const QString usual : {"font.family: Arial", "font.pixelSize: 13", "font.bold: false",
                                            "font.underline: false", "color: white", "truncated: false"})
                    if (!looks.contains(usual.section(':', 0, 0)))
                        looks += "; " + usual;
            QVERIFY2(qml::is(m_view->item(piece.type, piece.view.corner + piece.corner), looks),
                     qPrintable(looks));
        }
    }

    void textsRightOfThePenEndWhereTheArrowsEnd() {
        const QList<QQuickItem *> lines = m_view->items("PanelText");
        QCOMPARE(lines.size(), 4 * 5);
        for (QQuickItem *line : lines) {
            const bool rightOfThePen = qml::corner(line).x() > 500;
            QCOMPARE(line->property("horizontalAlignment").toInt(),
                     int(rightOfThePen ? Qt::AlignRight : Qt::AlignLeft));
            if (rightOfThePen)
                QCOMPARE(qml::corner(line).x() + line->width(), 679.0 + 24.0);
        }
    }

    void penPageStandsAsDrawn() {
        open(key1);
        QQuickItem *page = m_view->item("PizhuSetPenColor", penPage);
        QVERIFY(qml::is(page, "radius: 4; borderColor: #606060; " + paneBorder + "#606060"));

        const std::pair<QPoint, const char *> swatches[] = {
            {{31, 40}, "#000000"},  {{91, 40}, "#000000"},   {{151, 40}, "#000000"},  {{33, 100}, "#000000"},
            {{73, 100}, "#FFFFFF"}, {{111, 100}, "#FF0000"}, {{153, 100}, "#009EF8"}, {{33, 143}, "#82FF20"},
            {{73, 143}, "#FFCC0D"}, {{113, 143}, "#ED18FF"}, {{153, 143}, "#9C1FFF"}};
        for (const auto &[place, color] : swatches)
            QVERIFY(qml::is(m_view->item("PizhuSetButton1", penPage + place),
                            QString("width: 26; height: 26; radius: 13; btncolor: ") + color));
        QCOMPARE(m_view->items("PizhuSetButton1").size(), int(std::size(swatches)));

        int dot = 0;
        for (const int x : {16, 67, 117, 167}) {
            const QPoint place = penPage + QPoint(x, 228);
            QVERIFY(qml::is(m_view->item("PizhuSetButton2", place), "width: 22; height: 22"));
            dot += 2;
            QVERIFY(qml::is(m_view->item("QQuickRectangle", place + QPoint(22 - dot, 22 - dot) / 2),
                            QString("width: %1; height: %1; color: white").arg(dot)));
        }
    }

    void markOfTheEditedSlotHasItsPlace() {
        open(key1);
        m_view->push(ViewMessage::PenColor0, 3);
        QVERIFY(qml::is(m_view->item("QQuickImage", penPage + QPoint(16, 67)),
                        "source: qrc:/frame-1.png; width: 175; height: 122"));
    }

    void toolViewsShareTheirPlace() {
        open(key4);
        const struct {
            HeldToolChoice tool;
            const char *type, *first, *firstSlider, *secondSlider;
        } rows[] = {
            {HeldToolChoice::Spotlight, "SportLightSetWindow", "透明度", "LightLevelSet", "LightLevelSet"},
            {HeldToolChoice::Magnifier, "MagnifierSetWindow", "颜色", "ColorSet", "SizeSet"},
            {HeldToolChoice::Laser, "LightpenSetWindow", "颜色", "ColorSet", "SizeSet"}};
        for (const auto &row : rows) {
            m_view->push(ViewMessage::Key4P, row.tool);
            QVERIFY(qml::is(m_view->item(row.type, toolSettings),
                            "width: 207; height: 272; borderColor: #707070; radius: 5; " + paneBorder +
                                "#707070"));
            QVERIFY(qml::is(m_view->item("QQuickImage", toolSettings + QPoint(16, 34)),
                            "width: 175; height: 99; source: qrc:/toolbackground.png"));
            for (const auto &[y, words] : {std::pair(155, row.first), std::pair(207, "大小")})
                QVERIFY(qml::is(m_view->text(toolSettings + QPoint(16, y)),
                                QString("width: 71; height: 12; color: white; font.pixelSize: 13; text: ") +
                                    words));
            QVERIFY(
                qml::is(m_view->item(row.firstSlider, firstSlider), "width: 175; height: 6; color: #444444"));
            QVERIFY(qml::is(m_view->item(row.secondSlider, secondSlider),
                            "width: 175; height: 6; color: #444444"));
        }
    }

    void switchShowsItsTwoStates() {
        open(settings);
        const auto pixel = [this](int x, int y) { return m_view->pixel(autoStart + QPoint(x, y)); };
        m_view->moveTo({500, 300});
        m_view->push(ViewMessage::AutoStart, 0);
        QTRY_COMPARE(pixel(28, 10), QColor(0x4d, 0x4d, 0x4d));
        QTRY_COMPARE(pixel(10, 10), QColor(0x99, 0x99, 0x99));
        QTRY_COMPARE(pixel(19, 0), QColor(0x70, 0x70, 0x70));
        m_view->push(ViewMessage::AutoStart, 1);
        QTRY_COMPARE(pixel(10, 10), QColor(0x2f, 0x2f, 0x2f));
        QTRY_COMPARE(pixel(28, 10), QColor(0xff, 0xcc, 0x0d));
        // The knob is 18 points wide, one point from the end where it stands.
        QQuickItem *knob = m_view->item("QQuickRectangle", autoStart + QPoint(38 - 1 - 18, 1));
        QVERIFY(qml::is(knob, "width: 18; height: 18"));
        m_view->push(ViewMessage::AutoStart, 0);
        QCOMPARE(qml::corner(knob), QPointF(autoStart + QPoint(1, 1)));
    }

private:
    /// Opens the view unless it is open.
    void open(const Place &view) {
        if (!view.button.isNull() && !m_view->shown("KeyButton", view.button, "checked").toBool())
            m_view->click(view.button + QPoint(5, 5));
    }
};

VEXA_WIDGET_TEST_MAIN(PanelLayoutTest)
#include "PanelLayoutTest.moc"
