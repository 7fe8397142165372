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

/// One line on standard output.
void print(const QString& line);
void print(const QJsonDocument& document);

/// "mvres: TEXT" on standard error; returns `status`, for use in return statements.
int fail(int status, const QString& text);

/// "1 file", "2 files".
QString counted(qint64 number, const QString& noun);
/// A size for people: "712 bytes", "12.3 kB", "4.0 MB".
QString size(qint64 bytes);

} // namespace Console
