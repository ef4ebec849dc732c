#include <QSettings>

#include <vellora/host/KORSettings.h>

namespace vellora {
namespace {

QString defaultLanguage() {
    return QStringLiteral("auto");
}

QString languageKey() {
    return QStringLiteral("language");
}

}  // namespace

CKORSettings::CKORSettings() : language(defaultLanguage()) {}

CKORSettings::~CKORSettings() = default;

void CKORSettings::Exchange(QSettings& store, Quillon::SettingsExchange direction) {
    if (direction == Quillon::SettingsExchange::Write) {
        store.setValue(languageKey(), language);
        return;
    }
    language = defaultLanguage();
    if (direction == Quillon::SettingsExchange::Read) {
        const QVariant value = store.value(languageKey());
        if (value.typeId() == QMetaType::QString) {
            language = value.toString();
        }
    }
}

}  // namespace vellora
