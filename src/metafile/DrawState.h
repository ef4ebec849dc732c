#pragma once

#include <QPointF>
#include <QTransform>
#include <cstdint>

#include "metafile/ClipChain.h"
#include "metafile/GraphicsObjects.h"
#include "metafile/PageTransform.h"

namespace vellora::metafile {

/// What SAVEDC keeps and RESTOREDC brings back.
struct DrawState {
    PenObject pen;
    BrushObject brush;
    FontObject font;
    PalettePtr palette;

    ColorRef textColor = 0x00000000;
    ColorRef backColor = 0x00FFFFFF;
    bool opaqueBack = true;
    Qt::FillRule fillRule = Qt::OddEvenFill;
    std::uint32_t rop2 = 13;
    double miterLimit = 10;
    bool clockwise = false;

    std::uint32_t textAlign = 0;
    double charExtra = 0;
    double breakExtra = 0;

    PageTransform page;
    QTransform world;
    QPointF position;
    QPointF brushOrigin;
    /// Of a clip that SETMETARGN made lasting, and of the one that files change.
    ClipChain lastingClip;
    ClipChain clip;
};

}  // namespace vellora::metafile
