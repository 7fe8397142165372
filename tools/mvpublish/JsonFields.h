// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

/// Reads the fields of one JSON object strictly: a field of the wrong type, a missing required one
/// and an unknown one are faults.
class JsonFields
{
public:
    /// `where` begins every fault; `faults` must outlive this object.
    JsonFields(QJsonObject object, QString where, QStringList& faults);

    /// Reads a file that contains one object; returns an empty one and adds a fault if it does not.
    static QJsonObject read(const QString& file, const QString& shownName, QStringList& faults);

    QString needed(const char* key);
    QString text(const char* key);
    QStringList texts(const char* key);
    QMap<QString, QString> map(const char* key);
    bool flag(const char* key);
    int number(const char* key);
    QJsonArray array(const char* key);
    QJsonObject object(const char* key);

    bool has(const char* key) const { return m_object.contains(QLatin1String(key)); }
    void fault(const QString& text);
    /// Adds a fault for every field that was not read.
    void finish();

private:
    QJsonValue take(const char* key);
    void wrongType(const char* key, const QString& expected);

    QJsonObject m_object;
    QString m_where;
    QStringList& m_faults;
    QSet<QString> m_asked;
};
