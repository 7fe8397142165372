// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Reads the ThemeType.json of a download root.

#include "CatalogueWorld.h"
#include "FuzzTarget.h"
#include "Require.h"
#include "WriteGuard.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

class ThemeTypesTarget : public FuzzTarget
{
public:
    void run(const QByteArray& input) override
    {
        const QByteArray known = R"({"festivals": ["a"], "travel": ["b"], "banquets": ["c"]})";
        read(known);
        const QVector<QVariantList> former = lists();
        read(input);
        const QVector<QVariantList> first = lists();
        read(input);
        require(lists() == first, "a file reads the same every time");

        QJsonParseError error;
        const QJsonObject types = QJsonDocument::fromJson(input, &error).object();
        if (error.error != QJsonParseError::NoError) {
            require(first == former, "a file that is not JSON changes nothing");
            return;
        }
        QVector<QVariantList> expected;
        for (const char* key : {"festivals", "travel", "banquets"})
            expected.append(types.value(QLatin1String(key)).toArray().toVariantList());
        require(first == expected, "the lists are those that the file holds");
    }

private:
    void read(const QByteArray& content) const
    {
        CatalogueFiles::write(m_world.themeTypeFile(), content);
        const WriteGuard guard({m_world.root()});
        CatalogueWorld::manager().readThemeType();
    }

    static QVector<QVariantList> lists()
    {
        const MVThemeMgr& manager = CatalogueWorld::manager();
        return {manager.festivals(), manager.travel(), manager.banquets()};
    }

    CatalogueWorld m_world;
};

} // namespace

MV_FUZZ_TARGET(ThemeTypesTarget, QCoreApplication)
