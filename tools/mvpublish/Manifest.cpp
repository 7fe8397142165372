// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Manifest.h"

#include "JsonFields.h"
#include "records/DependencySlots.h"
#include "records/KindTable.h"
#include "tree/Editions.h"
#include "tree/Guids.h"
#include "tree/Kinds.h"
#include "tree/Texts.h"

#include <algorithm>

namespace {

void checkXml(JsonFields& fields, const char* key, const QStringList& texts)
{
    if (!std::all_of(texts.cbegin(), texts.cend(), &Texts::isXml))
        fields.fault(
            QStringLiteral("\"%1\" holds characters that XML cannot hold").arg(QLatin1String(key)));
}

SourceUse readUse(JsonFields& fields)
{
    SourceUse use{fields.needed("item"), fields.map("attributes")};
    const QStringList names = use.attributes.keys();
    for (const QString& name : names) {
        if (!Texts::isAttributeName(name))
            fields.fault(
                QStringLiteral("\"attributes\": \"%1\" is not an attribute name").arg(name));
    }
    checkXml(fields, "attributes", use.attributes.values());
    fields.finish();
    return use;
}

SourceSlots readSlots(const QJsonObject& object, const QString& where, QStringList& faults)
{
    SourceSlots result;
    JsonFields part(object, where, faults);
    for (const auto& slot : DependencySlots::all()) {
        const QByteArray key(slot.name.data(), slot.name.size());
        if (!part.has(key.constData()))
            continue;
        JsonFields use(part.object(key.constData()), where + QStringLiteral(": ") + slot.name,
                       faults);
        result.insert(slot.type, readUse(use));
    }
    part.finish();
    return result;
}

/// The library reads only the text slot of start and end, and the filter slot of the mask.
SourceSlots readEdge(JsonFields& fields, const char* key, EDependType only, const QString& where,
                     QStringList& faults)
{
    const QString name = QString::fromLatin1(key);
    const SourceSlots edge =
        readSlots(fields.object(key), where + QStringLiteral(": ") + name, faults);
    const bool other = std::any_of(edge.keyBegin(), edge.keyEnd(),
                                   [only](EDependType slot) { return slot != only; });
    if (other)
        fields.fault(QStringLiteral("\"%1\" has slots that are never read").arg(name));
    return edge;
}

void readTheme(JsonFields& fields, const QString& where, SourceItem& item, QStringList& faults)
{
    item.themeType = fields.needed("type");
    const QStringList types = Kinds::themeTypes();
    if (!item.themeType.isEmpty() && !types.contains(item.themeType))
        fields.fault(
            QStringLiteral("\"type\" is none of %1").arg(types.join(QStringLiteral(", "))));
    const QJsonArray scenes = fields.array("scenes");
    for (const QJsonValue& scene : scenes) {
        const QString number = QString::number(item.scenes.size() + 1);
        if (!scene.isObject())
            fields.fault(QStringLiteral("scene %1 is not an object").arg(number));
        item.scenes.append(
            readSlots(scene.toObject(), where + QStringLiteral(": scene ") + number, faults));
    }
    item.start = readEdge(fields, "start", eDependType_Text, where, faults);
    item.end = readEdge(fields, "end", eDependType_Text, where, faults);
    item.mask = readEdge(fields, "mask", eDependType_Filter, where, faults);
}

void readEffect(JsonFields& fields, SourceItem& item)
{
    if (item.type == eCfgItem_Filter)
        item.isText = fields.flag("text");
    item.family = fields.text("family");
    checkXml(fields, "family", {item.family});
    item.parameters = fields.map("parameters");
    QStringList texts = item.parameters.keys();
    texts.append(item.parameters.values());
    checkXml(fields, "parameters", texts);
}

void readNames(JsonFields& fields, SourceItem& item)
{
    item.name = fields.needed("name");
    item.names = fields.map("names");
    QStringList shown = item.names.values();
    shown.append(item.name);
    Manifest::checkAudiences(fields, "names", item.names);
    Manifest::checkShown(fields, QStringLiteral("a name"), shown);
}

void readFiles(JsonFields& fields, SourceItem& item)
{
    item.thumbnail = KindTable::of(item.type).hasThumbnail ? fields.needed("thumbnail")
                                                           : fields.text("thumbnail");
    item.animation =
        KindTable::of(item.type).hasPreview ? fields.needed("animation") : fields.text("animation");
    item.files = fields.texts("files");
    item.shared = fields.texts("shared");
    item.definition = fields.text("definition");
}

/// A definition of the publisher's own is published unchanged.
void checkDefinition(JsonFields& fields, const SourceItem& item)
{
    const QVector<QPair<const char*, bool>> written{
        {"scenes", !item.scenes.isEmpty()}, {"start", !item.start.isEmpty()},
        {"end", !item.end.isEmpty()},       {"mask", !item.mask.isEmpty()},
        {"family", !item.family.isEmpty()}, {"parameters", !item.parameters.isEmpty()},
    };
    for (const auto& field : written) {
        if (field.second && !item.definition.isEmpty())
            fields.fault(QStringLiteral("\"%1\" means nothing beside \"definition\"")
                             .arg(QLatin1String(field.first)));
    }
}

} // namespace

void Manifest::checkShown(JsonFields& fields, const QString& what, const QStringList& names)
{
    for (const QString& name : names) {
        const QString fault = Texts::nameFault(name);
        if (!fault.isEmpty())
            fields.fault(what + QLatin1Char(' ') + fault);
    }
}

void Manifest::checkAudiences(JsonFields& fields, const char* key,
                              const QMap<QString, QString>& names)
{
    const QStringList known = Editions::audiences() << Editions::installedAudience;
    for (auto it = names.constBegin(); it != names.constEnd(); ++it) {
        if (!known.contains(it.key()))
            fields.fault(QStringLiteral("\"%1\": \"%2\" is none of %3")
                             .arg(QLatin1String(key), it.key(), known.join(QStringLiteral(", "))));
    }
}

void Manifest::read(SourceItem& item, QStringList& faults)
{
    const QString where = item.path + QLatin1Char('/') + fileName();
    const int before = faults.size();
    const QJsonObject object =
        JsonFields::read(item.folder + QLatin1Char('/') + fileName(), where, faults);
    if (faults.size() != before)
        return;
    JsonFields fields(object, where, faults);
    item.guid = fields.needed("guid");
    if (!item.guid.isEmpty() && !Guids::isProper(item.guid))
        fields.fault(QStringLiteral("\"guid\" is not a GUID in braces and capitals"));
    const QString word = fields.needed("kind");
    const SKindInfo* const kind = Kinds::byWord(word);
    if (!kind) {
        if (!word.isEmpty())
            fields.fault(QStringLiteral("\"kind\" is none of %1").arg(Kinds::words()));
        return;
    }
    item.type = kind->type;
    readNames(fields, item);
    item.builtIn = fields.flag("builtIn");
    item.installed = fields.flag("installed") || item.builtIn;
    item.order = fields.number("order");
    readFiles(fields, item);
    if (item.type == eCfgItem_Theme)
        readTheme(fields, where, item, faults);
    else
        readEffect(fields, item);
    checkDefinition(fields, item);
    fields.finish();
}
