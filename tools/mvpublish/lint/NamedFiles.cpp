// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "lint/NamedFiles.h"

#include "catalogue/MVThemeMgr.h"
#include "lint/LintContext.h"
#include "tree/FileNames.h"
#include "tree/Texts.h"

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

/// A reason why no client can derive a file path from a name.
struct NameFault
{
    const char* code = nullptr; ///< null if clients can
    QString message;
    QString advice;
};

/// Returns the name with every percent sign encoded that begins no escape.
QString withWholeEscapes(QString name)
{
    static const QRegularExpression brokenEscape(QStringLiteral("%(?![0-9A-Fa-f]{2})"));
    return name.replace(brokenEscape, QStringLiteral("%25"));
}

/// Returns the path that the publisher means by a name with a leading slash.
QString meantPath(const QString& name)
{
    const QByteArray bytes = QByteArray::fromPercentEncoding(withWholeEscapes(name).toUtf8());
    // With an explicit length: otherwise decoding stops at a NUL.
    return QString::fromUtf8(bytes.constData(), bytes.size());
}

NameFault faultOf(const QString& name, bool decoded)
{
    const bool isDecoded = decoded && name.startsWith(QLatin1Char('/'));
    const QString path = isDecoded ? meantPath(name) : name;
    if (isDecoded && name != withWholeEscapes(name))
        return {"encoding", QStringLiteral("a % in the name %1 begins no escape").arg(name),
                QStringLiteral("clients decode names that begin with a slash; write %1")
                    .arg(QString::fromLatin1(QUrl::toPercentEncoding(path, "/")))};
    if (isDecoded && !Texts::isShowable(path))
        return {"encoding", QStringLiteral("the escapes in the name %1 give no text").arg(name),
                QStringLiteral("encode the name's UTF-8")};
    const QString last = path.section(QLatin1Char('/'), -1);
    if (!last.isEmpty() && last != QLatin1String(".") && last != QLatin1String(".."))
        return {};
    return {"no-name",
            name.isEmpty() ? QStringLiteral("the name of a file is empty")
                           : QStringLiteral("the name %1 is that of a folder").arg(name),
            QStringLiteral("name a file, or take the entry away")};
}

/// Marks the file meant by such a name as used, so that it does not count as unused as well.
void useMeantFile(LintContext& context, const SFileInfo& info)
{
    const MVThemeMgr::EDirTag half =
        info.m_bThumbDir ? MVThemeMgr::eDirTag_Display : MVThemeMgr::eDirTag_Config;
    SFileInfo meant = info;
    meant.m_qsFile = ReadTree::library().Path_resource_Dir(MVThemeMgr::eLoadDir_Download, half)
        + meantPath(info.m_qsUrl);
    context.use(context.tree().fileOf(meant));
}

/// Returns half and name, as part of a key.
QString keyOf(const SFileInfo& info)
{
    return (info.m_bThumbDir ? QStringLiteral("\ndisplay ") : QStringLiteral("\nconfig "))
        + info.m_qsUrl;
}

/// Checks that the name looked up on disk is the one requested from the server.
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

bool isUsable(LintContext& context, const SFileInfo& info, const NamedBy& by, bool decoded)
{
    const NameFault fault = faultOf(info.m_qsUrl, decoded);
    if (!fault.code)
        return true;
    useMeantFile(context, info);
    // Several catalogues may name the same file for an item.
    if (context.isFirstLook(by.item + keyOf(info) + QStringLiteral("\nname")))
        context.report(fault.code, by.catalogue, by.line, by.item, fault.message, fault.advice);
    return false;
}

QString existing(LintContext& context, const SFileInfo& info, const NamedBy& by, bool needed,
                 bool fetched)
{
    QString file = context.tree().fileOf(info);
    // Several catalogues may name the same file for an item.
    const bool isNews = context.isFirstLook(by.item + keyOf(info));
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
