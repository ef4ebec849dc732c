#include "desktop/SlideView.h"

#include <QDropEvent>
#include <QPainter>
#include <algorithm>
#include <ranges>

namespace vellora::desktop {

SlideView::SlideView(QWidget* parent) : QListView(parent) {
    setViewMode(QListView::IconMode);
    setResizeMode(QListView::Adjust);
    setMovement(QListView::Snap);
    setUniformItemSizes(true);
    setLayoutMode(QListView::Batched);
    setBatchSize(400);
    setSpacing(4);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setDragDropMode(QAbstractItemView::DragDrop);
    setDefaultDropAction(Qt::MoveAction);
    setDropIndicatorShown(false);  // the stock mark is around a card, not between two
    setMouseTracking(true);
    setFrameShape(QFrame::NoFrame);
    setContextMenuPolicy(Qt::CustomContextMenu);
}

QList<int> SlideView::selectedRows() const {
    QList<int> rows;
    for (const QModelIndex& index : selectionModel()->selectedIndexes()) {
        rows.append(index.row());
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

void SlideView::markDrop(int row) {
    if (row != m_dropRow) {
        m_dropRow = row;
        viewport()->update();
    }
}

void SlideView::paintDropMark(QPainter& painter) const {
    const bool last = m_dropRow >= model()->rowCount();
    const QRect card = visualRect(model()->index(last ? m_dropRow - 1 : m_dropRow, 0));
    const int x = last ? card.right() + spacing() / 2 : card.left() - spacing() / 2;
    painter.fillRect(QRect(std::max(x - 1, 0), card.top() + 4, 3, card.height() - 8),
                     palette().color(QPalette::Highlight));
}

SlideView::Rows SlideView::visibleRows() const {
    const auto rows = std::views::iota(0, model()->rowCount());
    const auto rect = [this](int row) { return visualRect(model()->index(row, 0)); };
    // The cards lie in lines from top to bottom; those that are not laid out yet have no place.
    const auto begin = std::ranges::partition_point(
        rows, [&](int row) { return rect(row).isValid() && rect(row).bottom() < 0; });
    const auto end = std::ranges::partition_point(rows, [&](int row) {
        return rect(row).isValid() && rect(row).top() < viewport()->height();
    });
    return {static_cast<int>(begin - rows.begin()), static_cast<int>(end - rows.begin())};
}

void SlideView::paintEvent(QPaintEvent* event) {
    QListView::paintEvent(event);
    QPainter painter(viewport());
    if (m_dropRow >= 0 && model()->rowCount() > 0) {
        paintDropMark(painter);
    }
    if (model() != nullptr && model()->rowCount() == 0) {
        painter.setPen(palette().color(QPalette::PlaceholderText));
        QFont large = font();
        large.setPointSizeF(large.pointSizeF() * 1.4);
        painter.setFont(large);
        painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap,
                         tr("Drop photos or folders here,\nor press Add photos"));
    }
}

int SlideView::rowForDrop(QPoint point) const {
    const QModelIndex under = indexAt(point);
    if (!under.isValid()) {
        // Between two cards the nearer one on the left counts.
        const QModelIndex left = indexAt(point - QPoint(2 * spacing(), 0));
        return left.isValid() ? left.row() + 1 : model()->rowCount();
    }
    return under.row() + (point.x() > visualRect(under).center().x() ? 1 : 0);
}

void SlideView::dragMoveEvent(QDragMoveEvent* event) {
    QListView::dragMoveEvent(event);
    const bool takes = model()->canDropMimeData(event->mimeData(), event->dropAction(), 0, 0, {});
    event->setAccepted(takes);
    markDrop(takes ? rowForDrop(event->position().toPoint()) : -1);
}

void SlideView::dragLeaveEvent(QDragLeaveEvent* event) {
    QListView::dragLeaveEvent(event);
    markDrop(-1);
}

void SlideView::dropEvent(QDropEvent* event) {
    markDrop(-1);
    // The stock icon view would move the items' places instead of the rows.
    const int row = rowForDrop(event->position().toPoint());
    if (model()->canDropMimeData(event->mimeData(), event->dropAction(), row, 0, {})) {
        model()->dropMimeData(event->mimeData(), event->dropAction(), row, 0, {});
        event->setDropAction(Qt::CopyAction);
        event->accept();
    }
    stopAutoScroll();
    setState(NoState);
    viewport()->update();
}

}  // namespace vellora::desktop
