#include <QTemporaryDir>
#include <atomic>
#include <thread>
#include <vector>

#include <gtest/gtest.h>
#include <opencv2/core/core_c.h>

#include <vellora/host/ImageObj.h>
#include <vellora/model/DVDImage.h>
#include <vellora/model/DVDImageProps.h>

#include "base/ImageView.h"
#include "support/TestPhotos.h"

namespace vellora {
namespace {

TEST(ThreadsTest, HandlesAndPicturesAreSharedBetweenThreads) {
    constexpr int kThreads = 6;
    constexpr int kRounds = 40;
    const QTemporaryDir folder;
    const cv::Mat picture = test::noise(200, 150);
    const QString path = test::writePng(folder, QStringLiteral("photo.png"), picture);
    const QString clip = test::writePng(folder, QStringLiteral("clip.png"), test::noise(20, 20));

    CImageObj document;
    const auto first = test::record(path);
    const auto second = test::record(path);
    _HNODE* nodes[2] = {};
    ASSERT_EQ(document.AddPhotoListNode(first.get(), &nodes[0]), S_OK);
    ASSERT_EQ(document.AddPhotoListNode(second.get(), &nodes[1]), S_OK);
    nodes[1]->data->image->AddSprite(new CDVDImageProps(nodes[1]->data->image, clip), false);

    std::atomic<int> wrong{0};
    const auto work = [&](int number) {
        for (int round = 0; round < kRounds; ++round) {
            const int which = (number + round) % 2;
            _HNODE* node = DupHandle(nodes[which]);
            ImagePtr target;
            GetOutImg(node, 0, 0, [&](IplImage** out, int width, int height) {
                target = makeImage(width, height);
                *out = target.get();
            });
            if (target == nullptr || cv::cvarrToMat(target.get()).size() != picture.size() ||
                (which == 0 && !test::identical(cv::cvarrToMat(target.get()), picture))) {
                ++wrong;
            }
            if (round % 3 == 0) {
                ReleaseImgBuf(node);
            }
            ReleaseNode(node);
        }
    };
    std::vector<std::thread> threads;
    for (int number = 0; number < kThreads; ++number) {
        threads.emplace_back(work, number);
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(wrong, 0);
    for (_HNODE* node : nodes) {
        EXPECT_EQ(node->refs, 1);
        ReleaseNode(node);
    }
}

}  // namespace
}  // namespace vellora
