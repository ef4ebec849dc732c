#pragma once

#include <QRectF>
#include <QSizeF>
#include <QString>
#include <memory>
#include <vector>

class QByteArray;
class QPainter;

namespace vellora {

namespace metafile {
struct PictureData;
}

/// A WMF or EMF file, decoded once and drawn at any size. Safe to draw from several threads.
class MetafilePicture {
public:
    enum class Format { Wmf, PlaceableWmf, Emf };

    struct RecordCount {
        QString name;
        std::int64_t count;
    };

    /// Whether a file begins as a metafile does, whatever its name.
    static bool isMetafile(const QString& path);

    /// Null for a file that cannot be drawn; `reason` then says why.
    static std::shared_ptr<const MetafilePicture> fromBytes(const QByteArray& bytes,
                                                            QString* reason = nullptr);
    static std::shared_ptr<const MetafilePicture> fromFile(const QString& path,
                                                           QString* reason = nullptr);

    ~MetafilePicture();

    Format format() const { return m_format; }
    /// The size that the file gives itself, at 96 dots an inch.
    QSizeF naturalSize() const;
    /// Most frequent first.
    std::vector<RecordCount> recordCounts() const;
    std::int64_t recordTotal() const;
    /// Rough memory that the picture takes.
    qsizetype bytes() const;

    /// Draws the picture stretched into a rectangle of the painter's coordinates. Places that it
    /// does not paint stay as they are.
    void draw(QPainter& painter, const QRectF& target) const;

private:
    MetafilePicture(Format format, std::unique_ptr<metafile::PictureData> data);

    Format m_format;
    std::unique_ptr<const metafile::PictureData> m_data;
};

}  // namespace vellora
