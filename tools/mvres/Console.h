#pragma once

#include <QString>

class QJsonDocument;

/// What mvres prints. Exit statuses stand here too, as they are part of what a caller sees.
namespace Console {

constexpr int exitSuccess = 0;
constexpr int exitFailure = 1;
constexpr int exitUsage = 2;
/// fetch: this plus the value of EMVThemeDownLoadError.
constexpr int exitDownload = 10;
/// check: what became of the catalogue, if it is not current.
constexpr int exitChanged = 20;
constexpr int exitServerNewer = 21;
constexpr int exitServerOlder = 22;
constexpr int exitUnreachable = 23;
constexpr int exitRejected = 24;
constexpr int exitCancelled = 25;

/// Names come from a server: control characters become blanks, so that a text stays on its line and
/// leaves the terminal alone.
QString oneLine(QString text);

/// One line on standard output.
void print(const QString& line);
void print(const QJsonDocument& document);

/// "mvres: TEXT" on standard error; returns `status`, for use in return statements.
int fail(int status, const QString& text);

/// The exit status at the end: `status`, or a failure if the output could not be written.
int finished(int status);

/// "1 file", "2 files".
QString counted(qint64 number, const QString& noun);
/// A size for people: "712 bytes", "12.3 kB", "4.0 MB".
QString size(qint64 bytes);

} // namespace Console
