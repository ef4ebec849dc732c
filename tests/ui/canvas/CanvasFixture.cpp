#include "ui/canvas/CanvasFixture.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QtTest>

#include <vellora/base/HostText.h>
#include <vellora/filters/PhotoProcessor.h>

namespace vellora::test {

CanvasFixture::CanvasFixture() : m_canvas(m_session) {
    QObject::connect(&m_canvas, &CPhotoEditShowWnd::TextSelected, [this] { ++m_textSelected; });
    QObject::connect(&m_canvas, &CPhotoEditShowWnd::SpriteSelected, [this] { ++m_spriteSelected; });
    QObject::connect(&m_session, &EditSession::albumChanged, [this] { ++m_albumChanged; });
    m_canvas.show();
    open(QColor(200, 200, 200));
}

CanvasFixture::~CanvasFixture() {
    m_session.setPhoto(nullptr, nullptr);
}

QString CanvasFixture::picture(const QString& name, QColor colour, int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(colour);
    const QString path = m_folder.filePath(name);
    EXPECT_TRUE(image.save(path));
    return path;
}

void CanvasFixture::open(QColor colour, int width, int height) {
    openFile(picture(QStringLiteral("photo.png"), colour, width, height));
}

void CanvasFixture::openFile(const QString& path) {
    m_session.setPhoto(nullptr, nullptr);
    m_record.reset();
    m_node = std::make_unique<_PHOTO_LIST_NODE>();
    setHostText(m_node->path, path);
    m_record = std::make_unique<CDVDImage>();
    m_record->BindNode(m_node.get(), &m_album);
    m_record->GetProcessor()->Rebuild(true);
    m_session.setPhoto(m_record.get(), &m_album);
    m_node->changed = 0;
}

CDVDImageProps* CanvasFixture::addClip(QRect rect, QColor colour) {
    auto clip = std::make_unique<CDVDImageProps>(
        m_record.get(), picture(colour.name().mid(1) + QStringLiteral(".png"), colour, 40, 40));
    clip->SetPosition(rect.x(), rect.y());
    clip->SetSize(rect.width(), rect.height());
    auto* added = static_cast<CDVDImageProps*>(m_session.addSprite(std::move(clip)));
    m_node->changed = 0;
    return added;
}

CDVDImageProps* CanvasFixture::addAlbumClip(QRect rect, QColor colour) {
    CDVDImageProps* clip = addClip(rect, colour);
    m_session.applyToAll(clip);
    m_albumChanged = 0;
    m_node->changed = 0;
    return clip;
}

CDVDImageText* CanvasFixture::addText(QPoint position, const QString& text) {
    auto sprite = std::make_unique<CDVDImageText>(m_record.get());
    sprite->SetPosition(position.x(), position.y());
    sprite->SetText(text);
    auto* added = static_cast<CDVDImageText*>(m_session.addSprite(std::move(sprite)));
    m_node->changed = 0;
    return added;
}

void CanvasFixture::press(QPoint point, Qt::MouseButton button) {
    QTest::mousePress(&m_canvas, button, {}, point);
}

void CanvasFixture::move(QPoint point, Qt::MouseButtons buttons) {
    QMouseEvent event(QEvent::MouseMove, point, m_canvas.mapToGlobal(point), Qt::NoButton, buttons,
                      Qt::NoModifier);
    QApplication::sendEvent(&m_canvas, &event);
}

void CanvasFixture::release(QPoint point, Qt::MouseButton button) {
    QTest::mouseRelease(&m_canvas, button, {}, point);
}

void CanvasFixture::click(QPoint point) {
    press(point);
    release(point);
}

void CanvasFixture::drag(QPoint from, QPoint to) {
    press(from);
    move((from + to) / 2);
    move(to);
    release(to);
}

void CanvasFixture::doubleClick(QPoint point) {
    click(point);
    QTest::mouseDClick(&m_canvas, Qt::LeftButton, {}, point);
    release(point);
}

void CanvasFixture::key(int key, Qt::KeyboardModifiers modifiers) {
    QWidget* target = editor() != nullptr ? editor() : &m_canvas;
    QTest::keyClick(target, static_cast<Qt::Key>(key), modifiers);
}

QWidget* CanvasFixture::editor() const {
    for (auto* edit : m_canvas.findChildren<QPlainTextEdit*>()) {
        if (edit->isVisible()) {
            return edit;
        }
    }
    return nullptr;
}

void CanvasFixture::type(const QString& text) {
    QWidget* edit = editor();
    ASSERT_NE(edit, nullptr);
    for (const QChar letter : text) {
        QTest::keyClick(edit, letter.toLatin1());
    }
}

QImage CanvasFixture::shown() {
    QImage image(m_canvas.size() * m_canvas.devicePixelRatio(), QImage::Format_RGB32);
    image.setDevicePixelRatio(m_canvas.devicePixelRatio());
    m_canvas.render(&image);
    return image;
}

}  // namespace vellora::test
