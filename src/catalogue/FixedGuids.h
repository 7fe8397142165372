#pragma once

#include <QList>
#include <QString>

/// The 126 GUIDs of the items that every installation carries with it, in their fixed order: the
/// own config file of such an item is part of the application and is never fetched.
QList<QString> fixedGuids();
