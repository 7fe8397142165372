// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "Mvpublish.h"
#include "SmallSource.h"
#include "support/TestTexts.h"

#include <QFileInfo>

#include <functional>

/// Changes of a source that mvpublish refuses, as data rows with "change" and "message".
namespace SourceFault {

using Change = std::function<void(const SmallSource&)>;

} // namespace SourceFault

Q_DECLARE_METATYPE(SourceFault::Change)

namespace SourceFault {

/// Return a change of one field of an item, and the value that removes the field.
inline Change set(const char* item, const char* key, const QJsonValue& value)
{
    return [=](const SmallSource& source) { source.set(text(item), key, value); };
}
inline QJsonValue nothing()
{
    return QJsonValue(QJsonValue::Undefined);
}

inline void addColumns()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<QByteArray>("message");
}

/// Verifies that the changed source of the current row is refused with its message, and that
/// nothing is written.
inline void verifyRefusal()
{
    QFETCH(Change, change);
    QFETCH(QByteArray, message);
    const SmallSource source(home("source"));
    change(source);
    const Outcome outcome = Mvpublish::run({text("build"), source.folder(), home("out")});
    QCOMPARE(outcome.err, "mvpublish: " + message + '\n');
    QCOMPARE(outcome.out, QByteArray());
    QCOMPARE(outcome.status, 1);
    QVERIFY(!QFileInfo::exists(home("out")));
}

} // namespace SourceFault
