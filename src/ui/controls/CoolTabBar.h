#pragma once

#include <QTabBar>

namespace vellora {

/// A strip of tabs with gaps between them. Tabs and gaps are items alike: with a gap behind every
/// tab but the last, tab n is item 2 n.
class CCoolTabBar : public QTabBar {
    Q_OBJECT

public:
    CCoolTabBar(const QString& windowName, QWidget* parent = nullptr);

    void AddTab(const QString& text, const QString& tip);
    void AddGap();

Q_SIGNALS:
    /// The current item changed, by the user or by the program.
    void CurrentItemChanged(int item);

protected:
    [[nodiscard]] QSize tabSizeHint(int index) const override;
    [[nodiscard]] QSize minimumTabSizeHint(int index) const override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] bool IsGap(int index) const;
    /// The tab's text without the doubling of ampersands that the base class needs.
    [[nodiscard]] QString ShownText(int index) const;
    void PaintTab(QPainter& painter, int index) const;
};

}  // namespace vellora
