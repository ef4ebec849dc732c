#pragma once

#include <QPoint>
#include <QString>
#include <memory>

#include <vellora/base/Types.h>
#include <vellora/model/DVDImageProps.h>

#include "ui/behaviour/Cascade.h"

namespace vellora {

struct TextStyle;
class CDVDImageText;
class EditSession;

/// Makes new texts and art clips, each at the next place, so that none hides another.
class NewSprites {
public:
    /// @param session  Not owned; outlives this.
    explicit NewSprites(EditSession& session) : m_session(session) {}

    /// Adds a text that says what to do with it.
    /// @return Null when there is no photo.
    CDVDImageText* addText(const TextStyle& style);

    /// An art clip that can be added to the photo.
    ///
    /// @param centre  Where its middle comes to lie; null for the next place.
    /// @param reason  Where given, says why a file cannot be loaded.
    /// @return Null for a file that cannot be loaded, or without a photo.
    std::unique_ptr<CDVDImageProps> makeClip(const QString& file, const QPoint* centre,
                                             QString* reason);

private:
    /// Where the middle of the first clip lies.
    static constexpr QPoint kFirstClip{kStageWidth / 2, kStageHeight / 2};

    EditSession& m_session;
    Cascade m_textPlaces;
    Cascade m_clipPlaces{kFirstClip, kFirstClip};
};

}  // namespace vellora
