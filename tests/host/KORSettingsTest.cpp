#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <vellora/host/KORSettings.h>

namespace vellora {
namespace {

using Quillon::SettingsExchange;

TEST(Settings, KeepTheLanguageChoice) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("settings.ini");
    CKORSettings settings;
    EXPECT_EQ(settings.language, "auto");
    settings.language = "german";
    {
        QSettings store(path, QSettings::IniFormat);
        settings.Exchange(store, SettingsExchange::Write);
        settings.Exchange(store, SettingsExchange::Reset);
        EXPECT_EQ(settings.language, "auto");
    }
    QSettings store(path, QSettings::IniFormat);
    EXPECT_EQ(store.value("language"), "german");
    settings.Exchange(store, SettingsExchange::Read);
    EXPECT_EQ(settings.language, "german");
}

TEST(Settings, AreAutomaticWhenTheyCannotBeRead) {
    const QTemporaryDir folder;
    CKORSettings settings;
    QSettings missing(folder.filePath("none.ini"), QSettings::IniFormat);
    settings.language = "german";
    settings.Exchange(missing, SettingsExchange::Read);
    EXPECT_EQ(settings.language, "auto");

    QFile file(folder.filePath("odd.ini"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[General]\nlanguage=a, b\n");
    file.close();
    QSettings list(file.fileName(), QSettings::IniFormat);
    settings.language = "german";
    settings.Exchange(list, SettingsExchange::Read);
    EXPECT_EQ(settings.language, "auto");
}

}  // namespace
}  // namespace vellora
