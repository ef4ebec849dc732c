#pragma once

#include <QString>
#include <vector>

#include "writer/Drawing.h"

namespace vellora::clipgen {

struct Clip {
    QString name;
    Drawing drawing;
};

/// One style of the library: a folder of clips.
struct Style {
    QString name;
    QString folder;
    std::vector<Clip> clips;
};

Style frames();
Style ribbonsAndStars();
Style balloons();
Style flourishes();
Style seasons();
Style travel();
Style celebrations();

}  // namespace vellora::clipgen
