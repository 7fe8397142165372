// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "BrokenTree.h"

#include "host/Utils.h"
#include "Mvpublish.h"
#include "SmallSource.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/UnusualFiles.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

QString BrokenTree::makeClean()
{
    const SmallSource source(home("source"));
    const QString error =
        Mvpublish::build(source.folder(), cleanServer(),
                         {text("--edition"), text("standard"), text("--edition"), text("1"),
                          text("--edition"), text("3"), text("--no-release")});
    source.set(text("film"), "installed", true);
    source.set(text("zoom"), "builtIn", true);
    QDir().mkpath(home("installed"));
    return error + Mvpublish::build(source.folder(), cleanInstallation(), {text("--installed")});
}

QString BrokenTree::cleanServer()
{
    return home("server");
}

QString BrokenTree::cleanInstallation()
{
    return home("installed/Resource");
}

BrokenTree::BrokenTree(const QString& clean)
    : m_folder(home("broken"))
{
    QDir(m_folder).removeRecursively();
    const QStringList files = CatalogueFiles::filesBelow(clean);
    for (const QString& name : files)
        write(name, CatalogueFiles::read(clean + QLatin1Char('/') + name));
}

QByteArray BrokenTree::read(const QString& name) const
{
    return CatalogueFiles::read(file(name));
}

void BrokenTree::write(const QString& name, const QByteArray& content) const
{
    CatalogueFiles::write(file(name), content);
}

void BrokenTree::remove(const QString& name) const
{
    QFile::remove(file(name));
}

void BrokenTree::replace(const QString& name, const QString& from, const QString& to) const
{
    const QByteArray before = read(name);
    QByteArray after = before;
    after.replace(from.toUtf8(), to.toUtf8());
    if (after == before)
        qFatal("%s: no %s", qPrintable(name), qPrintable(from));
    write(name, after);
}

void BrokenTree::replaceShown(const QString& from, const QString& to) const
{
    for (const char* audience : {"", "_aff", "_aff_de"})
        replace(text("ResourceConfig/resource_display%1.xml").arg(text(audience)), from, to);
}

void BrokenTree::removeEntry(const QString& name, const QString& guid) const
{
    QString content = QString::fromUtf8(read(name));
    content.remove(QRegularExpression(text("<Item>\\s*<GUID>\\%1</GUID>.*?</Item>").arg(guid),
                                      QRegularExpression::DotMatchesEverythingOption));
    write(name, content.toUtf8());
}

void BrokenTree::announce() const
{
    const QDir catalogues(file(text("ResourceConfig")));
    const QStringList versions = catalogues.entryList({text("resource_version*.xml")});
    for (const QString& name : versions) {
        QString shown = name;
        shown.replace(text("version"), text("display"));
        shown.remove(QRegularExpression(text("_v[0-9](?=\\.)")));
        announce(text("ResourceConfig/") + name, "dislplay", catalogues.filePath(shown));
        announce(text("ResourceConfig/") + name, "config",
                 catalogues.filePath(text("resource_config.xml")));
    }
}

void BrokenTree::announce(const QString& versionFile, const char* element,
                          const QString& catalogue) const
{
    if (!QFileInfo::exists(catalogue))
        return;
    QString content = QString::fromUtf8(read(versionFile));
    content.replace(QRegularExpression(text("<%1 value=\"[^\"]*\"").arg(text(element))),
                    text("<%1 value=\"%2\"").arg(text(element), Utils::getMD5(catalogue)));
    write(versionFile, content.toUtf8());
}

QJsonArray BrokenTree::findings(const QString& tree)
{
    const Outcome outcome = Mvpublish::run({text("lint"), text("--json"), tree});
    return QJsonDocument::fromJson(outcome.out).object().value(text("findings")).toArray();
}

namespace Broken {

const QString configFile = QStringLiteral("ResourceConfig/resource_config.xml");
const QString displayFile = QStringLiteral("ResourceConfig/resource_display.xml");
const QString displayAffFile = QStringLiteral("ResourceConfig/resource_display_aff.xml");
const QString versionFile = QStringLiteral("ResourceConfig/resource_version_v3.xml");
const QString noneGuid = QStringLiteral("{25DA2554-DB68-4026-ACE1-3EDDA71DA6D4}");

QString guid(const char* item)
{
    return SmallSource::guid(text(item));
}

QString encoded(const char* item)
{
    return QString(guid(item)).replace(text("{"), text("%7B")).replace(text("}"), text("%7D"));
}

QString entry(const QString& itemGuid, const char* more)
{
    return text("<Item><GUID>%1</GUID>%2</Item>").arg(itemGuid, text(more));
}

Break replace(const QString& file, const QString& from, const QString& to)
{
    return [=](const BrokenTree& tree) { tree.replace(file, from, to); };
}

Break remove(const QString& file)
{
    return [=](const BrokenTree& tree) { tree.remove(file); };
}

Break write(const QString& file, const QByteArray& content)
{
    return [=](const BrokenTree& tree) { tree.write(file, content); };
}

Break cut(const QString& file, int bytes)
{
    return [=](const BrokenTree& tree) { tree.write(file, tree.read(file).left(bytes)); };
}

Break linkOut(const QString& file)
{
    return [=](const BrokenTree& tree) {
        const QString elsewhere = home("elsewhere");
        CatalogueFiles::write(elsewhere, tree.read(file));
        tree.remove(file);
        QFile::link(elsewhere, tree.file(file));
    };
}

bool isRowImpossible()
{
    const QByteArray row = QTest::currentDataTag();
    return !UnusualFiles::hasFileLinks
        && (row.contains("a link out of the tree") || row.endsWith("with a question mark"));
}

void columns()
{
    QTest::addColumn<Break>("change");
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("item");
}

void row(const char* name, const Break& change, const char* code, const QString& file,
         const QString& item)
{
    QTest::newRow(name) << change << text(code) << file << item;
}

QString check(const QString& clean)
{
    const auto column = [](const char* name) {
        return *static_cast<QString*>(QTest::qData(name, qMetaTypeId<QString>()));
    };
    const BrokenTree tree(clean);
    (*static_cast<Break*>(QTest::qData("change", qMetaTypeId<Break>())))(tree);
    tree.announce();
    const QJsonArray findings = BrokenTree::findings(tree.folder());
    const QJsonObject finding = findings.at(0).toObject();
    const QString item = finding.value(text("item")).toString();
    const bool right = findings.size() == 1
        && finding.value(text("code")).toString() == column("code")
        && finding.value(text("severity")).toString() == text("error")
        && finding.value(text("file")).toString() == column("file")
        && item.startsWith(column("item")) && item.isEmpty() == column("item").isEmpty()
        && !finding.value(text("message")).toString().isEmpty()
        && !finding.value(text("advice")).toString().isEmpty();
    return right ? QString() : QString::fromUtf8(QJsonDocument(findings).toJson());
}

} // namespace Broken
