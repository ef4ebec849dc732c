#pragma once

#include <array>
#include <cstddef>
#include <new>

#include <vellora/filters/FilterInterface.h>

namespace vellora {

enum class FilterCategory : std::int32_t { Adjustment = 0, ArtEffect = 1 };

/// String ids of the parameter labels.
namespace label {
inline constexpr std::int32_t kRed = 3020;
inline constexpr std::int32_t kGreen = 3021;
inline constexpr std::int32_t kBlue = 3022;
inline constexpr std::int32_t kBrightness = 3023;
inline constexpr std::int32_t kContrast = 3024;
inline constexpr std::int32_t kHue = 3025;
inline constexpr std::int32_t kSaturation = 3026;
inline constexpr std::int32_t kLightness = 3027;
inline constexpr std::int32_t kShadowDepth = 3028;
inline constexpr std::int32_t kAmount = 3029;
inline constexpr std::int32_t kRange = 3030;
inline constexpr std::int32_t kRedEyeThreshold = 3057;
inline constexpr std::int32_t kRotateAngle = 3058;
inline constexpr std::int32_t kKernelSize = 3059;
inline constexpr std::int32_t kContourThreshold = 3060;
inline constexpr std::int32_t kBigFlakes = 3062;
inline constexpr std::int32_t kMiddleFlakes = 3063;
inline constexpr std::int32_t kSmallFlakes = 3064;
inline constexpr std::int32_t kStrokeSize = 3065;
inline constexpr std::int32_t kPenHardness = 3066;
inline constexpr std::int32_t kGrain = 3069;
inline constexpr std::int32_t kRainMinimum = 3070;
inline constexpr std::int32_t kRainMaximum = 3071;
inline constexpr std::int32_t kRainDrops = 3072;
inline constexpr std::int32_t kWaveLength = 3073;
inline constexpr std::int32_t kWaveHeight = 3074;
inline constexpr std::int32_t kRefraction = 3075;
inline constexpr std::int32_t kWaterSize = 3076;
inline constexpr std::int32_t kMistDensity = 3077;
}  // namespace label

using FilterParamDescs = std::array<FilterParamDesc, 3>;

/// A filter without parameters: everything of the record is fixed by the class.
template <class Derived>
class PlainFilter : public COpencvFilterInterface {
public:
    [[nodiscard]] COpencvFilterInterface* Clone() const override {
        return new (std::nothrow) Derived;
    }

protected:
    explicit PlainFilter(FilterCategory category) {
        is_art_effect = static_cast<std::int32_t>(category);
    }
};

/// A filter with `Count` factors.
///
/// `Slots[k]` is the place in storage of the factor that descriptor k describes; most filters
/// store their factors in descriptor order. A clone carries the factors and nothing else.
template <class Derived, std::size_t Count,
          std::array<std::size_t, 3> Slots = std::array<std::size_t, 3>{0, 1, 2}>
class FactorFilter : public COpencvFilterInterface {
    static_assert(Count >= 1 && Count <= 3);

public:
    [[nodiscard]] COpencvFilterInterface* Clone() const override {
        auto* clone = new (std::nothrow) Derived;
        if (clone != nullptr) {
            clone->m_factors = m_factors;
        }
        return clone;
    }

    std::int32_t* GetFactorOne() override { return &m_factors[Slots[0]]; }

    std::int32_t* GetFactorTwo() override {
        if constexpr (Count > 1) {
            return &m_factors[Slots[1]];
        } else {
            return nullptr;
        }
    }

    std::int32_t* GetFactorThree() override {
        if constexpr (Count > 2) {
            return &m_factors[Slots[2]];
        } else {
            return nullptr;
        }
    }

protected:
    /// @param descs    Lives as long as the module.
    /// @param initial  Initial factors in descriptor order.
    FactorFilter(const FilterParamDescs& descs, FilterCategory category,
                 const std::array<std::int32_t, Count>& initial) {
        param_descs = descs.data();
        is_art_effect = static_cast<std::int32_t>(category);
        for (std::size_t k = 0; k < Count; ++k) {
            m_factors[Slots[k]] = initial[k];
        }
    }

    /// The factor that descriptor `k` describes.
    [[nodiscard]] std::int32_t factor(std::size_t k) const { return m_factors[Slots[k]]; }

private:
    std::array<std::int32_t, Count> m_factors{};
};

}  // namespace vellora
