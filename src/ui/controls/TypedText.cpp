#include "ui/controls/TypedText.h"

#include <QPlainTextEdit>
#include <QTextDocument>

namespace vellora {

QString typedText(const QPlainTextEdit& edit) {
    return edit.document()
        ->toRawText()
        .replace(QChar::ParagraphSeparator, u'\n')
        .replace(QChar::LineSeparator, u'\n');
}

}  // namespace vellora
