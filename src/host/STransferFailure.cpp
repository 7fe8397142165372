#include "host/STransferFailure.h"

#include <QCoreApplication>
#include <QDebug>

namespace {

const char* englishText(EFailureCause cause)
{
    switch (cause) {
    case eFailure_None:
        break;
    case eFailure_DiskFull:
        return QT_TRANSLATE_NOOP("STransferFailure", "the disk is full");
    case eFailure_NoPermission:
        return QT_TRANSLATE_NOOP("STransferFailure", "no permission to write the file");
    case eFailure_LocalFile:
        return QT_TRANSLATE_NOOP("STransferFailure", "the file cannot be written");
    case eFailure_Unreachable:
        return QT_TRANSLATE_NOOP("STransferFailure", "the server cannot be reached");
    case eFailure_ConnectionLost:
        return QT_TRANSLATE_NOOP("STransferFailure", "the connection to the server was lost");
    case eFailure_NotOnServer:
        return QT_TRANSLATE_NOOP("STransferFailure", "the file is not on the server");
    case eFailure_ServerError:
        return QT_TRANSLATE_NOOP("STransferFailure", "the server reports an error");
    case eFailure_BadAddress:
        return QT_TRANSLATE_NOOP("STransferFailure", "the file has no usable address");
    case eFailure_TooLarge:
        return QT_TRANSLATE_NOOP("STransferFailure", "the file is too large");
    case eFailure_Damaged:
        return QT_TRANSLATE_NOOP("STransferFailure", "the file on the server is damaged");
    case eFailure_Cancelled:
        return QT_TRANSLATE_NOOP("STransferFailure", "cancelled");
    }
    return "";
}

} // namespace

QString STransferFailure::causeText(EFailureCause cause)
{
    if (cause == eFailure_None)
        return {};
    return QCoreApplication::translate("STransferFailure", englishText(cause));
}

QDebug operator<<(QDebug debug, const STransferFailure& failure)
{
    const QDebugStateSaver saver(debug);
    debug.nospace().noquote() << "STransferFailure(" << int(failure.m_eCause) << ", "
                              << failure.m_qsDetails << ')';
    return debug;
}
