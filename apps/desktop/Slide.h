#pragma once

#include <QJsonObject>
#include <QString>
#include <atomic>
#include <memory>

#include <vellora/base/PhotoListNode.h>
#include <vellora/host/NodeHandle.h>

#include "common/ShowFile.h"

namespace vellora {
class CImageObj;
}

namespace vellora::desktop {

/// One photo of the show: the host's record and the module's node for it. Shared with the
/// threads that render it, so that neither goes away under them.
class Slide {
public:
    /// Makes the node; the document must outlive the call only.
    Slide(const hostkit::ShowPhoto& photo, CImageObj& document);
    ~Slide();
    Slide(const Slide&) = delete;
    Slide& operator=(const Slide&) = delete;

    /// What the show file keeps of this photo.
    [[nodiscard]] hostkit::ShowPhoto toShow() const;

    /// Names another file for the same edits.
    void relocate(const QString& path);
    /// Looks whether the file is there.
    void checkFile();

    [[nodiscard]] const QString& path() const { return m_path; }
    [[nodiscard]] bool isMissing() const { return m_missing; }
    /// The title, or the file's name.
    [[nodiscard]] QString caption() const;
    /// Differs for all slides of a run of the program.
    [[nodiscard]] quint64 id() const { return m_id; }
    [[nodiscard]] _PHOTO_LIST_NODE& record() { return m_record; }
    [[nodiscard]] const _PHOTO_LIST_NODE& record() const { return m_record; }
    [[nodiscard]] _HNODE* node() const { return m_node; }

private:
    QString m_path;
    _PHOTO_LIST_NODE m_record{};
    QJsonObject m_unknown;
    _HNODE* m_node = nullptr;
    quint64 m_id;
    std::atomic<bool> m_missing{false};
};

using SlidePtr = std::shared_ptr<Slide>;

}  // namespace vellora::desktop
