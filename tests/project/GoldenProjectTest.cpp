#include <QFile>

#include <gtest/gtest.h>

#include "support/ProjectFixture.h"

namespace vellora {
namespace {

using test::ProjectDocument;

constexpr int kPhotos = 2;

/// Hand-written project files and what saving gives after loading them into two photos.
struct Golden {
    const char* name;
    const char* saved;
};

class GoldenProject : public testing::TestWithParam<Golden> {};

TEST_P(GoldenProject, ComesOutAsItMustAndStaysSo) {
    const std::string loaded = test::testData(QString("projects/%1").arg(GetParam().name));
    const std::string expected = test::testData(QString("projects/%1").arg(GetParam().saved));
    ProjectDocument document(kPhotos);
    ASSERT_EQ(document.load(loaded), S_OK);
    const std::string saved = document.saved();
    EXPECT_EQ(saved, expected);
    ProjectDocument again(kPhotos);
    ASSERT_EQ(again.load(saved), S_OK);
    EXPECT_EQ(again.saved(), saved) << "saving, loading and saving gives the same bytes";
}

INSTANTIATE_TEST_SUITE_P(Files, GoldenProject,
                         testing::Values(Golden{"empty.xml", "empty.saved.xml"},
                                         Golden{"sprites.xml", "sprites.saved.xml"},
                                         Golden{"filters.xml", "filters.saved.xml"},
                                         Golden{"foreign.xml", "foreign.saved.xml"},
                                         Golden{"bom.xml", "encodings.saved.xml"},
                                         Golden{"utf16le.xml", "encodings.saved.xml"},
                                         Golden{"utf16be.xml", "encodings.saved.xml"}),
                         [](const auto& info) {
                             return QString(info.param.name).section('.', 0, 0).toStdString();
                         });

}  // namespace
}  // namespace vellora
