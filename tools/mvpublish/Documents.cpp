#include "Documents.h"

#include "Editions.h"
#include "Guids.h"
#include "Source.h"

#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>
#include <QXmlStreamWriter>

namespace {

/// A document and its root element, open until the object goes.
class Document : public QXmlStreamWriter
{
public:
    Document(QByteArray& out, const QString& root)
        : QXmlStreamWriter(&out)
    {
        setAutoFormatting(true);
        setAutoFormattingIndent(2);
        writeStartDocument();
        writeStartElement(root);
    }
    ~Document() { writeEndDocument(); }
    Q_DISABLE_COPY_MOVE(Document)
};

/// A name that the library appends to the server's address as it stands.
QString address(const QString& path)
{
    return QLatin1Char('/') + QString::fromLatin1(QUrl::toPercentEncoding(path, "/"));
}

QString definitionName(const SourceItem& item)
{
    const QString name = item.guid + QStringLiteral(".xml");
    return item.builtIn ? name : address(Kinds::of(item.type).folder + QLatin1Char('/') + name);
}

QString fileName(const SourceItem& item, const QString& file)
{
    if (item.builtIn)
        return file;
    return address(Kinds::of(item.type).folder + QLatin1Char('/') + item.guid + QLatin1Char('/')
                   + file);
}

void writeConfigItem(Document& out, const SourceItem& item)
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

void writeNone(Document& out, const QString& name)
{
    out.writeStartElement(QStringLiteral("Item"));
    out.writeTextElement(QStringLiteral("GUID"), Guids::none);
    out.writeTextElement(QStringLiteral("Name"), name);
    out.writeTextElement(QStringLiteral("UrlThumb"), QStringLiteral("None.png"));
    out.writeEndElement();
}

void writeDisplayItem(Document& out, const SourceItem& item, const QString& audience)
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

/// Theme types in the order in which their groups are written.
QStringList typeOrder()
{
    return {QStringLiteral("festivals"), QStringLiteral("travel"), QStringLiteral("banquets"),
            QStringLiteral("others")};
}

void writeThemes(Document& out, const Documents::Items& items, const QString& audience)
{
    const QStringList types = typeOrder();
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

void writeSlots(Document& out, const SourceSlots& part)
{
    for (const auto& slot : Slots::all()) {
        const auto use = part.constFind(slot.first);
        if (use == part.constEnd())
            continue;
        out.writeStartElement(slot.second);
        out.writeStartElement(QStringLiteral("GUID"));
        for (auto it = use->attributes.cbegin(); it != use->attributes.cend(); ++it)
            out.writeAttribute(it.key(), it.value());
        out.writeCharacters(use->item);
        out.writeEndElement();
        out.writeEndElement();
    }
}

void writePart(Document& out, const char* element, const SourceSlots& part)
{
    if (part.isEmpty())
        return;
    out.writeStartElement(QString::fromLatin1(element));
    writeSlots(out, part);
    out.writeEndElement();
}

void writeParameters(Document& out, const SourceItem& item)
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

void writeSum(Document& out, const char* element, const QByteArray& document)
{
    out.writeEmptyElement(QString::fromLatin1(element));
    out.writeAttribute(QStringLiteral("value"), sum(document));
}

} // namespace

namespace Documents {

QByteArray config(const Items& items)
{
    QByteArray bytes;
    {
        Document out(bytes, QStringLiteral("ResourceConfig"));
        for (const Kind& kind : Kinds::all()) {
            out.writeStartElement(kind.group);
            for (const SourceItem* item : items) {
                if (item->type == kind.type)
                    writeConfigItem(out, *item);
            }
            out.writeEndElement();
        }
    }
    return bytes;
}

QByteArray display(const Items& items, const Source& source, const QString& audience)
{
    QByteArray bytes;
    {
        Document out(bytes, QStringLiteral("ResourceDisplay"));
        for (const Kind& kind : Kinds::all()) {
            out.writeStartElement(kind.group);
            if (Kinds::hasNoneEntry(kind.type))
                writeNone(out, source.noneName(audience));
            if (kind.type == eCfgItem_Theme)
                writeThemes(out, items, audience);
            for (const SourceItem* item : items) {
                if (item->type == kind.type && kind.type != eCfgItem_Theme)
                    writeDisplayItem(out, *item, audience);
            }
            out.writeEndElement();
        }
    }
    return bytes;
}

QByteArray version(const QString& version, const QByteArray& display, const QByteArray& config)
{
    QByteArray bytes;
    {
        Document out(bytes, QStringLiteral("ResourceVersion"));
        out.writeAttribute(QStringLiteral("value"), version);
        writeSum(out, "dislplay", display); // the element is spelled so
        writeSum(out, "config", config);
    }
    return bytes;
}

QByteArray kindList(const Kind& kind, const Items& items)
{
    QByteArray bytes;
    {
        Document out(bytes, kind.folder);
        for (const SourceItem* item : items) {
            if (item->type != kind.type)
                continue;
            out.writeStartElement(QStringLiteral("Item"));
            out.writeTextElement(QStringLiteral("GUID"), item->guid);
            out.writeTextElement(QStringLiteral("Name"), item->name);
            out.writeTextElement(QStringLiteral("File"), item->guid + QStringLiteral(".xml"));
            out.writeEndElement();
        }
    }
    return bytes;
}

QByteArray definition(const SourceItem& item)
{
    QByteArray bytes;
    {
        Document out(bytes, Kinds::of(item.type).definition);
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
    }
    return bytes;
}

QByteArray themeTypes(const Items& items)
{
    QJsonObject types;
    const QStringList names = typeOrder();
    for (const QString& name : names) {
        QJsonArray guids;
        for (const SourceItem* item : items) {
            if (item->type == eCfgItem_Theme && item->themeType == name)
                guids.append(item->guid);
        }
        if (name != QLatin1String("others"))
            types.insert(name, guids);
    }
    return QJsonDocument(types).toJson();
}

} // namespace Documents
