// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Builds the addresses for a file name as a catalogue may hold it.

#include "CatalogueWorld.h"
#include "FuzzTarget.h"
#include "Require.h"

#include <QUrl>

#include <algorithm>

namespace {

const QString serverRoot = QStringLiteral("http://server.example:8080/mv/");

class UrlsTarget : public FuzzTarget
{
public:
    UrlsTarget()
    {
        hostSettings().productParams.insert(QStringLiteral("url_themeRootDir"), serverRoot);
    }

    void run(const QByteArray& input) override
    {
        const QString name = QString::fromUtf8(input);
        checkConfig(name);
        for (int kind = eCfgItem_Filter; kind <= eCfgItem_BgMaterial; ++kind)
            checkThumb(static_cast<ECfgItemType>(kind), name);
    }

private:
    static void checkConfig(const QString& name)
    {
        const QString prefix = serverRoot + QStringLiteral("config");
        const QString url = MVThemeMgr::init()->downLoadUrl(MVThemeMgr::eDirTag_Config, name);
        require(url.startsWith(prefix), "an address begins with the server's root", url);
        const bool isEncoded =
            name.contains(QLatin1String("ThemesBgm")) && name.contains(QLatin1Char(' '));
        const QString tail = url.mid(prefix.size());
        require(isEncoded ? decoded(tail) == name : tail == name, "an address names the file", url);
        checkServer(url);
    }

    static void checkThumb(ECfgItemType kind, const QString& name)
    {
        const QString url =
            MVThemeMgr::init()->downLoadUrl_Thumb(MVThemeMgr::eDirTag_Display, kind, name);
        const QString prefix = serverRoot + QStringLiteral("display/");
        require(url.startsWith(prefix), "an address begins with the server's root", url);
        const QString tail = url.mid(prefix.size());
        require(tail.count(QLatin1Char('/')) == 1, "a picture's name is one name", url);
        require(decoded(tail.section(QLatin1Char('/'), 1)) == name, "an address names the file",
                url);
        require(std::all_of(tail.cbegin(), tail.cend(), isUrlCharacter),
                "a picture's address needs no encoding", url);
        checkServer(url);
    }

    /// Requires an address to point at the server, whatever its path.
    static void checkServer(const QString& url)
    {
        const QUrl parsed(url, QUrl::TolerantMode);
        if (!parsed.isValid())
            return; // not fetched
        require(parsed.scheme() == QLatin1String("http") && parsed.port() == 8080
                    && parsed.host() == QLatin1String("server.example")
                    && parsed.userInfo().isEmpty(),
                "an address leads to the server", url);
    }

    static QString decoded(const QString& text)
    {
        const QByteArray bytes = QByteArray::fromPercentEncoding(text.toUtf8());
        return QString::fromUtf8(bytes.constData(), bytes.size());
    }

    static bool isUrlCharacter(QChar c)
    {
        return (c >= QLatin1Char('a') && c <= QLatin1Char('z'))
            || (c >= QLatin1Char('A') && c <= QLatin1Char('Z'))
            || (c >= QLatin1Char('0') && c <= QLatin1Char('9'))
            || QStringLiteral("-._~%/").contains(c);
    }
};

} // namespace

MV_FUZZ_TARGET(UrlsTarget, QCoreApplication)
