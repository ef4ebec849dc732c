#pragma once

#include <QStyledItemDelegate>

namespace vellora::desktop {

class Thumbnails;

/// Paints a slide as a card: its finished picture, its number and its caption.
class SlideDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    static constexpr QSize kPicture{208, 156};

    SlideDelegate(Thumbnails& thumbnails, QObject* parent);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    Thumbnails& m_thumbnails;
};

}  // namespace vellora::desktop
