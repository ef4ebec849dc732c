#pragma once

#include <memory>

class QString;

namespace vellora {

class ClipPicture;

/// Each decodes one family of files; null for anything else, `reason` then says why.
std::shared_ptr<const ClipPicture> decodeSvgClip(const QString& path, QString& reason);
std::shared_ptr<const ClipPicture> decodeMetafileClip(const QString& path, QString& reason);
std::shared_ptr<const ClipPicture> decodeRasterClip(const QString& path, QString& reason);

}  // namespace vellora
