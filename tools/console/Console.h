#pragma once

#include <QString>

class QJsonDocument;

/// Prints the output of the console programs, which have set QCoreApplication's application name.
namespace Console {

/// Names come from files and servers: control characters become blanks, so that a text stays on its
/// line and leaves the terminal alone.
QString oneLine(QString text);

/// One line on standard output.
void print(const QString& line);
void print(const QJsonDocument& document);

/// "PROGRAM: TEXT" on standard error.
void note(const QString& text);

/// From now on fail() also prints a JSON document, for programs that read standard output:
/// {"error": {"status": N, "text": "..."}}.
void reportFailuresAsJson();

/// Ends a command that could not do its work: note(), with reportFailuresAsJson() the document
/// too. Returns `status`, for use in return statements.
int fail(int status, const QString& text);

/// The exit status at the end: `status`, or instead of 0 `failure` if the output could not be
/// written.
int finished(int status, int failure);

/// "1 file", "2 files".
QString counted(qint64 number, const QString& noun);
/// A size for people: "712 bytes", "12.3 kB", "4.0 MB".
QString size(qint64 bytes);

} // namespace Console
