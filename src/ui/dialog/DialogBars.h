#pragma once

#include <QKeyCombination>
#include <Qt>

namespace vellora {

class CCoolTabBar;
class CFlexibleToolBar;

inline constexpr QKeyCombination kPreviousKeys = Qt::CTRL | Qt::Key_PageUp;
inline constexpr QKeyCombination kNextKeys = Qt::CTRL | Qt::Key_PageDown;

/// Adds the seven buttons of the edit dialog, in the order of `ToolCommand`.
void fillToolPanel(CFlexibleToolBar& panel);

/// Adds the four tabs, with gaps between them, and makes the first current.
void fillTabBar(CCoolTabBar& tabs);

}  // namespace vellora
