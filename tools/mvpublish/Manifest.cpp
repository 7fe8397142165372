#include "Manifest.h"

#include "Editions.h"
#include "Guids.h"
#include "JsonFields.h"
#include "Kinds.h"

#include <algorithm>

namespace {

const QStringList& themeTypes()
{
    static const QStringList types{QStringLiteral("festivals"), QStringLiteral("travel"),
                                   QStringLiteral("banquets"), QStringLiteral("others")};
    return types;
}

SourceSlots readSlots(const QJsonObject& object, const QString& where, QStringList& faults)
{
    SourceSlots result;
    JsonFields part(object, where, faults);
    for (const auto& slot : Slots::all()) {
        const QByteArray key = slot.second.toLatin1();
        if (!part.has(key.constData()))
            continue;
        JsonFields use(part.object(key.constData()), where + QStringLiteral(": ") + slot.second,
                       faults);
        result.insert(slot.first, {use.needed("item"), use.map("attributes")});
        use.finish();
    }
    part.finish();
    return result;
}

/// The library reads the text slot of the ends and the filter slot of the mask, and no other.
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
    if (!item.themeType.isEmpty() && !themeTypes().contains(item.themeType))
        fields.fault(
            QStringLiteral("\"type\" is none of %1").arg(themeTypes().join(QStringLiteral(", "))));
    const QJsonArray scenes = fields.array("scenes");
    for (const QJsonValue& scene : scenes) {
        const QString number = QString::number(item.scenes.size() + 1);
        if (!scene.isObject())
            fields.fault(QStringLiteral("scene %1 is no object").arg(number));
        item.scenes.append(
            readSlots(scene.toObject(), where + QStringLiteral(": scene ") + number, faults));
    }
    item.start = readEdge(fields, "start", eDependType_Text, where, faults);
    item.end = readEdge(fields, "end", eDependType_Text, where, faults);
    item.mask = readEdge(fields, "mask", eDependType_Filter, where, faults);
}

void checkNames(JsonFields& fields, const SourceItem& item)
{
    const QStringList known = Editions::audiences() << Editions::installedAudience;
    for (auto it = item.names.constBegin(); it != item.names.constEnd(); ++it) {
        if (!known.contains(it.key()))
            fields.fault(QStringLiteral("\"names\": \"%1\" is none of %2")
                             .arg(it.key(), known.join(QStringLiteral(", "))));
    }
    QStringList shown = item.names.values();
    shown.append(item.name);
    const bool odd = std::any_of(shown.cbegin(), shown.cend(), [](const QString& name) {
        return std::any_of(name.cbegin(), name.cend(), [](QChar c) { return !c.isPrint(); });
    });
    if (odd)
        fields.fault(QStringLiteral("a name holds characters that cannot be shown"));
}

} // namespace

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
    const Kind* const kind = Kinds::byWord(word);
    if (!kind) {
        if (!word.isEmpty())
            fields.fault(QStringLiteral("\"kind\" is none of %1").arg(Kinds::words()));
        return;
    }
    item.type = kind->type;
    item.name = fields.needed("name");
    item.names = fields.map("names");
    checkNames(fields, item);
    item.builtIn = fields.flag("builtIn");
    item.installed = fields.flag("installed") || item.builtIn;
    item.order = fields.number("order");
    item.thumbnail =
        Kinds::needsThumbnail(item.type) ? fields.needed("thumbnail") : fields.text("thumbnail");
    item.animation =
        Kinds::needsAnimation(item.type) ? fields.needed("animation") : fields.text("animation");
    item.files = fields.texts("files");
    item.shared = fields.texts("shared");
    item.definition = fields.text("definition");
    if (item.type == eCfgItem_Theme) {
        readTheme(fields, where, item, faults);
    } else {
        item.isText = fields.flag("text");
        item.family = fields.text("family");
        item.parameters = fields.map("parameters");
    }
    fields.finish();
}
