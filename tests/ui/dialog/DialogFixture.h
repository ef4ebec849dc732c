#pragma once

#include <QObject>
#include <QTemporaryDir>
#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include <vellora/base/PhotoListNode.h>
#include <vellora/host/ImageObj.h>

#include "ui/controls/ControlId.h"
#include "ui/controls/UserPrompts.h"
#include "ui/dialog/ImageProcessDialog.h"

class QAbstractButton;
class QListWidget;

namespace vellora {
class CDVDImage;
class CPhotoEditShowWnd;
}  // namespace vellora

namespace vellora::test {

constexpr unsigned kHostMessage = 4711;

/// Collects the indices that the host is told.
class HostWindow : public QObject {
    Q_OBJECT

public:
    std::vector<int> indices;
    bool event(QEvent* event) override;
};

/// A show of three photos of 1200 x 900, a host that listens, and prompts that answer themselves.
class DialogFixture : public testing::Test {
protected:
    explicit DialogFixture(int photoCount = 3);
    ~DialogFixture() override;

    /// Opens the dialog without a loop of its own.
    CImageProcessDialog& open(int index = 0);
    void close() { m_dialog.reset(); }
    [[nodiscard]] CImageProcessDialog& dialog() { return *m_dialog; }
    [[nodiscard]] CPhotoEditShowWnd& canvas();

    [[nodiscard]] _PHOTO_LIST_NODE& photo(int index) {
        return *m_photos[static_cast<std::size_t>(index)];
    }
    [[nodiscard]] CDVDImage& image(int index) {
        return *m_handles[static_cast<std::size_t>(index)]->data->image;
    }

    /// The control of an id, on whichever page is shown first to have it.
    template <class Control>
    Control& control(int id) {
        Control* found = nullptr;
        for (Control* child : m_dialog->findChildren<Control*>()) {
            const QVariant value = child->property(kControlIdProperty);
            if (value.isValid() && value.toInt() == id &&
                (found == nullptr || child->isVisible())) {
                found = child;
            }
        }
        EXPECT_NE(found, nullptr) << "no control " << id;
        return *found;
    }
    static void click(QWidget& widget);
    /// Drags with the left button, with the moves that a mouse makes on its way.
    static void drag(QWidget& widget, QPoint from, QPoint to);
    void clickTool(ToolCommand command);
    void showTab(int item);
    /// The indices posted since the last call.
    std::vector<int> posted();

    QTemporaryDir folder;
    CImageObj document;
    HostWindow host;
    std::vector<_HNODE*> m_handles;
    QStringList errors;  ///< Texts of the message boxes that were shown.
    QString chosenFile;  ///< What the user chooses when asked for a file.
    std::optional<QColor> chosenColour;

private:
    UserPrompts m_realPrompts;
    std::vector<std::unique_ptr<_PHOTO_LIST_NODE>> m_photos;
    std::unique_ptr<CImageProcessDialog> m_dialog;
};

}  // namespace vellora::test
