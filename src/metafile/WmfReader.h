#pragma once

#include <optional>

#include "metafile/Canvas.h"
#include "metafile/PictureData.h"
#include "metafile/RecordView.h"

namespace vellora::metafile {

/// Plays the 16-bit records of a Windows metafile, with or without a placeable header.
class WmfReader {
public:
    static bool recognises(RecordView file);
    static bool isPlaceable(RecordView file);

    WmfReader(RecordView file, PictureData& data);

    /// Fills the picture with all that the file draws.
    void play();

private:
    /// The first window and viewport that the records set.
    struct Mapping {
        std::optional<QPointF> windowOrigin;
        std::optional<QSizeF> windowExtent;
        std::optional<QPointF> viewportOrigin;
        std::optional<QSizeF> viewportExtent;
    };

    Mapping findMapping() const;
    double readFrame();
    void prepareCanvas();
    void play(std::uint16_t function, RecordView record);

    // Each says whether the record is one of its own. Parameters begin at the record's start.
    bool playMapping(std::uint16_t function, RecordView record);
    bool playModes(std::uint16_t function, RecordView record);
    bool playShapes(std::uint16_t function, RecordView record);
    bool playClips(std::uint16_t function, RecordView record);
    bool playObjects(std::uint16_t function, RecordView record);
    bool playRegions(std::uint16_t function, RecordView record);
    bool playTexts(std::uint16_t function, RecordView record);
    bool playBitmaps(std::uint16_t function, RecordView record);

    void playPolyPolygon(RecordView record);
    void createFont(RecordView record);
    void createDibBrush(RecordView record);
    void createRegion(RecordView record);
    void setPaletteEntries(RecordView record);
    void playExtText(RecordView record);
    void playDibTransfer(RecordView record, bool stretched);
    void playStretchDib(RecordView record);
    void playDibToDevice(RecordView record);
    QImage bitmap(RecordView dib, bool indexesPalette);
    template <typename Object>
    const Object* find(std::size_t index) const {
        const GraphicsObject* const object = m_objects.find(index);
        return object == nullptr ? nullptr : std::get_if<Object>(object);
    }

    RecordView m_file;
    PictureData& m_data;
    RecordView m_header;
    RecordView m_records;
    Mapping m_mapping;
    ObjectTable m_objects;
    Canvas m_canvas;
};

}  // namespace vellora::metafile
