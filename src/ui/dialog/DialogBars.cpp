#include "ui/dialog/DialogBars.h"

#include <QKeySequence>

#include <vellora/host/Language.h>

#include "base/ResourceIds.h"
#include "ui/controls/CoolTabBar.h"
#include "ui/controls/CoolToolBar.h"

namespace vellora {
namespace {

constexpr QColor kButtonFrame{0x80, 0x80, 0x80};

}  // namespace

void fillToolPanel(CFlexibleToolBar& panel) {
    const auto add = [&panel](skin::Icon icon, std::int32_t caption, std::int32_t tip,
                              const QKeySequence& keys = {}) {
        QString text = LanguageString(tip);
        if (!keys.isEmpty()) {
            text += QStringLiteral(" (%1)").arg(keys.toString(QKeySequence::NativeText));
        }
        panel.AddButton(icon, LanguageString(caption), text);
    };
    add(skin::Icon::FlipX, string_id::kFlipX, string_id::kFlipHorizontally);
    add(skin::Icon::FlipY, string_id::kFlipY, string_id::kFlipVertically);
    panel.AddSeparator();
    add(skin::Icon::RotateLeft, string_id::kRotateLeft, string_id::kRotateCounterclockwise);
    add(skin::Icon::RotateRight, string_id::kRotateRight, string_id::kRotateClockwise);
    panel.AddSeparator();
    const bool mirrored = panel.layoutDirection() == Qt::RightToLeft;
    add(mirrored ? skin::Icon::Next : skin::Icon::Previous, string_id::kPreviousPhoto,
        string_id::kPreviousPhoto, kPreviousKeys);
    add(mirrored ? skin::Icon::Previous : skin::Icon::Next, string_id::kNextPhoto,
        string_id::kNextPhoto, kNextKeys);
    panel.AddSeparator();
    add(skin::Icon::Close, string_id::kClose, string_id::kCloseWindow);
    panel.SetButtonFrameColour(kButtonFrame);
}

void fillTabBar(CCoolTabBar& tabs) {
    for (const std::int32_t tab : {string_id::kTabInfo, string_id::kTabText, string_id::kTabArtClip,
                                   string_id::kTabCropFilter}) {
        if (tabs.count() > 0) {
            tabs.AddGap();
        }
        tabs.AddTab(LanguageString(tab), LanguageString(tab));
    }
    tabs.setCurrentIndex(0);
}

}  // namespace vellora
