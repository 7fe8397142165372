// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Documents.h"
#include "records/KindTable.h"

#include "records/DependencySlots.h"
#include "Source.h"
#include "tree/Editions.h"
#include "tree/Guids.h"
#include "tree/Kinds.h"

#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>
#include <QXmlStreamWriter>

namespace {

using Xml = QXmlStreamWriter;

/// Returns a document whose root element `fill` writes; empty if XML cannot represent it.
template <typename Fill>
QByteArray documentOf(const QString& root, const Fill& fill)
{
    QByteArray bytes;
    Xml out(&bytes);
    out.setAutoFormatting(true);
    out.setAutoFormattingIndent(2);
    out.writeStartDocument();
    out.writeStartElement(root);
    fill(out);
    out.writeEndDocument();
    return out.hasError() ? QByteArray() : bytes;
}

/// Returns a name that the library appends unchanged to the server's address.
QString address(const QString& path)
{
    return QLatin1Char('/') + QString::fromLatin1(QUrl::toPercentEncoding(path, "/"));
}

QString definitionName(const SourceItem& item)
{
    const QString name = item.guid + QStringLiteral(".xml");
    return item.builtIn ? name : address(KindTable::of(item.type).folder + QLatin1Char('/') + name);
}

QString fileName(const SourceItem& item, const QString& file)
{
    if (item.builtIn)
        return file;
    return address(KindTable::of(item.type).folder + QLatin1Char('/') + item.guid + QLatin1Char('/')
                   + file);
}

void writeConfigItem(Xml& out, const SourceItem& item)
{
    out.writeStartElement(QStringLiteral("Item"));
    out.writeTextElement(QStringLiteral("GUID"), item.guid);
    out.writeTextElement(QStringLiteral("UrlCnf"), definitionName(item));
    out.writeStartElement(QStringLiteral("UrlResource"));
    for (const QString& file : item.files)
        out.writeTextElement(QStringLiteral("Url"), fileName(item, file));
    for (const QString& file : item.shared)
        out.writeTextElement(QStringLiteral("Url"), address(file));
    out.writeEndElement();
    out.writeEndElement();
}

void writeNone(Xml& out, const QString& name)
{
    out.writeStartElement(QStringLiteral("Item"));
    out.writeTextElement(QStringLiteral("GUID"), Guids::none);
    out.writeTextElement(QStringLiteral("Name"), name);
    out.writeTextElement(QStringLiteral("UrlThumb"), QStringLiteral("None.png"));
    out.writeEndElement();
}

void writeDisplayItem(Xml& out, const SourceItem& item, const QString& audience)
{
    out.writeStartElement(QStringLiteral("Item"));
    out.writeTextElement(QStringLiteral("GUID"), item.guid);
    out.writeTextElement(QStringLiteral("Name"), item.nameFor(audience));
    if (!item.thumbnail.isEmpty())
        out.writeTextElement(QStringLiteral("UrlThumb"), item.thumbnail);
    if (!item.animation.isEmpty())
        out.writeTextElement(QStringLiteral("UrlGif"), item.animation);
    if (item.type == eCfgItem_Filter) {
        out.writeTextElement(QStringLiteral("IsText"),
                             item.isText ? QStringLiteral("1") : QStringLiteral("0"));
    }
    out.writeEndElement();
}

void writeThemes(Xml& out, const Documents::Items& items, const QString& audience)
{
    const QStringList types = Kinds::themeTypes();
    for (const QString& type : types) {
        out.writeStartElement(QStringLiteral("Group"));
        out.writeAttribute(QStringLiteral("Type"), type);
        for (const SourceItem* item : items) {
            if (item->type == eCfgItem_Theme && item->themeType == type)
                writeDisplayItem(out, *item, audience);
        }
        out.writeEndElement();
    }
}

void writeSlots(Xml& out, const SourceSlots& part)
{
    for (const auto& slot : DependencySlots::all()) {
        const auto use = part.constFind(slot.type);
        if (use == part.constEnd())
            continue;
        out.writeStartElement(slot.name);
        out.writeStartElement(QStringLiteral("GUID"));
        for (auto it = use->attributes.cbegin(); it != use->attributes.cend(); ++it)
            out.writeAttribute(it.key(), it.value());
        out.writeCharacters(use->item);
        out.writeEndElement();
        out.writeEndElement();
    }
}

void writePart(Xml& out, const char* element, const SourceSlots& part)
{
    if (part.isEmpty())
        return;
    out.writeStartElement(QString::fromLatin1(element));
    writeSlots(out, part);
    out.writeEndElement();
}

void writeParameters(Xml& out, const SourceItem& item)
{
    if (!item.family.isEmpty())
        out.writeTextElement(QStringLiteral("Family"), item.family);
    for (const QString& file : item.files)
        out.writeTextElement(QStringLiteral("Resource"), file);
    out.writeStartElement(QStringLiteral("Parameters"));
    for (auto it = item.parameters.cbegin(); it != item.parameters.cend(); ++it) {
        out.writeEmptyElement(QStringLiteral("Parameter"));
        out.writeAttribute(QStringLiteral("Name"), it.key());
        out.writeAttribute(QStringLiteral("Value"), it.value());
    }
    out.writeEndElement();
}

QString sum(const QByteArray& document)
{
    return QString::fromLatin1(QCryptographicHash::hash(document, QCryptographicHash::Md5).toHex());
}

void writeSum(Xml& out, const char* element, const QByteArray& document)
{
    out.writeEmptyElement(QString::fromLatin1(element));
    out.writeAttribute(QStringLiteral("value"), sum(document));
}

} // namespace

