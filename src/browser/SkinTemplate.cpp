// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/SkinTemplate.h"

#include <QRegularExpression>

QString SkinTemplate::fill(const QString& text, const QMap<QString, QString>& values,
                           QStringList& faults)
{
    static const QRegularExpression placeholder(QStringLiteral("@(\\w+)(\\|([^@]*))?@"));
    QString filled;
    QMap<QString, QString> unused = values;
    int copied = 0;
    for (auto it = placeholder.globalMatch(text); it.hasNext();) {
        const QRegularExpressionMatch match = it.next();
        const QString name = match.captured(1);
        if (!values.contains(name) && match.capturedLength(2) == 0)
            faults.append(QStringLiteral("the placeholder \"%1\" has no value").arg(name));
        filled.append(text.constData() + copied, match.capturedStart() - copied);
        filled += values.value(name, match.captured(3));
        copied = match.capturedEnd();
        unused.remove(name);
    }
    for (auto it = unused.keyBegin(); it != unused.keyEnd(); ++it)
        faults.append(QStringLiteral("the value \"%1\" has no placeholder").arg(*it));
    return filled + text.mid(copied);
}
