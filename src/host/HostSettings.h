// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/MvHostExport.h"

#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

/// How a host deals with the releases of a server: signed lists of its files with their digests.
enum EReleasePolicy : int {
    /// They are not asked for.
    eRelease_Ignore,
    /// A check and every download accept only what the server's release names. A server without
    /// releases is used as with eRelease_Ignore, unless releaseKeys are set.
    eRelease_Use,
    /// A server without a release is refused, and a file that the release does not name.
    eRelease_Require,
};

/// The settings with which the embedding application configures the platform.
///
/// One instance per process, see hostSettings(). Write it on the GUI thread before the catalogue
/// (MVThemeMgr::init()) is created; from then on every thread reads it without a lock, so it must
/// not change while a download or a check runs.
///
/// Folders are absolute, use forward slashes and have no trailing slash.
struct MVHOST_EXPORT HostSettings
{
    /// Takes the folders from QStandardPaths, for the current application name of QCoreApplication.
    HostSettings();

    /// Returns the settings that a new host should start from: the defaults, with the better
    /// alternative of each option.
    ///
    ///     hostSettings() = HostSettings::recommended();
    static HostSettings recommended();

    /// The application's installed resources; the folder "Resource" in it contains the built-in
    /// catalogue.
    QString resourcesPath;
    /// The user's own data, including favourites.
    QString dataLocation;
    /// The application's working data: checks fetch into a temporary folder below it.
    QString appDataPath;
    /// Contains "testskin/Simple.gif", the placeholder animation.
    QString testOutputDir;
    /// Full tree of resources ("config/Themes", ...) from which the built-in themes are extracted
    /// (BuiltinThemes); its last component is "Resource". Empty, the default, means none.
    QString developerResourceRoot;
    /// Name of the active skin: one of Skins.h, by default the first, or a host's own.
    QString currentSkin;
    /// Screen scale factor, above 0. Leave it at 1.0 if Qt itself scales the user interface.
    double zoomDPI = 1.0;
    /// Numbers, 1 to 5, of the product's partner editions; empty for the standard edition.
    QSet<int> partnerEditions;
    /// Product parameters by key, for example "url_themeRootDir" or "hasMV".
    QMap<QString, QString> productParams;

    /// True: only the left mouse button applies or downloads an item; the right button and the menu
    /// key make it current and request a context menu (mvThemelistview::sigContextMenuRequested()),
    /// others do nothing. False: any button applies or downloads. Recommended: true.
    bool leftButtonOnly = false;
    /// True: a download that ends after the user has chosen another item of the same kind leaves
    /// its item ready without applying it. False: it applies its item. Recommended: true.
    bool lastChoiceWins = false;
    /// True: a resource list has cells for what is visible and one page around it. False: it has a
    /// cell for every row. Applies to lists created from then on, see
    /// mvThemelistview::setCellsOnDemand(). Recommended: true.
    bool cellsOnDemand = false;
    /// True: ThumbFrame decodes pictures on threads of its own and shows them when they are ready,
    /// so that decoding does not block the GUI thread. False: the paint event that needs a picture
    /// decodes it. Applies to pictures decoded from then on. Recommended: true.
    bool decodeInBackground = false;
    /// True: a fetched file is stored only if its content is plausible: XML is well-formed,
    /// pictures are PNG, JPEG or GIF, and ZIP archives begin like one. A theme's config file that
    /// cannot be parsed is fetched again. False: the content is not checked. Recommended: true.
    bool checkContent = false;
    /// True: items whose thumbnail or preview is not on disk yet are in the catalogue's lists, and
    /// are shown with a placeholder until it arrives. False: they are not. Recommended: true.
    bool showWithoutPreviews = false;
    /// True: a check requests the catalogue's version file only if it has changed since it was
    /// fetched (If-None-Match, If-Modified-Since). False: always. Recommended: true.
    bool conditionalRequests = false;
    /// Seconds, 0 to maxCheckSpreadSeconds: a check that a program starts by itself waits a random
    /// time of at most so long before its first request, so that programs that are started at the
    /// same moment do not reach the server together (CatalogueUpdate::startSpread()). 0: it begins
    /// at once.
    int checkSpreadSeconds = 0;
    /// The largest checkSpreadSeconds.
    static constexpr int maxCheckSpreadSeconds = 24 * 60 * 60;
    /// Recommended: eRelease_Use, or eRelease_Require with releaseKeys.
    EReleasePolicy releasePolicy = eRelease_Ignore;
    /// Public keys in the format of minisign, see ReleaseKey: a release must be signed by one of
    /// them. Empty: a release needs no signature.
    QStringList releaseKeys;
    /// Number of files that an item download or a preview run fetches at a time, 1 to
    /// maxTransfersSideBySide. With 1 they are fetched in order. Recommended: 6.
    int transfersSideBySide = 1;
    /// The largest transfersSideBySide.
    static constexpr int maxTransfersSideBySide = 32;
    /// Milliseconds that an item download pauses before each file, and at each of the ten steps of
    /// its simulated first phase; see DownloadPacing. Recommended: 0.
    int downloadStepMs = 500;

