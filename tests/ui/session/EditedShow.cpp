#include "ui/session/EditedShow.h"

#include <QApplication>
#include <QFile>
#include <QImage>
#include <QTimer>

#include <gtest/gtest.h>

#include <vellora/base/HostText.h>
#include <vellora/host/NodeHandle.h>

#include "ui/canvas/PhotoEditShowWnd.h"
#include "ui/dialog/ImageProcessDialog.h"

namespace vellora::test {

EditedShow::EditedShow(int photos) {
    document.SetTextEffectBaseFolder(m_folder.path());
    for (int index = 0; index < photos; ++index) {
        addPhoto();
    }
}

EditedShow::~EditedShow() {
    document.RemoveAllNodes();
    for (_HNODE* handle : m_handles) {
        ReleaseNode(handle);
    }
}

void EditedShow::addPhoto() {
    const int number = static_cast<int>(photos.size());
    QImage image(320 - 40 * (number % 3), 240, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            image.setPixel(x, y, qRgb(x % 256, (x + y + 50 * number) % 256, y % 256));
        }
    }
    const QString path = m_folder.filePath(QStringLiteral("photo%1.png").arg(number));
    EXPECT_TRUE(image.save(path));
    photos.push_back(std::make_unique<_PHOTO_LIST_NODE>());
    setHostText(photos.back()->path, path);
    _HNODE* handle = nullptr;
    EXPECT_EQ(document.AddPhotoListNode(photos.back().get(), &handle), S_OK);
    m_handles.push_back(handle);
}

void EditedShow::removePhoto(int index) {
    const auto at = m_handles.begin() + index;
    document.RemoveAt(index);
    ReleaseNode(*at);
    m_handles.erase(at);
}

STATUS EditedShow::edit(int index, QObject* hostWindow, const std::function<void()>& user) {
    QTimer::singleShot(0, user);
    return document.ShowProcessDialog(index, hostWindow, 77);
}

QByteArray EditedShow::saved() {
    const QString path = m_folder.filePath(QStringLiteral("show.xml"));
    EXPECT_EQ(document.SaveToXMLFile(path), S_OK);
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

QByteArray EditedShow::savedAfterLoading(const QByteArray& project) {
    EditedShow other(count());
    QFile file(other.m_folder.filePath(QStringLiteral("loaded.xml")));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(project);
    file.close();
    for (int index = 0; index < count(); ++index) {
        const auto i = static_cast<std::size_t>(index);
        *other.photos[i] = *photos[i];
    }
    EXPECT_EQ(other.document.LoadFromXMLFile(file.fileName()), S_OK);
    return other.saved();
}

CImageProcessDialog* openDialog() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (auto* dialog = qobject_cast<CImageProcessDialog*>(widget)) {
            return dialog;
        }
    }
    return nullptr;
}

CPhotoEditShowWnd* openCanvas() {
    CImageProcessDialog* dialog = openDialog();
    return dialog != nullptr ? dialog->findChild<CPhotoEditShowWnd*>() : nullptr;
}

}  // namespace vellora::test
