// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Checks a foreign server tree as mvpublish does: config catalogue, display catalogue, version
// file, the theme config "/Themes/t.xml", and a picture used for all thumbnails and the animation.

#include "FuzzTarget.h"
#include "lint/Lint.h"
#include "Parts.h"
#include "Require.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "tree/ReadTree.h"
#include "WriteGuard.h"

#include <QDir>
#include <QJsonDocument>

namespace {

const char* const treeFiles[] = {
    "ResourceConfig/resource_config.xml",
    "ResourceConfig/resource_display.xml",
    "ResourceConfig/resource_version_v3.xml",
    "config/Themes/t.xml",
};
const char* const pictures[] = {
    "display/VideoFilters/a.png",
    "display/Themes/a.jpg",
    "display/Themes/a.gif",
    "display/BgMaterial/a.gif",
};

class TreeTarget : public FuzzTarget
{
public:
    void run(const QByteArray& input) override
    {
        const Parts parts(input);
        QDir(m_folder).removeRecursively();
        int part = 0;
        for (const char* file : treeFiles)
            write(file, parts.at(part++));
        for (const char* picture : pictures)
            write(picture, parts.at(part));
        const WriteGuard guard({});
        const QStringList first = findings();
        require(findings() == first, "a tree has the same findings every time");
    }

    bool mayWarn() const override { return true; } // the picture decoders do

private:
    void write(const char* file, const QByteArray& content) const
    {
        CatalogueFiles::write(m_folder + QLatin1Char('/') + QLatin1String(file), content);
    }

    QStringList findings() const
    {
        ReadTree tree;
        QString error;
        if (!tree.open(m_folder, &error)) {
            require(!error.isEmpty(), "a refusal has a reason");
            return {error};
        }
        const Findings found = Lint::check(tree);
        QStringList texts{QString::fromUtf8(Lint::json(tree, found).toJson())};
        for (const Finding& finding : found)
            texts.append(Lint::text(finding));
        return texts;
    }

    const QString m_folder = TestHome::path() + QStringLiteral("/tree");
};

} // namespace

MV_FUZZ_TARGET(TreeTarget, QCoreApplication)
