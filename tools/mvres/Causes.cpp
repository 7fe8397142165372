#include "Causes.h"

#include <QJsonObject>

namespace Causes {

QString word(EFailureCause cause)
{
    switch (cause) {
    case eFailure_None:
        break;
    case eFailure_DiskFull:
        return QStringLiteral("diskFull");
    case eFailure_NoPermission:
        return QStringLiteral("noPermission");
    case eFailure_LocalFile:
        return QStringLiteral("localFile");
    case eFailure_Unreachable:
        return QStringLiteral("unreachable");
    case eFailure_ConnectionLost:
        return QStringLiteral("connectionLost");
    case eFailure_NotOnServer:
        return QStringLiteral("notOnServer");
    case eFailure_ServerError:
        return QStringLiteral("serverError");
    case eFailure_BadAddress:
        return QStringLiteral("badAddress");
    case eFailure_TooLarge:
        return QStringLiteral("tooLarge");
    case eFailure_Damaged:
        return QStringLiteral("damaged");
    case eFailure_Cancelled:
        return QStringLiteral("cancelled");
    }
    return {};
}

QJsonObject toJson(const STransferFailure& failure)
{
    return {
        {QStringLiteral("cause"), word(failure.m_eCause)},
        {QStringLiteral("text"), failure.causeText()},
        {QStringLiteral("url"), failure.m_qsUrl},
        {QStringLiteral("file"), failure.m_qsFile},
        {QStringLiteral("details"), failure.m_qsDetails},
    };
}

} // namespace Causes
