#include "screenshots/Session.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileInfo>
#include <QListWidget>
#include <QMouseEvent>
#include <QPixmap>
#include <QTabBar>
#include <QTimer>
#include <cstdio>

#include <vellora/host/Language.h>

#include "screenshots/Palette.h"

namespace vellora::screenshots {
namespace {

constexpr int kStepPause = 60;
constexpr int kCanvas = 3005;
constexpr int kTabs = 3337;
constexpr int kTextStyles = 1021;
constexpr int kClips = 1021;
constexpr int kFilters = 3037;

void sendMouse(QWidget& widget, QEvent::Type type, QPoint at, Qt::MouseButtons buttons) {
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, at, widget.mapToGlobal(QPointF(at)), button, buttons, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

/// Writes a picture, in few colours when it would be too large for the documentation otherwise.
bool write(const QImage& picture, const QString& file) {
    constexpr int kTightest = 0;
    constexpr qint64 kLargest = 300'000;
    return picture.convertToFormat(QImage::Format_RGB888).save(file, "PNG", kTightest) &&
           (QFileInfo(file).size() < kLargest || withPalette(picture).save(file, "PNG", kTightest));
}

}  // namespace

Session::Session(QString prefix) : m_prefix(std::move(prefix)) {
    AddSteps();
}

void Session::Start() {
    QTimer::singleShot(kStepPause, this, &Session::PlayNext);
}

void Session::PlayNext() {
    if (m_next == m_steps.size() || m_failed) {
        return;
    }
    // Opening another dialog ends a step only when that dialog is closed: go on beside it.
    QTimer::singleShot(kStepPause, this, &Session::PlayNext);
    m_steps[m_next++]();
}

void Session::AddSteps() {
    m_steps = {
        [this] { Grab("info"); },
        [this] { ChooseTab(2); },
        [this] { Click(1258); },
        [this] {
            DragSprite({60, 60}, {170, 70});
        },
        [this] { ChooseRow(kTextStyles, 7, false); },
        [this] { Grab("text"); },
        [this] { Click(1454); },
        [this] { Click(1402); },
        [this] { Grab("brush"); },
        [this] { Click(2); },
        [this] { ChooseTab(4); },
        [this] { ChooseRow(kClips, 2, true); },
        [this] { Grab("artclip"); },
        [this] { ChooseTab(6); },
        [this] { ChooseRow(kFilters, 1, false); },
        [this] { Click(3034); },
        [this] { Grab("crop"); },
        [this] { Click(3053); },
        [this] { ChooseRow(kFilters, 2, false); },
        [this] { Grab("art"); },
        [this] { Click(1); },
    };
}

QWidget* Session::Control(int controlId) {
    QWidget* dialog = QApplication::activeModalWidget();
    QWidget* found = nullptr;
    if (dialog != nullptr) {
        for (QWidget* child : dialog->findChildren<QWidget*>()) {
            const QVariant id = child->property(kControlIdProperty);
            if (id.isValid() && id.toInt() == controlId &&
                (found == nullptr || child->isVisible())) {
                found = child;
            }
        }
    }
    if (found == nullptr) {
        std::fprintf(stderr, "no control %d\n", controlId);
        m_failed = true;
        QApplication::exit(1);
    }
    return found;
}

void Session::Click(int controlId) {
    if (auto* button = qobject_cast<QAbstractButton*>(Control(controlId))) {
        button->click();
    }
}

void Session::ChooseTab(int item) {
    if (auto* tabs = qobject_cast<QTabBar*>(Control(kTabs))) {
        tabs->setCurrentIndex(item);
    }
}

void Session::ChooseRow(int controlId, int row, bool twice) {
    auto* list = qobject_cast<QListWidget*>(Control(controlId));
    if (list == nullptr || list->count() == 0) {
        return;
    }
    list->setCurrentRow(std::min(row, list->count() - 1));
    if (twice) {
        Q_EMIT list->itemDoubleClicked(list->currentItem());
    }
}

void Session::DragSprite(QPoint from, QPoint to) {
    if (QWidget* canvas = Control(kCanvas)) {
        sendMouse(*canvas, QEvent::MouseButtonPress, from, Qt::LeftButton);
        sendMouse(*canvas, QEvent::MouseMove, to, Qt::LeftButton);
        sendMouse(*canvas, QEvent::MouseButtonRelease, to, Qt::NoButton);
    }
}

void Session::Grab(const char* name) {
    QWidget* dialog = QApplication::activeModalWidget();
    const QString file = QStringLiteral("%1-%2.png").arg(m_prefix, QString::fromLatin1(name));
    if (dialog == nullptr || !write(dialog->grab().toImage(), file)) {
        std::fprintf(stderr, "cannot write %s\n", qPrintable(file));
        m_failed = true;
    }
}

}  // namespace vellora::screenshots
