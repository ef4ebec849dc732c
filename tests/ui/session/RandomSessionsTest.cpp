// Random events on everything that can be seen, from a seed. VELLORA_MONKEY_SEED and
// VELLORA_MONKEY_EVENTS ask for another seed and for more or fewer events.

#include <QApplication>
#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QTimer>
#include <QWheelEvent>
#include <QWidget>
#include <QtTest>
#include <iostream>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "ui/canvas/PhotoEditShowWnd.h"
#include "ui/controls/UserPrompts.h"
#include "ui/session/EditedShow.h"

namespace vellora {
namespace {

constexpr int kSeed = 20261121;
constexpr int kEvents = 20000;
constexpr int kPhotos = 5;

int fromEnvironment(const char* name, int otherwise) {
    const int asked = qEnvironmentVariableIntValue(name);
    return asked > 0 ? asked : otherwise;
}

/// Sends random events to whatever windows are open.
///
/// Each act asks for the next one before it acts, so that it goes on inside the loops of modal
/// boxes that an act opens.
class Monkey : public QObject {
public:
    Monkey(unsigned seed, int acts) : m_random(seed), m_left(acts) {}

    void start() { next(); }
    [[nodiscard]] int left() const { return m_left; }
    int below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }
    bool happens(int percent) { return below(100) < percent; }

private:
    void next() {
        QTimer::singleShot(0, this, [this] { act(); });
    }

    static QWidget* openWindow() {
        QWidget* popup = QApplication::activePopupWidget();
        return popup != nullptr ? popup : QApplication::activeModalWidget();
    }

    void act() {
        QWidget* window = openWindow();
        if (window == nullptr) {
            return;  // the dialog has closed; the test opens another
        }
        if (m_left <= 0) {
            window->close();
            next();
            return;
        }
        --m_left;
        next();
        const bool isBox = window->inherits("QMessageBox") || window->inherits("QMenu");
        if (isBox && happens(20)) {
            window->close();
        } else if (m_grabber != nullptr) {
            goOnDragging();
        } else if (happens(30)) {
            pressKey(*window);
        } else {
            useMouse(*chooseWidget(*window));
        }
    }

    QWidget* chooseWidget(QWidget& window) {
        auto* canvas = window.findChild<CPhotoEditShowWnd*>();
        if (canvas != nullptr && happens(40)) {
            return canvas;
        }
        if (happens(50)) {
            QWidget* child = window.childAt(randomPoint(window));
            return child != nullptr ? child : &window;
        }
        // However small it is.
        QList<QWidget*> shown;
        for (QWidget* child : window.findChildren<QWidget*>()) {
            if (child->isVisible() && child->window() == &window) {
                shown.append(child);
            }
        }
        return shown.isEmpty() ? &window : shown[below(static_cast<int>(shown.size()))];
    }

    QPoint randomPoint(const QWidget& widget) {
        return {below(std::max(1, widget.width())), below(std::max(1, widget.height()))};
    }

    void pressKey(QWidget& window) {
        static constexpr Qt::Key kKeys[] = {
            Qt::Key_Left,   Qt::Key_Right,  Qt::Key_Up,     Qt::Key_Down,     Qt::Key_Delete,
            Qt::Key_Return, Qt::Key_Escape, Qt::Key_Tab,    Qt::Key_Backtab,  Qt::Key_F2,
            Qt::Key_Space,  Qt::Key_Home,   Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_C,
            Qt::Key_V,      Qt::Key_A,      Qt::Key_Z,      Qt::Key_7,        Qt::Key_Slash};
        QWidget* focus = QApplication::focusWidget();
        QWidget* target = focus != nullptr && focus->window() == &window ? focus : &window;
        Qt::KeyboardModifiers modifiers = Qt::NoModifier;
        if (happens(30)) {
            modifiers |= Qt::ControlModifier;
        }
        if (happens(20)) {
            modifiers |= Qt::ShiftModifier;
        }
        QTest::keyClick(target, kKeys[below(std::size(kKeys))], modifiers);
    }

    static void send(QWidget& target, QEvent::Type type, QPoint point, Qt::MouseButton button,
                     Qt::MouseButtons buttons) {
        QMouseEvent event(type, point, target.mapToGlobal(point), button, buttons, Qt::NoModifier);
        QApplication::sendEvent(&target, &event);
    }

