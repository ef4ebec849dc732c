#include "ui/behaviour/NewSprites.h"

#include <vellora/host/Language.h>
#include <vellora/model/DVDImage.h>

#include "ui/EditSession.h"
#include "ui/LanguageIds.h"
#include "ui/behaviour/ClipPlacement.h"
#include "ui/behaviour/TextDraft.h"

namespace vellora {

CDVDImageText* NewSprites::addText(const TextStyle& style) {
    if (!m_session.isOpen()) {
        return nullptr;
    }
    return vellora::addText(m_session, LanguageString(kDoubleClickToEdit), m_textPlaces.next(),
                            style);
}

std::unique_ptr<CDVDImageProps> NewSprites::makeClip(const QString& file, const QPoint* centre,
                                                     QString* reason) {
    if (!m_session.isOpen()) {
        return nullptr;
    }
    const QSizeF natural = CDVDImageProps::NaturalSize(file, reason);
    if (natural.isEmpty()) {
        return nullptr;
    }
    auto clip = std::make_unique<CDVDImageProps>(m_session.record(), file);
    const SpritePlace place =
        placeOfClip(natural, isVectorClip(file), centre != nullptr ? *centre : m_clipPlaces.next());
    clip->SetPosition(place.position.x(), place.position.y());
    clip->SetSize(place.size.width(), place.size.height());
    return clip;
}

}  // namespace vellora
