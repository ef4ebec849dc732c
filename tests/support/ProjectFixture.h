#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>
#include <memory>
#include <string>
#include <vector>

#include <vellora/base/PhotoListNode.h>
#include <vellora/filters/PhotoProcessor.h>
#include <vellora/host/ImageObj.h>
#include <vellora/model/DVDAlbumImage.h>
#include <vellora/model/DVDImage.h>

namespace vellora::test {

/// A document with photos and their records.
class ProjectDocument {
public:
    explicit ProjectDocument(int photos = 0);
    ~ProjectDocument();
    ProjectDocument(const ProjectDocument&) = delete;
    ProjectDocument& operator=(const ProjectDocument&) = delete;

    CImageObj& object() { return m_object; }
    CDVDAlbumImage& album() { return *m_object.GetAlbum(); }
    CDVDImage& photo(int index) { return *m_handles[static_cast<std::size_t>(index)]->data->image; }
    CPhotoProcessor& processor(int index) { return *photo(index).GetProcessor(); }
    _PHOTO_LIST_NODE& record(int index) { return *m_records[static_cast<std::size_t>(index)]; }
    _HNODE* handle(int index) { return m_handles[static_cast<std::size_t>(index)]; }

    /// What `SaveToXMLFile` writes.
    std::string saved();
    /// Loads a project from its text.
    STATUS load(const std::string& xml);

private:
    QTemporaryDir m_folder;
    CImageObj m_object;
    std::vector<std::unique_ptr<_PHOTO_LIST_NODE>> m_records;
    std::vector<_HNODE*> m_handles;
};

/// The bytes of a file.
std::string bytesOf(const QString& path);

/// A file of the folder tests/data.
std::string testData(const QString& name);

}  // namespace vellora::test
