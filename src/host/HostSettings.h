#pragma once

#include "host/MvHostExport.h"

#include <QMap>
#include <QSet>
#include <QString>

/// Settings by which the embedding application configures the platform.
///
/// One instance per process, see hostSettings(). Write it on the GUI thread before the catalogue
/// (MVThemeMgr::init()) is created; from then on every thread reads it without a lock, so it must
/// not change while a download or a check runs.
///
/// Folders are absolute, use forward slashes and carry no trailing slash.
struct MVHOST_EXPORT HostSettings
{
    /// Folders from QStandardPaths, for the application name that QCoreApplication holds now.
    HostSettings();

    /// The settings that a new host should start from: those of the default constructor, with the
    /// better choice wherever there is one.
    ///
    ///     hostSettings() = HostSettings::recommended();
    static HostSettings recommended();

    /// The application's installed resources; the built-in catalogue lies in its "Resource" folder.
    QString resourcesPath;
    /// The user's own data: favourites are kept here.
    QString dataLocation;
    /// The application's working data: checks fetch into a temporary folder below it.
    QString appDataPath;
    /// Holds "testskin/Simple.gif", the placeholder animation.
    QString testOutputDir;
    /// Full tree of resources ("config/Themes", ...) out of which the built-in themes are extracted
    /// (BuiltinThemes); its last component is "Resource". Empty, the default: there is none.
    QString developerResourceRoot;
    /// Name of the active skin: one of Skins.h, by default the first; others are allowed.
    QString currentSkin;
    /// Screen scale factor, above 0. Leave it at 1.0 where Qt itself scales the user interface.
    double zoomDPI = 1.0;
    /// Numbers 1 to 5 of the partner editions that this product is; empty is the standard edition.
    QSet<int> partnerEditions;
    /// Product parameters by key, for example "url_themeRootDir" or "hasMV".
    QMap<QString, QString> productParams;

    /// True: only the left mouse button applies or downloads an item; the right one, and the menu
    /// key, ask the host for a context menu (mvThemelistview::contextMenuWanted()), others do
    /// nothing. False: any button applies or downloads. Recommended: true.
    bool leftButtonOnly = false;
    /// True: a download that ends after the user has chosen another item of the same kind leaves
    /// its item ready and does not apply it. False: it applies its item. Recommended: true.
    bool lastChoiceWins = false;
    /// True: a fetched file gets its name only if its content is plausible: XML is well-formed,
    /// pictures are PNG, JPEG or GIF, and ZIP archives begin as such. A theme's config file that
    /// cannot be parsed is fetched again. False: the content is not looked at. Recommended: true.
    bool checkContent = false;

    /// Milliseconds until a connection must stand (name look-up, TCP and TLS included).
    int connectTimeoutMs = 15000;
    /// Milliseconds for which a transfer may bring no byte. One that brings less than 1 kB/s over
    /// that time, header and trailer included, fails as well.
    int stallTimeoutMs = 30000;
    /// Milliseconds that the catalogue's version file may take in all.
    int versionTimeoutMs = 60000;
    /// Largest body that is accepted, in bytes.
    qint64 maxDownloadBytes = Q_INT64_C(2) * 1024 * 1024 * 1024;
    /// Number of retries after a transient failure; 0 turns them off.
    int downloadRetries = 2;
    /// Milliseconds before the first retry; each further pause is twice as long.
    int retryPauseMs = 500;
    /// Longest pause before a retry, also where the server asks for more (Retry-After).
    int retryPauseMaxMs = 5000;
    /// Proxy as libcurl takes it ("http://host:port"); empty: the environment decides.
    QString proxy;
    /// PEM file of certification authorities to trust instead of the system's; empty: the system's.
    QString caFile;
};

/// The settings of this process; alive until the process is gone, after static destruction too.
/// The first call fills in the defaults.
MVHOST_EXPORT HostSettings& hostSettings();

/// Reads an INI file (UTF-8) into hostSettings(); what the file does not name keeps its value.
///
///     [paths]    resources, data, appData, testOutput, developerResource
///                                                       (relative ones: relative to the file)
///     [ui]       skin, zoomDPI; leftButtonOnly, lastChoiceWins (true or false)
///     [product]  editions                               (comma separated, 1 to 5)
///     [params]   any key = value                        (the product parameters)
///     [network]  connectTimeoutMs, stallTimeoutMs, versionTimeoutMs, maxDownloadBytes,
///                downloadRetries, retryPauseMs, retryPauseMaxMs, proxy, caFile; checkContent (true
///                or false)
///
/// The file is UTF-8, with or without a byte order mark, and at most 1 MiB; its lines end in LF or
/// CR LF. Each is empty or one of these, where blanks (spaces and tabs) around it and around
/// sections, keys and values do not count:
///
///     [section]      starts a section; the same section may be started again
///     key = value    everything behind the first "=" is the value, taken literally: quotes inside
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
