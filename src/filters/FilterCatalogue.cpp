#include <algorithm>
#include <array>
#include <memory>
#include <string_view>

#include <vellora/filters/FilterCatalogue.h>

#include "base/StringTable.h"
#include "filters/BlackWhiteFilter.h"
#include "filters/BrightnessContrastFilter.h"
#include "filters/CanvasFilter.h"
#include "filters/CarveFilter.h"
#include "filters/ColorMatrixFilter.h"
#include "filters/DepthDimFilter.h"
#include "filters/DotPaintFilter.h"
#include "filters/EdgeFilter.h"
#include "filters/EmbossmentFilter.h"
#include "filters/GreyFilter.h"
#include "filters/HSLFilter.h"
#include "filters/InverseFilter.h"
#include "filters/MistFilter.h"
#include "filters/NoneFilter.h"
#include "filters/OilPaintFilter.h"
#include "filters/RainFilter.h"
#include "filters/RedEyeRemoveFilter.h"
#include "filters/RotateFilter.h"
#include "filters/SharpenFilter.h"
#include "filters/SmoothFilter.h"
#include "filters/SnowFilter.h"
#include "filters/WaterPaintFilter.h"
#include "filters/WaveFilter.h"
#include "filters/WaxPen2Filter.h"
#include "filters/WaxPenFilter.h"
#include "filters/WoodFilter.h"

namespace vellora {
namespace {

/// One filter of each class. The order is what users see: never change it.
auto makePrototypes() {
    return std::to_array<std::unique_ptr<COpencvFilterInterface>>({
        std::make_unique<CNoneFilter>(),     std::make_unique<CColorMatrixFilter>(),
        std::make_unique<CGreyFilter>(),     std::make_unique<CBrightnessContrastFilter>(),
        std::make_unique<CHSLFilter>(),      std::make_unique<CSmoothFilter>(),
        std::make_unique<CSharpenFilter>(),  std::make_unique<CRedEyeRemoveFilter>(),
        std::make_unique<CRotateFilter>(),   std::make_unique<CEdgeFilter>(),
        std::make_unique<CDepthDimFilter>(), std::make_unique<CWaveFilter>(),
        std::make_unique<CMistFilter>(),     std::make_unique<CSnowFilter>(),
        std::make_unique<CRainFilter>(),     std::make_unique<CWaterPaintFilter>(),
        std::make_unique<CWaxPenFilter>(),   std::make_unique<CWaxPenFilter2>(),
        std::make_unique<COilPaintFilter>(), std::make_unique<CDotPaintFilter>(),
        std::make_unique<CInverseFilter>(),  std::make_unique<CBlackWhiteFilter>(),
        std::make_unique<CCarveFilter>(),    std::make_unique<CEmbossmentFilter>(),
        std::make_unique<CCanvasFilter>(),   std::make_unique<CWoodFilter>(),
    });
}

class Catalogue {
public:
    Catalogue() {
        std::ranges::transform(m_owned, m_prototypes.begin(),
                               [](const auto& filter) { return filter.get(); });
    }

    [[nodiscard]] std::span<const COpencvFilterInterface* const> prototypes() const {
        return m_prototypes;
    }

private:
    decltype(makePrototypes()) m_owned = makePrototypes();
    std::array<const COpencvFilterInterface*, std::tuple_size_v<decltype(m_owned)>> m_prototypes{};
};

const Catalogue g_catalogue;

}  // namespace

COpencvFilterInterface* CreateFilterByName(const char16_t* name) {
    if (name == nullptr) {
        return nullptr;
    }
    const std::u16string_view wanted(name);
    for (const COpencvFilterInterface* prototype : g_catalogue.prototypes()) {
        if (wanted == prototype->GetName()) {
            return prototype->Clone();
        }
    }
    return nullptr;
}

std::span<const COpencvFilterInterface* const> GetFilterPrototypes() {
    return g_catalogue.prototypes();
}

const char16_t* GetFilterLabel(std::int32_t label_id) {
    return builtInString(label_id);
}

}  // namespace vellora
