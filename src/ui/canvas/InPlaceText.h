#pragma once

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QRect>

#include "ui/behaviour/TextDraft.h"
#include "ui/canvas/EditTrans.h"

class QWidget;

namespace vellora {

/// The typing of a text on the canvas: opens the editor over a text and tells what was typed.
class InPlaceText : public QObject {
    Q_OBJECT

public:
    explicit InPlaceText(QWidget& canvas);

    [[nodiscard]] bool isOpen() const { return m_editor != nullptr; }
    /// The text that is edited; null when the editor is closed or open for a new one.
    [[nodiscard]] CDVDImageText* target() const { return m_target; }
    /// Where the editor lies on the canvas.
    [[nodiscard]] QRect geometry() const;

    /// Opens the editor over a text.
    void open(CDVDImageText& text, const TextStyle& style);
    /// Opens the editor for a new text.
    void open(QPoint position, const TextStyle& style);
    void setStyle(const TextStyle& style);
    /// Types a text at the cursor.
    void insert(const QString& text);

    void clear();

    /// Closes the editor and gives what stood in it.
    TextDraft close();

Q_SIGNALS:
    /// The user ended the editing.
    void committed();

private:
    void open(const TextDraft& draft, const TextStyle& style);

    QWidget& m_canvas;
    QPointer<CEditTrans> m_editor;
    CDVDImageText* m_target = nullptr;
    QString m_openedText;
    QString m_shownText;  ///< What the control made of it.
};

}  // namespace vellora
