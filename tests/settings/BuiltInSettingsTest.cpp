// SPDX-License-Identifier: MIT
#include <QFile>
#include <QTest>

/// The file that a fresh installation loads, held against its text written out once more.
class BuiltInSettingsTest : public QObject {
    Q_OBJECT

private slots:
    void hasExactlyTheseBytes() {
        const QByteArray expected = "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n"
                                    "<PenSetting ShowPrompt=\"1\" ShowCursor=\"0\" FirstRun=\"1\">\r\n"
                                    "  <Setting>\r\n"
                                    "    <Key2C>1</Key2C>\r\n"
                                    "    <Key2P>1</Key2P>\r\n"
                                    "    <Key3C>2</Key3C>\r\n"
                                    "    <Key3P>3</Key3P>\r\n"
                                    "    <Key4C>4</Key4C>\r\n"
                                    "    <Key4P>0</Key4P>\r\n"
                                    "    <PenColor0>2</PenColor0>\r\n"
                                    "    <PenColor1>1</PenColor1>\r\n"
                                    "    <PenColor2>0</PenColor2>\r\n"
                                    "    <PenThickness>1</PenThickness>\r\n"
                                    "    <LaserPenSize>13</LaserPenSize>\r\n"
                                    "    <LaserPenColor>22</LaserPenColor>\r\n"
                                    "    <LaserPenColorR>255</LaserPenColorR>\r\n"
                                    "    <LaserPenColorG>22</LaserPenColorG>\r\n"
                                    "    <LaserPenColorB>0</LaserPenColorB>\r\n"
                                    "    <MagnifierSize>177</MagnifierSize>\r\n"
                                    "    <MagnifierColor>890</MagnifierColor>\r\n"
                                    "    <MagnifierColorR>0</MagnifierColorR>\r\n"
                                    "    <MagnifierColorG>129</MagnifierColorG>\r\n"
                                    "    <MagnifierColorB>255</MagnifierColorB>\r\n"
                                    "    <SportLightSize>183</SportLightSize>\r\n"
                                    "    <SportLightTran>132</SportLightTran>\r\n"
                                    "    <AutoStart>1</AutoStart>\r\n"
                                    "    <Language>0</Language>\r\n"
                                    "    <UpdataSoft>0</UpdataSoft>\r\n"
                                    "  </Setting>\r\n"
                                    "</PenSetting>";
        QCOMPARE(expected.size(), 983);

        QFile file(QStringLiteral(":/VexaPenSetting.xml"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), expected);
    }
};

QTEST_GUILESS_MAIN(BuiltInSettingsTest)
#include "BuiltInSettingsTest.moc"
