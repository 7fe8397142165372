// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "tree/Archive.h"

#include "tree/FolderContent.h"

#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <array>
#include <memory>

#include <zip.h>

namespace Archive {

namespace {

constexpr zip_uint16_t firstDosDate = (1 << 5) | 1; // 1 January 1980, the format's first day
constexpr zip_uint32_t plainFile = 0100644U << 16;

struct Discard
{
    void operator()(zip_t* archive) const { zip_discard(archive); }
};
using Handle = std::unique_ptr<zip_t, Discard>;

QString openError(int code)
{
    zip_error_t error;
    zip_error_init_with_code(&error, code);
    QString text = QString::fromUtf8(zip_error_strerror(&error));
    zip_error_fini(&error);
    return text;
}

bool filesBelow(const QString& folder, QStringList& files, QString* error)
{
    QStringList paths;
    if (!FolderContent::paths(folder, paths, error))
        return false;
    for (const QString& path : qAsConst(paths)) {
        const QFileInfo entry(folder + QLatin1Char('/') + path);
        if (entry.isFile() && !entry.isSymLink())
            files.append(path);
    }
    return true;
}

bool add(zip_t* archive, const QString& file, const QString& name)
{
    zip_source_t* const source =
        zip_source_file(archive, QFile::encodeName(file).constData(), 0, -1);
    if (!source)
        return false;
    const zip_int64_t added =
        zip_file_add(archive, name.toUtf8().constData(), source, ZIP_FL_ENC_UTF_8);
    if (added < 0) {
        zip_source_free(source);
        return false;
    }
    const auto index = static_cast<zip_uint64_t>(added);
    return zip_set_file_compression(archive, index, ZIP_CM_DEFLATE, 9) == 0
        && zip_file_set_dostime(archive, index, 0, firstDosDate, 0) == 0
        && zip_file_set_external_attributes(archive, index, 0, ZIP_OPSYS_UNIX, plainFile) == 0;
}

/// Reads to the end, which verifies a file's checksum.
bool canUnpack(zip_t* archive, zip_uint64_t index)
{
    zip_file_t* const file = zip_fopen_index(archive, index, 0);
    if (!file)
        return false;
    std::array<char, 65536> part = {};
    zip_int64_t count = 0;
    do {
        count = zip_fread(file, part.data(), part.size());
    } while (count > 0);
    zip_fclose(file);
    return count == 0;
}

} // namespace

bool pack(const QString& folder, const QString& target, QString* error)
{
    QStringList files;
    if (!filesBelow(folder, files, error))
        return false;
    if (files.isEmpty()) {
        *error = QStringLiteral("%1 holds no files").arg(folder);
        return false;
    }
    int code = 0;
    Handle archive(zip_open(QFile::encodeName(target).constData(), ZIP_CREATE | ZIP_EXCL, &code));
    if (!archive) {
        *error = QStringLiteral("%1: %2").arg(target, openError(code));
        return false;
    }
    bool ok = true;
    for (const QString& file : qAsConst(files))
        ok = ok && add(archive.get(), folder + QLatin1Char('/') + file, file);
    if (ok && zip_close(archive.get()) == 0) {
        Q_UNUSED(archive.release()) // closing has freed it
        return true;
    }
    *error = QStringLiteral("%1: %2").arg(target, QString::fromUtf8(zip_strerror(archive.get())));
    return false;
}

bool isWhole(const QString& file, QString* error)
{
    int code = 0;
    const Handle archive(
        zip_open(QFile::encodeName(file).constData(), ZIP_RDONLY | ZIP_CHECKCONS, &code));
    if (!archive) {
        *error = openError(code);
        return false;
    }
    const zip_int64_t count = zip_get_num_entries(archive.get(), 0);
    for (zip_int64_t i = 0; i < count; ++i) {
        const auto index = static_cast<zip_uint64_t>(i);
        if (!canUnpack(archive.get(), index)) {
            *error = QStringLiteral("%1 cannot be unpacked")
                         .arg(QString::fromUtf8(zip_get_name(archive.get(), index, 0)));
            return false;
        }
    }
    return true;
}

} // namespace Archive
