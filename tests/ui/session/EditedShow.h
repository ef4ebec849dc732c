#pragma once

#include <QObject>
#include <QTemporaryDir>
#include <functional>
#include <memory>
#include <vector>

#include <vellora/base/PhotoListNode.h>
#include <vellora/host/ImageObj.h>

namespace vellora {

class CImageProcessDialog;
class CPhotoEditShowWnd;

namespace test {

/// A host with a show of small photos, which it opens in the edit dialog.
class EditedShow {
public:
    explicit EditedShow(int photos);
    ~EditedShow();

    void addPhoto();
    void removePhoto(int index);
    [[nodiscard]] int count() const { return static_cast<int>(m_handles.size()); }

    /// Opens the dialog and lets `user` act once it is shown. Returns when it is closed.
    STATUS edit(int index, QObject* hostWindow, const std::function<void()>& user);
    /// Saves the project and gives the file's bytes.
    QByteArray saved();
    /// What a new show with as many photos saves after it has loaded a project.
    QByteArray savedAfterLoading(const QByteArray& project);

    CImageObj document;
    std::vector<std::unique_ptr<_PHOTO_LIST_NODE>> photos;

private:
    QTemporaryDir m_folder;
    std::vector<_HNODE*> m_handles;
};

/// The edit dialog that is open, and its canvas.
CImageProcessDialog* openDialog();
CPhotoEditShowWnd* openCanvas();

}  // namespace test
}  // namespace vellora
