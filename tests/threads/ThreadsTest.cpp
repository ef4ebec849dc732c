// What a host may do from many threads at once. Built once more with the thread sanitizer.

#include <atomic>
#include <thread>
#include <vector>

#include <gtest/gtest.h>
#include <opencv2/core/core_c.h>

#include <vellora/filters/FilterCatalogue.h>
#include <vellora/filters/PhotoProcessor.h>
#include <vellora/host/ImageObj.h>
#include <vellora/host/NodeHandle.h>
#include <vellora/model/DVDImage.h>
#include <vellora/model/DVDImageProps.h>

#include "support/TestPhotos.h"

namespace vellora {
namespace {

constexpr int kThreads = 6;
constexpr int kRounds = 12;

template <class Body>
void inThreads(Body body) {
    std::vector<std::thread> threads;
    for (int index = 0; index < kThreads; ++index) {
        threads.emplace_back(body, index);
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

void allocate(IplImage** out, int width, int height) {
    *out = cvCreateImage({width, height}, IPL_DEPTH_8U, 3);
}

cv::Mat rendered(_HNODE* node, int width) {
    const ImagePtr image(GetOutImg(node, width, width, allocate));
    return image != nullptr ? cv::cvarrToMat(image.get(), true) : cv::Mat();
}

TEST(Threads, ReferencesCountExactly) {
    CImageObj show;
    _PHOTO_LIST_NODE photo{};
    _HNODE* node = nullptr;
    ASSERT_EQ(show.AddPhotoListNode(&photo, &node), S_OK);
    inThreads([node](int) {
        for (int round = 0; round < 2000; ++round) {
            ReleaseNode(DupHandle(node));
        }
    });
    EXPECT_EQ(node->refs, 1);
    for (int extra = 1; extra < kThreads; ++extra) {
        DupHandle(node);
    }
    inThreads([node](int) { ReleaseNode(node); });
    EXPECT_EQ(photo.changed, 1) << "the last reference deletes the edit record";
}

TEST(Threads, RenderAndReleaseTheSamePhotosTogether) {
    const QTemporaryDir folder;
    CImageObj show;
    auto first = test::record(test::writePng(folder, "a.png", test::gradient(90, 60)));
    auto second = test::record(test::writePng(folder, "b.png", test::noise(64, 64)));
    const QString clip = test::writePng(folder, "clip.png", test::noise(8, 8, 2));
    std::vector<_HNODE*> nodes(2);
    ASSERT_EQ(show.AddPhotoListNode(first.get(), &nodes[0]), S_OK);
    ASSERT_EQ(show.AddPhotoListNode(second.get(), &nodes[1]), S_OK);
    for (_HNODE* node : nodes) {
        node->data->image->GetProcessor()->AddFilterToChain(CreateFilterByName(u"HSL"));
        node->data->image->AddSprite(new CDVDImageProps(nullptr, clip), false);
    }
    const std::vector<cv::Mat> expected{rendered(nodes[0], 0), rendered(nodes[1], 0)};
    ASSERT_FALSE(expected[0].empty());

    std::atomic<int> wrong{0};
    inThreads([&](int index) {
        for (int round = 0; round < kRounds; ++round) {
            const auto which = static_cast<std::size_t>((index + round) % 2);
            _HNODE* node = DupHandle(nodes[which]);
            wrong += test::identical(rendered(node, index % 2), expected[which]) ? 0 : 1;
            if (round % 3 == 0) {
                ReleaseImgBuf(node);
            }
            ReleaseNode(node);
        }
    });
    EXPECT_EQ(wrong, 0);
    for (_HNODE* node : nodes) {
        ReleaseNode(node);
    }
}

}  // namespace
}  // namespace vellora
