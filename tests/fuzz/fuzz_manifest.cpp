// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Builds a publisher's manifests: the source's, then those of a filter, a transition and a theme.
// Whatever can be built must be free of findings.

#include "CatalogueWorld.h"
#include "FuzzTarget.h"
#include "lint/Lint.h"
#include "Parts.h"
#include "Require.h"
#include "Source.h"
#include "tree/ReadTree.h"
#include "TreeBuilder.h"
#include "WriteGuard.h"

#include <QDir>

namespace {

const char* const itemFolders[] = {"look", "fade", "film"};

class ManifestTarget : public FuzzTarget
{
public:
    ManifestTarget();
    void run(const QByteArray& input) override;

private:
    void addFiles(const QString& folder) const;
    static QStringList described(const Source& source);
    void checkBuilt(const Source& source) const;
    QString source() const { return TestHome::path() + QStringLiteral("/source"); }
    QString tree() const { return TestHome::path() + QStringLiteral("/tree"); }
};

ManifestTarget::ManifestTarget()
{
    for (const char* item : itemFolders)
        addFiles(source() + QLatin1Char('/') + QString::fromLatin1(item) + QLatin1Char('/'));
    addFiles(source() + QStringLiteral("/shared/"));
}

void ManifestTarget::addFiles(const QString& folder) const
{
    const QString display = QStringLiteral(MV_SAMPLES "/server/display/");
    CatalogueFiles::write(folder + QStringLiteral("a.png"),
                          CatalogueFiles::read(display + QStringLiteral("VideoFilters/None.png")));
    CatalogueFiles::write(
        folder + QStringLiteral("a.gif"),
        CatalogueFiles::read(QStringLiteral(MV_SAMPLES "/testoutput/testskin/Simple.gif")));
    CatalogueFiles::write(folder + QStringLiteral("own.xml"), "<Theme/>");
    CatalogueFiles::write(folder + QStringLiteral("notes/read me.txt"), "notes");
    CatalogueFiles::write(folder + QStringLiteral("pack/a.txt"), "a");
}

void ManifestTarget::run(const QByteArray& input)
{
    const Parts parts(input);
    CatalogueFiles::write(source() + QStringLiteral("/catalogue.json"), parts.at(0));
    int part = 0;
    for (const char* item : itemFolders) {
        CatalogueFiles::write(source() + QLatin1Char('/') + QString::fromLatin1(item)
                                  + QStringLiteral("/item.json"),
                              parts.at(++part));
    }
    QDir(tree()).removeRecursively();
    QDir().mkpath(tree());
    const WriteGuard guard({tree()});
    Source first;
    const bool isSound = first.read(source());
    require(isSound == first.faults().isEmpty(), "what cannot be published has faults");
    Source second;
    second.read(source());
    require(described(second) == described(first), "a source reads the same every time");
    if (isSound)
        checkBuilt(first);
}

QStringList ManifestTarget::described(const Source& source)
{
    QStringList texts = source.faults() + source.warnings();
    texts.append(source.version());
    for (const SourceItem& item : source.items())
        texts += QStringList{item.path, item.guid, item.name} + item.uses() + item.files;
    return texts;
}

void ManifestTarget::checkBuilt(const Source& source) const
{
    TreeBuilder builder(source);
    require(builder.writeServer(tree(), Editions::all()), "a sound source can be built",
            builder.errorText());
    ReadTree built;
    QString error;
    require(built.open(tree(), &error), "what was built can be read", error);
    bool isAllOurs = true; // a definition of the publisher's own is published unchanged
    for (const SourceItem& item : source.items()) {
        require(built.find(item.type, item.guid), "every item is published", item.path);
        isAllOurs = isAllOurs && item.definition.isEmpty();
    }
    const Findings findings = Lint::check(built);
    for (const Finding& finding : findings)
        require(finding.severity != Severity::Error || !isAllOurs, "what was built has no findings",
                Lint::text(finding));
}

} // namespace

MV_FUZZ_TARGET(ManifestTarget, QCoreApplication)
