#include "PhotoRenderer.h"

#include <QFileInfo>
#include <QImage>
#include <algorithm>
#include <iterator>
#include <memory>

#include <vellora/base/HostText.h>
#include <vellora/filters/PhotoProcessor.h>
#include <vellora/filters/RandomSeed.h>
#include <vellora/host/ImageObj.h>
#include <vellora/model/DVDImage.h>

#include "Paths.h"
#include "PictureFile.h"
#include "common/Assets.h"
#include "common/Picture.h"

namespace vellora::cli {
namespace {

constexpr int kLongestJpegSide = 65500;
constexpr int kPngCompression = 21;  // of 100: a quarter of the default's time, a sixth more bytes
constexpr qsizetype kPathCapacity = std::size(_PHOTO_LIST_NODE{}.path);

using Node = std::unique_ptr<_HNODE, void (*)(_HNODE*)>;

Node addNode(CImageObj& show, _PHOTO_LIST_NODE& photo) {
    _HNODE* node = nullptr;
    show.AddPhotoListNode(&photo, &node);
    return {node, ReleaseNode};
}

QSize writeOutputImage(_HNODE& node, const QString& file, const RenderOptions& options) {
    const QImage picture = hostkit::finishedPicture(
        &node, options.preview ? hostkit::Detail::Preview : hostkit::Detail::Full);
    ReleaseImgBuf(&node);
    const PictureFormat format = options.png ? PictureFormat{.compression = kPngCompression}
                                             : PictureFormat{"jpg", options.quality};
    return writePicture(picture, file, format) ? picture.size() : QSize();
}

QSize writeJpegFile(CImageObj& show, const _PHOTO_LIST_NODE& photo, QSize own, const QString& file,
                    const RenderOptions& options) {
    const QSize asked = options.size.isEmpty() ? QSize(0, 0) : options.size;
    show.SaveNodeToFile(file, 0, asked.width(), asked.height(), options.quality, 0, options.fit,
                        photo.background);
    if (!QFileInfo::exists(file)) {
        return {};
    }
    if (options.fit == RenderOptions::kBox) {
        return {photo.output_width, photo.output_height};
    }
    return asked.isEmpty() ? own : asked;
}

}  // namespace

QString prepareRecord(_PHOTO_LIST_NODE& record, const RenderItem& item,
                      const RenderOptions& options) {
    const QString path = absolutePathOf(item.photo);
    if (path.size() >= kPathCapacity) {
        return QStringLiteral("its path has more than %1 characters").arg(kPathCapacity - 1);
    }
    if (item.fields) {
        hostkit::toRecord(*item.fields, record);
    }
    setHostText(record.path, path);
    PhotoInfo info;
    QString reason;
    const bool isPhoto = ReadPhotoInfo(item.photo, &info, &reason);
    if (isPhoto && !item.fields) {
        options.placeUpright(record, info);
    }
    options.overrule(record);
    return reason;
}

RenderOutcome PhotoRenderer::render(const RenderItem& item, const QString& file) const {
    RenderOutcome outcome;
    _PHOTO_LIST_NODE record{};
    outcome.problem = prepareRecord(record, item, m_options);
    if (!outcome.problem.isEmpty()) {
        return outcome;
    }
    CImageObj show;
    show.SetTextEffectBaseFolder(hostkit::assetsFolder());
    const Node node = addNode(show, record);
    if (node == nullptr) {
        outcome.problem = QStringLiteral("there is not enough memory");
        return outcome;
    }
    CDVDImage& image = *node->data->image;
    if (item.edits != nullptr) {
        item.edits->applyTo(image, *show.GetAlbum(), item.position);
    }
    m_edits.applyTo(image);
    if (m_options.seed) {
        FixRandomSeed(*m_options.seed);
    }
    CPhotoProcessor& processor = *image.GetProcessor();
    processor.Rebuild(m_options.preview);
    const QSize own(processor.GetWidth(), processor.GetHeight());
    outcome.damaged = processor.IsDamaged();
    if (own.isEmpty()) {
        outcome.problem = QStringLiteral("its picture cannot be decoded");
    } else if (!m_options.png && m_options.size.isEmpty() &&
               std::max(own.width(), own.height()) > kLongestJpegSide) {
        outcome.problem = QStringLiteral("is too long for a JPEG file; --format png takes it");
    } else if (m_options.png || m_options.preview) {
        outcome.size = writeOutputImage(*node, file, m_options);
    } else {
        outcome.size = writeJpegFile(show, record, own, file, m_options);
    }
    return outcome;
}

}  // namespace vellora::cli
