// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

class ItemIndex;
class ItemSurvey;

/// The survey of a set of items as mvres prints it.
namespace SurveyText {

/// Returns what an update fetches: "1 file, 1.2 kB", "2 files, 1.2 kB or more".
QString total(const ItemSurvey& survey);
/// Prints a line for each item, and below it one for each file that an update fetches.
void print(const ItemSurvey& survey, ItemIndex& index);
QJsonArray toJson(const ItemSurvey& survey);
/// Returns an object with the items, the number of files to fetch and their size.
QJsonObject toJsonWithTotals(const ItemSurvey& survey);

} // namespace SurveyText
