#include "FilterSheet.h"

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <array>
#include <iterator>
#include <memory>
#include <string_view>
#include <vector>

#include <opencv2/core/core_c.h>

#include <vellora/base/HostText.h>
#include <vellora/base/ImagePtr.h>
#include <vellora/base/PhotoListNode.h>
#include <vellora/filters/FilterCatalogue.h>
#include <vellora/filters/PhotoProcessor.h>
#include <vellora/filters/RandomSeed.h>
#include <vellora/host/PhotoFile.h>

#include "Paths.h"
#include "PictureFile.h"
#include "SamplePhoto.h"

namespace vellora::cli {
namespace {

constexpr int kColumns = 6;
constexpr QSize kPicture(392, 294);
constexpr int kGap = 14;
constexpr int kCaption = 40;

/// Factors for filters whose initial ones change nothing, or leave nothing to be seen.
struct Telling {
    std::u16string_view name;
    std::array<std::int32_t, 3> factors;
};

constexpr Telling kTelling[] = {
    {u"Brightness Contrast", {25, 30, 0}},
    {u"HSL", {0, 80, 10}},
    {u"Rotate", {530, 0, 0}},
    {u"Snow", {60, 150, 600}},
    {u"Rain", {15, 30, 5000}},
    {u"Contour", {30, 10, 400}},
    {u"Canvas", {15, 0, 0}},
};

struct Tile {
    QString name;
    QString factors;
    QImage picture;
};

ImagePtr copyOf(const QImage& bgr) {
    ImagePtr image(cvCreateImage(cvSize(bgr.width(), bgr.height()), IPL_DEPTH_8U, 3));
    for (int y = 0; y < bgr.height(); ++y) {
        std::copy_n(bgr.constScanLine(y), 3 * bgr.width(),
                    reinterpret_cast<uchar*>(image->imageData) +
                        static_cast<std::ptrdiff_t>(y) * image->widthStep);
    }
    return image;
}

QImage reduced(const IplImage& image) {
    const QImage view(reinterpret_cast<const uchar*>(image.imageData), image.width, image.height,
                      image.widthStep, QImage::Format_BGR888);
    return view.scaled(kPicture, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

ImagePtr decode(const SheetOptions& options, QString& problem) {
    if (options.photo.isEmpty()) {
        return copyOf(paintSamplePhoto());
    }
    PhotoInfo info;
    if (!ReadPhotoInfo(options.photo, &info, &problem)) {
        return nullptr;
    }
    auto record = std::make_unique<_PHOTO_LIST_NODE>();
    setHostText(record->path, absolutePathOf(options.photo));
    record->rotation = info.rotation;
    record->flip_x = info.flip_x;
    record->flip_y = info.flip_y;
    CPhotoProcessor processor;
    processor.SetNode(record.get());
    processor.Rebuild(!options.fullSize);
    if (processor.GetWorking() == nullptr) {
        problem = QStringLiteral("cannot be decoded");
        return nullptr;
    }
    return ImagePtr(cvCloneImage(processor.GetWorking()));
}

/// Sets up a filter so that its effect shows, and returns its factors as text.
QString prepare(COpencvFilterInterface& filter) {
    const std::array<std::int32_t*, 3> factors{filter.GetFactorOne(), filter.GetFactorTwo(),
                                               filter.GetFactorThree()};
    const auto telling = std::ranges::find(kTelling, filter.GetName(), &Telling::name);
    QStringList values;
    for (std::size_t k = 0; k < factors.size() && factors[k] != nullptr; ++k) {
        if (telling != std::end(kTelling)) {
            *factors[k] = telling->factors[k];
        }
        values << QString::number(*factors[k]);
    }
    filter.SetROI(0.3F, 0.2F, 0.4F, 0.6F);
    return values.join(QStringLiteral(", "));
}

std::vector<Tile> makeTiles(const IplImage& photo, std::uint32_t seed) {
    std::vector<Tile> tiles;
    for (const COpencvFilterInterface* prototype : GetFilterPrototypes()) {
        const std::unique_ptr<COpencvFilterInterface> filter(prototype->Clone());
        Tile tile{QString::fromUtf16(filter->GetName()), prepare(*filter), {}};
        IplImage* image = cvCloneImage(&photo);
        FixRandomSeed(seed);
        filter->Apply(&image);
        const ImagePtr owner(image);
        tile.picture = reduced(*image);
        tiles.push_back(std::move(tile));
    }
    ReleaseRandomSeed();
    return tiles;
}

void drawTile(QPainter& painter, QPoint corner, const Tile& tile) {
    const QPoint inset((kPicture.width() - tile.picture.width()) / 2,
                       (kPicture.height() - tile.picture.height()) / 2);
    painter.drawImage(corner + inset, tile.picture);
    const QRect caption(corner + QPoint(0, kPicture.height()), QSize(kPicture.width(), kCaption));
    QFont font = painter.font();
    font.setPixelSize(18);
    painter.setFont(font);
    painter.setPen(QColor(240, 240, 240));
    painter.drawText(caption, Qt::AlignLeft | Qt::AlignVCenter, tile.name);
    painter.setPen(QColor(160, 165, 175));
    painter.drawText(caption, Qt::AlignRight | Qt::AlignVCenter, tile.factors);
}

QImage arrange(const std::vector<Tile>& tiles) {
    const int rows = (static_cast<int>(tiles.size()) + kColumns - 1) / kColumns;
    const QSize step(kPicture.width() + kGap, kPicture.height() + kCaption + kGap);
    QImage sheet(kColumns * step.width() + kGap, rows * step.height() + kGap, QImage::Format_RGB32);
    sheet.fill(QColor(34, 36, 40));
    QPainter painter(&sheet);
    painter.setRenderHint(QPainter::TextAntialiasing);
    for (int k = 0; k < static_cast<int>(tiles.size()); ++k) {
        const QPoint corner(kGap + (k % kColumns) * step.width(),
                            kGap + (k / kColumns) * step.height());
        drawTile(painter, corner, tiles[static_cast<std::size_t>(k)]);
    }
    return sheet;
}

}  // namespace

QString writeFilterSheet(const SheetOptions& options) {
    QString problem;
    const ImagePtr photo = decode(options, problem);
    if (photo == nullptr) {
        return QStringLiteral("%1: %2").arg(options.photo, problem);
    }
    const QImage sheet = arrange(makeTiles(*photo, options.seed));
    if (!replacePicture(sheet, options.file)) {
        return QStringLiteral("%1: cannot be written").arg(options.file);
    }
    return {};
}

}  // namespace vellora::cli
