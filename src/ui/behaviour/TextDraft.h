#pragma once

#include <QPoint>
#include <QString>

namespace vellora {

struct TextStyle;
class CDVDImageSprite;
class CDVDImageText;
class EditSession;

/// What stands in the in-place editor.
struct TextDraft {
    CDVDImageText* target = nullptr;  ///< The text that is edited; null for a new one.
    QString text;
    QPoint position;  ///< Of the editor, in stage units.
};

struct CommittedDraft {
    CDVDImageSprite* selected = nullptr;  ///< What is selected afterwards.
    bool isNew = false;
};

/// Makes a draft real: a new text, a changed one, or for an empty draft one less. A target that
/// has gone in the meantime counts as none.
CommittedDraft commitDraft(EditSession& session, const TextDraft& draft, const TextStyle& style);

/// Adds a text to the photo.
/// @return Null when there is no photo.
CDVDImageText* addText(EditSession& session, const QString& text, QPoint position,
                       const TextStyle& style);

/// Hands every text on the photo and in the album its expanded text.
void expandTexts(const EditSession& session, int slideIndex, int slideCount);

/// The token of macro 0 to 9; empty for any other number.
QString macroToken(int macro);

}  // namespace vellora
