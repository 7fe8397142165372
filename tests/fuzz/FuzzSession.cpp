// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "FuzzSession.h"

#include "FuzzTarget.h"
#include "Require.h"

namespace {

bool mayWarn = false;

void endAtWarning(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    const bool isWarning = type == QtWarningMsg || type == QtCriticalMsg;
    require(!isWarning || mayWarn, "Qt warns of no input", text);
}

} // namespace

FuzzSession::FuzzSession(std::unique_ptr<FuzzTarget> (*makeTarget)())
    : m_target(makeTarget())
{
    mayWarn = m_target->mayWarn();
    qInstallMessageHandler(&endAtWarning);
}

FuzzSession::~FuzzSession() = default;

void FuzzSession::feed(const QByteArray& input)
{
    m_target->run(input);
}