    void useMouse(QWidget& target) {
        const QPointer<QWidget> alive(&target);
        const QPoint point = randomPoint(target);
        switch (below(6)) {
            case 0:
                send(target, QEvent::MouseMove, point, Qt::NoButton, Qt::NoButton);
                break;
            case 1: {
                QContextMenuEvent event(QContextMenuEvent::Mouse, point, target.mapToGlobal(point));
                QApplication::sendEvent(&target, &event);
                break;
            }
            case 2: {
                QWheelEvent event(point, target.mapToGlobal(point), {}, {0, 120 - below(240)},
                                  Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
                QApplication::sendEvent(&target, &event);
                break;
            }
            default:
                send(target, QEvent::MouseButtonPress, point, Qt::LeftButton, Qt::LeftButton);
                if (alive != nullptr && happens(50)) {
                    m_grabber = &target;
                } else if (alive != nullptr) {
                    letGo(target, point);
                }
                break;
        }
    }

    void letGo(QWidget& target, QPoint point) {
        const QPointer<QWidget> alive(&target);
        send(target, QEvent::MouseButtonRelease, point, Qt::LeftButton, Qt::NoButton);
        if (alive != nullptr && happens(25)) {
            send(target, QEvent::MouseButtonDblClick, point, Qt::LeftButton, Qt::LeftButton);
            if (alive != nullptr) {
                send(target, QEvent::MouseButtonRelease, point, Qt::LeftButton, Qt::NoButton);
            }
        }
    }

    void goOnDragging() {
        QWidget& target = *m_grabber;
        // Beyond the widget as well.
        const QPoint point = randomPoint(target) * 2 - QPoint(target.width(), target.height()) / 2;
        if (happens(70)) {
            send(target, QEvent::MouseMove, point, Qt::NoButton, Qt::LeftButton);
        } else {
            m_grabber = nullptr;
            if (happens(95)) {
                send(target, QEvent::MouseButtonRelease, point, Qt::LeftButton, Qt::NoButton);
            }
        }
    }

    std::mt19937 m_random;
    int m_left;
    QPointer<QWidget> m_grabber;
};

class RandomSessionsTest : public testing::Test {
protected:
    RandomSessionsTest() : m_prompts(userPrompts()) {}
    ~RandomSessionsTest() override { userPrompts() = m_prompts; }

    /// Files and colours are chosen at random instead of in boxes of the system.
    void answerPrompts(Monkey& monkey, const QStringList& files) {
        userPrompts().openFile = [&monkey, files](QWidget*, const QString&, const QString&) {
            return files[monkey.below(static_cast<int>(files.size()))];
        };
        userPrompts().pickColour = [&monkey](QWidget*, const QString&,
                                             QColor) -> std::optional<QColor> {
            if (monkey.happens(30)) {
                return std::nullopt;
            }
            return QColor::fromRgb(static_cast<QRgb>(monkey.below(0xFFFFFF)));
        };
        userPrompts().openUrl = [](const QUrl&) {};
    }

    UserPrompts m_prompts;
};

TEST_F(RandomSessionsTest, LeavesAProjectThatLoadsAsItWasSaved) {
    QTemporaryDir folder;
    QImage clip(60, 40, QImage::Format_ARGB32);
    clip.fill(QColor(255, 0, 0, 128));
    const QString clipFile = folder.filePath(QStringLiteral("clip.png"));
    ASSERT_TRUE(clip.save(clipFile));
    const QString brokenFile = folder.filePath(QStringLiteral("broken.wmf"));
    QFile broken(brokenFile);
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("no clip at all");
    broken.close();

    const int seed = fromEnvironment("VELLORA_MONKEY_SEED", kSeed);
    // Before anything can crash.
    std::cout << "VELLORA_MONKEY_SEED=" << seed << std::endl;
    SCOPED_TRACE("VELLORA_MONKEY_SEED=" + std::to_string(seed));
    test::EditedShow show(kPhotos);
    show.document.SetTextEffectBaseFolder(QStringLiteral(VELLORA_ASSETS_DIR));
    QObject host;
    Monkey monkey(static_cast<unsigned>(seed), fromEnvironment("VELLORA_MONKEY_EVENTS", kEvents));
    answerPrompts(monkey, {clipFile, clipFile, brokenFile, {}, folder.path()});
    int sessions = 0;
    while (monkey.left() > 0) {
        ++sessions;
        ASSERT_EQ(show.edit(monkey.below(kPhotos), &host, [&] { monkey.start(); }), S_OK);
    }
    RecordProperty("sessions", sessions);
    int changed = 0;
    for (const auto& photo : show.photos) {
        EXPECT_TRUE(photo->rotation >= 0 && photo->rotation < 360 && photo->rotation % 90 == 0);
        changed += photo->changed;
    }
    EXPECT_GT(changed, 0);
    const QByteArray project = show.saved();
    EXPECT_GT(project.size(), 1000);
    // The horizontal flip of a filter is written but not read back.
    QByteArray expected = project;
    expected.replace(R"( FlipX="1")", R"( FlipX="0")");
    EXPECT_TRUE(show.savedAfterLoading(project) == expected);
    const QString output = folder.filePath(QStringLiteral("out.jpg"));
    for (int index = 0; index < show.count(); ++index) {
        EXPECT_EQ(show.document.SaveNodeToFile(output, index, 600, 450, 80, 0, 0, 0), S_OK);
    }
}

}  // namespace
}  // namespace vellora
