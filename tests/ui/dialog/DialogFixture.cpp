#include "ui/dialog/DialogFixture.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QMouseEvent>
#include <QRadioButton>
#include <QTabBar>
#include <QTest>

#include <vellora/host/HostMessage.h>
#include <vellora/host/NodeHandle.h>

#include "support/TestPhotos.h"
#include "ui/canvas/PhotoEditShowWnd.h"
#include "ui/controls/CoolButton.h"
#include "ui/controls/CoolToolBar.h"

namespace vellora::test {

bool HostWindow::event(QEvent* event) {
    if (event->type() != HostMessageEvent::messageType()) {
        return QObject::event(event);
    }
    const auto& message = static_cast<const HostMessageEvent&>(*event);
    EXPECT_EQ(message.message(), kHostMessage);
    EXPECT_EQ(message.secondParameter(), 0);
    indices.push_back(message.firstParameter());
    return true;
}

DialogFixture::DialogFixture(int photoCount) : m_realPrompts(userPrompts()) {
    userPrompts().showError = [this](QWidget*, const QString& text, const QString& caption) {
        EXPECT_FALSE(caption.isEmpty());
        errors << text;
    };
    userPrompts().openFile = [this](QWidget*, const QString&, const QString&) {
        return chosenFile;
    };
    userPrompts().pickColour = [this](QWidget*, const QString&, QColor) { return chosenColour; };
    for (int index = 0; index < photoCount; ++index) {
        const QString name = QStringLiteral("photo%1.png").arg(index);
        m_photos.push_back(record(writePng(folder, name, gradient(1200, 900))));
        _HNODE* handle = nullptr;
        EXPECT_EQ(document.AddPhotoListNode(m_photos.back().get(), &handle), S_OK);
        m_handles.push_back(handle);
    }
}

DialogFixture::~DialogFixture() {
    m_dialog.reset();
    for (_HNODE* handle : m_handles) {
        ReleaseNode(handle);
    }
    userPrompts() = m_realPrompts;
    CImageObj::SetLanguageString({});
}

CImageProcessDialog& DialogFixture::open(int index) {
    m_dialog =
        std::make_unique<CImageProcessDialog>(document, index, HostNotifier(&host, kHostMessage));
    m_dialog->show();
    QCoreApplication::processEvents();
    return *m_dialog;
}

CPhotoEditShowWnd& DialogFixture::canvas() {
    return *m_dialog->findChild<CPhotoEditShowWnd*>();
}

void DialogFixture::click(QWidget& widget) {
    const bool isLabelled = qobject_cast<QRadioButton*>(&widget) != nullptr ||
                            qobject_cast<QCheckBox*>(&widget) != nullptr;
    const QPoint at = isLabelled ? QPoint(8, widget.height() / 2) : widget.rect().center();
    QTest::mouseClick(&widget, Qt::LeftButton, {}, at);
}

void DialogFixture::drag(QWidget& widget, QPoint from, QPoint to) {
    const auto send = [&widget](QEvent::Type type, QPoint at, Qt::MouseButtons buttons) {
        const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, at, widget.mapToGlobal(QPointF(at)), button, buttons,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &event);
    };
    send(QEvent::MouseMove, from, Qt::NoButton);
    send(QEvent::MouseButtonPress, from, Qt::LeftButton);
    send(QEvent::MouseMove, (from + to) / 2, Qt::LeftButton);
    send(QEvent::MouseMove, to, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, to, Qt::NoButton);
}

void DialogFixture::clickTool(ToolCommand command) {
    auto* panel = m_dialog->findChild<CFlexibleToolBar*>(QStringLiteral("MainToolBtnBar"));
    click(*panel->GetButton(static_cast<int>(command)));
}

void DialogFixture::showTab(int item) {
    auto& tabs = control<QTabBar>(3337);
    QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(item).center());
}

std::vector<int> DialogFixture::posted() {
    QCoreApplication::sendPostedEvents(&host);
    return std::exchange(host.indices, {});
}

}  // namespace vellora::test
