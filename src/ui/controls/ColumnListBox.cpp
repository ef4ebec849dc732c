#include "ui/controls/ColumnListBox.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include "ui/skin/Skin.h"

namespace vellora {
namespace {

constexpr int kItemMargin = 2;
constexpr int kItemPadding = 5;

class ColumnDelegate : public QStyledItemDelegate {
public:
    ColumnDelegate(CColumnListBox& list, QSize size)
        : QStyledItemDelegate(&list), m_list(list), m_size(size) {}

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& /*option*/,
                                 const QModelIndex& /*index*/) const override {
        return m_size;
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const QListWidgetItem* item = m_list.item(index.row());
        if (item == nullptr) {
            return;
        }
        const QRect frame =
            option.rect.adjusted(kItemMargin, kItemMargin, -kItemMargin, -kItemMargin);
        const bool selected = option.state.testFlag(QStyle::State_Selected);
        const bool hovered = option.state.testFlag(QStyle::State_MouseOver);
        skin::drawFace(*painter, frame,
                       selected  ? skin::kPressed
                       : hovered ? skin::kHover
                                 : skin::kPage,
                       selected ? skin::kAccent : skin::kFaintBorder);
        painter->save();
        m_list.DrawItem(*painter,
                        frame.adjusted(kItemPadding, kItemPadding, -kItemPadding, -kItemPadding),
                        *item);
        painter->restore();
        if (selected && m_list.hasFocus()) {
            skin::drawFocusRing(*painter, frame);
        }
    }

private:
    CColumnListBox& m_list;
    QSize m_size;
};

}  // namespace

CColumnListBox::CColumnListBox(int columnWidth, int itemHeight, QWidget* parent)
    : QListWidget(parent) {
    setFlow(QListView::LeftToRight);
    setWrapping(true);
    setResizeMode(QListView::Adjust);
    setMovement(QListView::Static);
    setUniformItemSizes(true);
    setGridSize({columnWidth, itemHeight});
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    // A notch of the wheel, which is three steps, turns to the next row.
    verticalScrollBar()->setSingleStep(itemHeight / 3);
    setMouseTracking(true);
    setItemDelegate(new ColumnDelegate(*this, {columnWidth, itemHeight}));
}

void CColumnListBox::SetEmptyText(const QString& text) {
    m_emptyText = text;
    viewport()->update();
}

QSize CColumnListBox::minimumSizeHint() const {
    return gridSize() + QSize(2 * frameWidth(), 2 * frameWidth());
}

void CColumnListBox::paintEvent(QPaintEvent* event) {
    QListWidget::paintEvent(event);
    if (count() == 0 && !m_emptyText.isEmpty()) {
        QPainter painter(viewport());
        painter.setPen(skin::kMutedText);
        QTextOption option(Qt::AlignCenter);
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        painter.drawText(QRectF(viewport()->rect()).adjusted(14, 10, -14, -10), m_emptyText,
                         option);
    }
}

void CColumnListBox::keyPressEvent(QKeyEvent* event) {
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) &&
        currentItem() != nullptr) {
        Q_EMIT itemDoubleClicked(currentItem());
        return;
    }
    QListWidget::keyPressEvent(event);
}

}  // namespace vellora
