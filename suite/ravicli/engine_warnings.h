// The engine's side of its warnings: the one place that hands a warning to
// the handler a host set with RavicliSetWarningHandler.
#pragma once

namespace ravi {

void ReportWarning(short code);

}  // namespace ravi
