// Random events on everything that can be seen, from a seed.

#include <QApplication>
#include <QContextMenuEvent>
#include <QFile>
#include <QMouseEvent>
#include <QTest>
#include <QTimer>
#include <random>

#include <vellora/host/NodeHandle.h>

#include "support/TestPhotos.h"
#include "ui/dialog/DialogFixture.h"

namespace vellora {
namespace {

constexpr int kPhotos = 5;
constexpr int kFewEvents = 1500;

/// How many events; the environment may ask for more.
int eventCount() {
    const int asked = qEnvironmentVariableIntValue("VELLORA_MONKEY_EVENTS");
    return asked > 0 ? asked : kFewEvents;
}

class DialogMonkeyTest : public test::DialogFixture {
protected:
    DialogMonkeyTest() : test::DialogFixture(kPhotos) {
        // Whatever opens over the dialog is dealt with from its own event loop.
        QObject::connect(&m_closer, &QTimer::timeout, [this] { leaveOtherWindows(); });
        m_closer.start(0);
    }

    int below(int limit) {
        return std::uniform_int_distribution(0, std::max(limit, 1) - 1)(m_random);
    }

    void leaveOtherWindows() {
        if (QWidget* popup = QApplication::activePopupWidget(); popup != nullptr) {
            QTest::keyClick(popup, below(2) == 0 ? Qt::Key_Down : Qt::Key_Return);
            if (below(3) == 0) {
                popup->close();
            }
        }
        QWidget* modal = QApplication::activeModalWidget();
        if (modal != nullptr && modal != &dialog()) {
            act(*modal);
            if (below(8) == 0) {
                modal->close();
            }
        }
    }

    /// One event on one of the widgets of a window.
    void act(QWidget& window) {
        std::vector<QWidget*> shown;
        for (QWidget* child : window.findChildren<QWidget*>()) {
            if (child->isVisible() && child->window() == &window) {
                shown.push_back(child);
            }
        }
        if (shown.empty()) {
            return;
        }
        // The canvas gets its share although it is one of many.
        QWidget* target = shown[static_cast<std::size_t>(below(static_cast<int>(shown.size())))];
        if (&window == &dialog() && below(3) == 0) {
            target = controlWithId(window, 3005);
        }
        const QPoint at(below(target->width()), below(target->height()));
        const QPoint to(below(target->width()), below(target->height()));
        switch (below(8)) {
            case 0:
            case 1:
            case 2:
                return QTest::mouseClick(target, Qt::LeftButton, {}, at);
            case 3:
                return drag(*target, at, to);
            case 4:
                return QTest::mouseDClick(target, Qt::LeftButton, {}, at);
            case 5: {
                QContextMenuEvent menu(QContextMenuEvent::Mouse, at, target->mapToGlobal(at));
                QCoreApplication::sendEvent(target, &menu);
                return;
            }
            default:
                return press(*target);
        }
    }

    void press(QWidget& target) {
        constexpr std::array kKeys{Qt::Key_Tab,   Qt::Key_Delete, Qt::Key_Escape,   Qt::Key_Return,
                                   Qt::Key_Left,  Qt::Key_Down,   Qt::Key_PageDown, Qt::Key_C,
                                   Qt::Key_V,     Qt::Key_Space,  Qt::Key_Slash,    Qt::Key_A,
                                   Qt::Key_Right, Qt::Key_Up,     Qt::Key_PageUp,   Qt::Key_F2};
        constexpr std::array<Qt::KeyboardModifiers, 3> kModifiers{Qt::NoModifier, Qt::ShiftModifier,
                                                                  Qt::ControlModifier};
        QTest::keyClick(&target, kKeys[static_cast<std::size_t>(below(kKeys.size()))],
                        kModifiers[static_cast<std::size_t>(below(kModifiers.size()))]);
    }

    QByteArray saved(CImageObj& show) {
        const QString path = folder.filePath(QStringLiteral("saved.xml"));
        EXPECT_EQ(show.SaveToXMLFile(path), S_OK);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

private:
    std::mt19937 m_random{20'26'11};
    QTimer m_closer;
};

TEST_F(DialogMonkeyTest, NothingBreaksAndTheProjectSurvives) {
    document.SetTextEffectBaseFolder(QStringLiteral(VELLORA_ASSETS_DIR));
    chosenFile = test::writePng(folder, QStringLiteral("clip.png"), test::gradient(60, 40));
    chosenColour = QColor(10, 200, 30);
    open();
    const int events = eventCount();
    for (int event = 0; event < events; ++event) {
        if (!dialog().isVisible()) {
            open(below(kPhotos));
        }
        act(dialog());
        if (event % 8 == 0) {
            QCoreApplication::processEvents();
        }
    }
    close();

    const QByteArray project = saved(document);
    CImageObj loaded;
    std::vector<_HNODE*> nodes(kPhotos);
    for (int index = 0; index < kPhotos; ++index) {
        loaded.AddPhotoListNode(&photo(index), &nodes[static_cast<std::size_t>(index)]);
    }
    EXPECT_EQ(loaded.LoadFromXMLFile(folder.filePath(QStringLiteral("saved.xml"))), S_OK);
    EXPECT_EQ(saved(loaded), project);
    for (_HNODE* node : nodes) {
        ReleaseNode(node);
    }
}

}  // namespace
}  // namespace vellora
