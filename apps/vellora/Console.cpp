#include "Console.h"

#include <QJsonDocument>
#include <cstdio>

#include <unistd.h>

namespace vellora::cli {
namespace {

void printJson(const QJsonDocument& document) {
    const QByteArray line = document.toJson(QJsonDocument::Compact);
    std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
}

}  // namespace

QString printable(const QString& name) {
    QString shown;
    for (const QChar c : name) {
        const bool control = c.category() == QChar::Other_Control ||
                             c.category() == QChar::Separator_Line ||
                             c.category() == QChar::Separator_Paragraph;
        shown += control ? QStringLiteral("\\x%1").arg(c.unicode(), 2, 16, QLatin1Char('0')) : c;
    }
    return shown;
}

void printError(const char* message) {
    std::fprintf(stderr, "vellora: %s\n", message);
}

void printError(const QString& message) {
    printError(message.toUtf8().constData());
}

void printJson(const QJsonObject& object) {
    printJson(QJsonDocument(object));
}

void printJson(const QJsonArray& array) {
    printJson(QJsonDocument(array));
}

void printLine(const QString& text) {
    std::puts(text.toUtf8().constData());
}

bool isErrorTerminal() {
    return isatty(STDERR_FILENO) == 1;
}

bool allowsEscapes() {
    return isErrorTerminal() && qEnvironmentVariableIsEmpty("NO_COLOR") &&
           qgetenv("TERM") != "dumb";
}

}  // namespace vellora::cli
