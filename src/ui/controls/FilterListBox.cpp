#include "ui/controls/FilterListBox.h"

#include <QEvent>
#include <QPainter>
#include <QStyledItemDelegate>

#include "ui/skin/Skin.h"

namespace vellora {
namespace {

constexpr int kBorder = 3;
constexpr double kNameScale = 0.88;

class FilterDelegate : public QStyledItemDelegate {
public:
    explicit FilterDelegate(CFilterListBox& list) : QStyledItemDelegate(&list), m_list(list) {}

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& /*option*/,
                                 const QModelIndex& /*index*/) const override {
        return m_list.gridSize();
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const bool selected = option.state.testFlag(QStyle::State_Selected);
        const bool hovered = option.state.testFlag(QStyle::State_MouseOver);
        const QSize side = m_list.iconSize();
        QRect picture({}, side);
        picture.moveCenter(
            {option.rect.center().x(), option.rect.top() + kBorder + side.height() / 2});
        const QRect name(option.rect.left(), picture.bottom() + 2, option.rect.width(),
                         option.rect.bottom() - picture.bottom() - 2);
        painter->save();
        const QVariant icon = index.data(Qt::DecorationRole);
        icon.value<QIcon>().paint(painter, picture);
        painter->setPen(QPen(selected  ? skin::kAccent
                             : hovered ? skin::kBorder
                                       : skin::kFaintBorder,
                             selected ? 3.0 : 1.0));
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setBrush(Qt::NoBrush);
        const double inset = selected ? 0.0 : 0.5;
        painter->drawRoundedRect(QRectF(picture).adjusted(inset, inset, -inset, -inset), 2, 2);
        painter->setFont(skin::scaledFont(m_list, kNameScale));
        painter->setPen(selected ? skin::kAccentDark : skin::kText);
        skin::drawElided(*painter, name, Qt::AlignHCenter | Qt::AlignTop,
                         index.data(Qt::DisplayRole).toString());
        painter->restore();
        if (selected && m_list.hasFocus()) {
            skin::drawFocusRing(*painter, option.rect.adjusted(0, 0, 0, -1));
        }
    }

private:
    CFilterListBox& m_list;
};

}  // namespace

CFilterListBox::CFilterListBox(int pictureSide, QWidget* parent) : QListWidget(parent) {
    setViewMode(QListView::IconMode);
    setResizeMode(QListView::Adjust);
    setMovement(QListView::Static);
    setUniformItemSizes(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setIconSize({pictureSide, pictureSide});
    setMouseTracking(true);
    setItemDelegate(new FilterDelegate(*this));
    FitGrid();
}

void CFilterListBox::FitGrid() {
    const QFontMetrics metrics(skin::scaledFont(*this, kNameScale));
    setGridSize({iconSize().width() + 3, iconSize().height() + metrics.height() + 2 * kBorder + 3});
}

void CFilterListBox::changeEvent(QEvent* event) {
    QListWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        FitGrid();
    }
}

QSize CFilterListBox::minimumSizeHint() const {
    return {iconSize().width() + 20, gridSize().height()};
}

}  // namespace vellora
