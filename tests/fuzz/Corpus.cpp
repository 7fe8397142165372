// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Corpus.h"

#include "FuzzSession.h"

#include <QByteArray>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <cstdio>

#include <sys/resource.h>

namespace {

QStringList inputsIn(const QString& place)
{
    if (!QFileInfo(place).isDir())
        return {place};
    QStringList files;
    QDirIterator it(place, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        files.append(it.next());
    files.sort();
    return files;
}

/// Makes an input that needs too much memory end the test and not the machine. Under the address
/// sanitizer, whose own memory counts, only libFuzzer sets a limit.
void limitMemory()
{
#ifndef __SANITIZE_ADDRESS__
    constexpr rlim_t bytes = 1024 * 1024 * 1024;
    const rlimit limit = {bytes, bytes};
    ::setrlimit(RLIMIT_DATA, &limit);
#endif
}

bool feed(FuzzSession& session, const QString& name)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "%s: cannot be read\n", qPrintable(name));
        return false;
    }
    std::printf("%s\n", qPrintable(name));
    std::fflush(stdout);
    session.feed(file.readAll());
    return true;
}

} // namespace

int feedCorpus(std::unique_ptr<FuzzTarget> (*makeTarget)(), int argc, char** argv)
{
    QStringList inputs;
    for (int i = 1; i < argc; ++i)
        inputs += inputsIn(QFile::decodeName(argv[i]));
    if (inputs.isEmpty()) {
        std::fprintf(stderr, "no inputs\n"); // an empty corpus would prove nothing
        return 1;
    }
    limitMemory();
    static FuzzSession session(makeTarget);
    bool allRead = true;
    for (const QString& input : qAsConst(inputs))
        allRead = feed(session, input) && allRead;
    return allRead ? 0 : 1;
}
