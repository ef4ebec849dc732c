#include "ui/pages/SliderSetup.h"

#include <vellora/filters/FilterInterface.h>

namespace vellora {

FilterSliders setUpSliders(COpencvFilterInterface& filter) {
    FilterSliders sliders;
    if (filter.param_descs == nullptr) {
        return sliders;
    }
    const std::array cells{filter.GetFactorOne(), filter.GetFactorTwo(), filter.GetFactorThree()};
    for (std::size_t index = 0; index < sliders.size(); ++index) {
        const FilterParamDesc& descriptor = filter.param_descs[index];
        if (descriptor.min == descriptor.max) {
            break;
        }
        sliders[index] = {true,
                          descriptor.min,
                          descriptor.max,
                          descriptor.default_value,
                          descriptor.label_id,
                          cells[index]};
        if (cells[index] != nullptr) {
            *cells[index] = descriptor.default_value;
        }
    }
    return sliders;
}

}  // namespace vellora
