#include "ui/controls/FontPreviewCombo.h"

#include <QAbstractItemView>
#include <QFontDatabase>
#include <QPainter>
#include <QStyledItemDelegate>

namespace vellora {
namespace {

constexpr int kMargin = 6;

class FontDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override {
        const QSize plain = QStyledItemDelegate::sizeHint(option, index);
        return {plain.width() + 40, plain.height() * 8 / 5};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyleOptionViewItem row(option);
        initStyleOption(&row, index);
        const QString family = row.text;
        QFont sample(row.font);
        sample.setPointSizeF(row.font.pointSizeF() * 1.25);
        // The names of symbol fonts would be drawings in their own font.
        const auto systems = QFontDatabase::writingSystems(family);
        if (!systems.isEmpty() && systems.first() != QFontDatabase::Symbol) {
            sample.setFamily(family);
        }
        const bool selected = row.state.testFlag(QStyle::State_Selected);
        painter->save();
        painter->fillRect(row.rect, selected ? row.palette.highlight() : row.palette.base());
        painter->setPen(selected ? row.palette.color(QPalette::HighlightedText)
                                 : row.palette.color(QPalette::Text));
        painter->setFont(sample);
        const QRect text = row.rect.adjusted(kMargin, 0, -kMargin, 0);
        painter->drawText(text,
                          static_cast<int>(QStyle::visualAlignment(row.direction, Qt::AlignLeft) |
                                           Qt::AlignVCenter) |
                              Qt::TextSingleLine,
                          painter->fontMetrics().elidedText(family, Qt::ElideRight, text.width()));
        painter->restore();
    }
};

}  // namespace

CFontPreviewCombo::CFontPreviewCombo(QWidget* parent) : QComboBox(parent) {
    setMaxVisibleItems(12);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(8);
    setItemDelegate(new FontDelegate(this));
    for (const QString& family : QFontDatabase::families()) {
        if (!QFontDatabase::isPrivateFamily(family)) {
            addItem(family);
        }
    }
}

void CFontPreviewCombo::SetFontName(const QString& name) {
    int row = findText(name, Qt::MatchFixedString);
    if (row < 0) {
        insertItem(0, name);
        row = 0;
    }
    setCurrentIndex(row);
}

QSize CFontPreviewCombo::minimumSizeHint() const {
    return {60, QComboBox::minimumSizeHint().height()};
}

}  // namespace vellora
