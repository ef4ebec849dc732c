#include <QPainter>

#include <vellora/model/DVDImageProps.h>

#include "base/XmlText.h"
#include "model/ClipPicture.h"
#include "model/SelectionMarks.h"
#include "xml/LORXMLNodeWrite.h"
#include "xml/XMLParse.h"

namespace vellora {

CDVDImageProps::CDVDImageProps(CSpriteOwner* owner, const QString& file)
    : CDVDImageSprite(owner, kPropsSprite), m_file(xmlText(file)) {}

CDVDImageProps::CDVDImageProps(const CDVDImageProps& other) = default;

CDVDImageProps::~CDVDImageProps() = default;

void CDVDImageProps::SetFile(const QString& file) {
    m_file = xmlText(file);
}

QSizeF CDVDImageProps::NaturalSize(const QString& file, QString* reason) {
    const auto clip = loadClip(file, reason);
    return clip != nullptr ? clip->naturalSize() : QSizeF();
}

int CDVDImageProps::Draw(QPainter& painter, QPoint offset, int mode) {
    if (m_file.isEmpty()) {
        return 0;
    }
    painter.save();
    painter.scale(static_cast<double>(GetCanvasWidth()) / kStageWidth,
                  static_cast<double>(GetCanvasHeight()) / kStageHeight);
    const Rect rect = GetRect(offset);
    const QRectF target(rect.left, rect.top, static_cast<double>(rect.right) - rect.left,
                        static_cast<double>(rect.bottom) - rect.top);
    if (const auto clip = loadClip(m_file); clip != nullptr && !target.isEmpty()) {
        clip->draw(painter, target);
    }
    if (mode == kDrawSelected || mode == kDrawSelectedToo) {
        drawSelectionMarks(painter, *this, target, offset);
    }
    painter.restore();
    return 1;
}

int CDVDImageProps::Load(const CXMLParse& reader, const QString& nodePath) {
    const XmlNode element = reader.Select(nodePath);
    if (!element) {
        return 0;
    }
    QPoint position = GetPosition();
    element.GetIntAttribute("x0", position.rx());
    element.GetIntAttribute("y0", position.ry());
    SetPosition(position.x(), position.y());
    QSize size = GetSize();
    element.GetIntAttribute("cx", size.rwidth());
    element.GetIntAttribute("cy", size.rheight());
    SetSize(size.width(), size.height());
    SetFile(element.Text());
    return 1;
}

int CDVDImageProps::Save(int depth) const {
    const QPoint position = GetPosition();
    const QSize size = GetSize();
    CLORXMLNodeWrite element(depth, u"props", true);
    element.AddAttribute(u"x0", position.x());
    element.AddAttribute(u"y0", position.y());
    element.AddAttribute(u"cx", size.width());
    element.AddAttribute(u"cy", size.height());
    element.SetText(m_file);
    element.Flush();
    return 1;
}

bool CDVDImageProps::IsEqual(const CDVDImageProps& other) const {
    return CDVDImageSprite::IsEqual(other) &&
           m_file.compare(other.m_file, Qt::CaseInsensitive) == 0;
}

bool CDVDImageProps::IsNotEqual(const CDVDImageProps& other) const {
    return !IsEqual(other);
}

}  // namespace vellora
