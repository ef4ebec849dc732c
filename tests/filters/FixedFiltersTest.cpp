#include <memory>

#include <gtest/gtest.h>
#include <opencv2/core/core_c.h>

#include <vellora/filters/FilterCatalogue.h>
#include <vellora/filters/RandomSeed.h>

#include "support/TestPhotos.h"

namespace vellora {
namespace {

using test::filtered;
using test::identical;
using test::noise;

/// What holds for every filter whose picture is fixed, whatever it draws.
class FixedFiltersTest : public testing::TestWithParam<const char16_t*> {
protected:
    FixedFiltersTest() : m_filter(CreateFilterByName(GetParam())) {}
    ~FixedFiltersTest() override { ReleaseRandomSeed(); }

    cv::Mat seeded(const cv::Mat& picture) {
        FixRandomSeed(99);
        return filtered(*m_filter, picture);
    }

    std::unique_ptr<COpencvFilterInterface> m_filter;
};

TEST_P(FixedFiltersTest, ChangesThePictureAndOnlyIt) {
    for (const cv::Size size :
         {cv::Size(1, 1), cv::Size(1, 9), cv::Size(9, 1), cv::Size(33, 17), cv::Size(700, 301)}) {
        SCOPED_TRACE(testing::Message() << size);
        cv::Mat wide = noise(size.width + 2, size.height + 2, 7);
        const cv::Mat before = wide.clone();
        const cv::Rect inner(1, 1, size.width, size.height);
        cv::Mat part = wide(inner);
        IplImage header = cvIplImage(part);
        IplImage* image = &header;
        FixRandomSeed(99);
        ASSERT_TRUE(m_filter->Apply(&image));
        EXPECT_TRUE(identical(wide(inner), seeded(before(inner))));
        if (size.width == 700) {
            EXPECT_FALSE(identical(wide(inner), before(inner)));
        }
        wide(inner).setTo(0);
        cv::Mat frame = before.clone();
        frame(inner).setTo(0);
        EXPECT_TRUE(identical(wide, frame));
    }
}

// A region of interest in the header is the picture.
TEST_P(FixedFiltersTest, WorksInTheRegionOfInterest) {
    cv::Mat wide = noise(90, 70, 8);
    const cv::Mat before = wide.clone();
    const cv::Rect inner(10, 20, 61, 33);
    IplImage header = cvIplImage(wide);
    IplImage* image = &header;
    cvSetImageROI(image, cvRect(inner.x, inner.y, inner.width, inner.height));
    FixRandomSeed(99);
    ASSERT_TRUE(m_filter->Apply(&image));
    cvResetImageROI(image);
    EXPECT_TRUE(identical(wide(inner), seeded(before(inner))));
    EXPECT_TRUE(identical(wide.rowRange(0, 20), before.rowRange(0, 20)));
}

TEST_P(FixedFiltersTest, GivesTheSameBytesAtAnyThreadCount) {
    const cv::Mat picture = noise(640, 481, 3);
    const int threads = cv::getNumThreads();
    cv::setNumThreads(1);
    const cv::Mat expected = seeded(picture);
    for (const int count : {2, 4}) {
        cv::setNumThreads(count);
        EXPECT_TRUE(identical(seeded(picture), expected)) << count;
    }
    cv::setNumThreads(threads);
}

TEST_P(FixedFiltersTest, RefusesWhatIsNoPicture) {
    const bool contour = std::u16string(GetParam()) == u"Contour";  // says yes to everything
    IplImage* none = nullptr;
    EXPECT_EQ(m_filter->Apply(nullptr), contour);
    EXPECT_EQ(m_filter->Apply(&none), contour);
    cv::Mat deep(4, 5, CV_16UC3, cv::Scalar::all(300));
    IplImage header = cvIplImage(deep);
    IplImage* image = &header;
    EXPECT_EQ(m_filter->Apply(&image), contour);
    EXPECT_EQ(cv::sum(deep)[0], 20 * 300);
}

INSTANTIATE_TEST_SUITE_P(All, FixedFiltersTest,
                         testing::Values(u"Carve", u"Embossment", u"Gauss Smooth", u"Sharpen",
                                         u"Canvas", u"Wood", u"Contour", u"Depth Dim", u"Snow",
                                         u"Rain", u"Wax Paint", u"Oil Paint"));

}  // namespace
}  // namespace vellora
