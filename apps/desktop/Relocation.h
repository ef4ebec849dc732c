#pragma once

#include <QString>
#include <vector>

#include "desktop/Slide.h"

namespace vellora::desktop {

/// Another file for the photo of a slide.
struct Relocation {
    SlidePtr slide;
    QString path;
};

/// Which other missing photos turn up when one was found elsewhere: a folder was moved or renamed,
/// so the same part of their paths has changed, or they lie in the folder of the one found.
std::vector<Relocation> foundBeside(const std::vector<SlidePtr>& slides, const QString& from,
                                    const QString& to);

}  // namespace vellora::desktop
