#pragma once

#include <QSize>
#include <QString>

#include "Edits.h"
#include "RenderList.h"
#include "RenderOptions.h"

namespace vellora::cli {

/// How the rendering of one photo went.
struct RenderOutcome {
    QString problem;       ///< Why there is no result; empty when there is one.
    bool damaged = false;  ///< The photo file ends early; what could be read was rendered.
    QSize size;            ///< Of the result.
};

/// Fills the host record of a photo.
/// @return Why the photo cannot be rendered; the record then holds what is known all the same.
///         Empty when all is well.
QString prepareRecord(_PHOTO_LIST_NODE& record, const RenderItem& item,
                      const RenderOptions& options);

/// Renders photos one by one with the same options and edits.
class PhotoRenderer {
public:
    PhotoRenderer(const RenderOptions& options, const Edits& edits)
        : m_options(options), m_edits(edits) {}

    /// Renders a photo into a new file. After a failure there is no such file; a failed write
    /// leaves the problem to the caller, who knows the folder: the size is then empty.
    [[nodiscard]] RenderOutcome render(const RenderItem& item, const QString& file) const;

private:
    const RenderOptions& m_options;
    const Edits& m_edits;
};

}  // namespace vellora::cli
