#include "ui/behaviour/TextDraft.h"

#include <array>
#include <memory>

#include <vellora/model/DVDAlbumImage.h>
#include <vellora/model/DVDImage.h>
#include <vellora/model/DVDImageText.h>
#include <vellora/text/TextMacro.h>

#include "base/XmlText.h"
#include "ui/EditSession.h"

namespace vellora {
namespace {

void expandTextsOf(const CDVDImageSpriteArray& sprites, const CTextMacro& macros) {
    for (CDVDImageSprite* sprite : sprites) {
        if (sprite->GetKind() == kTextSprite) {
            auto* text = static_cast<CDVDImageText*>(sprite);
            QString expanded;
            macros.Expand(text->GetText(), expanded);
            text->SetDisplayText(expanded);
        }
    }
}

}  // namespace

CDVDImageText* addText(EditSession& session, const QString& text, QPoint position,
                       const TextStyle& style) {
    if (!session.isOpen()) {
        return nullptr;
    }
    auto sprite = std::make_unique<CDVDImageText>(session.record(),
                                                  session.album()->GetTextEffectBaseFolder());
    sprite->SetStyle(style);
    sprite->SetPosition(position.x(), position.y());
    sprite->SetText(text);
    CDVDImageText* added = sprite.get();
    session.addSprite(std::move(sprite));
    return added;
}

CommittedDraft commitDraft(EditSession& session, const TextDraft& draft, const TextStyle& style) {
    const QString text = xmlText(draft.text);
    if (!session.holds(draft.target)) {
        if (text.isEmpty()) {
            return {};
        }
        return {addText(session, text, draft.position, style), true};
    }
    if (text.isEmpty()) {
        session.removeSprite(draft.target);
        return {};
    }
    session.setTextStyle(draft.target, style);
    session.moveSprite(draft.target, draft.position);
    session.setText(draft.target, text);
    return {draft.target, false};
}

void expandTexts(const EditSession& session, int slideIndex, int slideCount) {
    if (!session.isOpen()) {
        return;
    }
    CTextMacro macros;
    macros.Bind(session.record());
    macros.SetSlideIndex(slideIndex);
    macros.SetSlideCount(slideCount);
    expandTextsOf(session.album()->GetSprites(), macros);
    expandTextsOf(session.record()->GetSprites(), macros);
}

QString macroToken(int macro) {
    static constexpr std::array<char16_t, 10> kLetters{u'F', u'f', u'e', u't', u'd',
                                                       u'T', u'P', u'p', u'o', u'D'};
    if (macro < 0 || macro >= static_cast<int>(kLetters.size())) {
        return {};
    }
    return QStringLiteral("$[%1]").arg(QChar(kLetters[static_cast<std::size_t>(macro)]));
}

}  // namespace vellora
