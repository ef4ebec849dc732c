#pragma once

#include <QListWidget>
#include <functional>

namespace vellora {

/// A list box of as many columns as fit: items of one size fill a row, then the next, and the list
/// scrolls up and down. The owner draws the items.
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
    void keyPressEvent(QKeyEvent* event) override;

private:
    QString m_emptyText;
};

}  // namespace vellora
