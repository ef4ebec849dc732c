#include <QAbstractButton>
#include <QAction>
#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QProcess>
#include <QRegularExpression>
#include <QXmlStreamReader>

#include <vellora/host/ImageObj.h>
#include <vellora/host/Language.h>

#include "DesktopFixture.h"
#include "desktop/ExportDialog.h"
#include "desktop/Language.h"
#include "desktop/MainWindow.h"
#include "desktop/Preferences.h"
#include "desktop/PreferencesDialog.h"
#include "desktop/ShowDocument.h"
#include "desktop/SlideView.h"

namespace vellora::desktop {
namespace {

struct Message {
    QString source;
    QStringList translations;  ///< One, or one for each plural form.
    bool finished = false;
};

std::vector<Message> messagesOf(const QString& path) {
    std::vector<Message> result;
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    QXmlStreamReader reader(&file);
    bool plural = false;
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement) {
            continue;
        }
        if (reader.name() == u"message") {
            result.emplace_back();
            plural = reader.attributes().hasAttribute(QStringLiteral("numerus"));
        } else if (reader.name() == u"source") {
            result.back().source = reader.readElementText();
        } else if (reader.name() == u"translation") {
            result.back().finished = !reader.attributes().hasAttribute(QStringLiteral("type"));
            if (!plural) {
                result.back().translations = {reader.readElementText()};
            }
        } else if (reader.name() == u"numerusform") {
            result.back().translations.append(reader.readElementText());
        }
    }
    EXPECT_FALSE(reader.hasError()) << qPrintable(reader.errorString());
    return result;
}

/// What a translation must keep: arguments, the dots of a command that asks, a mnemonic, the
/// patterns of a file filter.
QStringList fixedPartsOf(const QString& text) {
    static const QRegularExpression parts(
        QStringLiteral("%L?[0-9n]|\\.\\.\\.|&(?=[^ ])|\\*\\.?[a-z]*|<[a-z/0-9]+>"));
    QStringList found;
    for (auto match = parts.globalMatch(text); match.hasNext();) {
        found.append(match.next().captured());
    }
    found.sort();
    return found;
}

struct TranslationTest : DesktopTest {
    ~TranslationTest() override { useLanguage(QStringLiteral("english")); }

    /// A translation file brought up to date with the sources in a copy.
    QString updated(const QString& code, const QStringList& options) {
        const QString name = QStringLiteral("vellora-desktop_%1.ts").arg(code);
        const QString copy = folder.filePath(name);
        const QString source = QString::fromUtf8(VELLORA_SOURCE_DIR);
        EXPECT_TRUE(
            QFile::copy(source + QStringLiteral("/apps/desktop/translations/") + name, copy));
        const QString apps = source + QStringLiteral("/apps");
        QProcess update;
        update.start(
            QString::fromUtf8(VELLORA_LUPDATE),
            QStringList{QStringLiteral("-I"), apps, QStringLiteral("-silent")} + options +
                QStringList{apps + QStringLiteral("/desktop"), apps + QStringLiteral("/common"),
                            source + QStringLiteral("/src/host"), QStringLiteral("-ts"), copy});
        EXPECT_TRUE(update.waitForFinished() && update.exitCode() == 0);
        return copy;
    }
};

TEST_F(TranslationTest, EveryTextHasItsGermanText) {
    const auto messages = messagesOf(updated(QStringLiteral("de"), {}));
    EXPECT_GT(messages.size(), 100U);
    for (const Message& message : messages) {
        EXPECT_TRUE(message.finished)
            << "no German text, or no longer used: " << qPrintable(message.source);
        for (const QString& german : message.translations) {
            EXPECT_FALSE(german.isEmpty()) << qPrintable(message.source);
            EXPECT_EQ(fixedPartsOf(german), fixedPartsOf(message.source)) << qPrintable(german);
        }
    }
}

TEST_F(TranslationTest, EveryCountHasItsEnglishForms) {
    for (const Message& message :
         messagesOf(updated(QStringLiteral("en"), {QStringLiteral("-pluralonly")}))) {
        EXPECT_TRUE(message.finished) << qPrintable(message.source);
        ASSERT_EQ(message.translations.size(), 2);
        EXPECT_NE(message.translations[0], message.translations[1]);
    }
}

