// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/STransferFailure.h"

#include <QCoreApplication>
#include <QDebug>

namespace {

struct Words
{
    const char* name; ///< for programs
    const char* text; ///< in English
};

Words wordsOf(EFailureCause cause)
{
    switch (cause) {
    case eFailure_None:
        break;
    case eFailure_DiskFull:
        return {"diskFull", QT_TRANSLATE_NOOP("STransferFailure", "the disk is full")};
    case eFailure_NoPermission:
        return {"noPermission",
                QT_TRANSLATE_NOOP("STransferFailure", "no permission to write the file")};
    case eFailure_LocalFile:
        return {"localFile", QT_TRANSLATE_NOOP("STransferFailure", "the file cannot be written")};
    case eFailure_Unreachable:
        return {"unreachable",
                QT_TRANSLATE_NOOP("STransferFailure", "the server cannot be reached")};
    case eFailure_ConnectionLost:
        return {"connectionLost",
                QT_TRANSLATE_NOOP("STransferFailure", "the connection to the server was lost")};
    case eFailure_NotOnServer:
        return {"notOnServer",
                QT_TRANSLATE_NOOP("STransferFailure", "the file is not on the server")};
    case eFailure_ServerError:
        return {"serverError",
                QT_TRANSLATE_NOOP("STransferFailure", "the server reports an error")};
    case eFailure_BadAddress:
        return {"badAddress",
                QT_TRANSLATE_NOOP("STransferFailure", "the file has no usable address")};
    case eFailure_TooLarge:
        return {"tooLarge", QT_TRANSLATE_NOOP("STransferFailure", "the file is too large")};
    case eFailure_Damaged:
        return {"damaged",
                QT_TRANSLATE_NOOP("STransferFailure", "the file on the server is damaged")};
    case eFailure_Cancelled:
        return {"cancelled", QT_TRANSLATE_NOOP("STransferFailure", "cancelled")};
    }
    return {"", ""};
}

} // namespace

QString STransferFailure::causeText(EFailureCause cause)
{
    if (cause == eFailure_None)
        return {};
    return QCoreApplication::translate("STransferFailure", wordsOf(cause).text);
}

QString STransferFailure::causeName(EFailureCause cause)
{
    return QString::fromLatin1(wordsOf(cause).name);
}

QDebug operator<<(QDebug debug, const STransferFailure& failure)
{
    const QDebugStateSaver saver(debug);
    debug.nospace().noquote() << "STransferFailure(" << int(failure.m_eCause) << ", "
                              << failure.m_qsDetails << ')';
    return debug;
}
