#include "project/FilterRecord.h"

#include <QString>
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include <vellora/filters/FilterCatalogue.h>

#include "xml/LORXMLNodeWrite.h"
#include "xml/XmlNode.h"

namespace vellora {
namespace {

constexpr std::array kRegionNames{"roi_x", "roi_y", "roi_cx", "roi_cy"};

struct Factors {
    std::array<std::int32_t*, 3> cells;
    static constexpr std::array kNames{"factor_one", "factor_two", "factor_three"};
};

Factors factorsOf(COpencvFilterInterface& filter) {
    return {{filter.GetFactorOne(), filter.GetFactorTwo(), filter.GetFactorThree()}};
}

/// Reads the number that a text begins with; 0 without one, and the largest float for one that
/// is larger.
float scanFloat(const QString& text) {
    QByteArray ascii = text.trimmed().toLatin1();
    if (ascii.startsWith('+')) {
        ascii.remove(0, 1);
    }
    double value = 0.0;
    const auto result = std::from_chars(ascii.constData(), ascii.constData() + ascii.size(), value);
    constexpr double kLargest = std::numeric_limits<float>::max();
    if (result.ec == std::errc::result_out_of_range) {
        const bool isSmall = ascii.contains("e-") || ascii.contains("E-");
        value = isSmall ? 0.0 : (ascii.startsWith('-') ? -kLargest : kLargest);
    }
    return std::isnan(value) ? 0.0F : static_cast<float>(std::clamp(value, -kLargest, kLargest));
}

void saveRegion(const COpencvFilterInterface& filter, CLORXMLNodeWrite& element) {
    constexpr int kDecimals = 6;
    std::array<float, 4> region{};
    filter.GetROI(&region[0], &region[1], &region[2], &region[3]);
    for (std::size_t i = 0; i < region.size(); ++i) {
        element.AddAttribute(QString::fromLatin1(kRegionNames[i]),
                             QString::number(static_cast<double>(region[i]), 'f', kDecimals));
    }
}

void loadRegion(const XmlNode& node, COpencvFilterInterface& filter) {
    std::array<float, 4> region{};
    for (std::size_t i = 0; i < region.size(); ++i) {
        region[i] = scanFloat(node.Attribute(kRegionNames[i]));
    }
    filter.SetROI(region[0], region[1], region[2], region[3]);
}

void loadFlips(const XmlNode& node, COpencvFilterInterface& filter) {
    std::int32_t flip = 0;
    if (node.GetIntAttribute("FlipX", flip) == kXmlFound) {
        if (flip == 0) {
            filter.FlipX = false;
        } else {
            filter.FlipY = true;
        }
    }
    flip = 0;
    if (node.GetIntAttribute("FlipY", flip) == kXmlFound) {
        filter.FlipY = flip != 0;
    }
}

}  // namespace

void saveFilter(COpencvFilterInterface& filter, int id, int depth) {
    CLORXMLNodeWrite element(depth, u"Filter_Data");
    element.AddAttribute(u"id", id);
    element.AddAttribute(u"type", filter.GetName());
    const Factors factors = factorsOf(filter);
    for (std::size_t k = 0; k < factors.cells.size(); ++k) {
        if (factors.cells[k] != nullptr) {
            element.AddAttribute(QString::fromLatin1(Factors::kNames[k]), *factors.cells[k]);
        }
    }
    element.AddAttribute(u"crop_step", filter.crop_step);
    element.AddAttribute(u"FlipX", filter.FlipX ? 1 : 0);
    element.AddAttribute(u"FlipY", filter.FlipY ? 1 : 0);
    element.AddAttribute(u"Angle", filter.Angle);
    if (filter.HasROI()) {
        saveRegion(filter, element);
    }
    element.Flush();
}

std::unique_ptr<COpencvFilterInterface> loadFilter(const XmlNode& node) {
    const QString type = node.Attribute("type");
    std::unique_ptr<COpencvFilterInterface> filter(
        CreateFilterByName(reinterpret_cast<const char16_t*>(type.utf16())));
    if (filter == nullptr) {
        return nullptr;
    }
    const Factors factors = factorsOf(*filter);
    for (std::size_t k = 0; k < factors.cells.size(); ++k) {
        if (factors.cells[k] != nullptr) {
            node.GetIntAttribute(Factors::kNames[k], *factors.cells[k]);
        }
    }
    std::int32_t cropStep = -1;
    node.GetIntAttribute("crop_step", cropStep);
    if (cropStep >= 0) {
        filter->crop_step = cropStep;
    }
    loadFlips(node, *filter);
    node.GetIntAttribute("Angle", filter->Angle);
    if (filter->HasROI()) {
        loadRegion(node, *filter);
    }
    return filter;
}

void saveCrop(const CropRecord& crop, int id, int depth) {
    CLORXMLNodeWrite element(depth, u"Crop_Data");
    element.AddAttribute(u"id", id);
    element.AddAttribute(u"x", crop.x);
    element.AddAttribute(u"y", crop.y);
    element.AddAttribute(u"cx", crop.width);
    element.AddAttribute(u"cy", crop.height);
    element.AddAttribute(u"flipx", crop.FlipX ? 1 : 0);
    element.AddAttribute(u"flipy", crop.FlipY ? 1 : 0);
    element.AddAttribute(u"angle", crop.angle);
    element.Flush();
}

bool loadCrop(const XmlNode& node, CropRecord& crop) {
    std::int32_t flipX = 0;
    std::int32_t flipY = 0;
    const std::array<std::pair<const char*, std::int32_t*>, 7> attributes{{{"x", &crop.x},
                                                                           {"y", &crop.y},
                                                                           {"cx", &crop.width},
                                                                           {"cy", &crop.height},
                                                                           {"flipx", &flipX},
                                                                           {"flipy", &flipY},
                                                                           {"angle", &crop.angle}}};
    for (const auto& [name, value] : attributes) {
        if (node.GetIntAttribute(name, *value) != kXmlFound) {
            return false;
        }
    }
    crop.FlipX = flipX != 0;
    crop.FlipY = flipY != 0;
    return true;
}

}  // namespace vellora
