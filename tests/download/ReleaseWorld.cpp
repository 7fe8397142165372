// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/ReleaseWorld.h"

#include "download/ReleaseKey.h"
#include "download/ReleasePaths.h"
#include "host/ContentDigest.h"
#include "host/HostSettings.h"
#include "support/ReleaseTree.h"

#include <QDirIterator>

#include <sodium.h>

namespace {

unsigned char* bytesOf(QByteArray& text)
{
    return reinterpret_cast<unsigned char*>(text.data());
}

const unsigned char* bytesOf(const QByteArray& text)
{
    return reinterpret_cast<const unsigned char*>(text.constData());
}

QByteArray signedWith(const QByteArray& secret, const QByteArray& message)
{
    QByteArray signature(crypto_sign_BYTES, '\0');
    crypto_sign_detached(bytesOf(signature), nullptr, bytesOf(message),
                         static_cast<unsigned long long>(message.size()), bytesOf(secret));
    return signature;
}

QByteArray targetOf(const QString& path)
{
    return '/' + path.toUtf8();
}

} // namespace

SigningKey::SigningKey(char seed)
    : m_id(ReleaseKey::idBytes, seed)
    , m_public(crypto_sign_PUBLICKEYBYTES, '\0')
    , m_secret(crypto_sign_SECRETKEYBYTES, '\0')
{
    const QByteArray seeds(crypto_sign_SEEDBYTES, seed);
    crypto_sign_seed_keypair(bytesOf(m_public), bytesOf(m_secret), bytesOf(seeds));
}

QString SigningKey::publicKey() const
{
    return ReleaseKey(m_id, m_public).toText();
}

QByteArray SigningKey::sign(const QByteArray& content) const
{
    QByteArray digest(crypto_generichash_BYTES_MAX, '\0');
    crypto_generichash(bytesOf(digest), crypto_generichash_BYTES_MAX, bytesOf(content),
                       static_cast<unsigned long long>(content.size()), nullptr, 0);
    const QByteArray signature = signedWith(m_secret, digest);
    const QByteArray comment("a test");
    return "untrusted comment: a test\n" + ("ED" + m_id + signature).toBase64()
        + "\ntrusted comment: " + comment + '\n'
        + signedWith(m_secret, signature + comment).toBase64() + '\n';
}

void ReleaseWorld::freshRelease()
{
    fresh();
    m_files.clear();
    m_bodies = 0;
    install("1.0.2", "1", "1");
    hostSettings().releasePolicy = eRelease_Use;
    hostSettings().retryPauseMs = 10;
}

void ReleaseWorld::put(const QString& path, const QByteArray& content)
{
    m_files[path] = content;
    serve(targetOf(path), content);
    serve('/' + targetOf(path), content); // as the catalogue's files are requested
}

void ReleaseWorld::putCatalogue(const QByteArray& display, const QByteArray& config)
{
    const QString folder = QStringLiteral("ResourceConfig/");
    put(folder + QStringLiteral("resource_display.xml"), display);
    put(folder + QStringLiteral("resource_config.xml"), config);
    put(folder + QStringLiteral("resource_version_v3.xml"),
        version("1.0.2", md5(display), md5(config)));
}

void ReleaseWorld::publishRelease(qint64 serial, const SigningKey* key,
                                  const std::function<void(SRelease&)>& change)
{
    const ReleaseTree tree = ReleaseTree::of(m_files, serial, QStringLiteral("1.0.2"), change);
    for (auto file = tree.added.cbegin(); file != tree.added.cend(); ++file)
        serve(targetOf(file.key()), file.value());
    m_list = tree.list;
    serveRelease(tree.release);
    if (key)
        serve(signatureTarget(), key->sign(m_release));
}

void ReleaseWorld::publishList(qint64 serial, const QByteArray& list, const SigningKey* key)
{
    publishRelease(serial, key, [&](SRelease& release) {
        release.m_listBytes = list.size();
        release.m_listDigest = ContentDigest::ofBytes(list);
    });
    m_list = list;
    serve(targetOf(ReleasePaths::list()), list);
    serve(contentTarget(list), list);
}

void ReleaseWorld::serveRelease(const QByteArray& text)
{
    m_release = text;
    const QByteArray tag = '"' + ContentDigest::ofBytes(text) + '"';
    route(releaseTarget(), [this, text, tag](HttpExchange& exchange) {
        HttpAnswer answer(exchange.request().fields.value("if-none-match") == tag ? 304 : 200);
        answer.field("ETag", tag);
        if (exchange.request().fields.value("if-none-match") != tag) {
            ++m_bodies;
            answer.body(text);
        }
        exchange.answer(answer);
    });
}

QByteArray ReleaseWorld::signatureTarget() const
{
    return targetOf(ReleasePaths::signatureOf(ContentDigest::ofBytes(m_release)));
}

QByteArray ReleaseWorld::contentTarget(const QByteArray& content)
{
    return targetOf(ReleasePaths::content(ContentDigest::ofBytes(content)));
}

ECatalogueCheckEnd ReleaseWorld::check(QString* reason)
{
    CheckWorker_CfgAndDisplayXML worker;
    SCatalogueCheckResult result;
    worker.setResultCallback([&](const SCatalogueCheckResult& ended) { result = ended; });
    worker.onStartDownloadXML(QString());
    if (reason)
        *reason = result.m_qsReason;
    return result.m_eEnd;
}

QMap<QString, QByteArray> ReleaseWorld::tree() const
{
    QMap<QString, QByteArray> files;
    QDirIterator each(root(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (each.hasNext()) {
        const QString path = each.next();
        files[path] = CatalogueFiles::read(path);
    }
    return files;
}
