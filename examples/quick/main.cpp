// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT
// A window of Qt Quick with the themes; the documents beside this file do the rest.
#include "host/HostSettings.h"
#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QUrl>
int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    hostSettings() = HostSettings::recommended();
    if (QString error; argc != 3 || !loadHostSettings(QString::fromLocal8Bit(argv[1]), &error)) {
        qCritical("usage: quick SETTINGS.ini DOWNLOAD_ROOT %s", qPrintable(error));
        return 2;
    }
    QQmlApplicationEngine engine;
    engine.addImportPath(QStringLiteral(MV_QML_DIR));
    engine.setInitialProperties(
        {{QStringLiteral("downloadFolder"), QString::fromLocal8Bit(argv[2])}});
    engine.load(QUrl(QStringLiteral("qrc:/quick/Main.qml")));
    return engine.rootObjects().isEmpty() ? 1 : QGuiApplication::exec();
}
