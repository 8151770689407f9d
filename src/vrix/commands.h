#pragma once

#include "vrix/request.h"

// The commands, one function each. They take what they need from the run, write to it, and throw what vrix.cpp maps to
// an exit code.
namespace vrix::command {

ExitCode list(Run& run);
ExitCode show(Run& run);
ExitCode check(Run& run);
ExitCode compare(Run& run);
ExitCode exportProducts(Run& run);
ExitCode apply(Run& run);
ExitCode remove(Run& run);
ExitCode backups(Run& run);
ExitCode restore(Run& run);
ExitCode schema(Run& run);
ExitCode dscGet(Run& run);
ExitCode dscTest(Run& run);
ExitCode dscSet(Run& run);
ExitCode dscDelete(Run& run);
ExitCode dscExport(Run& run);
ExitCode dscSchema(Run& run);

}  // namespace vrix::command
