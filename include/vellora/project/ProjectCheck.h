#pragma once

/// @file
/// Finding out what is wrong with a project file.

#include <QString>
#include <vector>

#include <vellora/base/Export.h>

namespace vellora {

/// Something in a project file that loading leaves out or that drawing cannot show.
struct ProjectFinding {
    int line = 0;    ///< From 1; 0 when the file itself cannot be read.
    int column = 0;  ///< From 1, in characters.
    QString message;
};

/// What a check found.
struct ProjectReport {
    /// Whether the file is a project file at all. When it is not, the one finding says why.
    bool readable = false;
    /// In the order of the file; at most 1000, the last of which then says that there are more.
    std::vector<ProjectFinding> findings;
};

/// Checks a project file without loading it: what loading would leave out, numbers that are none,
/// counts that do not fit, unknown filters, factors outside their range, art clips and textures
/// that are missing or cannot be decoded.
///
/// @param baseFolder  The text-effect base folder, below which the textures lie.
VELLORA_EXPORT ProjectReport CheckProject(const QString& path, const QString& baseFolder);

}  // namespace vellora
