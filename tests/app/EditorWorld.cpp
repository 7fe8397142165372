// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "EditorWorld.h"

#include "support/CatalogueFiles.h"
#include "support/HttpAnswer.h"
#include "support/ReleaseTree.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QFile>
#include <QImage>
#include <QTest>
#include <QUrl>

namespace {

constexpr int filterNumber = 1;
constexpr int backgroundNumber = 2;
constexpr int firstTheme = 1000;

const QString configFolder = QStringLiteral("Themes/config/PQD/Download");
const QString displayFolder = QStringLiteral("Themes/display/PQD/Download");

QString slug(const QString& theme)
{
    return theme.toLower().replace(QLatin1Char(' '), QLatin1Char('-'));
}

QByteArray picture(const QString& name)
{
    QImage image(160, 90, QImage::Format_RGB32);
    image.fill(QColor::fromHsv(int(qHash(name) % 360), 140, 200));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

QByteArray animation()
{
    return CatalogueFiles::read(QStringLiteral(MV_SAMPLES "/testoutput/testskin/Simple.gif"));
}

QByteArray checksum(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex();
}

} // namespace

EditorWorld::EditorWorld()
    : m_server([this](HttpExchange& exchange) { answer(exchange); })
{
    publish({});
    install({});
    writeSettings();
}

EditorWorld::~EditorWorld() = default;

QString EditorWorld::themeGuid(const QString& theme)
{
    return CatalogueFiles::guid(firstTheme + int(qHash(theme, 1) % 1000000));
}

QString EditorWorld::themeFile(const QString& theme) const
{
    return root() + QLatin1Char('/') + configFolder
        + QStringLiteral("/Themes/%1/theme.zip").arg(slug(theme));
}

EditorWorld::Tree EditorWorld::previews(const QStringList& themes)
{
    Tree tree;
    for (const QString& theme : themes) {
        tree.insert(QStringLiteral("display/Themes/%1.png").arg(slug(theme)), picture(theme));
        tree.insert(QStringLiteral("display/Themes/%1.gif").arg(slug(theme)), animation());
    }
    tree.insert(QStringLiteral("display/VideoFilters/sepia.png"), picture(QStringLiteral("Sepia")));
    tree.insert(QStringLiteral("display/BgMaterial/blue.png"), picture(QStringLiteral("Blue")));
    return tree;
}

EditorWorld::Tree EditorWorld::files(const QStringList& themes)
{
    const QByteArray usesFilter = "<Item><Filter><GUID>"
        + CatalogueFiles::guid(filterNumber).toUtf8() + "</GUID></Filter></Item>";
    Tree tree;
    for (const QString& theme : themes) {
        tree.insert(QStringLiteral("config/Themes/%1.xml").arg(slug(theme)),
                    CatalogueFiles::document(usesFilter));
        tree.insert(QStringLiteral("config/Themes/%1/theme.zip").arg(slug(theme)),
                    "PK\x03\x04 archive of " + theme.toUtf8());
    }
    tree.insert(QStringLiteral("config/VideoFilters/sepia.xml"), "<Filter/>");
    tree.insert(QStringLiteral("config/BgMaterial/blue.xml"), "<Background/>");
    return tree;
}

EditorWorld::Tree EditorWorld::catalogue(const QStringList& themes)
{
    const QString filter = CatalogueFiles::guid(filterNumber);
    const QString background = CatalogueFiles::guid(backgroundNumber);
    QVector<CatalogueFiles::CfgItem> items;
    QVector<CatalogueFiles::DisplayItem> festivals;
    QVector<CatalogueFiles::DisplayItem> others;
    for (const QString& theme : themes) {
        const QString name = slug(theme);
        items.append({themeGuid(theme),
                      QStringLiteral("/Themes/%1.xml").arg(name),
                      {QStringLiteral("/Themes/%1/theme.zip").arg(name)}});
        const CatalogueFiles::DisplayItem shown{themeGuid(theme), theme,
                                                name + QStringLiteral(".png"),
                                                name + QStringLiteral(".gif"), QString()};
        (theme.startsWith(QLatin1Char('A')) ? festivals : others).append(shown);
    }
    const QByteArray config = CatalogueFiles::document(
        CatalogueFiles::cfgGroup(QStringLiteral("Filter"),
                                 {{filter, QStringLiteral("/VideoFilters/sepia.xml"), {}}})
        + CatalogueFiles::cfgGroup(QStringLiteral("Theme"), items)
        + CatalogueFiles::cfgGroup(QStringLiteral("BgMaterial"),
                                   {{background, QStringLiteral("/BgMaterial/blue.xml"), {}}}));
    const QByteArray display = CatalogueFiles::document(
        CatalogueFiles::displayCategory(
            QStringLiteral("Filter"),
            {{filter, QStringLiteral("Sepia"), QStringLiteral("sepia.png")}})
        + CatalogueFiles::displayThemes(
            {{QStringLiteral("festivals"), festivals}, {QStringLiteral("others"), others}})
        + CatalogueFiles::displayCategory(
            QStringLiteral("BgMaterial"),
            {{background, QStringLiteral("Blue"), QStringLiteral("blue.png")}}));
    const QByteArray version = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                               "<ResourceVersion value=\"1.2.0\">\n<dislplay value=\""
        + checksum(display) + "\" />\n<config value=\"" + checksum(config)
        + "\" />\n</ResourceVersion>\n";
    return {{QStringLiteral("ResourceConfig/resource_config.xml"), config},
            {QStringLiteral("ResourceConfig/resource_display.xml"), display},
            {QStringLiteral("ResourceConfig/resource_version.xml"), version}};
}

void EditorWorld::publish(const QStringList& themes)
{
    Tree tree = catalogue(themes);
    tree.insert(QStringLiteral("ResourceConfig/resource_version_v3.xml"),
                tree.take(QStringLiteral("ResourceConfig/resource_version.xml")));
    for (const Tree& part : {previews(themes), files(themes)}) {
        for (auto it = part.cbegin(); it != part.cend(); ++it)
            tree.insert(it.key(), it.value());
    }
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_tree = tree;
}

void EditorWorld::publishTree(const QString& folder)
{
    Tree tree;
    const QStringList files = CatalogueFiles::filesBelow(folder);
    for (const QString& file : files)
        tree.insert(file, CatalogueFiles::read(folder + QLatin1Char('/') + file));
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_tree = tree;
}

void EditorWorld::publishRelease(const QStringList& themes, qint64 serial, const Tree& changed)
{
    publish(themes);
    const std::lock_guard<std::mutex> lock(m_mutex);
    for (auto file = changed.cbegin(); file != changed.cend(); ++file)
        m_tree.insert(file.key(), file.value());
    const ReleaseTree release = ReleaseTree::of(m_tree, serial, QStringLiteral("1.2.0"));
    for (auto file = release.added.cbegin(); file != release.added.cend(); ++file)
        m_tree.insert(file.key(), file.value());
}

void EditorWorld::install(const QStringList& themes) const
{
    for (const Tree& part : {catalogue(themes), previews(themes)}) {
        for (auto it = part.cbegin(); it != part.cend(); ++it)
            CatalogueFiles::write(folder() + QStringLiteral("/installed/Resource/") + it.key(),
                                  it.value());
    }
}

void EditorWorld::fillRoot(const QStringList& themes)
{
    const Tree catalogueFiles = catalogue(themes);
    for (auto it = catalogueFiles.cbegin(); it != catalogueFiles.cend(); ++it)
        CatalogueFiles::write(root() + QStringLiteral("/Themes/") + it.key(), it.value());
    for (const Tree& part : {previews(themes), files(themes)}) {
        for (auto it = part.cbegin(); it != part.cend(); ++it) {
            QString path = it.key();
            path.replace(QStringLiteral("config/"), configFolder + QLatin1Char('/'));
            path.replace(QStringLiteral("display/"), displayFolder + QLatin1Char('/'));
            CatalogueFiles::write(root() + QLatin1Char('/') + path, it.value());
        }
    }
}

void EditorWorld::removePreviews(const QStringList& themes) const
{
    for (const QString& theme : themes) {
        for (const char* suffix : {"png", "gif"}) {
            const QString name = slug(theme) + QLatin1Char('.') + QLatin1String(suffix);
            QVERIFY(QFile::remove(root() + QLatin1Char('/') + displayFolder
                                  + QStringLiteral("/Themes/") + name));
        }
    }
}

void EditorWorld::setFault(const Fault& fault)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_fault = fault;
    m_requests = 0;
}

