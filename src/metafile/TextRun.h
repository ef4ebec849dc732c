#pragma once

#include <QRectF>
#include <QString>
#include <vector>

namespace vellora::metafile {

/// One text record.
struct TextRun {
    QString text;
    QPointF at;
    /// Distances from letter to letter, one for each UTF-16 unit; empty where the font decides.
    std::vector<double> advances;
    /// The rectangle that is filled with the background colour or cuts the text off.
    QRectF box;
    bool fillsBox = false;
    bool clipsToBox = false;
};

}  // namespace vellora::metafile
