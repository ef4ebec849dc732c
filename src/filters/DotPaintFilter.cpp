#include "filters/DotPaintFilter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "filters/Dabs.h"
#include "filters/ImagePreflight.h"
#include "filters/StageScale.h"

namespace vellora {
namespace {

constexpr int kTileEdge = 128;
constexpr float kRelief = 6.0F;  // how much lighter a dot is toward the upper left

// A layer of dots: lengths in stage pixels, radii in cells.
struct Layer {
    double pitch;
    float smallest;
    float largest;
    float variety;      // of the colour
    bool onlyInDetail;  // leaves even areas to the layers below, but for a few dots
};

// The first layer is so tight that its dots overlap; the later ones set accents.
constexpr std::array<Layer, 3> kLayers{{
    {6.5, 0.72F, 0.95F, 1.0F, false},
    {4.4, 0.34F, 0.62F, 1.0F, false},
    {2.7, 0.36F, 0.60F, 0.6F, true},
}};

struct PreparedLayer {
    Layer kind;
    DabGrid grid;
    cv::Mat colours;
    float cell;  // in pixels
};

struct Dot {
    float x;
    float y;
    float radius;
    cv::Vec3f colour;
};

// The divided colours of the pointillists: the hue is pushed outward, lightness varies from dot to
// dot, and some dots lean toward the complement, which the eye mixes back.
cv::Vec3f dotColour(const cv::Vec3b& local, float variety, CellRandom& random) {
    const cv::Vec3f colour(local);
    const float grey = (colour[0] + 2.0F * colour[1] + colour[2]) * 0.25F;
    const bool complement = random.next() < 0.12F;
    const float push = complement ? 0.35F : random.between(1.15F, 1.75F);
    const float lightness = 1.0F + 0.26F * variety * (random.next() - 0.5F);
    const float spread = (4.0F + 0.10F * grey) * variety;
    cv::Vec3f result;
    for (int c = 0; c < 3; ++c) {
        const float shift = spread * (random.next() + random.next() - 1.0F);
        result[c] = (grey + push * (colour[c] - grey)) * lightness + shift;
    }
    return result;
}

void paintDot(cv::Mat& target, const cv::Rect& tile, const Dot& dot) {
    const float outer = dot.radius + 0.5F;
    const float inner = std::max(0.0F, dot.radius - 0.5F);
    const int top = std::max(tile.y, static_cast<int>(std::ceil(dot.y - outer)));
    const int bottom = std::min(tile.br().y - 1, static_cast<int>(std::floor(dot.y + outer)));
    const float slope = -kRelief / dot.radius;
    for (int y = top; y <= bottom; ++y) {
        const float dy = static_cast<float>(y) - dot.y;
        const float half = std::sqrt(std::max(0.0F, outer * outer - dy * dy));
        const int left = std::max(tile.x, static_cast<int>(std::ceil(dot.x - half)));
        const int right = std::min(tile.br().x - 1, static_cast<int>(std::floor(dot.x + half)));
        uchar* pixel = target.ptr(y) + 3 * std::ptrdiff_t{left};
        for (int x = left; x <= right; ++x, pixel += 3) {
            const float dx = static_cast<float>(x) - dot.x;
            const float distance2 = dx * dx + dy * dy;
            const float light = slope * (dx + dy);
            const float cover =
                distance2 <= inner * inner ? 1.0F : std::max(0.0F, outer - std::sqrt(distance2));
            for (int c = 0; c < 3; ++c) {
                const float below = pixel[c];
                const float wanted = std::clamp(dot.colour[c] + light, 0.0F, 255.0F);
                pixel[c] =
                    static_cast<uchar>(below + (wanted - below) * std::min(1.0F, cover) + 0.5F);
            }
        }
    }
}

// Whether the colours change here from this layer's cells to the next coarser ones.
bool hasDetail(const PreparedLayer& layer, const PreparedLayer& coarser, int column, int row) {
    constexpr int kNoticeable = 26;
    const int x = static_cast<int>((column + 0.5) * layer.grid.cellWidth / coarser.grid.cellWidth);
    const int y = static_cast<int>((row + 0.5) * layer.grid.cellHeight / coarser.grid.cellHeight);
    const auto& fine = cellValue<cv::Vec3b>(layer.colours, column, row);
    const auto& coarse = cellValue<cv::Vec3b>(coarser.colours, x, y);
    return std::abs(fine[0] - coarse[0]) + std::abs(fine[1] - coarse[1]) +
               std::abs(fine[2] - coarse[2]) >
           kNoticeable;
}

// Between dots of the first layer shows its own colour without variation, never the photo.
void primeTile(cv::Mat& target, const cv::Rect& tile, const PreparedLayer& layer) {
    for (int y = tile.y; y < tile.br().y; ++y) {
        const int row = static_cast<int>(y / layer.grid.cellHeight);
        auto* out = target.ptr<cv::Vec3b>(y);
        for (int x = tile.x; x < tile.br().x; ++x) {
            const int column = static_cast<int>(x / layer.grid.cellWidth);
            out[x] = cellValue<cv::Vec3b>(layer.colours, column, row);
        }
    }
}

void paintLayer(cv::Mat& target, const cv::Rect& tile, const PreparedLayer& layer,
                const PreparedLayer& coarser) {
    const double reach = layer.cell * (layer.kind.largest + 0.6) + 1.0;
    forEachDab(layer.grid, tile, reach, [&](int column, int row) {
        CellRandom random(column, row, layer.grid.seed + 1);
        const float rare = random.next();
        const bool detail = layer.kind.onlyInDetail && hasDetail(layer, coarser, column, row);
        if (layer.kind.onlyInDetail && !detail && rare > 0.16F) {
            return;
        }
        const auto stagger = [](int line) { return (line & 1) == 0 ? -0.2 : 0.2; };
        const double inColumn = column + 0.5 + stagger(row) + random.between(-0.32F, 0.32F);
        const double inRow = row + 0.5 + stagger(column) + random.between(-0.32F, 0.32F);
        const auto& local =
            cellValue<cv::Vec3b>(layer.colours, static_cast<int>(std::floor(inColumn)),
                                 static_cast<int>(std::floor(inRow)));
        Dot dot{};
        dot.x = static_cast<float>(inColumn * layer.grid.cellWidth);
        dot.y = static_cast<float>(inRow * layer.grid.cellHeight);
        dot.radius = layer.cell * random.between(layer.kind.smallest, layer.kind.largest);
        dot.colour = dotColour(local, layer.kind.variety, random);
        paintDot(target, tile, dot);
    });
}

// Pointillism (Seurat and Signac): layers of dots of pure, varied colour over an underpainting;
// every layer has one dot in each cell of a jittered grid (Cook, "Stochastic sampling", 1986).
void paintDots(cv::Mat& picture) {
    const double scale = stageScale(picture.size());
    std::vector<PreparedLayer> layers;
    for (const Layer& kind : kLayers) {
        const auto seed = static_cast<std::uint32_t>(100 + 10 * layers.size());
        const DabGrid grid = makeDabGrid(picture.size(), kind.pitch * scale, seed);
        layers.push_back({kind, grid, cellColours(picture, grid),
                          static_cast<float>(std::max(grid.cellWidth, grid.cellHeight))});
    }
    forEachTile(picture.size(), kTileEdge, [&](const cv::Rect& tile) {
        primeTile(picture, tile, layers[0]);
        for (std::size_t k = 0; k < layers.size(); ++k) {
            paintLayer(picture, tile, layers[k], layers[k > 0 ? k - 1 : 0]);
        }
    });
}

}  // namespace

CDotPaintFilter::CDotPaintFilter() : PlainFilter(FilterCategory::ArtEffect) {}

bool CDotPaintFilter::Apply(IplImage** image) {
    cv::Mat picture = bgrView(image);
    if (picture.empty()) {
        return false;
    }
    return runsInMemory([&] { paintDots(picture); });
}

const char16_t* CDotPaintFilter::GetName() const {
    return u"Dot Paint";
}

}  // namespace vellora
