#include "desktop/Relocation.h"

#include <QFileInfo>

namespace vellora::desktop {
namespace {

/// Takes the folders off the end that both paths have in common.
void cutCommonEnd(QString& from, QString& to) {
    while (!from.isEmpty() && !to.isEmpty() && from != to &&
           QFileInfo(from).fileName() == QFileInfo(to).fileName()) {
        from.truncate(from.lastIndexOf(u'/'));
        to.truncate(to.lastIndexOf(u'/'));
    }
}

}  // namespace

std::vector<Relocation> foundBeside(const std::vector<SlidePtr>& slides, const QString& from,
                                    const QString& to) {
    QString oldFolder = QFileInfo(from).path();
    QString newFolder = QFileInfo(to).path();
    const QString besides = newFolder + u'/';
    cutCommonEnd(oldFolder, newFolder);
    std::vector<Relocation> result;
    for (const SlidePtr& slide : slides) {
        if (!slide->isMissing()) {
            continue;
        }
        const QString& path = slide->path();
        const QString moved =
            path.startsWith(oldFolder + u'/') ? newFolder + path.mid(oldFolder.size()) : QString();
        for (const QString& place : {moved, besides + QFileInfo(path).fileName()}) {
            if (!place.isEmpty() && QFileInfo(place).isFile()) {
                result.push_back({slide, place});
                break;
            }
        }
    }
    return result;
}

}  // namespace vellora::desktop
