// SPDX-License-Identifier: MIT
#include "annotation/EveryPointerSample.h"

#include "platform/PointerSamples.h"

#include <QCoreApplication>

namespace vexa {

namespace {

struct Merging {
    bool byToolkit = true;
    bool byDesktop = true;
};
Merging before;
int users = 0;

} // namespace

EveryPointerSample::EveryPointerSample() {
    if (users++ > 0)
        return;
    before.byToolkit = QCoreApplication::testAttribute(Qt::AA_CompressHighFrequencyEvents);
    QCoreApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, false);
    before.byDesktop = platform::setPointerSamplesMerged(false);
}

EveryPointerSample::~EveryPointerSample() {
    if (--users > 0)
        return;
    QCoreApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, before.byToolkit);
    platform::setPointerSamplesMerged(before.byDesktop);
}

} // namespace vexa
