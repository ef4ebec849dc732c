#include "desktop/SlideView.h"

#include <QDropEvent>
#include <QPainter>
#include <algorithm>

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
    setDropIndicatorShown(true);
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

void SlideView::paintEvent(QPaintEvent* event) {
    QListView::paintEvent(event);
    if (model() != nullptr && model()->rowCount() == 0) {
        QPainter painter(viewport());
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

void SlideView::dropEvent(QDropEvent* event) {
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
