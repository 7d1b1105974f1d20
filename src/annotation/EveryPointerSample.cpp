// SPDX-License-Identifier: MIT
#include "annotation/EveryPointerSample.h"

#include "platform/PointerSamples.h"

#include <QCoreApplication>

namespace vexa {

namespace {
int users = 0;
bool compressedBefore = false;
} // namespace

EveryPointerSample::EveryPointerSample() {
    if (users++ > 0)
        return;
    compressedBefore = QCoreApplication::testAttribute(Qt::AA_CompressHighFrequencyEvents);
    QCoreApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, false);
    platform::setPointerSamplesMerged(false);
}

EveryPointerSample::~EveryPointerSample() {
    if (--users > 0)
        return;
    QCoreApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, compressedBefore);
    platform::setPointerSamplesMerged(true);
}

} // namespace vexa
