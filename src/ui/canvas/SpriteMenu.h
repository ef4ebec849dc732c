#pragma once

#include <QMenu>
#include <functional>

namespace vellora {

class SpriteSelection;

/// Fills a menu with the commands for the selected sprite, in the user's language.
///
/// @param run  Carries out a command that was chosen.
void fillSpriteMenu(QMenu& menu, const SpriteSelection& selection,
                    const std::function<void(int)>& run);

}  // namespace vellora
