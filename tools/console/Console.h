// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

class QJsonDocument;
class QJsonObject;

/// Prints the output of the console programs, whose QCoreApplication::applicationName() is set.
namespace Console {

/// Replaces control characters by blanks: names come from files and servers, and a text must stay
/// on its line and not control the terminal.
QString oneLine(QString text);

/// Prints one line on standard output.
void print(const QString& line);
void print(const QJsonDocument& document);

/// Prints "PROGRAM: TEXT" on standard error.
void note(const QString& text);

/// Makes fail() also print a JSON document, for programs that read standard output: an object whose
/// "error" is error().
void reportFailuresAsJson();

/// Returns the "error" of a JSON document: {"status": N, "text": "..."}.
QJsonObject error(int status, const QString& text);

/// Reports the failure of a command with note() and, after reportFailuresAsJson(), the document,
/// whose "error" also has the members of `details`. Returns `status`, for use in return statements.
int fail(int status, const QString& text);
int fail(int status, const QString& text, const QJsonObject& details);

/// Prints the document alone, after reportFailuresAsJson(), if the reasons have been noted already.
void printFailure(int status, const QString& text, const QJsonObject& details);

/// Returns the final exit status: `status`, or `failure` instead of 0 if the output could not be
/// written.
int finished(int status, int failure);

/// Returns "1 file", "2 files".
QString counted(qint64 number, const QString& noun);
/// Returns a readable size: "712 bytes", "12.3 kB", "4.0 MB".
QString size(qint64 bytes);

} // namespace Console
