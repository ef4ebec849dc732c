#pragma once

#include <QString>
#include <optional>

namespace vellora {

/// Names the language file of the module; empty for none. Forgets what was read before.
void setLanguageFilePath(const QString& path);
const QString& languageFilePath();

/// An entry of the language file, empty when there is none.
/// @param limit  Size of the value's buffer: one more than the characters it can hold.
QString languageEntry(const QString& section, const QString& key, qsizetype limit = 10200);

/// The path of a picture that the language file names; none for a name that would lead out of the
/// folder "lang" beside the executable.
std::optional<QString> languagePicturePath(const QString& name);

}  // namespace vellora
