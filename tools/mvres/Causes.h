#pragma once

#include "host/STransferFailure.h"

class QJsonObject;

/// Failures as mvres reports them to programs.
namespace Causes {

/// Returns "diskFull", "noPermission", "localFile", "unreachable", "connectionLost", "notOnServer",
/// "serverError", "badAddress", "tooLarge", "damaged" or "cancelled"; empty for no failure.
QString word(EFailureCause cause);

/// Returns cause, readable text, address, local file and details.
QJsonObject toJson(const STransferFailure& failure);

} // namespace Causes
