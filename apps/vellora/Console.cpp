#include "Console.h"

#include <QJsonDocument>
#include <cstdio>
#include <iostream>

#include <fcntl.h>
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

void occupyStandardStreams() {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(stream, F_GETFD) < 0) {
            open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
        }
    }
}

bool outputFailed() {
    // An earlier flush that failed has emptied the buffer and left only the mark.
    return std::fflush(stdout) != 0 || std::ferror(stdout) != 0 || !std::cout.flush();
}

bool isErrorTerminal() {
    return isatty(STDERR_FILENO) == 1;
}

bool allowsEscapes() {
    return isErrorTerminal() && qEnvironmentVariableIsEmpty("NO_COLOR") &&
           qgetenv("TERM") != "dumb";
}

}  // namespace vellora::cli
