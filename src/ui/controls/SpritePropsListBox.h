#pragma once

#include <QHash>
#include <QPixmap>
#include <memory>

#include "ui/controls/ColumnListBox.h"

namespace vellora {

class ClipPicture;

/// The list of clip files. Pictures are decoded when they come into view.
class CSpritePropsListBox : public CColumnListBox {
    Q_OBJECT

public:
    explicit CSpritePropsListBox(QWidget* parent = nullptr);

    /// Replaces the items by clip files, given with their full paths.
    void SetFiles(const QStringList& files);
    [[nodiscard]] QString GetFile(const QListWidgetItem& item) const;

    void DrawItem(QPainter& painter, const QRect& rect, const QListWidgetItem& item) override;

private:
    /// A clip as it was drawn last; drawn again when the file is another one.
    struct Thumbnail {
        std::shared_ptr<const ClipPicture> clip;
        QPixmap pixmap;
    };

    [[nodiscard]] QPixmap ThumbnailOf(const QString& file, QSize size);

    QHash<QString, Thumbnail> m_thumbnails;
};

}  // namespace vellora
