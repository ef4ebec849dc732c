#pragma once

#include <QListWidget>

namespace vellora {

/// The list of filters: pictures of one size with names under them, filled row by row.
class CFilterListBox : public QListWidget {
    Q_OBJECT

public:
    explicit CFilterListBox(int pictureSide, QWidget* parent = nullptr);

    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;

private:
    void FitGrid();
};

}  // namespace vellora
