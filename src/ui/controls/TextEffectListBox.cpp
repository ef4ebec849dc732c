#include "ui/controls/TextEffectListBox.h"

#include <QDir>
#include <QPainter>

#include <vellora/host/Language.h>

#include "base/ResourceIds.h"
#include "ui/skin/Skin.h"

namespace vellora {
namespace {

constexpr int kColumnWidth = 90;
constexpr int kItemHeight = 75;
constexpr int kNameHeight = 14;
// Light styles need a darker ground than the page, dark ones a lighter one than a photo.
constexpr QColor kSampleGround{0x8F, 0x9D, 0xAE};

/// The name of an entry, which is "Style" and a number, in the language of the module.
QString translatedName(const TextEffectEntry& entry) {
    const QString number = entry.name.section(u' ', -1);
    return LanguageString(string_id::kStyleNumber).replace(QStringLiteral("%d"), number);
}

}  // namespace

CTextEffectListBox::CTextEffectListBox(QWidget* parent)
    : CColumnListBox(kColumnWidth, kItemHeight, parent) {}

void CTextEffectListBox::LoadEffectCatalogue(const QString& baseFolder) {
    clear();
    m_samples.clear();
    m_baseFolder = baseFolder;
    m_entries = vellora::LoadEffectCatalogue(baseFolder);
    for (const TextEffectEntry& entry : m_entries) {
        const QString name = translatedName(entry);
        auto* item = new QListWidgetItem(name, this);
        item->setToolTip(QStringLiteral("<span>%1</span>").arg(name.toHtmlEscaped()));
    }
    if (count() > 0) {
        setCurrentRow(0);
        return;
    }
    const QString file = QDir(baseFolder).filePath(QStringLiteral("texteffect/effect_list.xml"));
    SetEmptyText(LanguageString(string_id::kNoTextStyles) + u'\n' + QDir::toNativeSeparators(file));
}

const TextEffectRecord* CTextEffectListBox::GetEffect(int row) const {
    const auto index = static_cast<std::size_t>(row);
    return row >= 0 && index < m_entries.size() ? &m_entries[index].effect : nullptr;
}

void CTextEffectListBox::DrawItem(QPainter& painter, const QRect& rect,
                                  const QListWidgetItem& item) {
    const int index = row(&item);
    const TextEffectRecord* effect = GetEffect(index);
    const QRect ground = rect.adjusted(-2, -2, 2, -kNameHeight);
    skin::drawFace(painter, ground, kSampleGround, {});
    const double ratio = devicePixelRatioF();
    QPixmap& sample = m_samples[index];
    if (effect != nullptr && (sample.isNull() || sample.devicePixelRatio() != ratio)) {
        sample =
            QPixmap::fromImage(PreviewTextEffect(m_baseFolder, *effect, ground.size() * ratio));
        sample.setDevicePixelRatio(ratio);
    }
    painter.drawPixmap(ground.topLeft(), sample);
    painter.setPen(skin::kText);
    painter.setFont(skin::scaledFont(*this, 0.8));
    skin::drawElided(painter, {rect.left(), ground.bottom() + 1, rect.width(), kNameHeight + 3},
                     Qt::AlignCenter, item.text());
}

}  // namespace vellora
