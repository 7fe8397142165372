// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/ECfgItemType.h"
#include "records/EDependType.h"

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

/// An item in a slot of a theme, with the attributes that the editor applies.
struct SourceUse
{
    QString item; ///< as named in the manifest; the GUID once the source has been read
    QMap<QString, QString> attributes;
};

/// The slots of one part of a theme.
using SourceSlots = QMap<EDependType, SourceUse>;

/// One item as described by its manifest. File names are relative to the item's folder.
struct SourceItem
{
    QString folder; ///< absolute
    QString path;   ///< the folder relative to the source, which names the item in messages
    ECfgItemType type = eCfgItem_Filter;
    QString guid;
    QString name;
    QMap<QString, QString> names; ///< other names by audience
    QString themeType;
    bool isText = false;
    bool builtIn = false;   ///< part of every installation, never fetched
    bool installed = false; ///< shown by the catalogue of an installation
    int order = 0;
    QString thumbnail;
    QString animation;
    QStringList files;  ///< published below the item's GUID
    QStringList shared; ///< relative to the source's folder "shared", published as they are named
    QString definition; ///< a file to publish as the item's definition; if empty, one is generated
    QString family;
    QMap<QString, QString> parameters;
    QVector<SourceSlots> scenes;
    SourceSlots start;
    SourceSlots end;
    SourceSlots mask;

    QString nameFor(const QString& audience) const { return names.value(audience, name); }
    QStringList uses() const;
};
