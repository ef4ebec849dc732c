#include "FilterEdit.h"

#include <array>

#include <vellora/filters/FilterCatalogue.h>
#include <vellora/filters/PhotoProcessor.h>
#include <vellora/model/DVDImage.h>

#include "Command.h"
#include "Console.h"
#include "Numbers.h"

namespace vellora::cli {
namespace {

QString nameOf(const COpencvFilterInterface& filter) {
    return QString::fromUtf16(filter.GetName());
}

std::shared_ptr<COpencvFilterInterface> makeFilter(const QString& name) {
    std::shared_ptr<COpencvFilterInterface> filter(
        CreateFilterByName(reinterpret_cast<const char16_t*>(name.utf16())));
    if (filter == nullptr) {
        QStringList names;
        for (const COpencvFilterInterface* prototype : GetFilterPrototypes()) {
            names << nameOf(*prototype);
        }
        throw UsageError(QStringLiteral("there is no filter '%1'; there are: %2")
                             .arg(printable(name), names.join(QStringLiteral(", "))));
    }
    return filter;
}

void setFactors(COpencvFilterInterface& filter, const QStringList& values) {
    const QString name = nameOf(filter);
    const std::array<std::int32_t*, 3> factors{filter.GetFactorOne(), filter.GetFactorTwo(),
                                               filter.GetFactorThree()};
    for (qsizetype k = 0; k < values.size(); ++k) {
        const auto slot = static_cast<std::size_t>(k);
        if (slot >= factors.size() || factors[slot] == nullptr) {
            throw UsageError(k == 0 ? QStringLiteral("filter '%1' takes no factor").arg(name)
                                    : QStringLiteral("filter '%1' takes at most %2 factors, not %3")
                                          .arg(name)
                                          .arg(k)
                                          .arg(values.size()));
        }
        const FilterParamDesc& desc = filter.param_descs[slot];
        *factors[slot] =
            toIntegerWithin(values[k], desc.min, desc.max,
                            QStringLiteral("filter '%1', factor %2").arg(name).arg(k + 1));
    }
}

/// Adds a filter to the photo's chain as the edit dialog would record it now.
void record(CDVDImage& image, const COpencvFilterInterface& filter) {
    const _PHOTO_LIST_NODE& photo = *image.GetNode();
    CPhotoProcessor& processor = *image.GetProcessor();
    COpencvFilterInterface* recorded = filter.Clone();
    if (recorded != nullptr) {
        recorded->crop_step = processor.GetCropCount();
        recorded->FlipX = photo.flip_x == 1;
        recorded->FlipY = photo.flip_y == 1;
        recorded->Angle = photo.rotation;
    }
    processor.AddFilterToChain(recorded);
}

}  // namespace

void addFilterEdit(Edits& edits, const QString& argument) {
    const qsizetype equals = argument.indexOf(QLatin1Char('='));
    const std::shared_ptr<COpencvFilterInterface> filter = makeFilter(argument.left(equals));
    if (equals >= 0) {
        setFactors(*filter, argument.mid(equals + 1).split(QLatin1Char(',')));
    }
    if (filter->HasROI()) {
        edits.regionFilter = filter;
    }
    if (nameOf(*filter) != QLatin1String("None")) {  // which is never recorded
        edits.steps.emplace_back([filter](CDVDImage& image) { record(image, *filter); });
    }
}

void setFilterRegion(Edits& edits, const QString& argument) {
    const QString what = QStringLiteral("--roi");
    const QStringList parts = argument.split(QLatin1Char(','));
    if (parts.size() != 4) {
        throw UsageError(QStringLiteral("--roi: '%1' is not four fractions separated by commas")
                             .arg(printable(argument)));
    }
    if (edits.regionFilter == nullptr) {
        throw UsageError(
            QStringLiteral("--roi: no region filter (Red Eye Removal, Depth Dim) "
                           "stands before it"));
    }
    edits.regionFilter->SetROI(toFraction(parts[0], what), toFraction(parts[1], what),
                               toFraction(parts[2], what), toFraction(parts[3], what));
}

}  // namespace vellora::cli
