#include "metafile/MetafilePicture.h"

#include <QByteArray>
#include <QFile>
#include <QTransform>
#include <algorithm>
#include <utility>

#include "metafile/EmfReader.h"
#include "metafile/PictureData.h"
#include "metafile/RecordCatalogue.h"
#include "metafile/WmfReader.h"

namespace vellora {

using metafile::EmfReader;
using metafile::PictureData;
using metafile::RecordView;
using metafile::WmfReader;

namespace {

std::shared_ptr<const MetafilePicture> refuse(QString* reason, const char* why) {
    if (reason != nullptr)
        *reason = QString::fromLatin1(why);
    return nullptr;
}

RecordView viewOf(const QByteArray& bytes) {
    return {reinterpret_cast<const unsigned char*>(bytes.constData()),
            static_cast<std::size_t>(bytes.size())};
}

/// Ends the drawing and takes the frame from what the records cover when the file names none.
void complete(PictureData& data) {
    data.list.finish();
    if (!data.frame.isEmpty())
        return;
    data.frame = data.list.bounds();
    data.naturalSize = data.frame.size();
}

const char* faultOf(const PictureData& data) {
    if (!data.complete)
        return "the metafile holds too many records";
    if (data.work.isExhausted() || data.list.areaWork(data.frame) > metafile::kMaxWork)
        return "the metafile takes too much work to draw";
    if (data.list.isEmpty())
        return data.tally.gdiPlus > 0 ? "the metafile holds GDI+ records only"
                                      : "the metafile draws nothing";
    if (data.frame.isEmpty() || data.naturalSize.isEmpty())
        return "the metafile has no size";
    return nullptr;
}

}  // namespace

MetafilePicture::MetafilePicture(Format format, std::unique_ptr<PictureData> data)
    : m_format(format), m_data(std::move(data)) {}

MetafilePicture::~MetafilePicture() = default;

bool MetafilePicture::isMetafile(const QString& path) {
    constexpr qint64 longestHeader = 128;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray start = file.read(longestHeader);
    const RecordView view = viewOf(start);
    return EmfReader::recognises(view) || WmfReader::recognises(view);
}

std::shared_ptr<const MetafilePicture> MetafilePicture::fromBytes(const QByteArray& bytes,
                                                                  QString* reason) {
    const RecordView file = viewOf(bytes);
    if (bytes.size() > metafile::kMaxFileBytes)
        return refuse(reason, "the metafile is too large");
    auto data = std::make_unique<PictureData>();
    Format format = Format::Emf;
    if (EmfReader::recognises(file)) {
        EmfReader(file, *data).play();
    } else if (WmfReader::recognises(file)) {
        format = WmfReader::isPlaceable(file) ? Format::PlaceableWmf : Format::Wmf;
        WmfReader(file, *data).play();
    } else {
        return refuse(reason, "not a metafile");
    }
    complete(*data);
    if (const char* const fault = faultOf(*data))
        return refuse(reason, fault);
    return std::shared_ptr<const MetafilePicture>(new MetafilePicture(format, std::move(data)));
}

std::shared_ptr<const MetafilePicture> MetafilePicture::fromFile(const QString& path,
                                                                 QString* reason) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return refuse(reason, "the file cannot be read");
    if (file.size() > metafile::kMaxFileBytes)
        return refuse(reason, "the metafile is too large");
    return fromBytes(file.read(metafile::kMaxFileBytes), reason);
}

QSizeF MetafilePicture::naturalSize() const {
    return m_data->naturalSize;
}

std::int64_t MetafilePicture::recordTotal() const {
    return m_data->tally.total;
}

std::vector<MetafilePicture::RecordCount> MetafilePicture::recordCounts() const {
    const auto kinds = m_format == Format::Emf ? metafile::emfRecords() : metafile::wmfRecords();
    std::vector<RecordCount> counts;
    for (const auto& [type, count] : m_data->tally.byType) {
        const metafile::RecordKind* const kind = metafile::findRecord(kinds, type);
        counts.push_back({kind != nullptr ? QString::fromLatin1(kind->name)
                                          : QStringLiteral("0x%1").arg(type, 4, 16, QChar(u'0')),
                          count});
    }
    std::ranges::stable_sort(counts, std::greater{}, &RecordCount::count);
    return counts;
}

qsizetype MetafilePicture::bytes() const {
    return static_cast<qsizetype>(m_data->list.bytes());
}

void MetafilePicture::draw(QPainter& painter, const QRectF& target) const {
    const QRectF& frame = m_data->frame;
    if (!target.isValid())
        return;
    QTransform toTarget = QTransform::fromTranslate(-frame.x(), -frame.y());
    toTarget *=
        QTransform::fromScale(target.width() / frame.width(), target.height() / frame.height());
    toTarget *= QTransform::fromTranslate(target.x(), target.y());
    m_data->list.replay(painter, toTarget, frame);
}

}  // namespace vellora
