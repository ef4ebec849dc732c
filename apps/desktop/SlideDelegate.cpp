#include "desktop/SlideDelegate.h"

#include <QPainter>
#include <QPainterPath>

#include "desktop/Slide.h"
#include "desktop/SlideModel.h"
#include "desktop/Thumbnails.h"

namespace vellora::desktop {
namespace {

constexpr int kMargin = 10;
constexpr int kGap = 6;

/// What is written where a picture should be.
QString emptyText(const Slide& slide, const Thumbnails& thumbnails) {
    if (slide.isMissing()) {
        return SlideDelegate::tr("Photo missing\nDouble-click to locate it");
    }
    return thumbnails.isUnreadable(slide.id()) ? SlideDelegate::tr("Not a readable photo")
                                               : QString();
}

void paintPicture(QPainter& painter, const QRect& area, const QPixmap& picture) {
    const QSize shown = (QSizeF(picture.size()) / painter.device()->devicePixelRatioF()).toSize();
    QRect target(QPoint(), shown);
    target.moveCenter(area.center());
    QPainterPath rounded;
    rounded.addRoundedRect(target, 4, 4);
    painter.save();
    painter.setClipPath(rounded);
    painter.drawPixmap(target, picture);
    painter.restore();
    painter.setPen(QColor(0, 0, 0, 40));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(target).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
}

}  // namespace

SlideDelegate::SlideDelegate(Thumbnails& thumbnails, QObject* parent)
    : QStyledItemDelegate(parent), m_thumbnails(thumbnails) {}

QSize SlideDelegate::sizeHint(const QStyleOptionViewItem& option,
                              const QModelIndex& /*index*/) const {
    return {kPicture.width() + 2 * kMargin,
            kPicture.height() + 2 * kMargin + kGap + option.fontMetrics.height()};
}

void SlideDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const {
    const auto slide = index.data(SlideModel::SlideRole).value<SlidePtr>();
    if (slide == nullptr) {
        return;
    }
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    const QPalette& colours = option.palette;
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    const QRectF card = QRectF(option.rect).adjusted(2.5, 2.5, -2.5, -2.5);
    if (selected || option.state.testFlag(QStyle::State_MouseOver)) {
        QColor fill = colours.color(QPalette::Highlight);
        fill.setAlpha(selected ? 60 : 24);
        painter->setPen(selected ? QPen(colours.color(QPalette::Highlight), 1.5) : QPen(Qt::NoPen));
        painter->setBrush(fill);
        painter->drawRoundedRect(card, 6, 6);
    }

    const QRect area(option.rect.topLeft() + QPoint(kMargin, kMargin), kPicture);
    const QPixmap picture = m_thumbnails.picture(slide);
    if (picture.isNull() || slide->isMissing()) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(colours.color(QPalette::AlternateBase));
        painter->drawRoundedRect(area, 4, 4);
        painter->setPen(colours.color(QPalette::PlaceholderText));
        painter->drawText(area.adjusted(8, 8, -8, -8), Qt::AlignCenter | Qt::TextWordWrap,
                          emptyText(*slide, m_thumbnails));
    } else {
        paintPicture(*painter, area, picture);
    }

    const QRect line(area.left(), area.bottom() + kGap, area.width(), option.fontMetrics.height());
    const QString number = QString::number(index.row() + 1);
    const int numberWidth = option.fontMetrics.horizontalAdvance(number) + 8;
    painter->setPen(colours.color(QPalette::PlaceholderText));
    painter->drawText(line, Qt::AlignLeft | Qt::AlignVCenter, number);
    painter->setPen(colours.color(QPalette::Text));
    const QRect caption = line.adjusted(numberWidth, 0, 0, 0);
    painter->drawText(
        caption, Qt::AlignLeft | Qt::AlignVCenter,
        option.fontMetrics.elidedText(slide->caption(), Qt::ElideMiddle, caption.width()));
    if (option.state.testFlag(QStyle::State_HasFocus)) {
        painter->setBrush(Qt::NoBrush);
        painter->setPen(QPen(colours.color(QPalette::Highlight), 1, Qt::DotLine));
        painter->drawRoundedRect(card, 6, 6);
    }
    painter->restore();
}

}  // namespace vellora::desktop
