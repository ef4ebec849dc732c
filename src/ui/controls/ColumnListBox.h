#pragma once

#include <QListWidget>
#include <functional>

namespace vellora {

/// A list box of several columns: items of one size fill a column from top to bottom, then the
/// next, and the list scrolls sideways. The owner draws the items.
class CColumnListBox : public QListWidget {
    Q_OBJECT

public:
    CColumnListBox(int columnWidth, int itemHeight, QWidget* parent = nullptr);

    /// What is shown in place of the items while there are none.
    void SetEmptyText(const QString& text);

    /// Draws the inside of an item, without frame and selection.
    virtual void DrawItem(QPainter& painter, const QRect& rect, const QListWidgetItem& item) = 0;

    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QString m_emptyText;
};

}  // namespace vellora
