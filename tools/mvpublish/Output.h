#pragma once

#include <QString>

class QJsonDocument;

/// What mvpublish prints, and the statuses it ends with.
namespace Output {

constexpr int exitSuccess = 0;
/// There is something to put right; diff: the trees differ.
constexpr int exitFindings = 1;
/// The work could not be done.
constexpr int exitFailure = 2;

/// Names come from files: control characters become blanks, so that a text stays on its line.
QString oneLine(QString text);
/// One line on standard output.
void print(const QString& line);
void print(const QJsonDocument& document);
/// "mvpublish: TEXT" on standard error; returns `status`.
int fail(int status, const QString& text);
/// The exit status at the end: `status`, or a failure if the output could not be written.
int finished(int status);

/// "1 file", "2 files".
QString counted(qint64 number, const QString& noun);
/// A size for people: "712 bytes", "12.3 kB", "4.0 MB".
QString size(qint64 bytes);

} // namespace Output
