#include "host/LanguageFile.h"

namespace vellora {
namespace {

QString& storedPath() {
    static QString path;
    return path;
}

}  // namespace

void setLanguageFilePath(const QString& path) {
    storedPath() = path;
}

const QString& languageFilePath() {
    return storedPath();
}

}  // namespace vellora
