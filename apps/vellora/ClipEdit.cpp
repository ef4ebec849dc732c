#include "ClipEdit.h"

#include <algorithm>

#include <vellora/model/DVDImage.h>
#include <vellora/model/DVDImageProps.h>

#include "Command.h"
#include "Console.h"
#include "Numbers.h"
#include "Paths.h"

namespace vellora::cli {
namespace {

constexpr std::int32_t kFarthest = 100'000;

/// The clip's own size, reduced to fit the stage.
QSize sizeOnStage(QSizeF natural) {
    const double scale =
        std::min({1.0, kStageWidth / natural.width(), kStageHeight / natural.height()});
    return {std::max(1, qRound(natural.width() * scale)),
            std::max(1, qRound(natural.height() * scale))};
}

}  // namespace

void addClipEdit(Edits& edits, const QString& argument) {
    const QString what = QStringLiteral("--clip");
    const qsizetype at = argument.lastIndexOf(QLatin1Char('@'));
    if (at < 1) {
        throw UsageError(QStringLiteral("--clip: '%1' is not of the form FILE@X,Y[,CX,CY]")
                             .arg(printable(argument)));
    }
    const std::vector<std::int32_t> place = toIntegers(argument.mid(at + 1), 2, 4, what);
    for (const std::int32_t value : place) {
        toIntegerWithin(QString::number(value), -kFarthest, kFarthest, what);
    }
    const QString file = absolutePathOf(argument.left(at));
    QString reason = irregularity(file);
    const QSizeF natural = reason.isEmpty() ? CDVDImageProps::NaturalSize(file, &reason) : QSizeF();
    if (natural.isEmpty()) {
        throw UsageError(QStringLiteral("--clip: %1: %2").arg(printable(file), reason));
    }
    const QSize size = place.size() == 4 ? QSize(place[2], place[3]) : sizeOnStage(natural);
    if (size.isEmpty()) {
        throw UsageError(QStringLiteral("--clip: '%1' has no size").arg(printable(argument)));
    }
    edits.files << file;
    edits.steps.emplace_back([file, size, x = place[0], y = place[1]](CDVDImage& image) {
        auto clip = std::make_unique<CDVDImageProps>(&image, file);
        clip->SetPosition(x, y);
        clip->SetSize(size.width(), size.height());
        if (image.AddSprite(clip.get(), false) == 1) {
            clip.release();
        }
    });
}

}  // namespace vellora::cli
