// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "DemoShop.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

#include <chrono>

namespace {

QJsonObject readObject(const QString& file)
{
    QFile json(file);
    return json.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(json.readAll()).object()
                                          : QJsonObject();
}

bool writeObject(const QString& file, const QJsonObject& object)
{
    QFile json(file);
    return json.open(QIODevice::WriteOnly) && json.write(QJsonDocument(object).toJson()) > 0
        && json.flush();
}

/// Copies a folder; returns an error, empty: success.
QString copyFolder(const QString& from, const QString& to)
{
    QDirIterator each(from, QDir::Files, QDirIterator::Subdirectories);
    while (each.hasNext()) {
        const QString path = each.next();
        const QString copy = to + path.mid(from.size());
        if (!QDir().mkpath(QFileInfo(copy).path()) || !QFile::copy(path, copy)
            || !QFile::setPermissions(copy, QFile::permissions(copy) | QFile::WriteOwner))
            return QStringLiteral("%1 cannot be copied to %2").arg(path, copy);
    }
    return QString();
}

} // namespace

QString DemoShop::program()
{
    const QFileInfo program(QCoreApplication::applicationDirPath() + QStringLiteral("/mvpublish"));
    return program.isExecutable() ? program.filePath() : QString();
}

bool DemoShop::open(const QString& source, const QString& folder)
{
    m_folder = folder;
    m_error = copyFolder(source, this->source());
    if (m_error.isEmpty())
        m_error = run({QStringLiteral("keygen"), key(), QStringLiteral("--no-password")});
    if (m_error.isEmpty())
        m_error = buildAndSign();
    return m_error.isEmpty();
}

QString DemoShop::publicKey() const
{
    QFile file(key() + QStringLiteral(".pub"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

bool DemoShop::correct(const QString& theme)
{
    QDirIterator each(source() + QStringLiteral("/themes"), {QStringLiteral("item.json")},
                      QDir::Files, QDirIterator::Subdirectories);
    while (each.hasNext()) {
        const QString manifest = each.next();
        if (readObject(manifest)[QLatin1String("name")].toString() != theme)
            continue;
        const QString titles = QFileInfo(manifest).path() + QStringLiteral("/theme/titles.json");
        QJsonObject texts = readObject(titles);
        texts.insert(QStringLiteral("end"), QStringLiteral("Until Next Year"));
        m_error = writeObject(titles, texts) ? QString()
                                             : QStringLiteral("%1 cannot be written").arg(titles);
        return m_error.isEmpty();
    }
    m_error = QStringLiteral("the shop has no such theme");
    return false;
}

bool DemoShop::publish()
{
    if (!m_publishing.valid()) {
        m_error.clear();
        m_publishing = std::async(std::launch::async, [this] { return buildAndSign(); });
    }
    if (m_publishing.wait_for(std::chrono::seconds(0)) != std::future_status::ready)
        return false;
    m_error = m_publishing.get();
    return m_error.isEmpty();
}

QString DemoShop::instructions() const
{
    return QStringLiteral("to see an update, change a file of an item in %1, then run\n"
                          "  %2 build %1 %3 && %2 sign %3 --key %4\nand press F5 in the window")
        .arg(source(), program(), tree(), key());
}

/// Returns an error; empty: success.
QString DemoShop::buildAndSign() const
{
    const QString error = run({QStringLiteral("build"), source(), tree()});
    return error.isEmpty() ? run({QStringLiteral("sign"), tree(), QStringLiteral("--key"), key()})
                           : error;
}

QString DemoShop::run(const QStringList& arguments)
{
    constexpr int longestMs = 60000;
    QProcess process;
    process.start(program(), arguments);
    const bool isDone = process.waitForFinished(longestMs)
        && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
    return isDone ? QString()
                  : QStringLiteral("mvpublish %1 failed: %2")
                        .arg(arguments.constFirst(),
                             QString::fromLocal8Bit(process.readAllStandardError()).trimmed());
}
