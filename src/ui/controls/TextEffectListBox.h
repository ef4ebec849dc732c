#pragma once

#include <QHash>
#include <QPixmap>
#include <vector>

#include <vellora/text/EffectCatalogue.h>

#include "ui/controls/ColumnListBox.h"

namespace vellora {

/// The list of text styles, each shown by a sample. Every entry has its own effect record.
class CTextEffectListBox : public CColumnListBox {
    Q_OBJECT

public:
    explicit CTextEffectListBox(QWidget* parent = nullptr);

    /// Fills the list from the catalogue below the base folder and selects the first entry.
    void LoadEffectCatalogue(const QString& baseFolder);
    /// The record of an entry; null for a row without one.
    [[nodiscard]] const TextEffectRecord* GetEffect(int row) const;

    void DrawItem(QPainter& painter, const QRect& rect, const QListWidgetItem& item) override;

private:
    QString m_baseFolder;
    std::vector<TextEffectEntry> m_entries;
    QHash<int, QPixmap> m_samples;
};

}  // namespace vellora
