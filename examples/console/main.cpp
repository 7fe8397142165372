// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT
// A host without windows and callbacks: it checks, lists the themes and fetches one, with signals
// alone. docs/host-guide.md explains it.
#include "host/HostSettings.h"
#include "model/ResourceCatalogue.h"
#include "model/ResourceModel.h"
#include <QCoreApplication>
#include <QTextStream>
int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    hostSettings() = HostSettings::recommended();
    if (QString error; argc != 4 || !loadHostSettings(QString::fromLocal8Bit(argv[1]), &error)) {
        qCritical("usage: console SETTINGS.ini DOWNLOAD_ROOT GUID %s", qPrintable(error));
        return 2;
    }
    const QString wanted = QString::fromLocal8Bit(argv[3]);
    QTextStream out(stdout);

    ResourceCatalogue catalogue;
    catalogue.open(QString::fromLocal8Bit(argv[2]));
    ResourceModel themes(ResourceModel::Theme);

    const auto listAndFetch = [&](ResourceCatalogue::Outcome, const QString& reason) {
        if (!reason.isEmpty())
            out << "check: " << reason << Qt::endl;
        for (int row = 0; row < themes.count(); ++row)
            out << themes.index(row).data().toString() << Qt::endl;
        if (!themes.fetch(wanted)) // it is not in the catalogue
            QCoreApplication::exit(1);
    };
    const auto end = [&](const QString&, ResourceModel::Outcome outcome, const QString& error) {
        out << (outcome == ResourceModel::Complete ? wanted : error) << Qt::endl;
        QCoreApplication::exit(outcome == ResourceModel::Complete ? 0 : 1);
    };
    QObject::connect(&catalogue, &ResourceCatalogue::checkEnded, &themes, listAndFetch);
    QObject::connect(&themes, &ResourceModel::fetchEnded, &themes, end);
    catalogue.check();
    return QCoreApplication::exec();
}
