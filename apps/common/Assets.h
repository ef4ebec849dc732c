#pragma once

#include <QString>

namespace vellora::hostkit {

/// The folder with the shipped text effects, textures, clips and language files: the one that the
/// environment variable VELLORA_ASSETS names, else the installed one beside the program, else the
/// one of the source tree that the program was built from. Empty when there is none.
QString assetsFolder();

}  // namespace vellora::hostkit
