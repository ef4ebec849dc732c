#include "CropEdit.h"

#include <vellora/filters/PhotoProcessor.h>
#include <vellora/model/DVDImage.h>

#include "Command.h"
#include "Console.h"
#include "Numbers.h"

namespace vellora::cli {

void addCropEdit(Edits& edits, const QString& argument) {
    const std::vector<std::int32_t> edges = toIntegers(argument, 4, 4, QStringLiteral("--crop"));
    CropRecord crop{.x = edges[0], .y = edges[1], .width = edges[2], .height = edges[3]};
    if (crop.x < 0 || crop.y < 0 || crop.width < 1 || crop.height < 1 || crop.x >= kStageWidth ||
        crop.y >= kStageHeight) {
        throw UsageError(QStringLiteral("--crop: '%1' is not a rectangle on the 600 x 450 stage")
                             .arg(printable(argument)));
    }
    edits.steps.emplace_back([crop](CDVDImage& image) mutable {
        const _PHOTO_LIST_NODE& photo = *image.GetNode();
        crop.FlipX = photo.flip_x == 1;
        crop.FlipY = photo.flip_y == 1;
        crop.angle = photo.rotation;
        image.GetProcessor()->AddCropRecord(crop);
    });
}

}  // namespace vellora::cli
