#pragma once

#include <QImage>

namespace vellora {

class EditSession;

/// The picture on the canvas, in layers that are kept until what they show changes: the photo with
/// its background and live filter, and over it everything together.
class CanvasLayers {
public:
    explicit CanvasLayers(const EditSession& session) : m_session(session) {}

    void invalidatePhoto();
    void invalidateSprites() { m_composed = {}; }

    /// The stage as it will be rendered, at a number of device pixels for each unit.
    const QImage& composed(double ratio);

private:
    const QImage& photo(double ratio);
    void drawPhoto(QImage& surface) const;

    const EditSession& m_session;
    QImage m_photo;
    QImage m_composed;
    double m_ratio = 1.0;
};

}  // namespace vellora
