#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

namespace vellora::cli {

/// A file name as it may be shown: control characters are escaped, so that a name can neither
/// break a line nor speak to the terminal.
QString printable(const QString& name);

/// One line on standard error that starts with the program's name.
void printError(const char* message);
void printError(const QString& message);

/// One line of JSON on standard output, out at once.
void printJson(const QJsonObject& object);
void printJson(const QJsonArray& array);

/// A line of text on standard output.
void printLine(const QString& text);

/// Opens what of the standard streams is closed in such a way that using it fails: else the next
/// file would be opened in its place, and be written to by whoever prints. To be called first.
void occupyStandardStreams();

/// Whether something that was printed did not get out, on a full disk for instance.
bool outputFailed();

/// Whether a person watches standard error.
bool isErrorTerminal();

/// Whether escape sequences are welcome there.
bool allowsEscapes();

}  // namespace vellora::cli