void EditorWorld::answer(HttpExchange& exchange)
{
    QString path = QUrl::fromPercentEncoding(exchange.request().target);
    while (path.startsWith(QLatin1Char('/')))
        path.remove(0, 1);
    Fault fault;
    int number = 0;
    QByteArray body;
    bool known = false;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        fault = m_fault;
        number = ++m_requests;
        known = m_tree.contains(path);
        body = m_tree.value(path);
    }
    if (fault && fault(exchange, number))
        return;
    if (known)
        exchange.answer(HttpAnswer(200).body(body));
    else
        exchange.answer(HttpAnswer(404).body("no such file"));
}

QString EditorWorld::preferencesFile() const
{
    return folder() + QStringLiteral("/home/.config/mveditor/preferences.json");
}

void EditorWorld::writeSettings(int stallTimeoutMs) const
{
    CatalogueFiles::write(folder() + QStringLiteral("/host.ini"),
                          QStringLiteral("[paths]\n"
                                         "resources=installed\n"
                                         "data=data\n"
                                         "appData=work\n"
                                         "testOutput=%1/testoutput\n"
                                         "[params]\n"
                                         "hasMV=1\n"
                                         "hasSplit=1\n"
                                         "url_slidershow=http://127.0.0.1:1/more\n"
                                         "[network]\n"
                                         "downloadRetries=0\n"
                                         "stallTimeoutMs=%2\n")
                              .arg(QStringLiteral(MV_SAMPLES))
                              .arg(stallTimeoutMs)
                              .toUtf8());
}

QStringList EditorWorld::arguments(bool online) const
{
    const QString server = online
        ? m_server.url(QStringLiteral("/"))
        : QStringLiteral("http://127.0.0.1:%1/").arg(FaultServer::refusingPort());
    const QVector<QPair<QString, QString>> options{
        {QStringLiteral("--settings"), folder() + QStringLiteral("/host.ini")},
        {QStringLiteral("--root"), root()},
        {QStringLiteral("--server"), server}};
    QStringList arguments;
    for (const auto& option : options) {
        if (!m_leftOut.contains(option.first))
            arguments << option.first << option.second;
    }
    return arguments;
}
