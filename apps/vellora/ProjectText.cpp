#include "ProjectText.h"

#include <QJsonArray>
#include <array>
#include <vector>

#include <vellora/filters/PhotoProcessor.h>
#include <vellora/model/DVDImageProps.h>
#include <vellora/model/DVDImageText.h>

#include "Console.h"

namespace vellora::cli {
namespace {

std::vector<std::int32_t> factorsOf(COpencvFilterInterface& filter) {
    std::vector<std::int32_t> factors;
    for (const std::int32_t* factor :
         {filter.GetFactorOne(), filter.GetFactorTwo(), filter.GetFactorThree()}) {
        if (factor != nullptr) {
            factors.push_back(*factor);
        }
    }
    return factors;
}

std::array<float, 4> regionOf(const COpencvFilterInterface& filter) {
    std::array<float, 4> region{};
    filter.GetROI(&region[0], &region[1], &region[2], &region[3]);
    return region;
}

QString join(const auto& numbers) {
    QStringList texts;
    for (const auto number : numbers) {
        texts << QString::number(number);
    }
    return texts.join(QLatin1Char(','));
}

QString placeOf(const CDVDImageSprite& sprite) {
    const QPoint position = sprite.GetPosition();
    return QStringLiteral("%1,%2").arg(position.x()).arg(position.y());
}

QString lineOf(const CDVDImageSprite& sprite) {
    if (const auto* text = dynamic_cast<const CDVDImageText*>(&sprite)) {
        const TextStyle& style = text->GetStyle();
        return QStringLiteral("text    '%1' at %2, %3 %4 points")
            .arg(printable(text->GetText()), placeOf(sprite), printable(style.effect.GetFontName()))
            .arg(style.effect.font_size);
    }
    const auto* clip = dynamic_cast<const CDVDImageProps*>(&sprite);
    const QSize size = sprite.GetSize();
    return QStringLiteral("clip    '%1' at %2, %3 x %4")
        .arg(clip != nullptr ? printable(clip->GetFile()) : QString(), placeOf(sprite))
        .arg(size.width())
        .arg(size.height());
}

QString lineOf(COpencvFilterInterface& filter) {
    QString line = QStringLiteral("filter  ") + QString::fromUtf16(filter.GetName());
    if (const auto factors = factorsOf(filter); !factors.empty()) {
        line += QLatin1Char('=') + join(factors);
    }
    if (filter.HasROI()) {
        line += QStringLiteral(" in ") + join(regionOf(filter));
    }
    if (filter.crop_step > 0) {
        line += QStringLiteral(", after crop %1").arg(filter.crop_step);
    }
    return line;
}

QString lineOf(const CropRecord& crop) {
    return QStringLiteral("crop    %1,%2,%3,%4")
        .arg(crop.x)
        .arg(crop.y)
        .arg(crop.width)
        .arg(crop.height);
}

QJsonObject toJson(const CDVDImageSprite& sprite) {
    QJsonObject object{{QStringLiteral("x"), sprite.GetPosition().x()},
                       {QStringLiteral("y"), sprite.GetPosition().y()}};
    if (const auto* text = dynamic_cast<const CDVDImageText*>(&sprite)) {
        const TextStyle& style = text->GetStyle();
        object.insert(QStringLiteral("type"), QStringLiteral("text"));
        object.insert(QStringLiteral("text"), text->GetText());
        object.insert(QStringLiteral("font"), style.effect.GetFontName());
        object.insert(QStringLiteral("size"), style.effect.font_size);
    } else if (const auto* clip = dynamic_cast<const CDVDImageProps*>(&sprite)) {
        object.insert(QStringLiteral("type"), QStringLiteral("clip"));
        object.insert(QStringLiteral("file"), clip->GetFile());
        object.insert(QStringLiteral("width"), sprite.GetSize().width());
        object.insert(QStringLiteral("height"), sprite.GetSize().height());
    }
    return object;
}

QJsonObject toJson(COpencvFilterInterface& filter) {
    QJsonArray factors;
    for (const std::int32_t factor : factorsOf(filter)) {
        factors.append(factor);
    }
    QJsonObject object{{QStringLiteral("name"), QString::fromUtf16(filter.GetName())},
                       {QStringLiteral("factors"), factors},
                       {QStringLiteral("crop_step"), filter.crop_step},
                       {QStringLiteral("flip_x"), filter.FlipX},
                       {QStringLiteral("flip_y"), filter.FlipY},
                       {QStringLiteral("angle"), filter.Angle}};
    if (filter.HasROI()) {
        QJsonArray region;
        for (const float value : regionOf(filter)) {
            region.append(static_cast<double>(value));
        }
        object.insert(QStringLiteral("region"), region);
    }
    return object;
}

QJsonObject toJson(const CropRecord& crop) {
    return {{QStringLiteral("x"), crop.x},          {QStringLiteral("y"), crop.y},
            {QStringLiteral("width"), crop.width},  {QStringLiteral("height"), crop.height},
            {QStringLiteral("flip_x"), crop.FlipX}, {QStringLiteral("flip_y"), crop.FlipY},
            {QStringLiteral("angle"), crop.angle}};
}

}  // namespace

QStringList spriteLines(const CSpriteHolder& holder) {
    QStringList lines;
    for (const CDVDImageSprite* sprite : holder.GetSprites()) {
        lines << lineOf(*sprite);
    }
    return lines;
}

QStringList editLines(const CDVDImage& photo) {
    const CPhotoProcessor& processor = *photo.GetProcessor();
    QStringList lines;
    for (int i = 0; i < processor.GetCropCount(); ++i) {
        lines << lineOf(*processor.GetCrop(i));
    }
    for (int i = 0; i < processor.GetFilterCount(); ++i) {
        lines << lineOf(*processor.GetFilter(i));
    }
    return lines;
}

QJsonArray spritesToJson(const CSpriteHolder& holder) {
    QJsonArray sprites;
    for (const CDVDImageSprite* sprite : holder.GetSprites()) {
        sprites.append(toJson(*sprite));
    }
    return sprites;
}

QJsonObject editsToJson(const CDVDImage& photo) {
    const CPhotoProcessor& processor = *photo.GetProcessor();
    QJsonArray crops;
    for (int i = 0; i < processor.GetCropCount(); ++i) {
        crops.append(toJson(*processor.GetCrop(i)));
    }
    QJsonArray filters;
    for (int i = 0; i < processor.GetFilterCount(); ++i) {
        filters.append(toJson(*processor.GetFilter(i)));
    }
    return {{QStringLiteral("crops"), crops},
            {QStringLiteral("filters"), filters},
            {QStringLiteral("sprites"), spritesToJson(photo)}};
}

}  // namespace vellora::cli
