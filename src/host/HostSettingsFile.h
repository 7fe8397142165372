// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/IniReader.h"

#include <QString>
#include <QStringList>

#include <limits>

struct HostSettings;

/// Reads the INI form of HostSettings. Internal to the library; one object per reading.
class HostSettingsFile
{
public:
    explicit HostSettingsFile(const QString& iniFile);

    /// Sets the values in the file. On false `settings` may be partly changed; see errorText().
    bool readInto(HostSettings& settings);
    QString errorText() const { return m_ini.errorText(); }

    /// Returns the names of the release policies, in the order of EReleasePolicy.
    static QStringList releasePolicies();

private:
    struct Setting;
    static const Setting all[];

    bool readValue(const QString& key, const QString& text, HostSettings& settings);
    bool readPath(const QString& key, const QString& text, QString& target);
    bool readInteger(const QString& key, const QString& text, qint64 min, qint64 max,
                     qint64& target);
    bool readNumber(const QString& key, const QString& text, int min, int& target,
                    int max = std::numeric_limits<int>::max());
    bool readSwitch(const QString& key, const QString& text, bool& target);
    bool readZoom(const QString& text, double& target);
    bool readEditions(const QString& text, HostSettings& settings);
    bool readReleasePolicy(const QString& text, HostSettings& settings);
    bool fail(const QString& reason) { return m_ini.fail(m_line, reason); }

    QString m_iniFile;
    IniReader m_ini;
    int m_line = 0; // of the setting that is being read
};
