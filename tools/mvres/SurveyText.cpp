// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "SurveyText.h"

#include "catalogue/ItemIndex.h"
#include "Console.h"
#include "download/ItemSurvey.h"
#include "Items.h"
#include "States.h"
#include "Table.h"

namespace {

QJsonArray filesToJson(const QVector<ItemSurvey::File>& files)
{
    QJsonArray array;
    for (const ItemSurvey::File& file : files) {
        array.append(QJsonObject{
            {QStringLiteral("what"), Items::roleName(file.entry.role)},
            {QStringLiteral("path"), file.entry.path},
            {QStringLiteral("url"), file.entry.url},
            {QStringLiteral("state"), States::word(file.state)},
            {QStringLiteral("bytesToFetch"), static_cast<double>(file.bytes)},
        });
    }
    return array;
}

} // namespace

namespace SurveyText {

QString total(const ItemSurvey& survey)
{
    return Console::counted(survey.fileCount(), QStringLiteral("file")) + QStringLiteral(", ")
        + States::bytes(survey.bytes(), survey.areBytesKnown());
}

void print(const ItemSurvey& survey, ItemIndex& index)
{
    Table table;
    for (const ItemSurvey::Row& row : survey.rows()) {
        table.add({row.item->m_qsGUID, Items::kindName(row.item->m_eType), index.nameOf(*row.item),
                   States::size(row.state, row.missing),
                   row.missing > 0 ? States::text(row.state, row.missing)
                                   : States::word(row.state.m_eState)});
    }
    const QStringList lines = table.lines();
    for (int number = 0; number < lines.size(); ++number) {
        Console::print(lines.at(number));
        for (const ItemSurvey::File& file : survey.rows().at(number).files)
            Console::print(
                QStringLiteral("  %1 %2").arg(States::word(file.state), -8).arg(file.entry.path));
    }
}

QJsonArray toJson(const ItemSurvey& survey)
{
    QJsonArray array;
    for (const ItemSurvey::Row& row : survey.rows()) {
        QJsonObject object = Items::toJson(*row.item, row.missing);
        States::addTo(object, row.state);
        object.insert(QStringLiteral("files"), filesToJson(row.files));
        array.append(object);
    }
    return array;
}

QJsonObject toJsonWithTotals(const ItemSurvey& survey)
{
    return {{QStringLiteral("items"), toJson(survey)},
            {QStringLiteral("filesToFetch"), survey.fileCount()},
            {QStringLiteral("bytesToFetch"), static_cast<double>(survey.bytes())}};
}

} // namespace SurveyText
