#include "scenes/Scenes.h"

#include <array>

namespace vellora::scenes {
namespace {

constexpr std::array<Scene, 3> kScenes{{
    {"landscape", {2400, 1600}, paintLandscape},
    {"portrait", {1600, 2000}, paintPortrait},
    {"night", {2400, 1600}, paintCity},
}};

}  // namespace

std::span<const Scene> all() {
    return kScenes;
}

}  // namespace vellora::scenes
