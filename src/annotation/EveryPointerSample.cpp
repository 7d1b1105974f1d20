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
Merging mergedBefore;
int users = 0;

} // namespace

EveryPointerSample::EveryPointerSample() {
    if (users++ > 0)
        return;
    mergedBefore.byToolkit = QCoreApplication::testAttribute(Qt::AA_CompressHighFrequencyEvents);
    QCoreApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, false);
    mergedBefore.byDesktop = platform::setPointerSamplesMerged(false);
}

EveryPointerSample::~EveryPointerSample() {
    if (--users > 0)
        return;
    QCoreApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, mergedBefore.byToolkit);
    platform::setPointerSamplesMerged(mergedBefore.byDesktop);
}

} // namespace vexa
