#include <QSet>
#include <array>
#include <memory>
#include <vector>

#include <vellora/filters/FilterCatalogue.h>
#include <vellora/project/ProjectCheck.h>

#include "project/SpriteCheck.h"
#include "xml/XMLParse.h"

namespace vellora {
namespace {

using PartCheck = void (*)(const XmlNode& node, const QString& baseFolder, Findings& findings);

void checkFactors(const XmlNode& node, COpencvFilterInterface& filter, Findings& findings) {
    static constexpr std::array kNames{"factor_one", "factor_two", "factor_three"};
    const std::array cells{filter.GetFactorOne(), filter.GetFactorTwo(), filter.GetFactorThree()};
    for (std::size_t k = 0; k < cells.size(); ++k) {
        if (cells[k] == nullptr || !checkNumber(node, kNames[k], findings)) {
            continue;
        }
        node.GetIntAttribute(kNames[k], *cells[k]);
        const FilterParamDesc& range = filter.param_descs[k];
        if (*cells[k] < range.min || *cells[k] > range.max) {
            findings.add(
                node, QStringLiteral("%1 of %2 is %3, its range is %4 to %5")
                          .arg(QLatin1StringView(kNames[k]), QString::fromUtf16(filter.GetName()))
                          .arg(*cells[k])
                          .arg(range.min)
                          .arg(range.max));
        }
    }
}

void checkFilter(const XmlNode& node, const QString& /*baseFolder*/, Findings& findings) {
    const QString type = node.Attribute("type");
    const std::unique_ptr<COpencvFilterInterface> filter(
        CreateFilterByName(reinterpret_cast<const char16_t*>(type.utf16())));
    if (filter == nullptr) {
        findings.add(node, QStringLiteral("unknown filter \"%1\"").arg(type.left(40)));
        return;
    }
    checkFactors(node, *filter, findings);
    for (const char* name : {"crop_step", "FlipX", "FlipY", "Angle"}) {
        checkNumber(node, name, findings);
    }
    std::int32_t cropStep = 0;
    node.GetIntAttribute("crop_step", cropStep);
    if (cropStep < 0) {
        findings.add(node, QStringLiteral("crop_step is negative"));
    }
    if (filter->HasROI()) {
        for (const char* name : {"roi_x", "roi_y", "roi_cx", "roi_cy"}) {
            checkFraction(node, name, findings);
        }
    }
    checkChildNames(node, {}, findings);
}

void checkCrop(const XmlNode& node, const QString& /*baseFolder*/, Findings& findings) {
    for (const char* name : {"x", "y", "cx", "cy", "flipx", "flipy", "angle"}) {
        checkNumber(node, name, findings);
    }
    std::int32_t width = 1;
    std::int32_t height = 1;
    node.GetIntAttribute("cx", width);
    node.GetIntAttribute("cy", height);
    if (width <= 0 || height <= 0) {
        findings.add(node, QStringLiteral("the rectangle is empty, nothing is cut"));
    }
    checkChildNames(node, {}, findings);
}

/// Why a reader leaves an element of this id out; empty where it does not.
QString whyNotRead(std::int32_t id, std::int32_t count, const char* countName,
                   const QSet<std::int32_t>& seen) {
    if (id < 0) {
        return QStringLiteral("id is missing or no number, the element is not read");
    }
    if (id >= count) {
        return QStringLiteral("id %1 is not below %2 %3, the element is not read")
            .arg(id)
            .arg(QLatin1StringView(countName))
            .arg(count);
    }
    return seen.contains(id) ? QStringLiteral("id %1 comes twice, the element is not read").arg(id)
                             : QString();
}

/// Checks the numbered children of one name against the count of the first parent.
void checkParts(const std::vector<XmlNode>& parents, const char* name, const char* countName,
                const QString& baseFolder, PartCheck check, Findings& findings) {
    const XmlNode& first = parents.front();
    std::int32_t count = 0;
    if (checkNumber(first, countName, findings)) {
        first.GetIntAttribute(countName, count);
    }
    QSet<std::int32_t> seen;
    for (const XmlNode& parent : parents) {
        for (XmlNode node = parent.Child(name); node && !findings.isFull();
             node = node.NextSibling(name)) {
            const std::int32_t id = node.Id();
            const QString reason = whyNotRead(id, count, countName, seen);
            if (reason.isEmpty()) {
                seen.insert(id);
                check(node, baseFolder, findings);
            } else {
                findings.add(node, reason);
            }
        }
    }
    if (count > seen.size()) {
        findings.add(first, QStringLiteral("%1 is %2, but %3 are there")
                                .arg(QLatin1StringView(countName))
                                .arg(count)
                                .arg(seen.size()));
    }
}

void checkPhoto(const XmlNode& node, QSet<std::int32_t>& seen, const QString& baseFolder,
                Findings& findings) {
    const std::int32_t id = node.Id();
    if (id < 0) {
        findings.add(node, QStringLiteral("id is missing or no number, the photo is not read"));
    } else if (seen.contains(id)) {
        findings.add(node, QStringLiteral("id %1 comes twice").arg(id));
    }
    seen.insert(id);
    checkChildNames(node, {"File_Name", "Sprite_Data", "Filter_Data", "Crop_Data"}, findings);
    checkParts({node}, "Sprite_Data", "sprite_count", baseFolder, checkSprite, findings);
    checkParts({node}, "Filter_Data", "filter_count", baseFolder, checkFilter, findings);
    checkParts({node}, "Crop_Data", "crop_count", baseFolder, checkCrop, findings);
}

/// A reader takes the sprites of all album elements for those of one album.
void checkAlbums(const XmlNode& root, const QString& baseFolder, Findings& findings) {
    std::vector<XmlNode> albums;
    for (XmlNode album = root.Child("Album_Data"); album && !findings.isFull();
         album = album.NextSibling("Album_Data")) {
        if (!albums.empty()) {
            findings.add(album, QStringLiteral("Album_Data comes twice"));
        }
        checkChildNames(album, {"Sprite_Data"}, findings);
        albums.push_back(album);
    }
    if (albums.empty()) {
        findings.add(root, QStringLiteral("Album_Data is missing"));
        return;
    }
    checkParts(albums, "Sprite_Data", "sprite_count", baseFolder, checkSprite, findings);
}

void checkRoot(const XmlNode& root, const QString& baseFolder, Findings& findings) {
    checkChildNames(root, {"Album_Data", "Image_Data"}, findings);
    checkAlbums(root, baseFolder, findings);
    QSet<std::int32_t> seen;
    for (XmlNode photo = root.Child("Image_Data"); photo && !findings.isFull();
         photo = photo.NextSibling("Image_Data")) {
        checkPhoto(photo, seen, baseFolder, findings);
    }
}

ProjectReport unreadable(const XmlError& error) {
    return {false, {{error.line, error.column, error.message}}};
}

}  // namespace

ProjectReport CheckProject(const QString& path, const QString& baseFolder) {
    QByteArray bytes;
    XmlError error;
    if (!readXmlFile(path, bytes, error)) {
        return unreadable(error);
    }
    CXMLParse reader;
    if (reader.OpenText(bytes) == 0) {
        return unreadable(reader.Error());
    }
    const XmlNode root = reader.Select(QStringLiteral("//ZEV_Photo_Info"));
    if (!root) {
        return unreadable({1, 1, QStringLiteral("No project file: there is no ZEV_Photo_Info")});
    }
    Findings findings;
    checkRoot(root, baseFolder, findings);
    return {true, findings.placedIn(asParsed(std::move(bytes)))};
}

}  // namespace vellora
