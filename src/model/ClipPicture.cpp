#include "model/ClipPicture.h"

#include <QDateTime>
#include <QFileInfo>
#include <list>
#include <mutex>

#include "metafile/MetafilePicture.h"
#include "model/ClipDecoders.h"

namespace vellora {
namespace {

constexpr qsizetype kCacheBytes = qsizetype{256} << 20;

struct CachedClip {
    QString path;
    QDateTime changed;
    qint64 fileSize;
    std::shared_ptr<const ClipPicture> clip;
};

/// The clips used last, the most recent first.
class ClipCache {
public:
    std::shared_ptr<const ClipPicture> find(const QString& path, const QFileInfo& file) {
        const std::lock_guard lock(m_mutex);
        for (auto entry = m_entries.begin(); entry != m_entries.end(); ++entry) {
            if (entry->path == path) {
                if (entry->changed == file.lastModified() && entry->fileSize == file.size()) {
                    m_entries.splice(m_entries.begin(), m_entries, entry);
                    return entry->clip;
                }
                m_bytes -= entry->clip->bytes();
                m_entries.erase(entry);
                break;
            }
        }
        return nullptr;
    }

    void add(const QString& path, const QFileInfo& file,
             const std::shared_ptr<const ClipPicture>& clip) {
        const std::lock_guard lock(m_mutex);
        m_entries.push_front({path, file.lastModified(), file.size(), clip});
        m_bytes += clip->bytes();
        while (m_bytes > kCacheBytes && m_entries.size() > 1) {
            m_bytes -= m_entries.back().clip->bytes();
            m_entries.pop_back();
        }
    }

private:
    std::mutex m_mutex;
    std::list<CachedClip> m_entries;
    qsizetype m_bytes = 0;
};

ClipCache& cache() {
    static ClipCache instance;
    return instance;
}

bool hasSuffix(const QFileInfo& file, const char* suffix) {
    return file.suffix().compare(QLatin1String(suffix), Qt::CaseInsensitive) == 0;
}

std::shared_ptr<const ClipPicture> decode(const QString& path, const QFileInfo& file,
                                          QString& reason) {
    if (!file.isFile()) {
        reason = file.exists() ? QStringLiteral("not a file") : QStringLiteral("no such file");
        return nullptr;
    }
    if (hasSuffix(file, "svg") || hasSuffix(file, "svgz")) {
        return decodeSvgClip(path, reason);
    }
    if (MetafilePicture::isMetafile(path)) {
        return decodeMetafileClip(path, reason);
    }
    return decodeRasterClip(path, reason);
}

}  // namespace

std::shared_ptr<const ClipPicture> loadClip(const QString& path, QString* reason) {
    const QFileInfo file(path);
    std::shared_ptr<const ClipPicture> clip = cache().find(path, file);
    if (clip == nullptr) {
        QString why;
        clip = decode(path, file, why);
        if (clip != nullptr) {
            cache().add(path, file, clip);
        } else if (reason != nullptr) {
            *reason = why;
        }
    }
    return clip;
}

}  // namespace vellora