TEST_F(TranslationTest, OneChoiceGovernsProgramAndDialog) {
    useLanguage(QStringLiteral("german"));
    EXPECT_EQ(MainWindow::tr("%Ln photo(s)", nullptr, 1), u"1 Foto");
    EXPECT_EQ(MainWindow::tr("%Ln photo(s)", nullptr, 2000), u"2.000 Fotos");
    EXPECT_EQ(LanguageString(3002), u"Zum Bearbeiten doppelklicken");
    useLanguage(QStringLiteral("english"));
    EXPECT_EQ(MainWindow::tr("%Ln photo(s)", nullptr, 1), u"1 photo");
    EXPECT_EQ(MainWindow::tr("%Ln photo(s)", nullptr, 2000), u"2,000 photos");
    EXPECT_EQ(LanguageString(3002), u"Double click to edit");

    const auto useFile = [this](const QByteArray& text) {
        QFile file(folder.filePath(QStringLiteral("own.ini")));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        file.close();
        useLanguage(file.fileName());
    };
    useFile("[LANGUAGE]\ncode=de\n[STRING]\n3002=Moin\n");
    EXPECT_EQ(LanguageString(3002), u"Moin");
    EXPECT_EQ(MainWindow::tr("Save"), u"Speichern");
    for (const char* unspoken : {"", "[LANGUAGE]\ncode=tlh\n", "[LANGUAGE]\ncode=../de\n"}) {
        useFile(QByteArray(unspoken) + "[STRING]\n3002=x\n");
        EXPECT_EQ(LanguageString(3002), u"x");
        EXPECT_EQ(MainWindow::tr("Save"), u"Save") << unspoken;
    }
    useLanguage(QStringLiteral("/no/such/file.ini"));
    EXPECT_NE(LanguageString(3002), u"x") << "a file that is gone counts as no choice";
}

TEST_F(TranslationTest, AnOpenWindowChangesItsLanguage) {
    useLanguage(QStringLiteral("english"));
    MainWindow window;
    window.show();
    EXPECT_EQ(window.menuBar()->actions().first()->text(), u"&File");
    useLanguage(QStringLiteral("german"));
    waitFor([&] { return window.menuBar()->actions().first()->text() == u"&Datei"; }, "German");
    EXPECT_EQ(window.menuBar()->actions().size(), 4);
    EXPECT_TRUE(window.windowTitle().startsWith(u"Unbenannt"));
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    window.openPaths({photo(QStringLiteral("one.png"))});
    window.view().clearSelection();
    QTest::keyClick(&window.view(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(window.view().selectedRows().size(), 1) << "keys are not taken by the old menus";
    window.document().startNew();
}

/// The letter behind the ampersand, upper case; null when there is none.
QChar mnemonicOf(const QString& text) {
    const QString plain = QString(text).remove(QStringLiteral("&&"));
    const qsizetype at = plain.indexOf(u'&');
    return at >= 0 && at + 1 < plain.size() ? plain[at + 1].toUpper() : QChar();
}

void expectUnique(const QStringList& texts) {
    QHash<QChar, QString> taken;
    for (const QString& text : texts) {
        const QChar key = mnemonicOf(text);
        EXPECT_FALSE(key.isNull()) << "no mnemonic: " << qPrintable(text);
        EXPECT_FALSE(taken.contains(key)) << qPrintable(text) << " and " << qPrintable(taken[key]);
        taken.insert(key, text);
    }
}

TEST_F(TranslationTest, KeysAreUnique) {
    for (const char* language : {"english", "german"}) {
        useLanguage(QString::fromLatin1(language));
        MainWindow window;
        QStringList titles;
        QStringList shortcuts;
        for (const QAction* top : window.menuBar()->actions()) {
            titles.append(top->text());
            QStringList items;
            for (const QAction* item : top->menu()->actions()) {
                if (!item->isSeparator()) {
                    items.append(item->text());
                    shortcuts.append(item->shortcut().toString());
                }
            }
            expectUnique(items);
        }
        expectUnique(titles);
        shortcuts.removeAll(QString());
        EXPECT_EQ(shortcuts.removeDuplicates(), 0) << language;
    }
}

TEST_F(TranslationTest, KeysOfDialogsAreUnique) {
    for (const char* language : {"english", "german"}) {
        useLanguage(QString::fromLatin1(language));
        PreferencesDialog preferences({}, nullptr);
        ExportDialog exporting(3, nullptr);
        for (const QDialog* dialog :
             {static_cast<QDialog*>(&preferences), static_cast<QDialog*>(&exporting)}) {
            QStringList texts;
            for (const QLabel* label : dialog->findChildren<QLabel*>()) {
                if (label->text().contains(u'&')) {
                    EXPECT_NE(label->buddy(), nullptr) << qPrintable(label->text());
                    texts.append(label->text());
                }
            }
            for (const QAbstractButton* button : dialog->findChildren<QAbstractButton*>()) {
                if (button->text().contains(u'&')) {
                    texts.append(button->text());
                }
            }
            EXPECT_GE(texts.size(), 4) << language;
            expectUnique(texts);
        }
    }
}

}  // namespace
}  // namespace vellora::desktop
