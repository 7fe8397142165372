// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "support/TestFonts.h"

#include <QFile>

namespace {

/// %1 is the folder of the fonts, %2 that of fontconfig's cache. Hinting and smoothing are as in
/// most distributions.
const char* const configuration = R"(<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig>
  <dir>%1</dir>
  <cachedir>%2</cachedir>
  <alias>
    <family>sans-serif</family>
    <prefer><family>DejaVu Sans</family><family>Droid Sans Fallback</family></prefer>
  </alias>
  <match target="pattern">
    <edit name="antialias" mode="assign"><bool>true</bool></edit>
    <edit name="hinting" mode="assign"><bool>true</bool></edit>
    <edit name="hintstyle" mode="assign"><const>hintslight</const></edit>
    <edit name="rgba" mode="assign"><const>none</const></edit>
  </match>
</fontconfig>
)";

} // namespace

void TestFonts::useOnly(const QString& home)
{
    const QString path = home + QStringLiteral("/fonts.conf");
    const QString cache = home + QStringLiteral("/fontcache");
    QFile file(path);
    const QByteArray text = QString::fromLatin1(configuration)
                                .arg(folder().toHtmlEscaped(), cache.toHtmlEscaped())
                                .toUtf8();
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("%s cannot be written", qPrintable(path));
    qputenv("FONTCONFIG_FILE", QFile::encodeName(path));
    qputenv("QT_QPA_FONTDIR", QFile::encodeName(folder())); // for systems without fontconfig
    for (const char* other : {"FONTCONFIG_PATH", "FONTCONFIG_SYSROOT", "FC_LANG"})
        qunsetenv(other);
}

QString TestFonts::folder()
{
    return QStringLiteral(MV_TEST_FONTS);
}
