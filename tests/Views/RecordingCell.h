#pragma once

#include <KTUtility/NSSliderCell>

#include <QList>
#include <QPainter>

/// A cell that reports what it is asked to draw.
class RecordingCell : public NSSliderCell
{
public:
    void drawBarInside(QPainter &) override { ++bars; }
    void drawKnob(QPainter &, const QRectF &knobRect) override { knobs += knobRect; }

    int bars = 0;
    QList<QRectF> knobs;
};
