// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Defines the entry points that libFuzzer calls; without libFuzzer, CorpusMain does.

#include "FuzzTarget.h"
#include "Require.h"
#include "support/TestMain.h"

#include <cstddef>
#include <cstdint>

namespace {

FuzzTarget* target = nullptr;

void endAtWarning(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    const bool isWarning = type == QtWarningMsg || type == QtCriticalMsg;
    require(!isWarning || target->mayWarn(), "Qt warns of no input", text);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    static const TestHome home;
    static const std::unique_ptr<FuzzTarget> owned = makeFuzzTarget();
    target = owned.get();
    qInstallMessageHandler(&endAtWarning);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    target->run(QByteArray(reinterpret_cast<const char*>(data), static_cast<int>(size)));
    return 0;
}
