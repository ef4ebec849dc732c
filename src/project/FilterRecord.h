#pragma once

#include <memory>

#include <vellora/filters/FilterInterface.h>
#include <vellora/filters/PhotoProcessor.h>

namespace vellora {

class XmlNode;

/// Writes a filter of a photo's chain as the element `Filter_Data`.
void saveFilter(COpencvFilterInterface& filter, int id, int depth);

/// Reads a filter from its element; null for an unknown type. A recorded horizontal flip is
/// deliberately not restored: `FlipX` other than 0 sets the vertical flip, which `FlipY` then
/// replaces.
std::unique_ptr<COpencvFilterInterface> loadFilter(const XmlNode& node);

/// Writes a crop step as the element `Crop_Data`.
void saveCrop(const CropRecord& crop, int id, int depth);

/// Reads a crop step; false unless all its attributes are there.
bool loadCrop(const XmlNode& node, CropRecord& crop);

}  // namespace vellora
