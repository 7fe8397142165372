// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Feeds a fuzzer's corpus to it once, in builds without libFuzzer.
//
//     tst_fuzz_NAME FILE|FOLDER...

#include <QByteArray>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <cstddef>
#include <cstdint>
#include <cstdio>

#include <sys/resource.h>

extern "C" int LLVMFuzzerInitialize(int* count, char*** arguments);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

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

bool feed(const QString& name)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "%s: cannot be read\n", qPrintable(name));
        return false;
    }
    std::printf("%s\n", qPrintable(name)); // the last name printed is that of the failing input
    std::fflush(stdout);
    const QByteArray input = file.readAll();
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.constData()),
                           static_cast<std::size_t>(input.size()));
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    QStringList inputs;
    for (int i = 1; i < argc; ++i)
        inputs += inputsIn(QFile::decodeName(argv[i]));
    if (inputs.isEmpty()) {
        std::fprintf(stderr, "no inputs\n"); // an empty corpus would prove nothing
        return 1;
    }
    limitMemory();
    LLVMFuzzerInitialize(&argc, &argv);
    bool allRead = true;
    for (const QString& input : qAsConst(inputs))
        allRead = feed(input) && allRead;
    return allRead ? 0 : 1;
}
