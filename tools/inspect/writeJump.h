#pragma once

#include "core/OspraModel.h"
#include "tools/inspect/JsonWriter.h"

namespace ospra {

/// Writes all that the screen of a jump is drawn from.
void writeJump(JsonWriter& json, const OspraModel& model);

} // namespace ospra
