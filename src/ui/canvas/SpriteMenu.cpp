#include "ui/canvas/SpriteMenu.h"

#include <array>

#include <vellora/host/Language.h>

#include "ui/behaviour/SpriteSelection.h"

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

void fillSpriteMenu(QMenu& menu, const SpriteSelection& selection,
                    const std::function<void(int)>& run) {
    for (const Row& row : kRows) {
        if (row.opensGroup) {
            menu.addSeparator();
        }
        QAction* action = menu.addAction(QString::fromLatin1(row.text));
        action->setProperty(kCommandIdProperty, row.id);
        action->setEnabled(selection.offers(row.id));
        QObject::connect(action, &QAction::triggered, &menu, [run, id = row.id] { run(id); });
    }
    TranslateMenu(menu);
}

}  // namespace vellora
