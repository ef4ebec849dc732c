#include <cmath>
#include <numeric>
#include <vector>

#include <gtest/gtest.h>

#include "filters/Noise.h"

namespace vellora {
namespace {

TEST(NoiseTest, RowsAndPointsAgree) {
    for (const double step : {0.037, 0.4, 1.7}) {
        const NoiseRow row{-3.3, step, -2.61};
        std::vector<float> values(300, 5.0F);
        addNoise(values, row, 11, 2.0F);
        for (std::size_t i = 0; i < values.size(); ++i) {
            const float expected =
                5.0F + 2.0F * noiseAt(row.x + static_cast<double>(i) * step, row.y, 11);
            ASSERT_NEAR(values[i], expected, 2e-3F) << "step " << step << " at " << i;
        }
    }
}

TEST(NoiseTest, VanishesOnTheLatticeAndIsSmooth) {
    EXPECT_FLOAT_EQ(noiseAt(4.0, -7.0, 3), 0.0F);
    float previous = noiseAt(-5.0, 0.3, 3);
    float largest = 0.0F;
    for (double x = -5.0; x < 40.0; x += 0.01) {
        const float value = noiseAt(x, 0.3, 3);
        ASSERT_LT(std::abs(value - previous), 0.05F) << "a jump at " << x;
        largest = std::max(largest, std::abs(value));
        previous = value;
    }
    EXPECT_GT(largest, 0.25F);
    EXPECT_LE(largest, 1.0F);
}

TEST(NoiseTest, IsBalancedAndDiffersBySeed) {
    std::vector<float> first(20000);
    std::vector<float> second(first.size());
    addFractalNoise(first, {0.0, 0.11, 0.5}, 1, 3);
    addFractalNoise(second, {0.0, 0.11, 0.5}, 2, 3);
    const auto count = static_cast<float>(first.size());
    EXPECT_NEAR(std::accumulate(first.begin(), first.end(), 0.0F) / count, 0.0F, 0.02F);
    EXPECT_NE(first, second);
}

TEST(NoiseTest, CellNumbersCoverTheirRange) {
    float low = 1.0F;
    float high = 0.0F;
    double sum = 0.0;
    for (int k = 0; k < 4000; ++k) {
        CellRandom random(k % 63, k / 63, 9);
        const float value = random.next();
        low = std::min(low, value);
        high = std::max(high, value);
        sum += value;
    }
    EXPECT_GE(low, 0.0F);
    EXPECT_LT(low, 0.01F);
    EXPECT_GT(high, 0.99F);
    EXPECT_LT(high, 1.0F);
    EXPECT_NEAR(sum / 4000, 0.5, 0.02);
}

}  // namespace
}  // namespace vellora
