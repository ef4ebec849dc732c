#include <array>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vellora/filters/FilterCatalogue.h>

namespace vellora {
namespace {

using FilterPtr = std::unique_ptr<COpencvFilterInterface>;

struct ExpectedParam {
    const char16_t* label;
    int min;
    int max;
    int initial;
    int advertised;
};

struct ExpectedFilter {
    const char16_t* name;
    int category;
    bool region;
    std::vector<ExpectedParam> params;
};

// Names are the keys of project files and initial values decide what old files show.
const std::vector<ExpectedFilter> kExpected = {
    {u"None", 0, false, {}},
    {u"Color Matrix",
     0,
     false,
     {{u"Red:", -100, 100, 64, 64}, {u"Green:", -100, 100, 32, 32}, {u"Blue:", -100, 100, 0, 0}}},
    {u"Grey", 0, false, {}},
    {u"Brightness Contrast",
     0,
     false,
     {{u"Brightness:", -200, 200, 0, 0}, {u"Contrast:", -90, 90, 0, 0}}},
    {u"HSL",
     0,
     false,
     {{u"Hue:", -180, 180, 0, 0},
      {u"Saturation:", -255, 255, 0, 0},
      {u"Lightness:", -255, 255, 0, 0}}},
    {u"Gauss Smooth", 0, false, {{u"Amount:", 0, 10, 5, 5}}},
    {u"Sharpen", 0, false, {{u"Amount:", 1, 150, 50, 50}}},
    {u"Red Eye Removal", 0, true, {{u"Threshold:", 1, 100, 50, 50}}},
    {u"Rotate", 0, false, {{u"Rotate Angle:", 0, 1000, 500, 500}}},
    {u"Contour",
     1,
     false,
     {{u"Kernel Size", 1, 100, 30, 30},
      {u"Threshold", 0, 50, 300, 10},
      {u"Saturation:", 0, 400, 40, 400}}},
    {u"Depth Dim", 1, true, {}},
    {u"Wave",
     1,
     false,
     {{u"Wave Length", 400, 1000, 730, 730},
      {u"Wave Height", 0, 100, 65, 20},
      {u"Refraction Rate", 0, 100, 70, 75}}},
    {u"Mist", 1, false, {{u"Mist Density", 20, 100, 70, 70}}},
    {u"Snow",
     1,
     false,
     {{u"Number of Big Flakes", 1, 1000, 300, 300},
      {u"Number of Middle Flakes", 1, 1000, 40, 150},
      {u"Number of Small Flakes", 1, 1000, 20, 600}}},
    {u"Rain",
     1,
     false,
     {{u"Minimum length of rain", 1, 100, 15, 15},
      {u"Maximum length of rain", 1, 100, 730, 30},
      {u"Number of rain drops", 1, 10000, 65, 5000}}},
    {u"Water Paint", 1, false, {{u"Water Size", 30, 100, 65, 65}}},
    {u"Wax Paint", 1, false, {{u"Stroke Size", 1, 85, 40, 40}, {u"Pen Hardness", 1, 100, 20, 50}}},
    {u"Hard Pastels",
     1,
     false,
     {{u"Stroke Size", 1, 80, 25, 25},
      {u"Pen Hardness", 1, 100, 30, 50},
      {u"Grain", 0, 40, 15, 30}}},
    {u"Oil Paint", 1, false, {{u"Stroke Size", 1, 100, 30, 30}}},
    {u"Dot Paint", 1, false, {}},
    {u"Inverse", 1, false, {}},
    {u"Black&White", 1, false, {}},
    {u"Carve", 1, false, {{u"Brightness:", 0, 255, 64, 64}, {u"Shadow Depth:", 1, 5, 1, 1}}},
    {u"Embossment", 1, false, {{u"Brightness:", 0, 255, 64, 64}, {u"Shadow Depth:", 1, 5, 1, 1}}},
    {u"Canvas", 1, false, {{u"Range:", 0, 50, 5, 5}}},
    {u"Wood", 1, false, {}},
};

std::array<std::int32_t*, 3> factorsOf(COpencvFilterInterface& filter) {
    return {filter.GetFactorOne(), filter.GetFactorTwo(), filter.GetFactorThree()};
}

TEST(CatalogueTest, HoldsEveryFilterInOrderWithItsRecord) {
    const auto prototypes = GetFilterPrototypes();
    ASSERT_EQ(prototypes.size(), kExpected.size());
    for (std::size_t i = 0; i < kExpected.size(); ++i) {
        const ExpectedFilter& expected = kExpected[i];
        SCOPED_TRACE(i);
        EXPECT_EQ(std::u16string(prototypes[i]->GetName()), expected.name);
        EXPECT_EQ(prototypes[i]->is_art_effect, expected.category);
        EXPECT_EQ(prototypes[i]->HasROI(), expected.region);

        const FilterPtr filter(prototypes[i]->Clone());
        EXPECT_EQ(filter->crop_step, 0);
        EXPECT_FALSE(filter->FlipX || filter->FlipY);
        EXPECT_EQ(filter->Angle, 0);
        EXPECT_EQ(filter->param_descs == nullptr, expected.params.empty());
        const auto factors = factorsOf(*filter);
        for (std::size_t k = 0; k < factors.size(); ++k) {
            SCOPED_TRACE(k);
            ASSERT_EQ(factors[k] != nullptr, k < expected.params.size());
            if (filter->param_descs == nullptr) {
                continue;
            }
            const FilterParamDesc& desc = filter->param_descs[k];
            if (factors[k] == nullptr) {
                EXPECT_TRUE(desc.max == 0 && desc.min == 0 && desc.default_value == 0 &&
                            desc.label_id == 0);
                continue;
            }
            const ExpectedParam& param = expected.params[k];
            EXPECT_EQ(*factors[k], param.initial);
            EXPECT_EQ(desc.min, param.min);
            EXPECT_EQ(desc.max, param.max);
            EXPECT_EQ(desc.default_value, param.advertised);
            EXPECT_EQ(std::u16string(GetFilterLabel(desc.label_id)), param.label);
        }
    }
}

TEST(CatalogueTest, CreatesByExactNameOnly) {
    for (const ExpectedFilter& expected : kExpected) {
        const FilterPtr filter(CreateFilterByName(expected.name));
        ASSERT_NE(filter, nullptr);
        EXPECT_EQ(std::u16string(filter->GetName()), expected.name);
    }
    for (const char16_t* unknown : {u"grey", u"", u"Grey ", u"Gre", u"Sepia"}) {
        EXPECT_EQ(FilterPtr(CreateFilterByName(unknown)), nullptr);
    }
    EXPECT_EQ(FilterPtr(CreateFilterByName(nullptr)), nullptr);
}

TEST(CatalogueTest, ClonesCarryFactorsButStartTheirStateAfresh) {
    for (const COpencvFilterInterface* prototype : GetFilterPrototypes()) {
        const FilterPtr original(prototype->Clone());
        int value = 1000;
        for (std::int32_t* factor : factorsOf(*original)) {
            if (factor != nullptr) {
                *factor = value++;  // distinct, so that mixed-up storage shows
            }
        }
        original->crop_step = 3;
        original->FlipX = true;
        original->FlipY = true;
        original->Angle = 90;
        original->SetROI(0.1F, 0.2F, 0.3F, 0.4F);

        const FilterPtr clone(original->Clone());
        SCOPED_TRACE(testing::PrintToString(std::u16string(clone->GetName())));
        value = 1000;
        for (const std::int32_t* factor : factorsOf(*clone)) {
            if (factor != nullptr) {
                EXPECT_EQ(*factor, value++);
            }
        }
        const bool keepsAll = std::u16string(clone->GetName()) == u"Red Eye Removal";
        EXPECT_EQ(clone->crop_step, keepsAll ? 3 : 0);
        EXPECT_EQ(clone->FlipX, keepsAll);
        EXPECT_EQ(clone->FlipY, keepsAll);
        EXPECT_EQ(clone->Angle, keepsAll ? 90 : 0);
        float x = -1;
        float y = -1;
        float cx = -1;
        float cy = -1;
        clone->GetROI(&x, &y, &cx, &cy);
        EXPECT_EQ(x, clone->HasROI() ? 0.1F : 0.0F);
        EXPECT_EQ(cy, clone->HasROI() ? 0.4F : 0.0F);
    }
}

}  // namespace
}  // namespace vellora
