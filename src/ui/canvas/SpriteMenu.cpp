#include "ui/canvas/SpriteMenu.h"

#include <array>

#include <vellora/host/Language.h>
#include <vellora/model/DVDImageSpriteArray.h>

#include "ui/EditSession.h"

namespace vellora {
namespace {

struct Row {
    int id;
    const char* text;
    bool opensGroup;
};

constexpr std::array<Row, 8> kRows{{
    {kSpriteCopy, "&Copy", false},
    {kSpritePaste, "Paste", false},
    {kSpriteDelete, "Delete", false},
    {kSpriteForward, "Bring Forward", true},
    {kSpriteBackward, "Send Backward", false},
    {kSpriteToFront, "Bring to Front", false},
    {kSpriteToBack, "Send to Back", false},
    {kSpriteToAll, "Apply to All Photos", true},
}};

}  // namespace

std::optional<SpriteOrder> spriteOrderOf(int id) {
    switch (id) {
        case kSpriteForward:
            return SpriteOrder::Forward;
        case kSpriteBackward:
            return SpriteOrder::Backward;
        case kSpriteToFront:
            return SpriteOrder::Front;
        case kSpriteToBack:
            return SpriteOrder::Back;
        default:
            return std::nullopt;
    }
}

bool isSpriteCommandEnabled(const EditSession& session, const CDVDImageSprite* selected, int id) {
    if (id == kSpritePaste) {
        return true;
    }
    const CDVDImageSpriteArray* list = session.listOf(selected);
    if (list == nullptr) {
        return false;
    }
    if (id == kSpriteForward || id == kSpriteToFront) {
        return !list->IsTop(selected);
    }
    if (id == kSpriteBackward || id == kSpriteToBack) {
        return !list->IsBottom(selected);
    }
    return true;
}

void fillSpriteMenu(QMenu& menu, const std::function<bool(int)>& isEnabled,
                    const std::function<void(int)>& run) {
    for (const Row& row : kRows) {
        if (row.opensGroup) {
            menu.addSeparator();
        }
        QAction* action = menu.addAction(QString::fromLatin1(row.text));
        action->setProperty(kCommandIdProperty, row.id);
        action->setEnabled(isEnabled(row.id));
        QObject::connect(action, &QAction::triggered, &menu, [run, id = row.id] { run(id); });
    }
    TranslateMenu(menu);
}

}  // namespace vellora
