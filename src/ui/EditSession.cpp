#include "ui/EditSession.h"

#include <vector>

#include <vellora/base/PhotoListNode.h>
#include <vellora/filters/PhotoProcessor.h>
#include <vellora/model/DVDAlbumImage.h>
#include <vellora/model/DVDImage.h>
#include <vellora/model/DVDImageText.h>

#include "base/StageFit.h"
#include "host/Guard.h"
#include "ui/WaitCursor.h"

namespace vellora {

EditSession::EditSession(QObject* parent) : QObject(parent) {}

EditSession::~EditSession() = default;

void EditSession::setPhoto(CDVDImage* record, CDVDAlbumImage* album) {
    if (m_record != nullptr) {
        Q_EMIT photoAboutToChange();
    }
    m_record = record;
    m_recordLife = record != nullptr ? record->GetLife() : std::weak_ptr<const void>();
    m_album = album;
    Q_EMIT photoChanged();
}

void EditSession::forgetPhoto() {
    m_record = nullptr;
    setPhoto(nullptr, nullptr);
}

_PHOTO_LIST_NODE* EditSession::node() const {
    return record() != nullptr ? m_record->GetNode() : nullptr;
}

bool EditSession::hasPicture() const {
    return record() != nullptr && m_record->GetProcessor()->GetWorking() != nullptr;
}

Rect EditSession::placedPhoto() const {
    if (!hasPicture()) {
        return {};
    }
    const CPhotoProcessor& processor = *m_record->GetProcessor();
    return placedRect({processor.GetWidth(), processor.GetHeight()}, {kStageWidth, kStageHeight},
                      kFitInside);
}

void EditSession::perform(PhotoEdit kind, const std::function<void()>& change) {
    if (record() == nullptr) {
        return;
    }
    change();
    if (_PHOTO_LIST_NODE* photo = node(); photo != nullptr && kind != PhotoEdit::Details) {
        photo->changed = 1;
    }
    Q_EMIT edited(kind);
}

bool EditSession::holds(const CDVDImageSprite* sprite) const {
    return listOf(sprite) != nullptr;
}

CDVDImageSpriteArray* EditSession::listOf(const CDVDImageSprite* sprite) const {
    if (record() != nullptr && m_record->GetSprites().IndexOf(sprite) >= 0) {
        return &m_record->GetSprites();
    }
    if (m_album != nullptr && m_album->GetSprites().IndexOf(sprite) >= 0) {
        return &m_album->GetSprites();
    }
    return nullptr;
}

CDVDImageSprite* EditSession::addSprite(std::unique_ptr<CDVDImageSprite> sprite) {
    if (!isOpen() || sprite == nullptr) {
        return nullptr;
    }
    CDVDImageSprite* added = sprite.get();
    perform(PhotoEdit::Sprites, [&] { m_record->AddSprite(sprite.release(), false); });
    return added;
}

void EditSession::removeSprite(CDVDImageSprite* sprite) {
    if (!isOpen() || !holds(sprite)) {
        return;
    }
    perform(PhotoEdit::Sprites, [&] {
        if (m_record->RemoveSprite(sprite, true) == 0) {
            m_album->RemoveSprite(sprite, true);
        }
    });
}

void EditSession::deleteSprite(CDVDImageSprite* sprite) {
    if (isOpen() && holds(sprite)) {
        removeSprite(sprite);
        Q_EMIT albumChanged();
    }
}

void EditSession::moveSprite(CDVDImageSprite* sprite, QPoint position) {
    if (holds(sprite) && sprite->GetPosition() != position) {
        perform(PhotoEdit::Sprites, [&] { sprite->SetPosition(position.x(), position.y()); });
    }
}

void EditSession::placeSprite(CDVDImageSprite* sprite, QPoint position, QSize size) {
    if (holds(sprite) && (sprite->GetPosition() != position || sprite->GetSize() != size)) {
        perform(PhotoEdit::Sprites, [&] {
            sprite->SetPosition(position.x(), position.y());
            sprite->SetSize(size.width(), size.height());
        });
    }
}

void EditSession::reorderSprite(CDVDImageSprite* sprite, SpriteOrder order) {
    CDVDImageSpriteArray* list = listOf(sprite);
    if (list == nullptr) {
        return;
    }
    perform(PhotoEdit::Sprites, [&] {
        switch (order) {
            case SpriteOrder::Forward:
                list->BringForward(sprite);
                break;
            case SpriteOrder::Backward:
                list->SendBackward(sprite);
                break;
            case SpriteOrder::Front:
                list->BringToFront(sprite);
                break;
            case SpriteOrder::Back:
                list->SendToBack(sprite);
                break;
        }
    });
}

void EditSession::applyToAll(CDVDImageSprite* sprite) {
    if (!isOpen() || (sprite != nullptr && !holds(sprite))) {
        return;
    }
    std::vector<CDVDImageSprite*> moved;
    if (sprite == nullptr) {
        moved.assign(m_record->GetSprites().begin(), m_record->GetSprites().end());
    } else if (!sprite->GetAlbumFlag() || m_album->GetSprites().IndexOf(sprite) < 0) {
        moved.push_back(sprite);
    }
    if (moved.empty()) {
        return;
    }
    perform(PhotoEdit::Sprites, [&] {
        for (CDVDImageSprite* each : moved) {
            // Whatever its flag says: a sprite is in one list only, or it would be deleted twice.
            m_record->RemoveSprite(each, false);
            each->SetAlbumFlag(true);
            if (m_album->GetSprites().IndexOf(each) < 0) {
                m_album->AddSprite(each, false);
            }
        }
    });
    Q_EMIT albumChanged();
}

void EditSession::setText(CDVDImageText* sprite, const QString& text) {
    if (holds(sprite) && sprite->GetText() != text) {
        perform(PhotoEdit::Sprites, [&] { sprite->SetText(text); });
    }
}

void EditSession::setTextStyle(CDVDImageText* sprite, const TextStyle& style) {
    if (holds(sprite) && sprite->GetStyle() != style) {
        perform(PhotoEdit::Sprites, [&] { sprite->SetStyle(style); });
    }
}

void EditSession::flipX() {
    perform(PhotoEdit::Picture, [this] { m_record->GetProcessor()->ToggleFlipX(); });
}

void EditSession::flipY() {
    perform(PhotoEdit::Picture, [this] { m_record->GetProcessor()->ToggleFlipY(); });
}

void EditSession::rotateLeft() {
    perform(PhotoEdit::Picture, [this] { m_record->GetProcessor()->RotateLeft(); });
}

void EditSession::rotateRight() {
    perform(PhotoEdit::Picture, [this] { m_record->GetProcessor()->RotateRight(); });
}

bool EditSession::commitPicture(const Rect& frame) {
    if (!hasPicture()) {
        return false;
    }
    bool committed = false;
    perform(PhotoEdit::Picture, [&] {
        const WaitCursor wait;
        const Rect placed = placedPhoto();
        const Rect cut = frame.isEmpty() ? Rect{} : frame.translated(-placed.left, -placed.top);
        committed =
            guarded([&] {
                return m_record->GetProcessor()->Crop(cut.left, cut.top, cut.width(), cut.height())
                           ? S_OK
                           : E_FAIL;
            }) == S_OK;
    });
    return committed;
}

void EditSession::restoreOriginal() {
    perform(PhotoEdit::Picture, [this] {
        const WaitCursor wait;
        guarded([this] {
            m_record->GetProcessor()->RestoreOriginal();
            return S_OK;
        });
    });
}

}  // namespace vellora
