// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Reads a server's version file as the check does.

#include "CatalogueWorld.h"
#include "download/CheckWorker_CfgAndDisplayXML.h"
#include "FuzzTarget.h"
#include "Require.h"
#include "WriteGuard.h"

namespace {

using Version = CheckWorker_CfgAndDisplayXML::SVersion;

constexpr int maxVersionBytes = 64 * 1024;

bool isSame(const Version& a, const Version& b)
{
    return a.m_qsVersion == b.m_qsVersion && a.m_qsVer_Display == b.m_qsVer_Display
        && a.m_qsVer_config == b.m_qsVer_config && a.bLoadXMLOK == b.bLoadXMLOK
        && a.m_hasVersion == b.m_hasVersion;
}

class VersionFileTarget : public FuzzTarget
{
public:
    void run(const QByteArray& input) override
    {
        const QString file = TestHome::path() + QStringLiteral("/version.xml");
        CatalogueFiles::write(file, input);
        const WriteGuard guard({});
        CheckWorker_CfgAndDisplayXML worker;
        Version first;
        worker.getVersionInfo(file, first);
        Version second = first;
        worker.getVersionInfo(file, second);
        require(isSame(first, second), "a version file reads the same every time");
        require(first.bLoadXMLOK || isEmpty(first), "a file that cannot be read announces nothing");
        require(!first.bLoadXMLOK || input.size() <= maxVersionBytes, "no large file is read");
        for (const QString& sum : {first.m_qsVer_Display, first.m_qsVer_config})
            require(sum == sum.toLower(), "checksums have lower case", sum);
        const int number = worker.readVersionFromXML(file);
        require(number == worker.readVersionFromXML(file), "a version has one number");
    }

private:
    static bool isEmpty(const Version& version)
    {
        return version.m_qsVersion.isEmpty() && version.m_qsVer_Display.isEmpty()
            && version.m_qsVer_config.isEmpty() && !version.m_hasVersion;
    }
};

} // namespace

MV_FUZZ_TARGET(VersionFileTarget, QCoreApplication)
