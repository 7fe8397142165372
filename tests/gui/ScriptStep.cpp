// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "gui/ScriptStep.h"

#include <QFile>

namespace {

bool split(const QString& line, QStringList& words)
{
    QString word;
    bool quoted = false;
    bool begun = false;
    for (const QChar letter : line) {
        if (letter == QLatin1Char('"')) {
            quoted = !quoted;
            begun = true;
        } else if (!quoted && letter == QLatin1Char('#')) {
            break;
        } else if (!quoted && letter.isSpace()) {
            if (begun)
                words.append(word);
            word.clear();
            begun = false;
        } else {
            word.append(letter);
            begun = true;
        }
    }
    if (begun)
        words.append(word);
    return !quoted;
}

} // namespace

QString ScriptStep::text() const
{
    QStringList parts{verb};
    for (const QString& word : words)
        parts.append(word.contains(QLatin1Char(' ')) || word.isEmpty()
                         ? QLatin1Char('"') + word + QLatin1Char('"')
                         : word);
    return parts.join(QLatin1Char(' '));
}

bool ScriptStep::readAll(const QString& file, QVector<ScriptStep>& steps, QString& error)
{
    QFile script(file);
    if (!script.open(QIODevice::ReadOnly)) {
        error = QStringLiteral("%1: %2").arg(file, script.errorString());
        return false;
    }
    const QStringList lines = QString::fromUtf8(script.readAll()).split(QLatin1Char('\n'));
    for (int number = 1; number <= lines.size(); ++number) {
        QStringList words;
        if (!split(lines.at(number - 1), words)) {
            error = QStringLiteral("%1:%2: a quote is not closed").arg(file).arg(number);
            return false;
        }
        if (words.isEmpty())
            continue;
        const QString verb = words.takeFirst();
        steps.append({number, verb, words});
    }
    return true;
}
