#include "ui/canvas/InPlaceText.h"

#include <vellora/host/Language.h>
#include <vellora/model/DVDImageText.h>

#include "ui/LanguageIds.h"
#include "ui/controls/TypedText.h"

namespace vellora {

InPlaceText::InPlaceText(QWidget& canvas) : QObject(&canvas), m_canvas(canvas) {}

QRect InPlaceText::geometry() const {
    return isOpen() ? m_editor->geometry() : QRect();
}

void InPlaceText::open(CDVDImageText& text, const TextStyle& style) {
    open({&text, text.GetText(), text.GetPosition()}, style);
}

void InPlaceText::open(QPoint position, const TextStyle& style) {
    open({nullptr, {}, position}, style);
}

void InPlaceText::open(const TextDraft& draft, const TextStyle& style) {
    close();
    m_target = draft.target;
    m_editor = new CEditTrans(&m_canvas);
    m_editor->setAccessibleName(LanguageWord(QStringLiteral("Text on the photo")));
    m_editor->SetStyle(style);
    m_editor->setPlainText(draft.text);
    m_openedText = draft.text;
    m_shownText = typedText(*m_editor);
    m_editor->move(draft.position);
    // What a new text says is there to be typed over.
    if (draft.text == LanguageString(kDoubleClickToEdit)) {
        m_editor->selectAll();
    } else {
        m_editor->moveCursor(QTextCursor::End);
    }
    connect(m_editor, &CEditTrans::Committed, this, &InPlaceText::committed);
    m_editor->show();
    m_editor->setFocus(Qt::OtherFocusReason);
}

void InPlaceText::setStyle(const TextStyle& style) {
    if (isOpen()) {
        m_editor->SetStyle(style);
    }
}

void InPlaceText::insert(const QString& text) {
    if (isOpen()) {
        m_editor->insertPlainText(text);
    }
}

void InPlaceText::clear() {
    if (isOpen()) {
        m_editor->clear();
    }
}

TextDraft InPlaceText::close() {
    if (!isOpen()) {
        return {};
    }
    const QString typed = typedText(*m_editor);
    const TextDraft draft{m_target, typed == m_shownText ? m_openedText : typed, m_editor->pos()};
    CEditTrans* editor = m_editor;
    m_editor = nullptr;
    m_target = nullptr;
    // It may be in the middle of handling the key that closes it.
    editor->hide();
    editor->deleteLater();
    return draft;
}

}  // namespace vellora
