#include <QAbstractButton>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTabBar>
#include <QTest>

#include <vellora/host/Language.h>

#include "ui/controls/CoolButton.h"
#include "ui/controls/CoolToolBar.h"
#include "ui/dialog/DialogFixture.h"
#include "ui/dialog/DlgTextBrush.h"
#include "ui/pages/EditPage.h"

namespace vellora {
namespace {

class TranslationTest : public test::DialogFixture {
protected:
    static void useGerman() {
        CImageObj::SetLanguageString(QStringLiteral(VELLORA_ASSETS_DIR "/lang/german.ini"));
    }
    /// Every text of a dialog's own controls has its entry.
    static void expectComplete(const QWidget& window, int dialogId) {
        EXPECT_FALSE(LanguageControlText(dialogId, QStringLiteral("title")).isEmpty()) << dialogId;
        for (const QWidget* child : window.findChildren<QWidget*>()) {
            const QVariant id = child->property(kControlIdProperty);
            const auto* page = qobject_cast<const CEditPage*>(child->parentWidget());
            const bool isOnOtherPage = dialogId == 3000 && page != nullptr;
            if (!id.isValid() || isOnOtherPage || child->window() != window.window()) {
                continue;
            }
            const bool hasText = qobject_cast<const QAbstractButton*>(child) != nullptr ||
                                 qobject_cast<const QLabel*>(child) != nullptr ||
                                 qobject_cast<const QGroupBox*>(child) != nullptr;
            const QString text = child->property("text").toString();
            if (hasText && !(text.isEmpty() && child->property("title").toString().isEmpty())) {
                EXPECT_FALSE(LanguageControlText(dialogId, id.toString()).isEmpty())
                    << dialogId << ' ' << id.toInt();
            }
        }
    }
};

TEST_F(TranslationTest, EveryControlHasAGermanText) {
    useGerman();
    open();
    for (const CEditPage* page : dialog().findChildren<CEditPage*>()) {
        expectComplete(*page, page->GetDialogId());
    }
    TextBrushSettings brush;
    const CDlgTextBrush brushDialog(&brush, folder.path(), nullptr);
    expectComplete(brushDialog, 368);
    EXPECT_EQ(brushDialog.windowTitle(), QStringLiteral("Textpinsel"));
}

TEST_F(TranslationTest, TextsComeFromTheLanguageFile) {
    useGerman();
    open();
    EXPECT_EQ(dialog().windowTitle(), QStringLiteral("Foto bearbeiten"));
    EXPECT_EQ(control<QPushButton>(3025).text(), QStringLiteral("Speichern"));
    const auto* panel = dialog().findChild<CFlexibleToolBar*>();
    EXPECT_EQ(panel->GetButton(2)->text(), QStringLiteral("Links drehen"));
    EXPECT_EQ(panel->GetButton(6)->accessibleName(), QStringLiteral("Schließen"));
}

TEST_F(TranslationTest, HostileTextsAreShownAsTheyStand) {
    const QString file = folder.filePath(QStringLiteral("hostile.ini"));
    QFile ini(file);
    ASSERT_TRUE(ini.open(QIODevice::WriteOnly));
    ini.write("[DIALOG_IDD_5101]\n3009=<b>Ti%s</b>\\nTwo\n3010=<script>\n[DIALOG_IDD_3009]\n3025=" +
              QByteArray(20000, 'W') + "\n3032=" + QByteArray(20000, 'M') + "\nabc=1\n-5=2\n" +
              "[DIALOG_IDD_302]\n1258=<img src=x>&&\n[STRING]\n3080=" + QByteArray(9000, 'X') +
              "\n3099=" + QByteArray(9000, 'T') + "\n");
    ini.close();
    CImageObj::SetLanguageString(file);
    open();
    EXPECT_EQ(control<QLabel>(3009).text(), QStringLiteral("<b>Ti%s</b>\nTwo"));
    EXPECT_EQ(control<QLabel>(3009).textFormat(), Qt::PlainText);
    EXPECT_LE(dialog().width(), 1366);
    EXPECT_LE(dialog().height(), 768);
    for (const int item : {2, 4, 6, 0}) {
        showTab(item);
        dialog().grab();
    }
    EXPECT_LE(control<QPushButton>(3025).geometry().right(), dialog().width());
}

}  // namespace
}  // namespace vellora
