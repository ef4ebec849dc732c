#include "desktop/Slide.h"

#include <QFileInfo>

#include <vellora/base/HostText.h>
#include <vellora/host/ImageObj.h>

namespace vellora::desktop {
namespace {

quint64 nextId() {
    static std::atomic<quint64> last{0};
    return ++last;
}

}  // namespace

Slide::Slide(const hostkit::ShowPhoto& photo, CImageObj& document)
    : m_path(photo.path), m_unknown(photo.unknown), m_id(nextId()) {
    hostkit::toRecord(photo, m_record);
    document.AddPhotoListNode(&m_record, &m_node);
    checkFile();
}

Slide::~Slide() {
    ReleaseNode(m_node);
}

hostkit::ShowPhoto Slide::toShow() const {
    hostkit::ShowPhoto photo;
    hostkit::fromRecord(m_record, photo);
    photo.path = m_path;
    photo.unknown = m_unknown;
    return photo;
}

void Slide::relocate(const QString& path) {
    if (hostkit::fitsRecord(path)) {
        setHostText(m_record.path, path);
        m_path = path;
    }
    checkFile();
    ReleaseImgBuf(m_node);
}

void Slide::checkFile() {
    m_missing = !QFileInfo(m_path).isFile();
}

QString Slide::caption() const {
    const QString title = hostText(m_record.title);
    return title.isEmpty() ? QFileInfo(m_path).fileName() : title;
}

}  // namespace vellora::desktop
