// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ReleaseFaults.h"

#include "download/ReleasePaths.h"
#include "host/ContentDigest.h"
#include "Mvpublish.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QDateTime>
#include <QFile>
#include <QRegularExpression>

namespace {

const char* const song = "config/ThemesBgm/Slow Song.mp3";

void row(const char* name, const ReleaseChange& change, const QStringList& expected)
{
    QTest::newRow(name) << change << expected;
}

void remove(const ReleasedTree& tree, const QString& name)
{
    if (!QFile::remove(tree.file(name)))
        qFatal("%s is not there", qPrintable(name));
}

QString signatureCopy(const ReleasedTree& tree)
{
    return ReleasePaths::signatureOf(tree.releaseDigest());
}

void documentRows()
{
    const QString release = ReleasePaths::release();
    const QString list = ReleasePaths::list();
    row("release is missing", [=](const ReleasedTree& tree) { remove(tree, release); },
        {text("release ") + release});
    row("release is no JSON",
        [=](const ReleasedTree& tree) { ReleaseFaults::replace(tree, release, "release"); },
        {text("release ") + release});
    row("release is too large",
        [=](const ReleasedTree& tree) {
            ReleaseFaults::replace(tree, release, tree.read(release) + QByteArray(4096, ' '));
        },
        {text("release ") + release});
    row("list is missing", [=](const ReleasedTree& tree) { remove(tree, list); },
        {text("release-list ") + list});
    row("list is another",
        [=](const ReleasedTree& tree) {
            ReleaseFaults::replace(tree, list, tree.read(list).replace("Slow", "Fast"));
        },
        {text("release-list ") + list});
}

void fileRows()
{
    row("content is missing",
        [](const ReleasedTree& tree) { remove(tree, ReleaseFaults::contentOf(tree, song)); },
        {text("release-content *")});
    row("content has another size",
        [](const ReleasedTree& tree) {
            ReleaseFaults::replace(tree, ReleaseFaults::contentOf(tree, song), "a slower song");
        },
        {text("release-content *")});
    row("content has other bytes",
        [](const ReleasedTree& tree) {
            ReleaseFaults::replace(tree, ReleaseFaults::contentOf(tree, song), "a Slow Song");
        },
        {text("release-content *")});
    row("content of the list is missing",
        [](const ReleasedTree& tree) {
            remove(tree, ReleasePaths::content(tree.release().m_listDigest));
        },
        {text("release-content *")});
    row("file has another size",
        [](const ReleasedTree& tree) { ReleaseFaults::replace(tree, text(song), "a slower song"); },
        {text("release-file ") + text(song)});
    row("file has other bytes",
        [](const ReleasedTree& tree) { ReleaseFaults::replace(tree, text(song), "a Slow Song"); },
        {text("release-file ") + text(song)});
}

void signatureRows()
{
    const QString signature = ReleasePaths::signature();
    const QStringList expected{text("release-signature ") + signature};
    row(
        "signature is damaged",
        [=](const ReleasedTree& tree) {
            for (const QString& name : {signature, signatureCopy(tree)})
                ReleaseFaults::replace(tree, name, "signature");
        },
        expected);
    row(
        "signature is missing beside the release",
        [=](const ReleasedTree& tree) { remove(tree, signature); }, expected);
    row("signature is missing where clients fetch it",
        [=](const ReleasedTree& tree) { remove(tree, signatureCopy(tree)); },
        {text("release-signature *")});
    row("two different signatures",
        [=](const ReleasedTree& tree) {
            ReleaseFaults::replace(tree, signatureCopy(tree), "untrusted comment: other");
        },
        {text("release-signature *")});
    row(
        "signature of another release",
        [=](const ReleasedTree& tree) {
            const QByteArray old = tree.read(signature);
            tree.build({text("--renew")});
            for (const QString& name : {signature, signatureCopy(tree)})
                CatalogueFiles::write(tree.file(name), old);
        },
        expected);
}

} // namespace

namespace ReleaseFaults {

QString key()
{
    return home("publisher.key");
}

QString makeKey()
{
    const Outcome outcome =
        Mvpublish::run({text("keygen"), key(), text("--no-password"), text("--force")});
    return QString::fromUtf8(outcome.err);
}

QString makeSigned(const ReleasedTree& tree, const QStringList& options)
{
    const QString error = tree.build(options);
    const Outcome outcome = Mvpublish::run({text("sign"), tree.folder(), text("--key"), key()});
    return error + QString::fromUtf8(outcome.err);
}

void columns()
{
    QTest::addColumn<ReleaseChange>("change");
    QTest::addColumn<QStringList>("expected");
}

void rows()
{
    documentRows();
    fileRows();
    signatureRows();
}

QString contentOf(const ReleasedTree& tree, const char* path)
{
    return ReleasePaths::content(tree.list().find(text(path)).digest);
}

void replace(const ReleasedTree& tree, const QString& name, const QByteArray& content)
{
    remove(tree, name);
    CatalogueFiles::write(tree.file(name), content);
}

QStringList findings(const QByteArray& output)
{
    static const QRegularExpression form(text("^(.+?): .*\\[([a-z-]+)\\]$"),
                                         QRegularExpression::MultilineOption);
    QStringList found;
    auto it = form.globalMatch(QString::fromUtf8(output));
    while (it.hasNext()) {
        const QRegularExpressionMatch match = it.next();
        const QString file = match.captured(1);
        // The names of contents differ from build to build.
        found.append(match.captured(2) + QLatin1Char(' ')
                     + (file.startsWith(text("content/")) ? text("*") : file));
    }
    found.sort();
    return found;
}

} // namespace ReleaseFaults
