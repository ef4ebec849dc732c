#pragma once

#include <QIcon>

namespace vellora::desktop {

enum class Icon { New, Open, Save, Add, Edit, Remove, Export, Play };

/// The toolbar's icons, drawn as vectors in the palette's text colour: crisp at every scale.
QIcon toolIcon(Icon icon);
/// The program's icon.
QIcon programIcon();

}  // namespace vellora::desktop
