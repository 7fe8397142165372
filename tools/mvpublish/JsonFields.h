#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

/// The fields of one JSON object, read with complaints: a field of another type, one that is needed
/// and missing, and one that nobody asked for are faults.
class JsonFields
{
public:
    /// `where` stands in front of every fault; `faults` must outlive this object.
    JsonFields(QJsonObject object, QString where, QStringList& faults);

    /// Reads a file that holds one object; an empty one and a fault if it does not.
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
    /// Complains of the fields that nobody asked for.
    void finish();

private:
    QJsonValue take(const char* key);
    void wrongType(const char* key, const QString& expected);

    QJsonObject m_object;
    QString m_where;
    QStringList& m_faults;
    QSet<QString> m_asked;
};
