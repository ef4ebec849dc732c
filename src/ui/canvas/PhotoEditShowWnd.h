#pragma once

#include <QWidget>
#include <memory>

#include <vellora/base/Rect.h>
#include <vellora/text/TextStyle.h>

#include "ui/behaviour/CanvasKeys.h"
#include "ui/behaviour/CanvasMouse.h"
#include "ui/behaviour/NewSprites.h"
#include "ui/behaviour/SpriteSelection.h"

namespace vellora {

class CanvasLayers;
class CDVDImageSprite;
class CDVDImageText;
class EditSession;
class FilterMarker;
class InPlaceText;
enum class PhotoEdit;

/// The canvas of the edit dialog: the photo with its sprites, 600 x 450 units, on which sprites
/// are selected, moved, resized, typed and deleted and the crop frame is dragged.
///
/// It shows the photo that the session has open, and makes every edit through the session. All
/// coordinates are stage units, which are the widget's own.
class CPhotoEditShowWnd : public QWidget {
    Q_OBJECT

public:
    /// @param session  Not owned; outlives the canvas.
    explicit CPhotoEditShowWnd(EditSession& session, QWidget* parent = nullptr);
    ~CPhotoEditShowWnd() override;

    /// The photo's place in the show, for the macros that tell it.
    void SetSlide(int index, int count);
    /// Gives the texts their macros for this photo and place.
    void ExpandTexts();

    /// Mode 0 manual, 1 for 4:3, 2 for 16:9, 3 for none. Acts only when the mode differs from the
    /// present one and the photo has a picture.
    void SetCropMode(int mode);
    [[nodiscard]] int GetCropMode() const { return m_mouse.crop().mode(); }
    /// The crop frame; empty when there is none.
    [[nodiscard]] Rect GetCropFrame() const { return m_mouse.crop().rect(); }
    /// Shows or hides the marker with which the region of a region filter is placed.
    void ShowFilterMarker(bool show);

    /// The properties for new texts, which are those of the text that was selected last.
    [[nodiscard]] const TextStyle& GetTextProperties() const { return m_textProperties; }
    /// Takes the properties and gives them to the selected text.
    void SetTextProperties(const TextStyle& properties);
    /// Commits an open editor, then adds a text at the next cascade point and selects it.
    void AddText();
    /// Adds an image file as an art clip and selects it.
    ///
    /// @param centre  Where its middle comes to lie; null for the next free place.
    /// @param reason  Where given, says why a file could not be added.
    /// @return False for a file that cannot be loaded, or without a photo.
    bool AddClip(const QString& file, const QPoint* centre = nullptr, QString* reason = nullptr);
    /// Inserts the text of macro 0 to 9 at the cursor of the in-place editor. A closed editor is
    /// opened on the selected text, or without one on a new text.
    void InsertMacro(int macro);

    [[nodiscard]] bool IsEditorOpen() const;
    void CommitEditor();

    /// Carries out a command of the sprite menu, 32837 to 32843 or 33927.
    void Command(int id);
    /// Whether the sprite menu offers a command at present.
    [[nodiscard]] bool IsCommandEnabled(int id) const { return m_selection.offers(id); }

    /// The selected sprite, or null.
    [[nodiscard]] CDVDImageSprite* GetSelected() const { return m_selection.sprite(); }
    void Select(CDVDImageSprite* sprite);

    [[nodiscard]] QSize sizeHint() const override;

public Q_SLOTS:
    /// The filter or its parameters changed: message 9030.
    void Redraw();
    /// A crop or filter was committed or taken back: message 9031.
    void PictureCommitted();

Q_SIGNALS:
    /// A text was selected and its properties are now the canvas's: message 9025.
    void TextSelected();
    /// A sprite was selected: message 9029.
    void SpriteSelected();
    /// The user dropped the crop frame; the mode is now 3.
    void CropFrameDropped();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void OnPhotoAboutToChange();
    void OnPhotoChanged();
    void OnEdited(PhotoEdit kind);

    SpriteHit SelectAt(QPoint point);
    void AnnounceSelection();
    void OpenEditor(CDVDImageText& text);
    void EditSelected();
    void Nudge(QPoint step);
    void Cancel();
    void DropCropFrame();
    void EndDrag();
    void StepSelection(int direction);
    /// @return False for a key that is not the canvas's.
    bool Perform(KeyAction action, QKeyEvent& event);
    [[nodiscard]] QString ToolTipAt(QPoint point) const;
    void RedrawSprites();

    EditSession& m_session;
    std::unique_ptr<CanvasLayers> m_layers;
    InPlaceText* m_typing;
    FilterMarker* m_marker;
    TextStyle m_textProperties;
    SpriteSelection m_selection;
    NewSprites m_newSprites;
    CanvasMouse m_mouse;
    CanvasKeys m_keys;
    int m_slideIndex = 0;
    int m_slideCount = 0;
    bool m_pressedBesideEditor = false;
    bool m_showsFocus = false;  ///< It was reached by the keyboard.
};

}  // namespace vellora
