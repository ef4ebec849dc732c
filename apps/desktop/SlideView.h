#pragma once

#include <QListView>

namespace vellora::desktop {

/// The wall of slides: wraps with the window, selects many, reorders by dragging.
class SlideView : public QListView {
    Q_OBJECT

public:
    explicit SlideView(QWidget* parent = nullptr);

    /// The selected rows in ascending order.
    [[nodiscard]] QList<int> selectedRows() const;

    /// The rows from the first to behind the last that can be seen, at least in part.
    struct Rows {
        int begin = 0;
        int end = 0;
    };
    [[nodiscard]] Rows visibleRows() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    /// The row before which something dropped at a point goes.
    [[nodiscard]] int rowForDrop(QPoint point) const;
    /// Marks the place where something dragged would go; -1 for none.
    void markDrop(int row);
    void paintDropMark(QPainter& painter) const;

    int m_dropRow = -1;
};

}  // namespace vellora::desktop
