// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Writes the manual page and the completions of the program whose table it is linked with.

#include "BashCompletion.h"
#include "FishCompletion.h"
#include "ManPage.h"
#include "ProgramTable.h"
#include "ZshCompletion.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdio>

namespace {

bool write(const QString& path, const QString& text)
{
    QFile file(path);
    const QByteArray bytes = text.toUtf8();
    if (QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly)
        && file.write(bytes) == bytes.size() && file.flush())
        return true;
    std::fprintf(stderr, "%s: %s\n", path.toLocal8Bit().constData(),
                 file.errorString().toLocal8Bit().constData());
    return false;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fputs("takes the folder to write into, a prefix such as /usr/share\n", stderr);
        return 2;
    }
    const ProgramTable& table = programTable();
    const QString share = QFile::decodeName(argv[1]) + QLatin1Char('/');
    const bool isWritten = write(share + QStringLiteral("man/man1/%1.1").arg(table.name),
                                 ManPage::of(table, QStringLiteral(MV_VERSION)))
        && write(share + QStringLiteral("bash-completion/completions/%1").arg(table.name),
                 BashCompletion::of(table))
        && write(share + QStringLiteral("zsh/site-functions/_%1").arg(table.name),
                 ZshCompletion::of(table))
        && write(share + QStringLiteral("fish/vendor_completions.d/%1.fish").arg(table.name),
                 FishCompletion::of(table));
    return isWritten ? 0 : 1;
}
