#pragma once

/// @file
/// The abstract filter and what every filter records.

#include <cstdint>

#include <vellora/base/Export.h>
#include <vellora/base/Types.h>

namespace vellora {

/// Describes one slider of a filter. An unused entry is all zero.
struct FilterParamDesc {
    std::int32_t max;            ///< Largest slider value.
    std::int32_t min;            ///< Smallest slider value.
    std::int32_t default_value;  ///< Value advertised as the default; a fresh filter may differ.
    std::int32_t label_id;       ///< String id of the label, see `GetFilterLabel`.
};

/// An operation on a photo: an adjustment, an art effect, free rotation, red-eye removal.
///
/// A filter is identified by its name, which is also its key in project files. It keeps up to
/// three integer factors and, for some, a region; it holds no image between calls. Factors are
/// read and written through the pointers of `GetFactorOne` to `GetFactorThree`; they are not
/// checked against their descriptors, and a value outside its range is used as it stands.
///
/// Threads: a filter object is used by one thread at a time. The random filters share the module's
/// generator, so two of them should not run at once if their results are to be repeatable.
class VELLORA_EXPORT COpencvFilterInterface {
public:
    virtual ~COpencvFilterInterface() = default;

    /// Transforms the image in place.
    ///
    /// @param image  Address of the caller's image pointer. The filter may release the image and
    ///               store a new one.
    /// @return False for a null image or one that the filter cannot use, which is then unchanged.
    ///         "Wave" returns false even after it has changed the image; no caller may skip
    ///         recording or replaying because of the result.
    virtual bool Apply(IplImage** image) = 0;

    /// A new filter of the same class with the same factors, owned by the caller; null when
    /// memory runs out. The recorded state (`crop_step`, flips, `Angle`) starts afresh, except
    /// for "Red Eye Removal", which copies everything.
    [[nodiscard]] virtual COpencvFilterInterface* Clone() const = 0;

    /// The display name. It is written to files: names never change.
    [[nodiscard]] virtual const char16_t* GetName() const = 0;

    /// The factor that descriptor 0 describes, or null when the filter has none.
    virtual std::int32_t* GetFactorOne();
    /// The factor that descriptor 1 describes, or null when the filter has none.
    virtual std::int32_t* GetFactorTwo();
    /// The factor that descriptor 2 describes, or null when the filter has none.
    virtual std::int32_t* GetFactorThree();

    /// Whether the filter works on a region.
    [[nodiscard]] virtual bool HasROI() const;
    /// Sets the region: left, top, width and height as fractions of the image size.
    virtual void SetROI(float x, float y, float cx, float cy);
    /// Reads the region; a filter without one writes 0 to all four.
    virtual void GetROI(float* x, float* y, float* cx, float* cy) const;

    /// Three descriptors, or null for a filter without parameters.
    const FilterParamDesc* param_descs = nullptr;
    /// Number of crop steps the photo had when the filter was recorded.
    std::int32_t crop_step = 0;
    /// Whether the photo was mirrored left to right when the filter was recorded.
    bool FlipX = false;
    /// Whether the photo was mirrored upside down when the filter was recorded.
    bool FlipY = false;
    /// The photo's quarter-turn angle in degrees when the filter was recorded.
    std::int32_t Angle = 0;
    /// 0 for an adjustment, 1 for an art effect.
    std::int32_t is_art_effect = 0;

protected:
    COpencvFilterInterface() = default;
    COpencvFilterInterface(const COpencvFilterInterface&) = default;
    COpencvFilterInterface& operator=(const COpencvFilterInterface&) = default;
};

}  // namespace vellora
