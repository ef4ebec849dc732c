#include "ui/controls/SpritePropsListBox.h"

#include <QFileInfo>
#include <QPainter>

#include "model/ClipPicture.h"
#include "ui/skin/Skin.h"
#include "ui/skin/SkinIcons.h"

namespace vellora {
namespace {

constexpr int kCellSide = 86;
constexpr int kFileRole = Qt::UserRole;

}  // namespace

CSpritePropsListBox::CSpritePropsListBox(QWidget* parent)
    : CColumnListBox(kCellSide, kCellSide, parent) {}

void CSpritePropsListBox::SetFiles(const QStringList& files) {
    clear();
    m_thumbnails.clear();
    for (const QString& file : files) {
        auto* item = new QListWidgetItem(this);
        const QString name = QFileInfo(file).completeBaseName();
        item->setData(kFileRole, file);
        item->setData(Qt::AccessibleTextRole, name);
        item->setToolTip(QStringLiteral("<span>%1</span>").arg(name.toHtmlEscaped()));
    }
}

QString CSpritePropsListBox::GetFile(const QListWidgetItem& item) const {
    return item.data(kFileRole).toString();
}

void CSpritePropsListBox::DrawItem(QPainter& painter, const QRect& rect,
                                   const QListWidgetItem& item) {
    const QString file = GetFile(item);
    const QPixmap thumbnail = ThumbnailOf(file, rect.size());
    if (thumbnail.isNull()) {
        const QRect icon(rect.left(), rect.top() + 6, rect.width(), rect.height() / 2);
        skin::drawIcon(painter, icon, skin::Icon::Broken, skin::kDisabledText);
        painter.setPen(skin::kMutedText);
        painter.setFont(skin::scaledFont(*this, 0.85));
        skin::drawElided(painter, rect.adjusted(0, rect.height() * 2 / 3, 0, 0), Qt::AlignCenter,
                         QFileInfo(file).fileName());
        return;
    }
    painter.drawPixmap(rect, thumbnail);
}

QPixmap CSpritePropsListBox::ThumbnailOf(const QString& file, QSize size) {
    const std::shared_ptr<const ClipPicture> clip = loadClip(file);
    if (clip == nullptr || clip->naturalSize().isEmpty()) {
        return {};
    }
    Thumbnail& thumbnail = m_thumbnails[file];
    const double ratio = devicePixelRatioF();
    if (thumbnail.clip != clip || thumbnail.pixmap.devicePixelRatio() != ratio) {
        QPixmap pixmap(size * ratio);
        pixmap.setDevicePixelRatio(ratio);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        QRectF target({}, clip->naturalSize().scaled(size, Qt::KeepAspectRatio));
        target.moveCenter(QRectF(QPointF(), QSizeF(size)).center());
        clip->draw(painter, target);
        thumbnail = {clip, pixmap};
    }
    return thumbnail.pixmap;
}

}  // namespace vellora
