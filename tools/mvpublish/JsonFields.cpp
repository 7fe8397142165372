// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "JsonFields.h"

#include <QFile>
#include <QJsonDocument>

#include <utility>

JsonFields::JsonFields(QJsonObject object, QString where, QStringList& faults)
    : m_object(std::move(object))
    , m_where(std::move(where))
    , m_faults(faults)
{
}

QJsonObject JsonFields::read(const QString& file, const QString& shownName, QStringList& faults)
{
    QFile in(file);
    if (!in.open(QIODevice::ReadOnly)) {
        faults.append(QStringLiteral("%1: cannot be read").arg(shownName));
        return {};
    }
    const QByteArray text = in.readAll();
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (error.error != QJsonParseError::NoError) {
        const int line = text.left(error.offset).count('\n') + 1;
        faults.append(
            QStringLiteral("%1:%2: %3").arg(shownName, QString::number(line), error.errorString()));
    } else if (!document.isObject()) {
        faults.append(QStringLiteral("%1: is not a JSON object").arg(shownName));
    }
    return document.object();
}

QString JsonFields::needed(const char* key)
{
    QString value = text(key);
    if (value.isEmpty() && !m_object.contains(QLatin1String(key)))
        fault(QStringLiteral("\"%1\" is missing").arg(QLatin1String(key)));
    else if (value.isEmpty() && m_object.value(QLatin1String(key)).isString())
        fault(QStringLiteral("\"%1\" is empty").arg(QLatin1String(key)));
    return value;
}

QString JsonFields::text(const char* key)
{
    const QJsonValue value = take(key);
    if (!value.isString() && !value.isUndefined())
        wrongType(key, QStringLiteral("a text"));
    return value.toString();
}

QStringList JsonFields::texts(const char* key)
{
    QStringList result;
    const QJsonArray values = array(key);
    for (const QJsonValue& value : values) {
        if (!value.isString())
            wrongType(key, QStringLiteral("a list of texts"));
        result.append(value.toString());
    }
    return result;
}

QMap<QString, QString> JsonFields::map(const char* key)
{
    QMap<QString, QString> result;
    const QJsonObject values = object(key);
    for (auto it = values.constBegin(); it != values.constEnd(); ++it) {
        if (!it.value().isString())
            wrongType(key, QStringLiteral("an object of texts"));
        result.insert(it.key(), it.value().toString());
    }
    return result;
}

bool JsonFields::flag(const char* key)
{
    const QJsonValue value = take(key);
    if (!value.isBool() && !value.isUndefined())
        wrongType(key, QStringLiteral("true or false"));
    return value.toBool();
}

int JsonFields::number(const char* key)
{
    const QJsonValue value = take(key);
    const double number = value.toDouble();
    const int whole = value.toInt();
    if (!value.isUndefined() && (!value.isDouble() || number < whole || number > whole))
        wrongType(key, QStringLiteral("a whole number"));
    return whole;
}

QJsonArray JsonFields::array(const char* key)
{
    const QJsonValue value = take(key);
    if (!value.isArray() && !value.isUndefined())
        wrongType(key, QStringLiteral("a list"));
    return value.toArray();
}

QJsonObject JsonFields::object(const char* key)
{
    const QJsonValue value = take(key);
    if (!value.isObject() && !value.isUndefined())
        wrongType(key, QStringLiteral("an object"));
    return value.toObject();
}

void JsonFields::fault(const QString& text)
{
    m_faults.append(QStringLiteral("%1: %2").arg(m_where, text));
}

void JsonFields::finish()
{
    const QStringList keys = m_object.keys();
    for (const QString& key : keys) {
        if (!m_asked.contains(key))
            fault(QStringLiteral("\"%1\" means nothing here").arg(key));
    }
}

QJsonValue JsonFields::take(const char* key)
{
    m_asked.insert(QString::fromLatin1(key));
    return m_object.value(QLatin1String(key));
}

void JsonFields::wrongType(const char* key, const QString& expected)
{
    fault(QStringLiteral("\"%1\" is not %2").arg(QLatin1String(key), expected));
}
