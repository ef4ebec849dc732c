#include "ui/pages/InfoTexts.h"

namespace vellora {
namespace {

/// Cuts a text, leaving no half of a character at its end.
bool shorten(QString& text, int limit) {
    if (text.size() <= limit) {
        return false;
    }
    text.truncate(text.at(limit - 1).isHighSurrogate() ? limit - 1 : limit);
    return true;
}

}  // namespace

CheckedText checkTitle(const QString& title) {
    CheckedText checked{title};
    for (const QChar forbidden : QStringView(u"/\\:*?\"|")) {
        checked.text.remove(forbidden);
    }
    checked.removedCharacters = checked.text.size() != title.size();
    checked.shortened = shorten(checked.text, kMaxTitle);
    return checked;
}

CheckedText checkDescription(const QString& description) {
    CheckedText checked{description};
    checked.shortened = shorten(checked.text, kMaxDescription);
    return checked;
}

}  // namespace vellora
