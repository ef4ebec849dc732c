#include "support/ProjectFixture.h"

#include <QFile>

#include <gtest/gtest.h>

#include "support/TestPhotos.h"

namespace vellora::test {

ProjectDocument::ProjectDocument(int photos) {
    for (int i = 0; i < photos; ++i) {
        m_records.push_back(test::record(QStringLiteral("/photos/%1.jpg").arg(i)));
        m_handles.push_back(nullptr);
        EXPECT_EQ(m_object.AddPhotoListNode(m_records.back().get(), &m_handles.back()), S_OK);
    }
}

ProjectDocument::~ProjectDocument() {
    for (_HNODE* handle : m_handles) {
        ReleaseNode(handle);
    }
}

std::string ProjectDocument::saved() {
    const QString path = m_folder.filePath("saved.xml");
    EXPECT_EQ(m_object.SaveToXMLFile(path), S_OK);
    return bytesOf(path);
}

STATUS ProjectDocument::load(const std::string& xml) {
    QFile file(m_folder.filePath("loaded.xml"));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    const auto size = static_cast<qint64>(xml.size());
    EXPECT_EQ(file.write(xml.data(), size), size);
    file.close();
    return m_object.LoadFromXMLFile(file.fileName());
}

std::string bytesOf(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll().toStdString();
}

std::string testData(const QString& name) {
    return bytesOf(QStringLiteral(VELLORA_TEST_DATA_DIR "/") + name);
}

}  // namespace vellora::test