    /// Milliseconds in which a connection must be established (including name look-up, TCP and
    /// TLS).
    int connectTimeoutMs = 15000;
    /// Milliseconds that a transfer may be silent. A transfer of less than 1 kB/s over that time,
    /// header and trailer included, fails as well.
    int stallTimeoutMs = 30000;
    /// Milliseconds that the catalogue's version file may take in total.
    int versionTimeoutMs = 60000;
    /// Largest body that is accepted, in bytes.
    qint64 maxDownloadBytes = Q_INT64_C(2) * 1024 * 1024 * 1024;
    /// Number of retries after a transient failure; 0 disables them.
    int downloadRetries = 2;
    /// Milliseconds before the first retry; each further pause is twice as long.
    int retryPauseMs = 500;
    /// Longest pause before a retry, even if the server asks for more (Retry-After).
    int retryPauseMaxMs = 5000;
    /// Proxy in libcurl's form ("http://host:port"); if empty, the environment decides.
    QString proxy;
    /// PEM file of certification authorities to trust instead of the system's; empty: the system's.
    QString caFile;
};

/// Returns the settings of this process, which exist until the process ends, even after static
/// destruction. The first call sets the defaults.
MVHOST_EXPORT HostSettings& hostSettings();

/// Reads an INI file (UTF-8) into hostSettings(); settings not in the file keep their values.
///
///     [paths]    resources, data, appData, testOutput, developerResource
///                                                       (relative ones: relative to the file)
///     [ui]       skin, zoomDPI; leftButtonOnly, lastChoiceWins, cellsOnDemand,
///                showWithoutPreviews, decodeInBackground (true or false)
///     [product]  editions                               (comma separated, 1 to 5)
///     [params]   any key = value                        (the product parameters)
///     [network]  connectTimeoutMs, stallTimeoutMs, versionTimeoutMs, maxDownloadBytes,
///                downloadRetries, retryPauseMs, retryPauseMaxMs, transfersSideBySide,
///                downloadStepMs, checkSpreadSeconds, proxy, caFile; checkContent,
///                conditionalRequests (true or false)
///     [release]  policy (ignore, use or require), keys (comma separated)
///
/// The file is UTF-8, with or without a byte order mark, and at most 1 MiB; its lines end in LF or
/// CR LF. Each line is empty or one of these; blanks (spaces and tabs) around it and around
/// sections, keys and values are ignored:
///
///     [section]      starts a section; the same section may be started again
///     key = value    everything after the first "=" is the value, taken literally: quotes inside
///                    it, commas, semicolons, number signs and backslashes have no meaning
///     key = "value"  keeps the blanks within the quotes; \" is a quote in it, \\ a backslash
///     ; comment      on a line of its own only; "#" starts one, too
///
/// Sections and keys are case sensitive; each key may be set once per section.
///
/// Returns false, changes nothing and explains in `error` (may be null) when the file is missing,
/// unreadable, too large or not a regular file, or when one of its lines is malformed, sets a key
/// again, names an unknown key, or holds a value out of its range; `error` then starts with the
/// file's name and the line's number ("editor.ini:7: ").
/// GUI thread only, as for writing the settings.
MVHOST_EXPORT bool loadHostSettings(const QString& iniFile, QString* error);
