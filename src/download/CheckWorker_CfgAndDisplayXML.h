// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/AcceptedRelease.h"
#include "download/EType_XML.h"
#include "download/ProgressReport.h"
#include "download/SCatalogueCheckResult.h"
#include "download/SCatalogueVersion.h"
#include "host/CancelToken.h"
#include "host/CurWrapper.h"
#include "host/SValidators.h"
#include "records/MvResourceExport.h"

#include <QObject>
#include <QString>

#include <functional>

class CheckTransfer;
class FileLock;
class ReleaseCheck;

/// Keeps the downloaded catalogue files current: one object does one check.
///
/// It fetches the server's version file, compares it with those on disk, fetches the changed files
/// into a temporary folder, verifies the announced checksums, and only then replaces the files of
/// the download tree, each atomically and the version file last. A check that fails, is cancelled
/// or killed leaves files that the next one compares and replaces; catalogue files of the download
/// tree that are missing or differ from the server's are fetched again. Checks of several processes
/// or roots that share the temporary folder wait for each other.
///
/// The object lives on a thread with an event loop; the slot runs there and blocks until the check
/// is over. cancel() may be called from any thread, as long as the object exists. Usually
/// MVThemeDownLoader_CheckCfg does all this.
class MVRESOURCE_EXPORT CheckWorker_CfgAndDisplayXML : public QObject
{
    Q_OBJECT

public:
    /// Content of a version file.
    using SVersion = SCatalogueVersion;
    /// Takes the outcome of a check.
    using ResultCallback = std::function<void(const SCatalogueCheckResult&)>;

    /// `cancel` belongs to the initiator of the operation, who may also cancel it by the token.
    explicit CheckWorker_CfgAndDisplayXML(CancelToken cancel = CancelToken());
    ~CheckWorker_CfgAndDisplayXML() override;

    /// Sets the callback invoked once per check with its outcome, on the worker's thread, before
    /// the last end signal; also by the check that sends none. Call it before the check starts.
    void setResultCallback(ResultCallback callback);
    /// Sets the callback invoked with the numbers of the run, on the worker's thread. Call it
    /// before the run starts.
    void setProgressCallback(ProgressReport::Callback callback);

    /// Cancels the check, even before it has begun. The transfer in progress ends as a failed one,
    /// and no other begins: the check ends instead. Files fetched and verified by then are still
    /// stored if nothing was left to fetch.
    void cancel();

    /// @name Steps of the check, on the worker's thread
    /// @{

    /// Sets, but never clears, the flags of files to fetch, by the version files read so far.
    void checkNeedUpdate(bool& needConfig, bool& needDisplay);
    /// Reads a version file, see VersionFile.
    void getVersionInfo(const QString& file, SVersion& out);
    /// Returns the "Version" of the first theme in a file, with its three parts a.b.c as a number
    /// of three digits; 0 if there is none.
    int readVersionFromXML(QString file);

    /// @}
    /// @name Places
    /// Folders end in "/".
    /// @{

    /// Returns the temporary folder of the check, which the next check removes when it begins.
    QString getDownLoadTemp();
    /// Returns a folder in it, creating it if missing.
    QString getSerDownLoadTemp_ThemeImgGif();
    /// Returns the path of a catalogue file in the temporary folder or the download tree, and
    /// creates its folder if it is missing; empty if that fails or the path would be outside the
    /// download root.
    QString getDownLoad_XML_Temp(EType_XML type, bool temp);
    /// Returns the root of the server: the product parameter "url_themeRootDir", which is fixed for
    /// the rest of the process once it is not empty. Any thread.
    static QString getSerThemeRootDir();
    /// Returns the address of a catalogue file for the edition of the product.
    QString getSerThemeXMLPath(EType_XML type);
    /// Returns the name of a catalogue file; empty for an unknown type.
    static QString EType_XML2Str(EType_XML type);

    /// @}

public slots:
    /// Runs the whole check; the text is ignored. Ends with sig_endDownloadXML, except if the
    /// server's version file announces no checksums.
    void onStartDownloadXML(const QString&);

signals:
    /// Emitted once at the end, and once more for each catalogue file that could not be fetched.
    /// Always true.
    void sig_endDownloadXML(bool);
    /// Declared for hosts; never emitted here.
    void sig_startDownloadThumbAndGif(QString);
    /// The server's catalogue needs a newer application.
    void sig_NeedUpdateApp();

private:
    struct CatalogueFile
    {
        EType_XML type;
        bool needed;
        QString checksum;
    };

    QString lockPath();
    bool lockFolder(FileLock& lock);
    bool acceptRelease(ReleaseCheck& check);
    void keepRelease(ReleaseCheck& check);
    ETransferResult fetchListed(CheckTransfer& transfer, const QString& url, const QString& file,
                                STransferFailure& failure);
    bool fetchVersion(CheckTransfer& transfer);
    ETransferResult fetchVersionFile(CheckTransfer& transfer, const QString& url,
                                     const QString& file, STransferFailure& failure);
    bool readVersions();
    void rememberVersion();
    bool isSameFormat();
    void fetchCatalogue(CheckTransfer& transfer, bool needConfig, bool needDisplay);
    bool fetchFile(CheckTransfer& transfer, const CatalogueFile& file, bool& hasError);
    bool isPublished(const CatalogueFile& file, const QString& url, const QString& fetched);
    void copyToDownload(bool needConfig, bool needDisplay);
    void copyFile(const CatalogueFile& file, const QString& to, const char* format,
                  bool& allCopied);
    bool storeFile(const QString& from, const QString& checksum, const QString& to);
    bool stopIfCancelled(int level, const QString& url, const QString& file);
    void note(ECatalogueCheckEnd end, const QString& reason = QString(),
              EFailureCause cause = eFailure_None);
    void noteFailure(ETransferResult result, const STransferFailure& failure, bool isVersion);
    void report();
    void end();

    SVersion m_sVer_Ser;
    SVersion m_sVer_Download;
    SVersion m_sVer_Local;
    QString m_qsVersionSum;             // MD5 of the server's version file as received
    SValidators m_versionValidators;    // of the server's version file, if it was sent
    AcceptedRelease::Pointer m_release; // of the server; null: the files need not be listed
    CancelToken m_bWillCancel;
    CurWrapper m_CurWrapper;

    SCatalogueCheckResult m_result; // keeps the first failure
    ResultCallback m_resultCallback;
    ProgressReport m_progress;
};