namespace Documents {

QByteArray config(const Items& items)
{
    return documentOf(QStringLiteral("ResourceConfig"), [&](Xml& out) {
        for (const SKindInfo& kind : KindTable::all()) {
            out.writeStartElement(kind.name);
            for (const SourceItem* item : items) {
                if (item->type == kind.type)
                    writeConfigItem(out, *item);
            }
            out.writeEndElement();
        }
    });
}

QByteArray display(const Items& items, const Source& source, const QString& audience)
{
    return documentOf(QStringLiteral("ResourceDisplay"), [&](Xml& out) {
        for (const SKindInfo& kind : KindTable::all()) {
            out.writeStartElement(kind.name);
            if (kind.hasNoneEntry)
                writeNone(out, source.noneName(audience));
            if (kind.type == eCfgItem_Theme)
                writeThemes(out, items, audience);
            for (const SourceItem* item : items) {
                if (item->type == kind.type && kind.type != eCfgItem_Theme)
                    writeDisplayItem(out, *item, audience);
            }
            out.writeEndElement();
        }
    });
}

QByteArray version(const QString& version, const QByteArray& display, const QByteArray& config)
{
    return documentOf(QStringLiteral("ResourceVersion"), [&](Xml& out) {
        out.writeAttribute(QStringLiteral("value"), version);
        writeSum(out, "dislplay", display); // the element's actual spelling
        writeSum(out, "config", config);
    });
}

QByteArray kindList(const SKindInfo& kind, const Items& items)
{
    return documentOf(kind.folder, [&](Xml& out) {
        for (const SourceItem* item : items) {
            if (item->type != kind.type)
                continue;
            out.writeStartElement(QStringLiteral("Item"));
            out.writeTextElement(QStringLiteral("GUID"), item->guid);
            out.writeTextElement(QStringLiteral("Name"), item->name);
            out.writeTextElement(QStringLiteral("File"), item->guid + QStringLiteral(".xml"));
            out.writeEndElement();
        }
    });
}

QByteArray definition(const SourceItem& item)
{
    return documentOf(KindTable::of(item.type).definition, [&](Xml& out) {
        out.writeTextElement(QStringLiteral("GUID"), item.guid);
        out.writeTextElement(QStringLiteral("Name"), item.name);
        if (item.type != eCfgItem_Theme)
            writeParameters(out, item);
        for (const SourceSlots& scene : item.scenes) {
            out.writeStartElement(QStringLiteral("Item"));
            writeSlots(out, scene);
            out.writeEndElement();
        }
        writePart(out, "Item_start", item.start);
        writePart(out, "Item_end", item.end);
        writePart(out, "Item_Mask", item.mask);
    });
}

QByteArray themeTypes(const Items& items)
{
    QJsonObject types;
    const QStringList themeTypes = Kinds::themeTypes();
    for (const QString& name : themeTypes) {
        QJsonArray guids;
        for (const SourceItem* item : items) {
            if (item->type == eCfgItem_Theme && item->themeType == name)
                guids.append(item->guid);
        }
        if (name != Kinds::otherThemes())
            types.insert(name, guids);
    }
    return QJsonDocument(types).toJson();
}

} // namespace Documents
