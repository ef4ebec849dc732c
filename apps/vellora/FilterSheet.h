#pragma once

#include <QString>
#include <cstdint>

namespace vellora::cli {

struct SheetOptions {
    QString file;            ///< PNG to write.
    QString photo;           ///< Empty: a painted sample.
    bool fullSize = false;   ///< Filter the whole photo, not its preview.
    std::uint32_t seed = 1;  ///< Of the random filters.
};

/// Writes a contact sheet: the photo under every filter of the catalogue, with names and factors.
///
/// Filters have their initial factors; where those would show nothing, others.
/// @return Why there is no sheet; empty when there is one.
QString writeFilterSheet(const SheetOptions& options);

}  // namespace vellora::cli
