#include "lint/NamedFiles.h"

#include "FileNames.h"
#include "lint/LintContext.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QUrl>

namespace NamedFiles {

namespace {

bool isAddress(const QString& text)
{
    static const QRegularExpression form(
        QStringLiteral("\\A([A-Za-z0-9\\-._~!$&'()*+,;=:@/]|%[0-9A-Fa-f]{2})*\\z"));
    return form.match(text).hasMatch();
}

/// The name under which a file is looked for must be the one that the server is asked for.
bool isAddressRight(LintContext& context, const SFileInfo& info, const NamedBy& by)
{
    const QString& name = info.m_qsUrl;
    if (!isAddress(ReadTree::addressOf(info))) {
        context.report("encoding", by.catalogue, by.line, by.item,
                       QStringLiteral("the name %1 cannot stand in an address").arg(name),
                       QStringLiteral("write %1")
                           .arg(QString::fromLatin1(QUrl::toPercentEncoding(
                               QUrl::fromPercentEncoding(name.toUtf8()), "/"))));
        return false;
    }
    if (context.tree().addressLeadsToFile(info))
        return true;
    context.report("address", by.catalogue, by.line, by.item,
                   QStringLiteral("the name %1 is fetched from %2 and looked for elsewhere")
                       .arg(name, ReadTree::addressOf(info)),
                   info.m_bThumbDir
                       ? QStringLiteral("name previews without a slash in front")
                       : QStringLiteral("begin the name with one slash and encode all of it, or "
                                        "nothing of it"));
    return false;
}

} // namespace

QString existing(LintContext& context, const SFileInfo& info, const NamedBy& by, bool needed,
                 bool fetched)
{
    QString file = context.tree().fileOf(info);
    // Several catalogues may say the same of an item.
    const bool isNews = context.isFirstLook(by.item + QLatin1Char('\n') + info.m_qsUrl);
    if (file.isEmpty() && !isNews)
        return QString();
    if (file.isEmpty()) {
        context.report("outside", by.catalogue, by.line, by.item,
                       QStringLiteral("the name %1 leads out of the tree").arg(info.m_qsUrl),
                       QStringLiteral("no client fetches it; name a file below the tree"));
        return QString();
    }
    context.use(file);
    if (fetched && isNews && !isAddressRight(context, info, by))
        return QString();
    if (isThere(context, file, by))
        return file;
    const bool isMissing = !QFileInfo(context.tree().absolute(file)).isFile();
    if (isMissing && needed && context.isFirstLook(file))
        context.report("missing-file", by.catalogue, by.line, by.item,
                       QStringLiteral("%1 is missing").arg(file),
                       QStringLiteral("publish the file, or take its name away"));
    return QString();
}

bool isThere(LintContext& context, const QString& file, const NamedBy& by)
{
    const QString path = context.tree().absolute(file);
    if (FileNames::isFileBelow(context.tree().folder(), path))
        return true;
    if (QFileInfo(path).isFile() && context.isFirstLook(file))
        context.report("outside", by.catalogue, by.line, by.item,
                       QStringLiteral("%1 is a link out of the tree").arg(file),
                       QStringLiteral("servers follow no links; publish the file itself"));
    return false;
}

} // namespace NamedFiles
