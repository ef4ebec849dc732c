#pragma once

#include <QPolygonF>
#include <optional>
#include <vector>

#include "metafile/Canvas.h"
#include "metafile/PictureData.h"
#include "metafile/RecordView.h"

namespace vellora::metafile {

/// Plays the 32-bit records of an enhanced metafile.
class EmfReader {
public:
    static bool recognises(RecordView file);

    EmfReader(RecordView file, PictureData& data);

    /// Fills the picture with all that the file draws.
    void play();

private:
    void readHeader();
    void play(std::uint32_t type, RecordView record);

    // Each says whether the record is one of its own.
    bool playMapping(std::uint32_t type, RecordView record);
    bool playModes(std::uint32_t type, RecordView record);
    bool playLines(std::uint32_t type, RecordView record);
    bool playPolys(std::uint32_t type, RecordView record);
    bool playShapes(std::uint32_t type, RecordView record);
    bool playPaths(std::uint32_t type, RecordView record);
    bool playClips(std::uint32_t type, RecordView record);
    bool playRegions(std::uint32_t type, RecordView record);
    bool playObjects(std::uint32_t type, RecordView record);
    bool playPalettes(std::uint32_t type, RecordView record);
    bool playTexts(std::uint32_t type, RecordView record);
    bool playBitmaps(std::uint32_t type, RecordView record);

    std::optional<QPolygonF> points(RecordView record, std::size_t offset, std::uint64_t count,
                                    bool small) const;
    std::optional<std::vector<QPolygonF>> rings(RecordView record, bool small) const;
    void playPoly(std::uint32_t kind, RecordView record, bool small);
    void playArc(std::uint32_t type, RecordView record);
    QPainterPath region(RecordView record, std::size_t offset, std::size_t bytes) const;
    const BrushObject* brush(std::uint32_t handle) const;
    void selectObject(std::uint32_t handle);
    void createExtendedPen(RecordView record);
    void createPatternBrush(RecordView record, bool mono);
    void playGradient(RecordView record);
    void playTransfer(RecordView record, bool stretched, bool blended, bool keyed);
    void playMaskTransfer(RecordView record);
    void playSkewedTransfer(RecordView record);
    void playText(RecordView record, std::size_t offset, bool wide);
    void playSmallText(RecordView record);
    QImage bitmap(RecordView record, std::size_t at, std::uint32_t usage, bool alpha = false);

    RecordView m_file;
    PictureData& m_data;
    ObjectTable m_objects;
    Canvas m_canvas;
    QSizeF m_dotsPerMm{96 / 25.4, 96 / 25.4};
};

}  // namespace vellora::metafile
