#include <QElapsedTimer>
#include <random>

#include <gtest/gtest.h>
#include <opencv2/core/core_c.h>

#include <vellora/base/HostText.h>
#include <vellora/host/NodeHandle.h>
#include <vellora/project/ProjectCheck.h>

#include "support/ProjectFixture.h"
#include "support/TestPhotos.h"

namespace vellora {
namespace {

using test::ProjectDocument;

/// With sanitizers, which this is for, and when asked for: all of them.
int mutationCount() {
#if defined(__SANITIZE_ADDRESS__)
    constexpr int kUsual = 2000;
#else
    constexpr int kUsual = 100;
#endif
    const int wanted = qEnvironmentVariableIntValue("VELLORA_MUTATIONS");
    return wanted > 0 ? wanted : kUsual;
}

/// Changes a document in a few places as faults and attackers do.
class Mutator {
public:
    explicit Mutator(unsigned seed) : m_engine(seed) {}

    std::string mutated(std::string text) {
        for (std::size_t change = 1 + below(6); change > 0 && !text.empty(); --change) {
            mutate(text);
        }
        return text;
    }

private:
    std::size_t below(std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(m_engine);
    }

    void mutate(std::string& text) {
        static constexpr std::string_view kValues[] = {
            "-1",  "0",     "2147483647", "-2147483648", "99999999999999999999", "1e999", "nan",
            "0x",  "true",  "texture",    "gradient",    "../../etc/passwd",     "&#0;",  "\xFF",
            "id=", "emboss"};
        const std::size_t at = below(text.size());
        switch (below(7)) {
            case 0:
                text[at] = static_cast<char>(below(256));
                break;
            case 1:
                text.erase(at, below(40));
                break;
            case 2:
                text.insert(at, text.substr(below(text.size()), below(200)));
                break;
            case 3:
                text.resize(at);
                break;
            default:
                replaceValue(text, at, kValues[below(std::size(kValues))]);
                break;
        }
    }

    /// Replaces the attribute value behind a place.
    static void replaceValue(std::string& text, std::size_t at, std::string_view value) {
        const std::size_t begin = text.find("=\"", at);
        const std::size_t end = text.find('"', begin == std::string::npos ? begin : begin + 2);
        if (end != std::string::npos) {
            text.replace(begin + 2, end - begin - 2, value);
        }
    }

    std::mt19937 m_engine;
};

class ProjectMutation : public testing::TestWithParam<const char*> {};

TEST_P(ProjectMutation, LoadsChecksRendersAndSaves) {
    const QTemporaryDir folder;
    const QString photo = test::writePng(folder, "photo.png", test::gradient(48, 36));
    const QString path = folder.filePath("project.xml");
    const std::string golden = test::testData(QString("projects/%1").arg(GetParam()));
    const int rounds = mutationCount() / 5;
    for (int round = 0; round < rounds; ++round) {
        SCOPED_TRACE(round);
        QElapsedTimer timer;
        timer.start();
        ProjectDocument document(2);
        setHostText(document.record(0).path, photo);
        document.load(Mutator(static_cast<unsigned>(round)).mutated(golden));
        IplImage* result = GetOutImg(document.handle(0), 0, 0, [](IplImage** out, int w, int h) {
            *out = cvCreateImage(cvSize(w, h), IPL_DEPTH_8U, 3);
        });
        cvReleaseImage(&result);
        ASSERT_EQ(document.object().SaveToXMLFile(path), S_OK);
        CheckProject(path, folder.path());
        const std::string saved = test::bytesOf(path);
        ProjectDocument again(2);
        setHostText(again.record(0).path, photo);
        again.load(saved);
        EXPECT_EQ(again.saved(), saved);
        EXPECT_LT(timer.elapsed(), 20'000);
    }
}

INSTANTIATE_TEST_SUITE_P(Files, ProjectMutation,
                         testing::Values("sprites.xml", "filters.xml", "foreign.xml", "utf16le.xml",
                                         "sprites.saved.xml"),
                         [](const auto& info) {
                             return QString(info.param).replace('.', '_').toStdString();
                         });

}  // namespace
}  // namespace vellora
