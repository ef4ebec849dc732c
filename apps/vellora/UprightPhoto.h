#pragma once

#include <QString>
#include <optional>

#include "common/ShowFile.h"

namespace vellora::cli {

/// The photo as a show lists it, upright; none, and the reason is said, when it is no photo.
std::optional<hostkit::ShowPhoto> uprightPhoto(const QString& name);

}  // namespace vellora::cli
