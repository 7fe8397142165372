// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// faultprobe FUNCTION FOLDER: calls one function of the C library on the folder's content.
//
// Exit status: the errno of the call; 0 if it succeeded, 100 plus the number of bytes if it
// transferred some.

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <string>
#include <thread>
#include <vector>

#include <dirent.h>
#include <fcntl.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/uio.h>
#include <unistd.h>

namespace {

constexpr int bytesMoved = 100;
constexpr std::size_t length = 8;
constexpr mode_t readable = 0644;
constexpr int threadCount = 8;
constexpr int callsPerThread = 500;

std::string folder;

std::string in(const char* name)
{
    return folder + '/' + name;
}

int status(bool succeeded)
{
    return succeeded ? 0 : errno;
}

int moved(long count)
{
    return count < 0 ? errno : bytesMoved + static_cast<int>(count);
}

int openFile(int flags = O_RDWR)
{
    return ::open(in("file").c_str(), flags | O_CLOEXEC);
}

/// Returns a file open for writing, with bytes not yet flushed.
int writtenFile()
{
    const int file = openFile();
    return ::write(file, "12345678", length) == static_cast<ssize_t>(length) ? file : -1;
}

template <class Read>
int reading(Read read)
{
    std::array<char, length> bytes = {};
    return moved(read(openFile(), bytes.data()));
}

template <class Write>
int writing(Write write)
{
    return moved(write(openFile(), "abcdefgh"));
}

int streaming(const char* mode, bool writes)
{
    FILE* const stream = std::fopen(in("file").c_str(), mode);
    std::array<char, length> bytes = {};
    const std::size_t count = writes ? std::fwrite("abcdefgh", 1, length, stream)
                                     : std::fread(bytes.data(), 1, length, stream);
    return count == 0 && std::ferror(stream) != 0 ? errno : moved(static_cast<long>(count));
}

int closingStream()
{
    FILE* const stream = std::fopen(in("file").c_str(), "r+");
    std::fwrite("abcdefgh", 1, length, stream);
    return status(std::fclose(stream) == 0);
}

int closingDuplicate()
{
    const int file = writtenFile();
    const int first = status(::close(::fcntl(file, F_DUPFD_CLOEXEC, 0)) == 0);
    return first != 0 ? first : status(::close(file) == 0);
}

/// Runs the same operation on many threads at once.
int manyThreads()
{
    std::vector<std::thread> threads;
    threads.reserve(threadCount);
    for (int i = 0; i < threadCount; ++i) {
        threads.emplace_back([] {
            for (int call = 0; call < callsPerThread; ++call)
                ::close(openFile(O_RDONLY));
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    return 0;
}

/// Queries the free space, as a program does after a failed write.
int freeSpaceAfterFailure()
{
    struct statvfs space = {};
    ::close(::open(in("new").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, readable));
    return ::statvfs(folder.append("/.").c_str(), &space) == 0 && space.f_bavail == 0 ? ENOSPC : 0;
}

int accessAfterFailure()
{
    ::close(::open(in("new").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, readable));
    return status(::access(in("file").c_str(), W_OK) == 0);
}

using Acts = std::map<std::string, std::function<int()>>;

Acts openingActs()
{
    constexpr int create = O_WRONLY | O_CREAT | O_CLOEXEC;
    const auto opened = [](int file) { return status(file >= 0); };
    return {
        {"open", [=] { return opened(::open(in("file").c_str(), O_RDONLY | O_CLOEXEC)); }},
        {"open64", [=] { return opened(::open64(in("file").c_str(), O_RDONLY | O_CLOEXEC)); }},
        {"openat",
         [=] { return opened(::openat(::open(folder.c_str(), O_PATH), "file", O_RDWR)); }},
        {"openat64",
         [=] { return opened(::openat64(AT_FDCWD, in("new").c_str(), create, readable)); }},
        {"creat", [=] { return opened(::creat(in("new").c_str(), readable)); }},
        {"creat64", [=] { return opened(::creat64(in("new").c_str(), readable)); }},
        {"fopen", [] { return status(std::fopen(in("new").c_str(), "we") != nullptr); }},
        {"fopen64", [] { return status(::fopen64(in("file").c_str(), "re") != nullptr); }},
        {"mkstemp", [=] { return opened(::mkstemp(in("XXXXXX").data())); }},
        {"mkstemp64", [=] { return opened(::mkstemp64(in("XXXXXX").data())); }},
        {"mkostemp", [=] { return opened(::mkostemp(in("XXXXXX").data(), O_CLOEXEC)); }},
        {"unnamed",
         [=] { return opened(::open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, readable)); }},
        {"opendir",
         [] {
             DIR* const entries = ::opendir(in("full").c_str());
             return status(entries && ::closedir(entries) == 0);
         }},
        {"openfolder", [=] { return opened(::open(in("full").c_str(), O_RDONLY | O_DIRECTORY)); }},
        {"relative",
         [=] {
             return status(::chdir(in("full").c_str()) == 0) + opened(::open("../file", O_RDONLY));
         }},
    };
}

Acts dataActs()
{
    return {
        {"read", [] { return reading([](int f, char* b) { return ::read(f, b, length); }); }},
        {"pread", [] { return reading([](int f, char* b) { return ::pread(f, b, length, 0); }); }},
        {"pread64",
         [] { return reading([](int f, char* b) { return ::pread64(f, b, length, 0); }); }},
        {"fread", [] { return streaming("re", false); }},
        {"write",
         [] { return writing([](int f, const char* b) { return ::write(f, b, length); }); }},
        {"pwrite",
         [] { return writing([](int f, const char* b) { return ::pwrite(f, b, length, 0); }); }},
        {"pwrite64",
         [] { return writing([](int f, const char* b) { return ::pwrite64(f, b, length, 0); }); }},
        {"writev",
         [] {
             std::string a = "abcd";
             std::string b = "efgh";
             const std::array<iovec, 2> pieces{iovec{a.data(), a.size()},
                                               iovec{b.data(), b.size()}};
             return moved(::writev(openFile(), pieces.data(), 2));
         }},
        {"fwrite", [] { return streaming("r+e", true); }},
        {"sendfile",
         [] { return moved(::sendfile(openFile(), openFile(O_RDONLY), nullptr, length)); }},
        {"sendfile64",
         [] { return moved(::sendfile64(openFile(), openFile(O_RDONLY), nullptr, length)); }},
        {"copy_file_range",
         [] {
             const int to = ::open(in("full/inner").c_str(), O_WRONLY | O_CLOEXEC);
             return moved(::copy_file_range(openFile(O_RDONLY), nullptr, to, nullptr, length, 0));
         }},
        {"fsync", [] { return status(::fsync(writtenFile()) == 0); }},
        {"fdatasync", [] { return status(::fdatasync(writtenFile()) == 0); }},
        {"syncfs", [] { return status(::syncfs(openFile()) == 0); }},
        {"close", [] { return status(::close(writtenFile()) == 0); }},
        {"close after flush",
         [] {
             const int file = writtenFile();
             return status(::fsync(file) == 0 && ::close(file) == 0);
         }},
        {"close of a duplicate", closingDuplicate},
        {"fclose", closingStream},
        {"ftruncate", [] { return status(::ftruncate(openFile(), 4) == 0); }},
        {"ftruncate64", [] { return status(::ftruncate64(openFile(), 4) == 0); }},
        {"truncate", [] { return status(::truncate(in("file").c_str(), 4) == 0); }},
        {"truncate64", [] { return status(::truncate64(in("file").c_str(), 4) == 0); }},
        {"threads", manyThreads},
        {"statvfs", freeSpaceAfterFailure},
        {"access", accessAfterFailure},
    };
}

Acts nameActs()
{
    const auto done = [](int result) { return status(result == 0); };
    const auto from = [] { return in("file"); };
    const auto to = [] { return in("new"); };
    const auto now = std::array<timespec, 2>{};
    return {
        {"rename", [=] { return done(::rename(from().c_str(), to().c_str())); }},
        {"renameat",
         [=] { return done(::renameat(AT_FDCWD, from().c_str(), AT_FDCWD, to().c_str())); }},
        {"renameat2",
         [=] { return done(::renameat2(AT_FDCWD, from().c_str(), AT_FDCWD, to().c_str(), 0)); }},
        {"exchange",
         [=] {
             return done(::renameat2(AT_FDCWD, from().c_str(), AT_FDCWD, in("full").c_str(),
                                     RENAME_EXCHANGE));
         }},
        {"link", [=] { return done(::link(from().c_str(), to().c_str())); }},
        {"linkat",
         [=] { return done(::linkat(AT_FDCWD, from().c_str(), AT_FDCWD, to().c_str(), 0)); }},
        {"emptypath",
         [=] { return done(::linkat(openFile(), "", AT_FDCWD, to().c_str(), AT_EMPTY_PATH)); }},
        {"procpath",
         [=] {
             const std::string file = "/proc/self/fd/" + std::to_string(openFile());
             return done(
                 ::linkat(AT_FDCWD, file.c_str(), AT_FDCWD, to().c_str(), AT_SYMLINK_FOLLOW));
         }},
        {"symlink", [=] { return done(::symlink("file", to().c_str())); }},
        {"symlinkat", [=] { return done(::symlinkat("file", AT_FDCWD, to().c_str())); }},
        {"unlink", [=] { return done(::unlink(from().c_str())); }},
        {"unlinkat", [=] { return done(::unlinkat(AT_FDCWD, from().c_str(), 0)); }},
        {"remove", [=] { return done(std::remove(from().c_str())); }},
        {"mkdir", [=] { return done(::mkdir(to().c_str(), readable)); }},
        {"mkdirat", [=] { return done(::mkdirat(AT_FDCWD, to().c_str(), readable)); }},
        {"mkdir of what is there", [=] { return done(::mkdir(in("full").c_str(), readable)); }},
        {"rmdir", [=] { return done(::rmdir(in("empty").c_str())); }},
        {"chmod", [=] { return done(::chmod(from().c_str(), readable)); }},
        {"fchmod", [=] { return done(::fchmod(openFile(), readable)); }},
        {"fchmodat", [=] { return done(::fchmodat(AT_FDCWD, from().c_str(), readable, 0)); }},
        {"utimensat", [=] { return done(::utimensat(AT_FDCWD, from().c_str(), now.data(), 0)); }},
        {"futimens", [=] { return done(::futimens(openFile(), now.data())); }},
    };
}

} // namespace

int main(int argc, char** argv)
{
    constexpr int usage = 99;
    if (argc != 3)
        return usage;
    folder = argv[2];
    for (const Acts& acts : {openingActs(), dataActs(), nameActs()}) {
        const auto act = acts.find(argv[1]);
        if (act != acts.end())
            return act->second();
    }
    return usage;
}
