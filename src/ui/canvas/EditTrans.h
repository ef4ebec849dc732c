#pragma once

#include <QPlainTextEdit>

#include "ui/behaviour/KeyOnRelease.h"

namespace vellora {

struct TextStyle;

/// The in-place editor: an edit box without a background, in the font of the text it edits.
///
/// Return commits, and Escape empties the text and commits that, both on release; Shift+Return
/// starts a new line.
class CEditTrans : public QPlainTextEdit {
    Q_OBJECT

public:
    explicit CEditTrans(QWidget* parent = nullptr);

    /// Shows font and colour of a style.
    void SetStyle(const TextStyle& style);

Q_SIGNALS:
    /// The user ended the editing.
    void Committed();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    void FitToText();

    QColor m_outline;
    KeyOnRelease m_key;
};

}  // namespace vellora
