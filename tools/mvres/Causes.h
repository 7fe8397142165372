#pragma once

#include "host/STransferFailure.h"

class QJsonObject;

/// Failures as mvres tells them to programs.
namespace Causes {

/// "diskFull", "noPermission", "localFile", "unreachable", "connectionLost", "notOnServer",
/// "serverError", "badAddress", "tooLarge", "damaged", "cancelled"; empty for no failure.
QString word(EFailureCause cause);

/// Cause, text for people, address, local file and details.
QJsonObject toJson(const STransferFailure& failure);

} // namespace Causes
