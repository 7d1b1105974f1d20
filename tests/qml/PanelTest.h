// SPDX-License-Identifier: MIT
#pragma once

#include "qml/PanelPlaces.h"
#include "qml/PanelView.h"

#include <QtTest>

using vexa::test::english;
using vexa::test::Number;
using vexa::test::simplifiedChinese;
using vexa::test::traditionalChinese;

/// A test of which every case has a panel of its own.
class PanelTest : public QObject {
    Q_OBJECT

protected slots:
    void init() { m_view = std::make_unique<PanelView>(); }
    void cleanup() { m_view.reset(); }

protected:
    std::unique_ptr<PanelView> m_view;
};
