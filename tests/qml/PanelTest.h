// SPDX-License-Identifier: MIT
#pragma once

#include "qml/PanelPlaces.h"
#include "qml/PanelView.h"

#include <QTest>

using vexa::test::english;
using vexa::test::Number;
using vexa::test::simplifiedChinese;
using vexa::test::traditionalChinese;

/// What the lists offer, in the order of the codes, as long as nothing is translated.
const QStringList actionNames{"无操作", "PPT放映：开始/结束", "播放器：暂停/播放", "黑板", "屏幕截屏"};
const QStringList toolNames{"聚光灯", "放大镜", "数字激光点"};

/// A test of which every case has a panel of its own.
class PanelTest : public QObject {
    Q_OBJECT

protected slots:
    void init() { m_view = std::make_unique<PanelView>(); }
    void cleanup() { m_view.reset(); }

protected:
    std::unique_ptr<PanelView> m_view;
};
