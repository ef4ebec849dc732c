#pragma once

#include <QString>

namespace vellora::hostkit {

/// The folder with the program's styles, textures, clips and language files: what the environment
/// variable VELLORA_ASSETS names, else the installed one, else the one of the build tree that the
/// program lies in. "." when there is none.
QString assetsFolder();

/// The language file for a stored choice: "auto" takes the language of the user's system, a path
/// stands for itself, any other name for a file of the folder "lang" among the assets. Empty for
/// the built-in English.
QString languageFileFor(const QString& choice);

}  // namespace vellora::hostkit
