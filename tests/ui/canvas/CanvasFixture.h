#pragma once

#include <QKeyEvent>
#include <QTemporaryDir>
#include <memory>

#include <gtest/gtest.h>

#include <vellora/base/PhotoListNode.h>
#include <vellora/model/DVDAlbumImage.h>
#include <vellora/model/DVDImage.h>
#include <vellora/model/DVDImageProps.h>
#include <vellora/model/DVDImageText.h>

#include "ui/EditSession.h"
#include "ui/canvas/PhotoEditShowWnd.h"

namespace vellora::test {

/// A canvas that shows a 4:3 photo of one colour, driven by real events.
class CanvasFixture : public testing::Test {
protected:
    CanvasFixture();
    ~CanvasFixture() override;

    /// Opens a photo of a colour and size.
    void open(QColor colour, int width = 600, int height = 450);
    void openFile(const QString& path);
    /// A file with a picture of one colour.
    QString picture(const QString& name, QColor colour, int width, int height);

    CDVDImageProps* addClip(QRect rect, QColor colour = Qt::red);
    CDVDImageProps* addAlbumClip(QRect rect, QColor colour = Qt::blue);
    CDVDImageText* addText(QPoint position, const QString& text);

    void press(QPoint point, Qt::MouseButton button = Qt::LeftButton);
    void move(QPoint point, Qt::MouseButtons buttons = Qt::LeftButton);
    void release(QPoint point, Qt::MouseButton button = Qt::LeftButton);
    void click(QPoint point);
    void drag(QPoint from, QPoint to);
    void doubleClick(QPoint point);
    void key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// The open in-place editor.
    [[nodiscard]] QWidget* editor() const;
    /// Types into the open editor over what is selected in it.
    void type(const QString& text);
    /// What the canvas shows.
    QImage shown();
    [[nodiscard]] QColor shownAt(QPoint point) { return shown().pixelColor(point); }

    QTemporaryDir m_folder;
    std::unique_ptr<_PHOTO_LIST_NODE> m_node;
    CDVDAlbumImage m_album;
    std::unique_ptr<CDVDImage> m_record;
    EditSession m_session;
    CPhotoEditShowWnd m_canvas;
    int m_textSelected = 0;
    int m_spriteSelected = 0;
    int m_albumChanged = 0;
};

}  // namespace vellora::test
