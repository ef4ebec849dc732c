#pragma once

#include <QImage>
#include <map>
#include <set>
#include <string>

#include <vellora/base/ImagePtr.h>

#include "ui/canvas/SpriteCache.h"

namespace vellora {

class CDVDImageSprite;
class COpencvFilterInterface;
class EditSession;

/// The picture on the canvas, in layers that are kept until what they show changes: the photo with
/// its background and live filter, each sprite, and over them everything together.
class CanvasLayers {
public:
    explicit CanvasLayers(const EditSession& session) : m_session(session) {}

    /// Another photo is open, or its picture was edited.
    void invalidatePhoto();
    /// The live filter or its values changed.
    void invalidateFilter();
    void invalidateSprites() { m_composed = {}; }
    /// A text that is being typed is not drawn; null for none.
    void hideSprite(const CDVDImageSprite* sprite);

    /// The stage as it will be rendered, at a number of device pixels for each unit.
    const QImage& composed(double ratio);

private:
    const QImage& photo();
    void drawPhoto(QImage& surface);
    [[nodiscard]] bool isExpectedToTakeLong(const COpencvFilterInterface* filter) const;
    [[nodiscard]] QImage filtered(const std::u16string& filterName);
    [[nodiscard]] ImagePtr detailedCopy();
    void drawMessage(QImage& surface) const;
    void drawSprites(QImage& surface);

    const EditSession& m_session;
    ImagePtr m_detailed;  ///< The edited picture for a surface with more pixels than units.
    bool m_isDetailKnown = false;
    QImage m_photo;
    SpriteCache m_sprites;
    QImage m_composed;
    const CDVDImageSprite* m_hidden = nullptr;
    double m_ratio = 1.0;
    /// What the live filters took when they were applied last, in milliseconds, by their names.
    std::map<std::u16string, qint64> m_filterTimes;
    /// Live filters that are too slow to be applied to more than the preview.
    std::set<std::u16string> m_slowFilters;
};

}  // namespace vellora
