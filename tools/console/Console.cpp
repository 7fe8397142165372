// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Console.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>

namespace {

bool failuresAsJson = false;

} // namespace

namespace Console {

QString oneLine(QString text)
{
    for (QChar& character : text) {
        if (character.category() == QChar::Other_Control)
            character = QLatin1Char(' ');
    }
    return text;
}

void print(const QString& line)
{
    std::printf("%s\n", oneLine(line).toLocal8Bit().constData());
    std::fflush(stdout);
}

void print(const QJsonDocument& document)
{
    std::fputs(document.toJson().constData(), stdout);
    std::fflush(stdout);
}

void note(const QString& text)
{
    std::fprintf(stderr, "%s: %s\n", QCoreApplication::applicationName().toLocal8Bit().constData(),
                 oneLine(text).toLocal8Bit().constData());
}

void reportFailuresAsJson()
{
    failuresAsJson = true;
}

QJsonObject error(int status, const QString& text)
{
    return {{QStringLiteral("status"), status}, {QStringLiteral("text"), text}};
}

int fail(int status, const QString& text)
{
    return fail(status, text, QJsonObject());
}

int fail(int status, const QString& text, const QJsonObject& details)
{
    note(text);
    printFailure(status, text, details);
    return status;
}

void printFailure(int status, const QString& text, const QJsonObject& details)
{
    if (!failuresAsJson)
        return;
    QJsonObject object = error(status, text);
    for (auto detail = details.constBegin(); detail != details.constEnd(); ++detail)
        object.insert(detail.key(), detail.value());
    print(QJsonDocument(QJsonObject{{QStringLiteral("error"), object}}));
}

int finished(int status, int failure)
{
    if ((std::fflush(stdout) == 0 && std::ferror(stdout) == 0) || status != 0)
        return status;
    note(QStringLiteral("standard output cannot be written"));
    return failure;
}

QString counted(qint64 number, const QString& noun)
{
    return QStringLiteral("%1 %2%3").arg(number).arg(noun,
                                                     number == 1 ? QString() : QStringLiteral("s"));
}

QString size(qint64 bytes)
{
    constexpr double kilo = 1000.0;
    constexpr double lastKilo = 999.95; // larger values would print as 1000.0
    if (bytes < 1000)
        return counted(bytes, QStringLiteral("byte"));
    const double kB = static_cast<double>(bytes) / kilo;
    return kB < lastKilo ? QStringLiteral("%1 kB").arg(kB, 0, 'f', 1)
                         : QStringLiteral("%1 MB").arg(kB / kilo, 0, 'f', 1);
}

} // namespace Console
