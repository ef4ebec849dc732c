#pragma once

#include <QStringList>
#include <functional>
#include <memory>
#include <vector>

#include <vellora/filters/FilterInterface.h>
#include <vellora/text/TextStyle.h>

namespace vellora {
class CDVDImage;
}

namespace vellora::cli {

/// Writes one edit into a photo's edit record. The host record is complete by then.
using Edit = std::function<void(CDVDImage& image)>;

/// What the user wants done to each photo, in order.
struct Edits {
    std::vector<Edit> steps;
    /// The filter that a region belongs to; null before the first region filter.
    std::shared_ptr<COpencvFilterInterface> regionFilter;
    /// The style of the texts that follow; a style of the catalogue keeps a size that was asked
    /// for.
    TextStyle textStyle;
    bool hasFontSize = false;
    /// Files that the edits read; no result may replace them.
    QStringList files;

    void applyTo(CDVDImage& image) const {
        for (const Edit& step : steps) {
            step(image);
        }
    }
};

}  // namespace vellora::cli
