#include "desktop/Language.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <vellora/host/ImageObj.h>
#include <vellora/host/Language.h>

#include "common/Assets.h"

namespace vellora::desktop {
namespace {

/// Holds the language that the application's translators are for.
constexpr char kLanguageProperty[] = "velloraLanguage";

QString fileFor(const QString& choice) {
    const QString file = hostkit::languageFileFor(choice);
    return !choice.isEmpty() && QFileInfo(file).isFile()
               ? file
               : hostkit::languageFileFor(QStringLiteral("auto"));
}

/// The language with an English name, as the shipped language files have; `C` for none.
QLocale::Language languageNamed(const QString& name) {
    for (int value = QLocale::C + 1; value <= QLocale::LastLanguage; ++value) {
        const auto language = static_cast<QLocale::Language>(value);
        if (QLocale::languageToString(language).compare(name, Qt::CaseInsensitive) == 0) {
            return language;
        }
    }
    return QLocale::C;
}

QString translationOf(QLocale::Language language) {
    return QStringLiteral(":/translations/vellora-desktop_%1.qm")
        .arg(QLocale::languageToCode(language));
}

/// What the language file in use declares, as far as the program speaks it.
QLocale::Language declaredLanguage() {
    const QString code = LanguageText(QStringLiteral("LANGUAGE"), QStringLiteral("code"));
    const QLocale::Language language = QLocale(code).language();
    return QFileInfo::exists(translationOf(language)) ? language : QLocale::English;
}

/// The later one is asked first.
void installTranslators(QLocale::Language language) {
    QObject& application = *QCoreApplication::instance();
    qDeleteAll(application.findChildren<QTranslator*>());
    auto* standard = new QTranslator(&application);
    if (standard->load(QLocale(language), QStringLiteral("qtbase"), QStringLiteral("_"),
                       QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(standard);
    }
    auto* own = new QTranslator(&application);
    if (own->load(translationOf(language))) {
        QCoreApplication::installTranslator(own);
    }
}

}  // namespace

QList<LanguageChoice> shippedLanguages() {
    QList<LanguageChoice> result;
    const QDir folder(hostkit::assetsFolder() + QStringLiteral("/lang"));
    for (const QFileInfo& file : folder.entryInfoList({QStringLiteral("*.ini")}, QDir::Files)) {
        const QString value = file.completeBaseName();
        const QLocale::Language language = languageNamed(value);
        const QString name = language == QLocale::English ? QStringLiteral("English")
                             : language != QLocale::C     ? QLocale(language).nativeLanguageName()
                                                          : value;
        result.append({name, value});
    }
    return result;
}

void useLanguage(const QString& choice) {
    CImageObj::SetLanguageString(fileFor(choice));
    const QLocale::Language language = declaredLanguage();
    QObject& application = *QCoreApplication::instance();
    if (application.property(kLanguageProperty).value<int>() == language) {
        return;
    }
    application.setProperty(kLanguageProperty, static_cast<int>(language));
    const QLocale system = QLocale::system();
    QLocale::setDefault(system.language() == language ? system
                                                      : QLocale(language, system.territory()));
    installTranslators(language);
}

}  // namespace vellora::desktop
