#pragma once

#include <QSize>
#include <QString>
#include <cstdint>
#include <optional>
#include <string>

#include <vellora/base/PhotoListNode.h>
#include <vellora/host/PhotoFile.h>

#include "Shard.h"

namespace CLI {
class App;
}

namespace vellora::cli {

/// What `render` does with every photo alike, checked and converted.
struct RenderOptions {
    /// Values of the mode argument of `CImageObj::SaveNodeToFile`.
    enum Fit : int { kInside = 0, kFill = 1, kBox = 100 };

    QString folder;
    QSize size;  ///< Empty: the photo's own.
    Fit fit = kBox;
    int quality = 90;
    bool png = false;
    bool preview = false;
    std::optional<COLORREF> background;  ///< Black, or what the slideshow says.
    std::optional<std::int32_t> rotation;
    bool flipX = false;
    bool flipY = false;
    bool asStored = false;  ///< The orientation tag does not count.
    std::optional<std::uint32_t> seed;
    Shard shard;
    bool overwrite = false;
    bool numbered = false;  ///< Names start with the place in the list.
    QString project;        ///< Edits to begin with; empty for none.
    QString saveProject;    ///< Where to write the edits of all photos; empty for nowhere.
    bool json = false;
    bool quiet = false;

    /// Places a photo as its orientation tag asks.
    void placeUpright(_PHOTO_LIST_NODE& photo, const PhotoInfo& info) const;
    /// What the user asked for goes before what the photo or the slideshow says.
    void overrule(_PHOTO_LIST_NODE& photo) const;
    /// The suffix of the results.
    [[nodiscard]] QString suffix() const {
        return png ? QStringLiteral("png") : QStringLiteral("jpg");
    }
};

/// The options as they are typed.
class RenderArguments {
public:
    void addTo(CLI::App& command);
    /// @throws UsageError for a value that makes no sense.
    [[nodiscard]] RenderOptions read() const;

private:
    void addResult(CLI::App& command);
    void addPlacement(CLI::App& command);
    void addProject(CLI::App& command);
    void addBehaviour(CLI::App& command);

    RenderOptions m_flags;
    std::string m_folder = ".";
    std::string m_size;
    std::string m_fit = "box";
    bool m_fitGiven = false;
    std::string m_format = "jpg";
    std::string m_quality = "90";
    std::string m_background;
    std::string m_rotation;
    std::string m_seed;
    std::string m_project;
    std::string m_saveProject;
    std::string m_shard = "1/1";
};

}  // namespace vellora::cli
